// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Ops/Plugin/OpHost.h"

#include "Platform/Embedded/Ops/Files/AssetPath.h"
#include "Platform/Embedded/Ops/Files/FileIdentity.h"
#include "Platform/Embedded/Ops/Plugin/PluginCook.h"
#include "Platform/Embedded/Runtime/KindName.h"
#include "Platform/Embedded/Runtime/MountPath.h"

#include <cstddef>
#include <exception>
#include <string>
#include <type_traits>
#include <utility>

namespace Sylvar3::internal::OvSylvar::Embedded {

static_assert(sizeof(OvOpHost) == 13 * sizeof(void*), "A table place is given for good.");
static_assert(offsetof(OvOpHost, getPath) == 0 * sizeof(void*));
static_assert(offsetof(OvOpHost, setStaticScene) == 8 * sizeof(void*));
static_assert(offsetof(OvOpHost, getFileIdentity) == 12 * sizeof(void*));

using OvAttribute::Attribute;

namespace {

/// Runs an entry; what it throws fails the cook. Null or 0 when the cook has failed.
template <class Entry>
auto run(OvOpCookStruct* handle, Entry entry) -> decltype(entry(handle->cook)) {
    using Result = decltype(entry(handle->cook));
    PluginCook& cook = handle->cook;
    if (!cook.hasFailed()) {
        try {
            return entry(cook);
        } catch (...) {
            cook.fail(std::current_exception());
        }
    }
    return Result();
}

/// Takes a reference of its own. Throws `OpError` for an attribute of another kind; null is one of
/// each.
template <class Wanted>
Wanted shared(OvAttributeStruct* borrowed, const char* what) {
    Attribute value = Attribute::share(borrowed);
    const std::int32_t type = value.getType();
    if (value && type != Wanted::kType) {
        throw OpError(std::string(what) + ": expected " + kindName(Wanted::kType) + ", found " +
                      kindName(type));
    }
    return Wanted::adopt(value.detach());
}

/// A path that a plug-in gives; null stands for that of the cooked location.
std::string_view pathOr(const PluginCook& cook, const char* path, std::int64_t length) {
    if (!path) {
        return cook.cookedPath();
    }
    return {path, length < 0 ? 0 : static_cast<std::size_t>(length)};
}

std::string textOf(const char* text) {
    return text ? text : "";
}

/// As `OvOpHost::resolveAsset` answers.
template <class Text>
std::int64_t answer(const char* name, char* buffer, std::size_t bufferSize, Text textFor) noexcept {
    try {
        if (!name) {
            return -1;
        }
        const std::string text = textFor(name);
        if (buffer && bufferSize > 0) {
            buffer[text.copy(buffer, bufferSize - 1)] = '\0';
        }
        return static_cast<std::int64_t>(text.size());
    } catch (...) {
        return -1;
    }
}

const char* getPath(OvOpCookStruct* handle, std::int64_t* length) {
    std::string_view path = "";
    try {
        path = handle->cook.path();
    } catch (...) {
        handle->cook.fail(std::current_exception());
    }
    if (length) {
        *length = static_cast<std::int64_t>(path.size());
    }
    return path.data();
}

std::int32_t getInputCount(OvOpCookStruct* handle) {
    return static_cast<std::int32_t>(handle->cook.inputCount());
}

OvAttributeStruct* getInput(OvOpCookStruct* handle,
                            std::int32_t index,
                            const char* path,
                            std::int64_t length) {
    return run(handle, [&](PluginCook& cook) -> OvAttributeStruct* {
        return cook.input(static_cast<std::size_t>(index), pathOr(cook, path, length));
    });
}

void passInput(OvOpCookStruct* handle, std::int32_t index, const char* path, std::int64_t length) {
    run(handle, [&](PluginCook& cook) {
        cook.passInput(static_cast<std::size_t>(index), pathOr(cook, path, length));
    });
}

void setAbsent(OvOpCookStruct* handle) {
    run(handle, [](PluginCook& cook) { cook.setAbsent(); });
}

void setAttributes(OvOpCookStruct* handle, OvAttributeStruct* attributes) {
    run(handle, [&](PluginCook& cook) {
        cook.setAttributes(shared<PluginCook::GroupAttribute>(attributes, "the attributes"));
    });
}

void setChildren(OvOpCookStruct* handle, OvAttributeStruct* names) {
    run(handle, [&](PluginCook& cook) {
        cook.setChildren(shared<PluginCook::StringAttribute>(names, "the names of the children"));
    });
}

std::int32_t enterScene(OvOpCookStruct* handle, const char* top) {
    return run(handle, [&](PluginCook& cook) { return cook.enterScene(textOf(top)) ? 1 : 0; });
}

void setStaticScene(OvOpCookStruct* handle, OvAttributeStruct* scene, const char* top) {
    run(handle, [&](PluginCook& cook) {
        cook.setStaticScene(shared<PluginCook::GroupAttribute>(scene, "the scene"), textOf(top));
    });
}

void fail(OvOpCookStruct* handle, const char* message) {
    run(handle, [&](PluginCook& /*cook*/) {
        const std::string reason = textOf(message);
        throw OpError(reason.empty() ? "fails, and gives no reason" : reason);
    });
}

std::int32_t isPath(const char* path) {
    return path && isLocationPath(path) ? 1 : 0;
}

std::int64_t resolveAsset(const char* name, char* buffer, std::size_t bufferSize) {
    return answer(name, buffer, bufferSize, [](const char* asset) { return assetPath(asset); });
}

std::int64_t getFileIdentity(const char* path, char* buffer, std::size_t bufferSize) {
    return answer(
        path, buffer, bufferSize, [](const char* file) { return FileIdentity(file).text(); });
}

constexpr OvOpHost kTable = {getPath,
                             getInputCount,
                             getInput,
                             passInput,
                             setAbsent,
                             setAttributes,
                             setChildren,
                             enterScene,
                             setStaticScene,
                             fail,
                             isPath,
                             resolveAsset,
                             getFileIdentity};

}  // namespace

const OvOpHost* opHost() {
    return &kTable;
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
