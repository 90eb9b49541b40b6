/* SPDX-License-Identifier: Apache-2.0 */
#ifndef OV_SYLVAR_PRODUCERS_SUITES_SCENE_HPP
#define OV_SYLVAR_PRODUCERS_SUITES_SCENE_HPP

#include <OvSylvarProducers/suites/ScenegraphIteratorSuite.h>
#include <SylvarPlatform/suites/AttributeSuite.h>
#include <SylvarPlatform/suites/HostTable.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <iterator>
#include <limits>
#include <new>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <variant>

/// The scene of a host for plug-ins in C++17: the plain tables with ownership, ranges and types.
/// A header alone: who includes it links nothing of ours. It needs exceptions, since what a host
/// throws ends here, but no run-time type information.
///
///     const Expected<Scene> scene = Scene::find(*host);
///     const Expected<Location> root = scene->openFile("demo.optree.json");
///     Location::Children children = root->children();
///     for (const Location& child : children) {
///         use(child.fullName(), child.values<float>("geometry.points"));
///     }
///     if (children.error()) { ... }  // the loop ended before its time
///
/// - What is not there is an empty value: a `Location`, an `Attribute` or `Values` that is false or
///   has no elements. It may be asked anything, and answers with more of the same.
/// - What goes wrong in the host is an `Error`, as a value. Nothing here throws, but for
///   std::bad_alloc when memory runs out.
/// - Any number of threads may call the const functions of one `Location`, `Attribute`, `Values` or
///   `Scene` at once, and copy or `share` it. What changes an object (an assignment, a move,
///   `detach`, a loop over a range) is for one thread that has it alone, as with a pointer.
/// - A `Text` ends at its first NUL; a null pointer reads as "".
namespace SYLVAR::Suites {

/// What went wrong, for a person to read.
class Error {
public:
    explicit Error(std::string message) noexcept : message_(std::move(message)) {}
    const std::string& message() const noexcept { return message_; }

private:
    std::string message_;
};

/// A value, or why there is none. True when nothing went wrong: a value that is empty in itself, as
/// the location that a step did not find, is a value.
template <class T>
class [[nodiscard]] Expected {
public:
    // Both are meant to happen on their own, in a return: NOLINTBEGIN(google-explicit-constructor)
    Expected(T value) noexcept : state_(std::in_place_index<0>, std::move(value)) {}
    Expected(Error error) noexcept : state_(std::in_place_index<1>, std::move(error)) {}
    // NOLINTEND(google-explicit-constructor)

    explicit operator bool() const noexcept { return state_.index() == 0; }

    /// The value, which must be there.
    T& operator*() & noexcept { return *std::get_if<0>(&state_); }
    const T& operator*() const& noexcept { return *std::get_if<0>(&state_); }
    T&& operator*() && noexcept { return std::move(*std::get_if<0>(&state_)); }
    T* operator->() noexcept { return std::get_if<0>(&state_); }
    const T* operator->() const noexcept { return std::get_if<0>(&state_); }

    /// The error, which must be there.
    const Error& error() const noexcept { return *std::get_if<1>(&state_); }

private:
    std::variant<T, Error> state_;
};

/// Done, or why not.
template <>
class [[nodiscard]] Expected<void> {
public:
    Expected() noexcept = default;
    // Meant to happen in a return: NOLINTNEXTLINE(google-explicit-constructor)
    Expected(Error error) noexcept : error_(std::move(error)) {}

    explicit operator bool() const noexcept { return !error_; }

    /// The error, which must be there.
    const Error& error() const noexcept { return *error_; }

private:
    std::optional<Error> error_;
};

/// A text that is borrowed for one call: "literal" or std::string.
class Text {
public:
    // Stands for the text in arguments: NOLINTBEGIN(google-explicit-constructor)
    Text(const char* text) noexcept : text_(text ? text : "") {}
    Text(const std::string& text) noexcept : text_(text.c_str()) {}
    // NOLINTEND(google-explicit-constructor)
    const char* get() const noexcept { return text_; }

private:
    const char* text_;
};

// ---- Attributes ---------------------------------------------------------------------------------

/// What an attribute holds.
enum class Kind : std::int32_t {
    Null = 0,
    Int = OV_ATTRIBUTE_INT,
    Float = OV_ATTRIBUTE_FLOAT,
    Double = OV_ATTRIBUTE_DOUBLE,
    String = OV_ATTRIBUTE_STRING,
    Group = OV_ATTRIBUTE_GROUP
};

template <class T>
class Values;
template <class T>
class Samples;

/// An immutable value of a scene, or the null attribute, which is false. A copy is another
/// reference to the same value.
///
/// T is std::int32_t, float, double, or a string: std::string where one value is given, const char*
/// where the values stay in place. An attribute of another kind than T reads as the null one.
class Attribute {
public:
    class Children;

    Attribute() noexcept = default;

    /// Takes over the caller's reference.
    static Attribute adopt(const OvAttributeSuite& suite, OvAttributeStruct* owned) noexcept {
        return Attribute(suite, owned);
    }

    /// Adds a reference to a borrowed handle.
    static Attribute share(const OvAttributeSuite& suite, OvAttributeStruct* borrowed) noexcept;

    Attribute(const Attribute& other) noexcept;
    Attribute(Attribute&& other) noexcept;
    Attribute& operator=(Attribute other) noexcept;
    ~Attribute();

    explicit operator bool() const noexcept { return handle_ != nullptr; }
    Kind kind() const noexcept;

    /// The value at `index` of the sample nearest `time`, or `otherwise`.
    template <class T>
    T get(T otherwise, std::int64_t index = 0, float time = 0.0F) const;
    std::string get(const char* otherwise, std::int64_t index = 0, float time = 0.0F) const;

    /// The sample nearest `time`, not copied; of two that are as near, the earlier one.
    template <class T>
    Values<T> values(float time = 0.0F) const;

    /// All samples.
    template <class T>
    Samples<T> samples() const;

    /// How many values belong together, 3 in a list of points; 0 for a group.
    std::int64_t tupleSize() const noexcept;

    /// Of a group, for range-for: `for (const auto& [name, value] : attribute.children())`.
    Children children() const;

    /// Of a group: how many children it has; and one of them, where a dot steps into a group.
    std::int64_t childCount() const noexcept;
    Attribute child(std::string_view name) const;
    Attribute child(std::int64_t index) const;

    /// The name of a child, good for as long as somebody holds the group; "" when it is not there.
    std::string_view childName(std::int64_t index) const noexcept;

    /// The handle for the tables, borrowed; or with the reference, which the caller gives back.
    OvAttributeStruct* handle() const noexcept { return handle_; }
    OvAttributeStruct* detach() noexcept { return std::exchange(handle_, nullptr); }

private:
    template <class T>
    friend class Samples;

    Attribute(const OvAttributeSuite& suite, OvAttributeStruct* owned) noexcept
        : suite_(&suite), handle_(owned) {}

    const OvAttributeSuite* suite_ = nullptr;  // set wherever there is a handle
    OvAttributeStruct* handle_ = nullptr;
};

/// The values of one sample where they lie. Keeps the attribute; a copy copies no values.
template <class T>
class Values {
public:
    using value_type = T;
    using const_iterator = const T*;

    Values() noexcept = default;

    const T* begin() const noexcept { return data_; }
    const T* end() const noexcept { return data_ + size_; }
    const T* data() const noexcept { return data_; }
    std::size_t size() const noexcept { return size_; }
    bool empty() const noexcept { return size_ == 0; }

    /// The value at `index`, which must be there.
    const T& operator[](std::size_t index) const noexcept { return data_[index]; }

private:
    friend class Samples<T>;
    Values(Attribute attribute, const T* data, std::int64_t size) noexcept
        : attribute_(std::move(attribute)), data_(data), size_(static_cast<std::size_t>(size)) {}

    Attribute attribute_;
    const T* data_ = nullptr;
    std::size_t size_ = 0;
};

/// All samples of an attribute, in the order of the attribute. Stays where it was made.
template <class T>
class Samples {
public:
    ~Samples();
    Samples(const Samples&) = delete;
    Samples& operator=(const Samples&) = delete;

    std::size_t size() const noexcept;

    /// Of sample `index`, which must be there.
    float time(std::size_t index) const noexcept { return table_->times[index]; }
    Values<T> operator[](std::size_t index) const noexcept;

    /// The values of the sample nearest `time`, of which there may be none.
    Values<T> nearest(float time) const noexcept;

private:
    friend class Attribute;
    explicit Samples(const Attribute& attribute);

    Attribute attribute_;
    OvSampleTableBuffer buffer_{};
    OvSampleTable* table_ = nullptr;
};

/// The children of a group in their order. Keeps the group.
class Attribute::Children {
public:
    /// One child; the name is good for as long as somebody holds the group.
    struct Child {
        std::string_view name;
        Attribute value;
    };

    class Iterator {
    public:
        using iterator_category = std::input_iterator_tag;
        using value_type = Child;
        using difference_type = std::ptrdiff_t;
        using pointer = const Child*;
        using reference = Child;

        Child operator*() const { return {group_->childName(index_), group_->child(index_)}; }
        Iterator& operator++() noexcept {
            ++index_;
            return *this;
        }
        bool operator==(const Iterator& other) const noexcept { return index_ == other.index_; }
        bool operator!=(const Iterator& other) const noexcept { return index_ != other.index_; }

    private:
        friend class Children;
        Iterator(const Attribute& group, std::int64_t index) noexcept
            : group_(&group), index_(index) {}

        const Attribute* group_;
        std::int64_t index_;
    };

    Iterator begin() const noexcept { return Iterator(group_, 0); }
    Iterator end() const noexcept { return Iterator(group_, group_.childCount()); }

private:
    friend class Attribute;
    explicit Children(Attribute group) noexcept : group_(std::move(group)) {}

    Attribute group_;
};

// ---- Locations ----------------------------------------------------------------------------------

/// Whether a location that is stepped to is dropped from the runtime's cache and cooked anew.
enum class Evict : std::uint8_t { No, Yes };

/// A location of a scene, or the absent one, which is false. It owns one reference to its handle,
/// whatever the count was that the handle came with, and is moved, not copied.
///
/// It is a snapshot: what it tells does not change. Steps cook, so they may find an error: a step
/// that leads nowhere is no error but an absent location. What is told of the location itself is
/// there already; a host that throws there all the same is taken to have nothing.
class Location {
public:
    class Children;

    Location() noexcept = default;
    Location(const Location&) = delete;
    Location(Location&& other) noexcept;
    Location& operator=(Location other) noexcept;
    ~Location();

    /// Another one of the same handle: how to keep what somebody else owns.
    Location share() const noexcept;

    explicit operator bool() const noexcept { return handle_ != nullptr; }

    /// @name Steps
    /// What a step finds is asked for twice, whether it went well and whether it led anywhere:
    ///
    ///     if (const auto child = location.child("geo"); child && *child) { use(*child); }
    /// @{
    Expected<Location> firstChild(Evict evict = Evict::No) const;
    Expected<Location> nextSibling(Evict evict = Evict::No) const;
    Expected<Location> parent() const;
    Expected<Location> root() const;

    /// One step down by name; "." and ".." are this one and the one above. A name with a "/" in it
    /// is an error.
    Expected<Location> child(Text name, Evict evict = Evict::No) const;

    /// The location at a path that begins with this location's own name, "." or "..": from /root,
    /// "/root/world". `evict` reaches the last step alone.
    Expected<Location> at(Text path, Evict evict = Evict::No) const;

    /// The children that exist, for range-for.
    Children children(Evict evict = Evict::No) const;
    /// @}

    /// @name What the location tells
    /// @{
    std::string name() const;
    std::string fullName() const;

    /// The string attribute "type"; "" when there is none.
    std::string type() const;

    /// An attribute of this location; a dot steps into a group.
    Attribute attribute(Text name) const;

    /// All attributes in a group, and their names, sorted.
    Attribute attributes() const;
    Values<const char*> attributeNames() const;

    /// As the functions of `Attribute`: get("info.weight", 1.0F), get("info.maker", "nobody").
    template <class T>
    T get(Text name, T otherwise, std::int64_t index = 0, float time = 0.0F) const;
    std::string get(Text name,
                    const char* otherwise,
                    std::int64_t index = 0,
                    float time = 0.0F) const;
    template <class T>
    Values<T> values(Text name, float time = 0.0F) const;

    /// The names of the children that it may have.
    Values<const char*> potentialChildren() const;
    /// @}

    /// @name What it tells with the locations above
    /// @{

    /// An attribute with those above considered: the nearest location that has it wins, and groups
    /// with group inherit on are merged.
    Expected<Attribute> globalAttribute(Text name) const;

    /// The attributes "xform" from the top down to this location: a group with the children "i0",
    /// "i1", ... by depth.
    Expected<Attribute> globalXForm() const;
    /// @}

    /// The end of a render: the scene's runtime waits for what is being cooked and drops what was,
    /// unless a live render goes on. Locations stay good to be destroyed.
    Expected<void> finalize() const;

    /// The handle for the table, borrowed; or with the reference, which the caller gives back.
    OvSgIteratorStruct* handle() const noexcept { return handle_; }
    OvSgIteratorStruct* detach() noexcept { return std::exchange(handle_, nullptr); }

private:
    friend class Scene;

    using Suite = OvScenegraphIteratorSuite;

    Location(const Suite& suite,
             const OvAttributeSuite& attributes,
             OvSgIteratorStruct* owned) noexcept
        : suite_(&suite), attributes_(&attributes), handle_(owned) {}

    template <class... Args, class... Given>
    Expected<Location> step(OvSgIteratorStruct* (*Suite::*entry)(OvSgIteratorStruct*, Args...),
                            Given... given) const;
    template <class... Args, class... Given>
    Expected<Attribute> ask(OvAttributeStruct* (*Suite::*entry)(OvSgIteratorStruct*, Args...),
                            Given... given) const;
    template <class... Args, class... Given>
    Attribute tell(OvAttributeStruct* (*Suite::*entry)(OvSgIteratorStruct*, Args...),
                   Given... given) const;

    const Suite* suite_ = nullptr;  // both set wherever there is a handle
    const OvAttributeSuite* attributes_ = nullptr;
    OvSgIteratorStruct* handle_ = nullptr;
};

/// The children of a location that exist, one after the other; absent ones are passed over. Each
/// `begin` starts with the first child. Keeps the location, and stays where it was made.
///
/// The child that a loop is at belongs to the range, which needs it for the next step: a loop keeps
/// it with `share`. An error ends the loop; a range that has a name can be asked for it:
///
///     Location::Children children = location.children();
///     for (const Location& child : children) { ... }
///     if (children.error()) { ... }
class Location::Children {
public:
    /// Single pass: all iterators of a range are at the same child.
    class Iterator {
    public:
        using iterator_category = std::input_iterator_tag;
        using value_type = Location;
        using difference_type = std::ptrdiff_t;
        using pointer = const Location*;
        using reference = const Location&;

        reference operator*() const noexcept { return range_->here_; }
        pointer operator->() const noexcept { return &range_->here_; }
        Iterator& operator++() {
            range_->advance();
            return *this;
        }
        void operator++(int) { range_->advance(); }
        bool operator==(const Iterator& other) const noexcept { return isEnd() == other.isEnd(); }
        bool operator!=(const Iterator& other) const noexcept { return isEnd() != other.isEnd(); }

    private:
        friend class Children;
        explicit Iterator(Children* range) noexcept : range_(range) {}
        bool isEnd() const noexcept { return !range_ || !range_->here_; }

        Children* range_;
    };

    Children(const Children&) = delete;
    Children& operator=(const Children&) = delete;

    Iterator begin();
    Iterator end() noexcept { return Iterator(nullptr); }

    /// What ended the last loop before its time; null when nothing did.
    const Error* error() const noexcept { return error_ ? &*error_ : nullptr; }

private:
    friend class Location;
    Children(Location parent, Evict evict) noexcept : parent_(std::move(parent)), evict_(evict) {}

    void advance() { goTo(here_.nextSibling(evict_)); }
    void goTo(Expected<Location> next);

    Location parent_;
    Location here_;
    std::optional<Error> error_;
    Evict evict_;
};

// ---- The scene ----------------------------------------------------------------------------------

/// Where scenes come from: the two tables. Any thread may use it.
class Scene {
public:
    /// The tables of a host. An error when it lacks one: `the host has no suite "Attribute",
    /// version 1`.
    static Expected<Scene> find(const OvHostTable& host);

    /// Over two tables that live as long as all that comes of them.
    Scene(const OvScenegraphIteratorSuite& suite, const OvAttributeSuite& attributes) noexcept
        : suite_(&suite), attributes_(&attributes) {}

    /// The location /root of the scene that an op tree describes: never absent, but an error when
    /// it cannot be made, of which the host's log tells more. The op tree is a group, borrowed.
    Expected<Location> openFile(Text opTreeFile) const;
    Expected<Location> openOpTree(OvAttributeStruct* opTree) const;

    /// The group that an op tree file holds, with nothing built or cooked; null when it holds none.
    Expected<Attribute> describeFile(Text opTreeFile) const;

    /// A location of a handle with the caller's reference, which it takes over; of a borrowed one,
    /// to which it adds a reference.
    Location adopt(OvSgIteratorStruct* owned) const noexcept;
    Location share(OvSgIteratorStruct* borrowed) const noexcept;

private:
    Expected<Location> open(Expected<OvSgIteratorStruct*> root) const;

    const OvScenegraphIteratorSuite* suite_;
    const OvAttributeSuite* attributes_;
};

// ---- What follows is how it is done -------------------------------------------------------------

namespace Detail {

/// What `call` gives; what it throws, but for lack of memory, as an error.
template <class Call>
auto caught(Call call) -> Expected<decltype(call())> {
    try {
        return call();
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& thrown) {
        return Error(thrown.what());
    } catch (...) {
        return Error("the host threw what is no std::exception");
    }
}

/// The same where a call gives nothing.
template <class Call>
Expected<void> done(Call call) {
    const auto called = caught([&] {
        call();
        return true;
    });
    return called ? Expected<void>() : called.error();
}

/// What `call` tells of what is there already; nothing when the host throws all the same.
template <class Call>
auto told(Call call) -> decltype(call()) {
    auto answer = caught(call);
    return answer ? *std::move(answer) : decltype(call())();
}

/// A function table of the host.
template <class Suite>
Expected<const Suite*> findSuite(const OvHostTable& host, const char* name, std::uint32_t version) {
    const auto* const suite = static_cast<const Suite*>(host.findSuite(name, version));
    if (!suite) {
        return Error("the host has no suite \"" + std::string(name) + "\", version " +
                     std::to_string(version));
    }
    return suite;
}

/// How values of type T lie in an attribute.
template <class T>
struct Stored;
template <>
struct Stored<std::int32_t> {
    using Value = std::int32_t;
    static constexpr std::int32_t kType = OV_ATTRIBUTE_INT;
    static constexpr auto kNearest = &OvAttributeSuite::getNearestInt;
};
template <>
struct Stored<float> {
    using Value = float;
    static constexpr std::int32_t kType = OV_ATTRIBUTE_FLOAT;
    static constexpr auto kNearest = &OvAttributeSuite::getNearestFloat;
};
template <>
struct Stored<double> {
    using Value = double;
    static constexpr std::int32_t kType = OV_ATTRIBUTE_DOUBLE;
    static constexpr auto kNearest = &OvAttributeSuite::getNearestDouble;
};
template <>
struct Stored<const char*> {
    static constexpr std::int32_t kType = OV_ATTRIBUTE_STRING;
};
template <>
struct Stored<std::string> {
    using Value = const char*;
    static constexpr auto kNearest = &OvAttributeSuite::getNearestString;
};

}  // namespace Detail

inline Attribute Attribute::share(const OvAttributeSuite& suite,
                                  OvAttributeStruct* borrowed) noexcept {
    suite.retain(borrowed);
    return Attribute(suite, borrowed);
}

inline Attribute::Attribute(const Attribute& other) noexcept
    : suite_(other.suite_), handle_(other.handle_) {
    if (handle_) {
        suite_->retain(handle_);
    }
}

inline Attribute::Attribute(Attribute&& other) noexcept
    : suite_(other.suite_), handle_(other.detach()) {}

inline Attribute& Attribute::operator=(Attribute other) noexcept {
    std::swap(suite_, other.suite_);
    std::swap(handle_, other.handle_);
    return *this;
}

inline Attribute::~Attribute() {
    if (handle_) {
        suite_->release(handle_);
    }
}

inline Kind Attribute::kind() const noexcept {
    return handle_ ? static_cast<Kind>(suite_->getType(handle_)) : Kind::Null;
}

template <class T>
T Attribute::get(T otherwise, std::int64_t index, float time) const {
    typename Detail::Stored<T>::Value value{};
    const auto nearest = Detail::Stored<T>::kNearest;
    if (!handle_ || !(suite_->*nearest)(&handle_, index, time, &value)) {
        return otherwise;
    }
    if constexpr (std::is_pointer_v<decltype(value)>) {
        return value ? T(value) : otherwise;
    } else {
        return value;
    }
}

inline std::string Attribute::get(const char* otherwise, std::int64_t index, float time) const {
    return get(std::string(Text(otherwise).get()), index, time);
}

template <class T>
Values<T> Attribute::values(float time) const {
    return samples<T>().nearest(time);
}

template <class T>
Samples<T> Attribute::samples() const {
    return Samples<T>(*this);
}

inline std::int64_t Attribute::tupleSize() const noexcept {
    return handle_ ? suite_->getTupleSize(handle_) : 0;
}

inline Attribute::Children Attribute::children() const {
    return Children(*this);
}

inline std::int64_t Attribute::childCount() const noexcept {
    return handle_ ? suite_->getNumberOfChildren(handle_) : 0;
}

inline Attribute Attribute::child(std::string_view name) const {
    if (!handle_ || name.size() > std::numeric_limits<std::int32_t>::max()) {
        return {};
    }
    const auto length = static_cast<std::int32_t>(name.size());
    return adopt(*suite_, suite_->getChildByName(handle_, name.data(), length));
}

inline Attribute Attribute::child(std::int64_t index) const {
    return handle_ ? adopt(*suite_, suite_->getChildByIndex(handle_, index)) : Attribute();
}

inline std::string_view Attribute::childName(std::int64_t index) const noexcept {
    std::int32_t length = 0;
    const char* const name = handle_ ? suite_->getChildName(handle_, index, &length) : nullptr;
    return name && length > 0 ? std::string_view(name, static_cast<std::size_t>(length))
                              : std::string_view();
}

template <class T>
Samples<T>::Samples(const Attribute& attribute) : attribute_(attribute) {
    if (attribute_) {
        table_ = attribute_.suite_->acquireSamples(
            attribute_.handle_, Detail::Stored<T>::kType, 1, &buffer_);
    }
}

template <class T>
Samples<T>::~Samples() {
    if (table_ && (table_->flags & OV_SAMPLES_DISPOSE)) {
        attribute_.suite_->disposeSamples(table_);
    }
}

template <class T>
std::size_t Samples<T>::size() const noexcept {
    return table_ ? static_cast<std::size_t>(table_->sampleCount) : 0;
}

template <class T>
Values<T> Samples<T>::operator[](std::size_t index) const noexcept {
    const std::int64_t count = table_->valuesPerSample;
    const T* const sample =
        table_->flags & OV_SAMPLES_CONTIGUOUS
            ? static_cast<const T*>(table_->values) + index * static_cast<std::size_t>(count)
            : static_cast<const T* const*>(table_->values)[index];
    return Values<T>(attribute_, sample, count);
}

template <class T>
Values<T> Samples<T>::nearest(float wanted) const noexcept {
    std::size_t kept = 0;
    for (std::size_t i = 1; i < size(); ++i) {
        if (std::fabs(time(i) - wanted) < std::fabs(time(kept) - wanted)) {
            kept = i;
        }
    }
    return size() > 0 ? (*this)[kept] : Values<T>();
}

inline Location::Location(Location&& other) noexcept
    : suite_(other.suite_), attributes_(other.attributes_), handle_(other.detach()) {}

inline Location& Location::operator=(Location other) noexcept {
    std::swap(suite_, other.suite_);
    std::swap(attributes_, other.attributes_);
    std::swap(handle_, other.handle_);
    return *this;
}

inline Location::~Location() {
    if (handle_) {
        suite_->sgRelease(handle_);
    }
}

inline Location Location::share() const noexcept {
    return handle_ ? Scene(*suite_, *attributes_).share(handle_) : Location();
}

/// A handle that a step gives comes without a reference, and so is shared, not adopted.
template <class... Args, class... Given>
Expected<Location> Location::step(OvSgIteratorStruct* (*Suite::*entry)(OvSgIteratorStruct*,
                                                                       Args...),
                                  Given... given) const {
    if (!handle_) {
        return Location();
    }
    return Detail::caught(
        [&] { return Scene(*suite_, *attributes_).share((suite_->*entry)(handle_, given...)); });
}

inline Expected<Location> Location::firstChild(Evict evict) const {
    return step(&Suite::sgGetFirstChild, static_cast<std::uint8_t>(evict));
}

inline Expected<Location> Location::nextSibling(Evict evict) const {
    return step(&Suite::sgGetNextSibling, static_cast<std::uint8_t>(evict));
}

inline Expected<Location> Location::parent() const {
    return step(&Suite::sgGetParent);
}

inline Expected<Location> Location::root() const {
    return step(&Suite::sgGetRoot);
}

inline Expected<Location> Location::child(Text name, Evict evict) const {
    return step(&Suite::sgGetChildByName, name.get(), static_cast<std::uint8_t>(evict));
}

inline Expected<Location> Location::at(Text path, Evict evict) const {
    return step(&Suite::sgGetByPath, path.get(), static_cast<std::uint8_t>(evict));
}

inline Location::Children Location::children(Evict evict) const {
    return Children(share(), evict);
}

template <class... Args, class... Given>
Expected<Attribute> Location::ask(OvAttributeStruct* (*Suite::*entry)(OvSgIteratorStruct*, Args...),
                                  Given... given) const {
    if (!handle_) {
        return Attribute();
    }
    return Detail::caught(
        [&] { return Attribute::adopt(*attributes_, (suite_->*entry)(handle_, given...)); });
}

template <class... Args, class... Given>
Attribute Location::tell(OvAttributeStruct* (*Suite::*entry)(OvSgIteratorStruct*, Args...),
                         Given... given) const {
    Expected<Attribute> told = ask(entry, given...);
    return told ? *std::move(told) : Attribute();
}

inline std::string Location::name() const {
    return tell(&Suite::sgGetName).get(std::string());
}

inline std::string Location::fullName() const {
    return tell(&Suite::sgGetFullName).get(std::string());
}

inline std::string Location::type() const {
    return get("type", "");
}

inline Attribute Location::attribute(Text name) const {
    return tell(&Suite::sgGetAttribute, name.get());
}

inline Attribute Location::attributes() const {
    return attribute("");
}

inline Values<const char*> Location::attributeNames() const {
    return tell(&Suite::sgGetAttributeNames).values<const char*>();
}

template <class T>
T Location::get(Text name, T otherwise, std::int64_t index, float time) const {
    return attribute(name).get<T>(std::move(otherwise), index, time);
}

inline std::string Location::get(Text name,
                                 const char* otherwise,
                                 std::int64_t index,
                                 float time) const {
    return attribute(name).get(otherwise, index, time);
}

template <class T>
Values<T> Location::values(Text name, float time) const {
    return attribute(name).values<T>(time);
}

inline Values<const char*> Location::potentialChildren() const {
    return tell(&Suite::sgGetPotentialChildren).values<const char*>();
}

inline Expected<Attribute> Location::globalAttribute(Text name) const {
    return ask(&Suite::sgGetGlobalAttribute, name.get());
}

inline Expected<Attribute> Location::globalXForm() const {
    return ask(&Suite::sgGetGlobalXFormGroup);
}

inline Expected<void> Location::finalize() const {
    return Detail::done([&] {
        if (handle_) {
            suite_->sgFinalize(handle_);
        }
    });
}

inline Location::Children::Iterator Location::Children::begin() {
    error_.reset();
    goTo(parent_.firstChild(evict_));
    return Iterator(this);
}

inline void Location::Children::goTo(Expected<Location> next) {
    if (next) {
        here_ = *std::move(next);
    } else {
        here_ = Location();
        error_ = next.error();
    }
}

inline Expected<Scene> Scene::find(const OvHostTable& host) {
    const auto suite = Detail::findSuite<OvScenegraphIteratorSuite>(
        host, OV_SCENEGRAPH_ITERATOR_SUITE_NAME, OV_SCENEGRAPH_ITERATOR_SUITE_VERSION);
    if (!suite) {
        return suite.error();
    }
    const auto attributes = Detail::findSuite<OvAttributeSuite>(
        host, OV_ATTRIBUTE_SUITE_NAME, OV_ATTRIBUTE_SUITE_VERSION);
    if (!attributes) {
        return attributes.error();
    }
    return Scene(**suite, **attributes);
}

inline Expected<Location> Scene::open(Expected<OvSgIteratorStruct*> root) const {
    if (!root) {
        return root.error();
    }
    if (!*root) {
        return Error("the scene cannot be opened; the log tells more");
    }
    return adopt(*root);
}

inline Expected<Location> Scene::openFile(Text opTreeFile) const {
    return open(Detail::caught([&] { return suite_->sgCreateRootFromFile(opTreeFile.get()); }));
}

inline Expected<Location> Scene::openOpTree(OvAttributeStruct* opTree) const {
    return open(Detail::caught([&] { return suite_->sgCreateRootFromAttr(opTree); }));
}

inline Expected<Attribute> Scene::describeFile(Text opTreeFile) const {
    return Detail::caught([&] {
        return Attribute::adopt(*attributes_, suite_->sgLoadOpTreeDescription(opTreeFile.get()));
    });
}

inline Location Scene::adopt(OvSgIteratorStruct* owned) const noexcept {
    return Location(*suite_, *attributes_, owned);
}

inline Location Scene::share(OvSgIteratorStruct* borrowed) const noexcept {
    suite_->sgRetain(borrowed);
    return adopt(borrowed);
}

}  // namespace SYLVAR::Suites

#endif
