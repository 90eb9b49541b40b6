// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Ops/Plugin/PluginCook.h"

#include "Platform/Embedded/Ops/Locations/ChildNameCheck.h"
#include "Platform/Embedded/Ops/SceneOp.h"
#include "Platform/Embedded/Runtime/MountPath.h"

#include <utility>

namespace Sylvar3::internal::OvSylvar::Embedded {

using OvAttribute::GroupAttribute;
using OvAttribute::StringAttribute;
using OvAttribute::Embedded::asGroup;
using OvAttribute::Embedded::DataValue;

namespace {

/// The strings of a value with one sample.
std::vector<std::string_view> textsOf(const DataValue& strings) {
    const char* const* const texts = strings.valuesAs<const char*>();
    return {texts, texts + strings.totalValues()};
}

DataValue* valueOf(const StringAttribute& attribute) {
    return static_cast<DataValue*>(attribute.handle());
}

}  // namespace

const std::string& PluginCook::path() {
    if (!path_) {
        path_ = cook_.path();
    }
    return *path_;
}

PluginCook::GroupValue* PluginCook::input(std::size_t index, std::string_view path) {
    Location location = cook_.input(index, path);
    return location.exists() ? borrowed_.emplace_back(std::move(location)).group() : nullptr;
}

void PluginCook::passInput(std::size_t index, std::string_view path) {
    input_ = cook_.input(index, path);
    from_ = input_.exists() ? From::Input : From::Nowhere;
}

void PluginCook::setChildren(StringAttribute names) {
    if (names && valueOf(names)->sampleCount != 1) {
        throw OpError("the names of the children have " +
                      std::to_string(valueOf(names)->sampleCount) + " samples in place of one");
    }
    if (names) {
        const std::vector<std::string_view> texts = textsOf(*valueOf(names));
        for (const std::string_view name : texts) {
            checkChildName(name, name);
        }
        checkForTwins(texts);
    }
    children_ = std::move(names);
}

bool PluginCook::enterScene(const std::string& top) {
    if (!isLocationPath(top)) {
        throw OpError("\"" + top + "\" is no path of a location");
    }
    const MountPath mount(top);
    switch (mount.placeOf(cook_.path())) {
        case MountPath::Place::Inside:
            return true;
        case MountPath::Place::Above:
            from_ = From::Nothing;
            attributes_.reset();
            children_ = StringAttribute(std::string(mount.nextName(cook_.path())));
            return false;
        case MountPath::Place::Beside:
            break;
    }
    setAbsent();
    return false;
}

void PluginCook::setStaticScene(GroupAttribute scene, const std::string& top) {
    if (enterScene(top)) {
        from_ = From::Scene;
        scene_ = std::move(scene);
        placeInScene_ = cook_.path().substr(top.size());
    }
}

void PluginCook::fail(std::exception_ptr fault) {
    if (!fault_) {
        fault_ = std::move(fault);
    }
}

void PluginCook::finish(LocationWriter& out) const {
    if (fault_) {
        std::rethrow_exception(fault_);
    }
    switch (from_) {
        case From::Nowhere:
            return out.setAbsent();
        case From::Input:
            writeInput(out);
            break;
        case From::Scene:
            cookStaticScene(scene_, placeInScene_, out);
            break;
        case From::Nothing:
            break;
    }
    if (attributes_) {
        out.setAttributes(*attributes_ ? asGroup(out.keep(*attributes_->handle())) : nullptr);
    }
    if (children_) {
        out.keepChildren(*children_ ? valueOf(*children_) : nullptr);
    }
}

void PluginCook::writeInput(LocationWriter& out) const {
    if (!attributes_ && !children_) {
        return out.pass(input_);
    }
    out.setAttributes(asGroup(out.keep(*input_.attributes())));
    out.setChildrenOf(input_);
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
