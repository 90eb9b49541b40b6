// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/SampleAccessor.h>
#include <SylvarPlatform/SylvarRuntime.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace ovtest {

using Sylvar3::internal::OvSylvar::SylvarRuntime;

inline std::vector<std::string> childrenOf(const SylvarRuntime::LocationData& location) {
    using Sylvar3::internal::OvAttribute::SampleAccessor;
    using Sylvar3::internal::OvAttribute::StringAttribute;
    const SampleAccessor<StringAttribute> names(location.getPotentialChildren(), 0.0F);
    return {names.begin(), names.end()};
}

/// Cooks a location and all below it, each before its children, and calls `see(path, location)` for
/// those that are there.
template <class See>
void walkFrom(const SylvarRuntime::Client& client, const std::string& top, See see) {
    std::vector<std::string> pending = {top};
    while (!pending.empty()) {
        const std::string path = std::move(pending.back());
        pending.pop_back();
        const SylvarRuntime::LocationData location = client.cookLocation(path);
        if (!location.doesLocationExist()) {
            continue;
        }
        see(path, location);
        const std::vector<std::string> children = childrenOf(location);
        for (auto name = children.rbegin(); name != children.rend(); ++name) {
            pending.push_back(path + "/" + *name);
        }
    }
}

/// How many locations are there, all of them cooked.
inline std::int64_t countFrom(const SylvarRuntime::Client& client, const std::string& top) {
    std::int64_t count = 0;
    walkFrom(client, top, [&](const std::string&, const SylvarRuntime::LocationData&) { ++count; });
    return count;
}

/// The answer of a query; "" when its status is not 0.
inline std::string query(const SylvarRuntime& runtime, std::string_view name) {
    std::string answer;
    runtime.suite->queryRuntimeInfo(
        runtime.handle,
        name.data(),
        name.size(),
        &answer,
        [](std::int32_t status, const char* data, std::uint64_t length, void* context) {
            if (status == 0) {
                static_cast<std::string*>(context)->assign(data, length);
            }
        });
    return answer;
}

}  // namespace ovtest
