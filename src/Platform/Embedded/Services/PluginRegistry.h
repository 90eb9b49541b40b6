// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/PluginManager.h>

#include "Platform/Embedded/Services/Plugin.h"
#include "Platform/Embedded/Services/PluginFile.h"
#include "Platform/Support/Mutex.h"

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace Sylvar3::internal::Embedded {

/// What `PluginManager` knows: the directories, their files, and the list of plug-ins that comes of
/// them. Directories are searched without the lock; the list is made under it. Any thread.
class PluginRegistry {
public:
    using RejectedPlugin = OvPluginManager::RejectedPlugin;
    using PluginPlace = OvPluginManager::PluginPlace;

    /// The plug-ins in their order, and what was left out. Never changes once it is made.
    struct Listing {
        std::vector<Plugin*> plugins;
        std::vector<RejectedPlugin> rejected;
    };

    /// Has the platform's own runtime, in the last place.
    PluginRegistry();
    PluginRegistry(const PluginRegistry&) = delete;
    PluginRegistry& operator=(const PluginRegistry&) = delete;

    void setDirectories(const std::vector<std::string>& paths) OV_EXCLUDES(mutex_);
    void appendDirectory(const std::string& path) OV_EXCLUDES(mutex_);
    std::vector<std::string> directories() const OV_EXCLUDES(mutex_);

    /// Empty on success, otherwise the reason.
    std::string add(OvPluginStruct* source, PluginPlace place) OV_EXCLUDES(mutex_);

    std::shared_ptr<const Listing> listing() const OV_EXCLUDES(mutex_);

    /// The plug-in of a handle that was ever listed; null for any other pointer, which is not read.
    Plugin* find(OvPluginStruct* handle) const OV_EXCLUDES(mutex_);

    /// The listing's rejected ones, and every plug-in that failed to give its suite.
    std::vector<RejectedPlugin> rejected() const OV_EXCLUDES(mutex_);

private:
    struct Directory {
        std::string path;
        std::vector<const PluginFile*> files;  ///< By file name.
        std::vector<RejectedPlugin> rejected;
    };
    class Listed;

    Directory search(const std::string& path) OV_EXCLUDES(mutex_);
    void searchFile(const std::string& filename, Directory& directory) OV_EXCLUDES(mutex_);
    PluginFile& fileOf(std::uintmax_t device, std::uintmax_t inode) OV_EXCLUDES(mutex_);
    void list() OV_REQUIRES(mutex_);

    mutable Support::Mutex mutex_;
    std::vector<Directory> directories_ OV_GUARDED_BY(mutex_);
    std::map<std::pair<std::uintmax_t, std::uintmax_t>, std::unique_ptr<PluginFile>> files_
        OV_GUARDED_BY(mutex_);
    std::vector<std::unique_ptr<Plugin>> afterDirectories_ OV_GUARDED_BY(mutex_);
    std::vector<std::unique_ptr<Plugin>> last_ OV_GUARDED_BY(mutex_);
    std::map<const OvPluginStruct*, Plugin*> handles_ OV_GUARDED_BY(mutex_);
    std::shared_ptr<const Listing> listing_ OV_GUARDED_BY(mutex_) =
        std::make_shared<const Listing>();
};

}  // namespace Sylvar3::internal::Embedded
