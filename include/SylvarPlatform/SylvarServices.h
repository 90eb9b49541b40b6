// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/Export.h>
#include <SylvarPlatform/SylvarRuntime.h>

#include <memory>
#include <string>

/// How the host and its clients come to runtimes.
namespace Sylvar3::OvSylvarServicesHost::v1 {

using internal::OvSylvar::SylvarRuntime;

/// The service that makes runtimes. A cheap local object. Any thread.
class SYLVAR_PLATFORM_API Sylvar {
public:
    Sylvar() = default;
    ~Sylvar() = default;
    Sylvar(const Sylvar&) = delete;
    Sylvar& operator=(const Sylvar&) = delete;

    /// A new runtime, independent of all others, of the first plug-in of the API "SylvarRuntime"
    /// that has a suite, in the plug-in manager's order; the platform's own stands last. Empty when
    /// that plug-in gives none. What it throws travels.
    std::shared_ptr<SylvarRuntime> createRuntime();
};

/// Publishes a runtime under a name, in place of an earlier one; an empty pointer takes the name
/// away. The process holds the runtime. Any thread.
SYLVAR_PLATFORM_API void RegisterRuntimeInstance(const std::shared_ptr<SylvarRuntime>& runtime,
                                                 const std::string& name);

/// The runtime that is published under that name, or empty. Any thread.
SYLVAR_PLATFORM_API std::shared_ptr<SylvarRuntime> GetRuntimeInstance(const std::string& name);

}  // namespace Sylvar3::OvSylvarServicesHost::v1
