// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/PluginManager.h>

#include "Platform/Embedded/Services/Plugin.h"
#include "Platform/Support/ForeignOnce.h"

#include <memory>
#include <string>
#include <vector>

namespace Sylvar3::internal::Embedded {

/// A shared object and the plug-ins in it. Loaded once, never unloaded. Any thread.
class PluginFile {
public:
    /// Loads the file unless it is loaded. Empty when it is, whatever is in it; otherwise why not,
    /// and the next call tries again. Runs code of the file.
    std::string load(const std::string& filename);

    /// Once loaded, these never change: its plug-ins, as the file counts them, and what cannot be
    /// used.
    const std::vector<std::unique_ptr<Plugin>>& plugins() const noexcept { return plugins_; }
    const std::vector<OvPluginManager::RejectedPlugin>& rejected() const noexcept {
        return rejected_;
    }

private:
    void readPlugins(void* library, const std::string& filename);
    void readPlugin(OvPluginStruct* source, std::int32_t index, const std::string& filename);
    void reject(const std::string& filename, const std::string& plugin, const std::string& reason);

    Support::ForeignOnce loaded_;
    std::vector<std::unique_ptr<Plugin>> plugins_;
    std::vector<OvPluginManager::RejectedPlugin> rejected_;
};

}  // namespace Sylvar3::internal::Embedded
