// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Ops/SceneOp.h"

#include <SylvarPlatform/DelimiterCodec.h>

#include "Platform/Embedded/Ops/Arguments.h"
#include "Platform/Embedded/Ops/Locations/ChildNameCheck.h"
#include "Platform/Embedded/Ops/OpTypes.h"
#include "Platform/Embedded/Runtime/Cook.h"
#include "Platform/Embedded/Runtime/MountPath.h"
#include "Platform/Support/OnceBuilt.h"

#include <algorithm>
#include <deque>
#include <utility>

namespace Sylvar3::internal::OvSylvar::Embedded {

using OvAttribute::DelimiterDecode;
using OvAttribute::DelimiterEncode;
using OvAttribute::GroupAttribute;
using OvAttribute::Embedded::asGroup;
using OvAttribute::Embedded::GroupValue;

namespace {

bool isEncoded(std::string_view key) {
    return key.find('%') != std::string_view::npos;
}

GroupValue* childGroups(const GroupValue& location) {
    return asGroup(location.find("c"));
}

bool isKeyOf(std::string_view key, std::string_view name) {
    return isEncoded(key) ? DelimiterDecode(std::string(key)) == name : key == name;
}

/// The place of the child of that name, decoded; -1 when there is none. Its key is the name, or the
/// name as it is commonly encoded; only one that is encoded in another way is looked for.
std::int64_t findChild(const GroupValue& children, std::string_view name) {
    const std::int64_t plain = children.shape->find(name);
    if (plain >= 0 && isKeyOf(name, name)) {
        return plain;
    }
    const std::int64_t encoded = children.shape->find(DelimiterEncode(std::string(name)));
    if (encoded >= 0) {
        return encoded;
    }
    for (std::int64_t place = 0; place < children.size(); ++place) {
        if (isKeyOf(children.shape->name(place), name)) {
            return place;
        }
    }
    return -1;
}

/// The decoded names of all children, each of which must be one that a path can have.
class ChildNameList {
public:
    explicit ChildNameList(const GroupValue& children) {
        bool hasEncoded = false;
        for (std::int64_t place = 0; place < children.size(); ++place) {
            const std::string_view key = children.shape->name(place);
            hasEncoded |= isEncoded(key);
            names_.push_back(
                isEncoded(key) ? decoded_.emplace_back(DelimiterDecode(std::string(key))) : key);
            checkChildName(names_.back(), key);
        }
        if (hasEncoded) {
            checkForTwins(names_);
        }
    }

    const std::vector<std::string_view>& names() const { return names_; }

private:
    std::deque<std::string> decoded_;
    std::vector<std::string_view> names_;
};

void write(const GroupValue& location, LocationWriter& out) {
    if (GroupValue* const attributes = asGroup(location.find("a"))) {
        out.setAttributes(static_cast<GroupValue*>(out.keep(*attributes)));
    }
    if (const GroupValue* const children = childGroups(location)) {
        out.setChildren(ChildNameList(*children).names());
    }
}

class SceneOp final : public SceneBody {
public:
    SceneOp(GroupAttribute tree, std::string at) : tree_(std::move(tree)), mount_(std::move(at)) {}

    void cook(Cook& cook, LocationWriter& out) const override {
        switch (mount_.placeOf(cook.path())) {
            case MountPath::Place::Above:
                return out.setChildren({mount_.nextName(cook.path())});
            case MountPath::Place::Inside:
                return cookBelow(mount_.rest(cook.path()), out);
            case MountPath::Place::Beside:
                return out.setAbsent();
        }
    }

    void cookBelow(std::string_view rest, LocationWriter& out) const override {
        cookStaticScene(tree_, rest, out);
    }

private:
    GroupAttribute tree_;
    MountPath mount_;
};

class SceneOpType final : public OpType {
public:
    const OpSchema& schema() const override { return schema_; }

    std::unique_ptr<const OpBody> make(const GroupAttribute& group,
                                       std::size_t /*inputCount*/,
                                       const std::string& /*place*/) const override {
        const Arguments arguments(schema_, group);
        return makeScene(arguments.getGroup("tree"), arguments.getPath("at", "/root"));
    }

private:
    const OpSchema schema_ = {
        "scene",
        "A static scene that stands in the op tree itself.",
        "The attribute groups of the tree are those of the locations, the very same "
        "values. The keys of `\"c\"` are encoded names: `%2E` stands for the byte `.`, "
        "and so on. A location of which two children have one name, or one child a name "
        "that no path can hold, is an error, without its children. A child that is no "
        "group is a location with nothing in it. The locations above `at` are there, "
        "with nothing but the way down.",
        0,
        0,
        {
            {"tree",
             "group",
             nullptr,
             "The top location: its attributes \"a\" and its children \"c\"."},
            {"at", "string", "/root", "The path of the top location."},
        },
    };
};

}  // namespace

void cookStaticScene(const GroupAttribute& tree, std::string_view rest, LocationWriter& out) {
    GroupValue* location = asGroup(tree.handle());
    for (std::size_t begin = 1; begin < rest.size(); ++begin) {
        const std::size_t end = std::min(rest.find('/', begin), rest.size());
        const GroupValue* const children = location ? childGroups(*location) : nullptr;
        const std::int64_t place =
            children ? findChild(*children, rest.substr(begin, end - begin)) : -1;
        if (place < 0) {
            return out.setAbsent();
        }
        location = asGroup((*children)[place]);
        begin = end;
    }
    // A child of another kind is a location with nothing in it.
    if (location) {
        write(*location, out);
    }
}

std::unique_ptr<const SceneBody> makeScene(GroupAttribute tree, std::string at) {
    return std::make_unique<SceneOp>(std::move(tree), std::move(at));
}

const OpType& sceneOpType() {
    static Support::OnceBuilt<SceneOpType> type;
    return type.get();
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
