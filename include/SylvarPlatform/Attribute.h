// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/Export.h>
#include <SylvarPlatform/Hash.h>
#include <SylvarPlatform/suites/AttributeSuite.h>

#include <cstdint>
#include <string>
#include <utility>

/// Attribute values: immutable, reference-counted, behind one opaque handle.
namespace Sylvar3::internal::OvAttribute {

/// Any attribute, or null. Holds one reference.
///
/// A value never changes once it is made, so any thread may read one that is shared; the count is
/// atomic. One wrapper object, like one pointer, belongs to one thread at a time.
class SYLVAR_PLATFORM_API Attribute {
public:
    Attribute() noexcept = default;
    Attribute(const Attribute& other) noexcept : handle_(retained(other.handle_)) {}
    Attribute(Attribute&& other) noexcept : handle_(other.detach()) {}
    ~Attribute() {
        if (handle_) {
            _attrSuite->release(handle_);
        }
    }

    /// Retains the new value before it releases the old one.
    Attribute& operator=(Attribute other) noexcept {
        std::swap(handle_, other.handle_);
        return *this;
    }

    /// Takes over the caller's reference.
    static Attribute adopt(OvAttributeStruct* owned) noexcept { return {Owned{}, owned}; }

    /// Adds a reference of its own.
    static Attribute share(OvAttributeStruct* borrowed) noexcept {
        return {Owned{}, retained(borrowed)};
    }

    /// Hands the reference over to the caller; this is null afterwards.
    OvAttributeStruct* detach() noexcept { return std::exchange(handle_, nullptr); }

    /// The handle, borrowed; null for the null attribute.
    OvAttributeStruct* handle() const noexcept { return handle_; }

    bool isValid() const noexcept { return handle_ != nullptr; }
    explicit operator bool() const noexcept { return isValid(); }

    /// `OV_ATTRIBUTE_INT` and so on; 0 for the null attribute.
    std::int32_t getType() const { return handle_ ? _attrSuite->getType(handle_) : 0; }

    /// The content hash; zero for the null attribute.
    Hash getHash() const { return Hash(_attrSuite->getHash(handle_)); }

    /// The attribute as indented XML that `parseXML` reads back to an equal hash; the form is told
    /// in `docs/formats.md`. The null attribute gives `<attr type="null"/>`.
    ///
    /// Throws `std::length_error`, "Attribute::getXML: the attribute expands to more than N
    /// attributes.", for shared subtrees that would be written very many times over.
    std::string getXML() const;

    /// Reads what `getXML` writes; null when the text is anything else.
    static Attribute parseXML(const std::string& xml);

    /// Reads a serialised attribute of either file form through `read`, to the stream's end. The
    /// integer is reserved: pass 0. Null when the bytes are no attribute.
    static Attribute readAttributeStream(void* stream, OvReadFunction read, int reserved);

    /// The table of functions behind every wrapper, set when the platform is loaded.
    static const OvAttributeSuite* _attrSuite;

protected:
    /// Tells a handle that is taken over from a number 0.
    struct Owned {};

    Attribute(Owned /*tag*/, OvAttributeStruct* owned) noexcept : handle_(owned) {}

    static OvAttributeStruct* retained(OvAttributeStruct* borrowed) noexcept {
        if (borrowed) {
            _attrSuite->retain(borrowed);
        }
        return borrowed;
    }

private:
    OvAttributeStruct* handle_ = nullptr;
};

/// A typed view of a value. One of another kind is released, and reads as null.
template <class Wanted>
Wanted castAttribute(Attribute value) {
    if (value && value.getType() == Wanted::kType) {
        return Wanted::adopt(value.detach());
    }
    return Wanted();
}

/// The same for a handle; takes over the caller's reference.
template <class Wanted>
Wanted castAttribute(OvAttributeStruct* owned) {
    return castAttribute<Wanted>(Attribute::adopt(owned));
}

}  // namespace Sylvar3::internal::OvAttribute
