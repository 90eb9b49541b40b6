// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/suites/Plugin.h>

#include "Platform/Support/ForeignOnce.h"

#include <memory>
#include <string>

namespace Sylvar3::internal::Embedded {

/// One plug-in: what its struct said when it was read, and its suite. Never destroyed once a handle
/// was given out. Any thread.
class Plugin {
public:
    /// Reads a plug-in's struct; null, with the reason and the name as far as it is known, when it
    /// is not usable. `file` is "" for a plug-in in process.
    static std::unique_ptr<Plugin> read(OvPluginStruct* source,
                                        const std::string& file,
                                        std::string& name,
                                        std::string& fault);

    OvPluginStruct* handle() const noexcept { return handle_; }
    const std::string& file() const noexcept { return file_; }
    const std::string& name() const noexcept { return name_; }
    const std::string& apiName() const noexcept { return apiName_; }
    int apiVersion() const noexcept { return entries_.apiVersion; }

    /// The suite; the first call asks the plug-in, after handing `host` to it. Null when there is
    /// none or when this call would wait for itself.
    const void* suite(const OvHostTable* host);

    /// Why the plug-in failed to give a suite; empty when it did not, or was not asked.
    std::string suiteFault() const;

    void flush() const;

private:
    Plugin(OvPluginStruct* handle, std::string file, std::string name, std::string apiName);

    void askForSuite(const OvHostTable* host);

    OvPluginStruct* handle_;
    std::string file_;
    std::string name_;
    std::string apiName_;
    OvPluginStruct entries_;
    Support::ForeignOnce asked_;
    const void* suite_ = nullptr;
    std::string suiteFault_;
};

}  // namespace Sylvar3::internal::Embedded
