// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/suites/HostTable.h>

#include "Platform/Support/Mutex.h"

#include <cstdint>
#include <map>
#include <string>
#include <utility>

namespace Sylvar3::internal::Embedded {

/// The function tables that were published, by name and version; the attribute suite and what op
/// types are offered are there from the start. What is published stays. Any thread.
class HostSuites {
public:
    HostSuites();

    /// Null when there is none, and for a null name.
    const void* find(const char* name, std::uint32_t version) const OV_EXCLUDES(mutex_);

    /// One of the codes of `OvHostTable::registerHostSuite`.
    int add(const void* suite, const char* name, std::uint32_t version) OV_EXCLUDES(mutex_);

private:
    mutable Support::Mutex mutex_;
    std::map<std::pair<std::string, std::uint32_t>, const void*> suites_ OV_GUARDED_BY(mutex_);
};

}  // namespace Sylvar3::internal::Embedded
