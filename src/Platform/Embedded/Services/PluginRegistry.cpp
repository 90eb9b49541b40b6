// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Services/PluginRegistry.h"

#include "Platform/Embedded/Runtime/RuntimePlugin.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <set>
#include <system_error>
#include <tuple>

#include <sys/stat.h>

namespace Sylvar3::internal::Embedded {

using Support::MutexLock;

namespace {

/// The files of a directory that may be plug-ins, sorted; with the reason where it cannot be read.
std::vector<std::string> sharedObjectsIn(const std::string& path, std::string& fault) {
    namespace fs = std::filesystem;
    std::vector<std::string> found;
    std::error_code error;
    for (fs::directory_iterator entry(path, error), end; !error && entry != end;
         entry.increment(error)) {
        if (entry->path().extension() == ".so") {
            found.push_back(entry->path().string());
        }
    }
    fault = error ? error.message() : std::string();
    std::sort(found.begin(), found.end());
    return found;
}

}  // namespace

/// Makes a listing, one part of the order after the other.
class PluginRegistry::Listed {
public:
    Listed(Listing& listing, std::map<const OvPluginStruct*, Plugin*>& handles)
        : listing_(listing), handles_(handles) {}

    void add(const Directory& directory) {
        reject(directory.rejected);
        std::vector<Plugin*> part;
        for (const PluginFile* file : directory.files) {
            if (files_.insert(file).second) {
                reject(file->rejected());
                append(file->plugins(), part);
            }
        }
        add(std::move(part));
    }

    void add(const std::vector<std::unique_ptr<Plugin>>& plugins) {
        std::vector<Plugin*> part;
        append(plugins, part);
        add(std::move(part));
    }

private:
    static void append(const std::vector<std::unique_ptr<Plugin>>& from, std::vector<Plugin*>& to) {
        for (const std::unique_ptr<Plugin>& plugin : from) {
            to.push_back(plugin.get());
        }
    }

    void add(std::vector<Plugin*> part) {
        std::stable_sort(part.begin(), part.end(), [](const Plugin* a, const Plugin* b) {
            return a->name() < b->name();
        });
        for (Plugin* plugin : part) {
            add(*plugin);
        }
    }

    void add(Plugin& plugin) {
        const auto handle = handles_.emplace(plugin.handle(), &plugin).first;
        if (handle->second != &plugin) {
            return reject({{plugin.file(), plugin.name(), "is the struct of another plug-in"}});
        }
        const auto [earlier, isNew] = names_.try_emplace(
            std::make_tuple(plugin.apiName(), plugin.apiVersion(), plugin.name()), &plugin);
        if (isNew) {
            listing_.plugins.push_back(&plugin);
            return;
        }
        const std::string& file = earlier->second->file();
        reject({{plugin.file(),
                 plugin.name(),
                 "a plug-in of this name comes before it" + (file.empty() ? "" : ", in " + file)}});
    }

    void reject(const std::vector<RejectedPlugin>& more) {
        listing_.rejected.insert(listing_.rejected.end(), more.begin(), more.end());
    }

    Listing& listing_;
    std::map<const OvPluginStruct*, Plugin*>& handles_;
    std::set<const PluginFile*> files_;
    std::map<std::tuple<std::string, int, std::string>, const Plugin*> names_;
};

PluginRegistry::PluginRegistry() {
    add(OvSylvar::Embedded::runtimePlugin(), PluginPlace::Last);
}

void PluginRegistry::setDirectories(const std::vector<std::string>& paths) {
    std::vector<Directory> found;
    found.reserve(paths.size());
    for (const std::string& path : paths) {
        found.push_back(search(path));
    }
    MutexLock lock(mutex_);
    directories_ = std::move(found);
    list();
}

void PluginRegistry::appendDirectory(const std::string& path) {
    Directory found = search(path);
    MutexLock lock(mutex_);
    directories_.push_back(std::move(found));
    list();
}

std::vector<std::string> PluginRegistry::directories() const {
    MutexLock lock(mutex_);
    std::vector<std::string> paths;
    for (const Directory& directory : directories_) {
        paths.push_back(directory.path);
    }
    return paths;
}

std::string PluginRegistry::add(OvPluginStruct* source, PluginPlace place) {
    std::string name;
    std::string fault;
    std::unique_ptr<Plugin> plugin = Plugin::read(source, "", name, fault);
    if (!plugin) {
        return fault;
    }
    MutexLock lock(mutex_);
    if (handles_.count(source) > 0) {
        return "is registered already";
    }
    (place == PluginPlace::Last ? last_ : afterDirectories_).push_back(std::move(plugin));
    list();
    return {};
}

std::shared_ptr<const PluginRegistry::Listing> PluginRegistry::listing() const {
    MutexLock lock(mutex_);
    return listing_;
}

Plugin* PluginRegistry::find(OvPluginStruct* handle) const {
    MutexLock lock(mutex_);
    const auto found = handles_.find(handle);
    return found == handles_.end() ? nullptr : found->second;
}

std::vector<PluginRegistry::RejectedPlugin> PluginRegistry::rejected() const {
    MutexLock lock(mutex_);
    std::vector<RejectedPlugin> all = listing_->rejected;
    for (const Plugin* plugin : listing_->plugins) {
        const std::string fault = plugin->suiteFault();
        if (!fault.empty()) {
            all.push_back({plugin->file(), plugin->name(), fault});
        }
    }
    return all;
}

PluginRegistry::Directory PluginRegistry::search(const std::string& path) {
    Directory directory;
    directory.path = path;
    std::string fault;
    for (const std::string& filename : sharedObjectsIn(path, fault)) {
        searchFile(filename, directory);
    }
    if (!fault.empty()) {
        directory.rejected.push_back({path, "", fault});
    }
    return directory;
}

void PluginRegistry::searchFile(const std::string& filename, Directory& directory) {
    struct stat status = {};
    std::string fault;
    if (stat(filename.c_str(), &status) != 0) {
        fault = std::generic_category().message(errno);
    } else if (!S_ISREG(status.st_mode)) {
        fault = "is no regular file";
    } else {
        PluginFile& file = fileOf(status.st_dev, status.st_ino);
        fault = file.load(filename);
        if (fault.empty()) {
            directory.files.push_back(&file);
        }
    }
    if (!fault.empty()) {
        directory.rejected.push_back({filename, "", fault});
    }
}

PluginFile& PluginRegistry::fileOf(std::uintmax_t device, std::uintmax_t inode) {
    MutexLock lock(mutex_);
    std::unique_ptr<PluginFile>& file = files_[{device, inode}];
    if (!file) {
        file = std::make_unique<PluginFile>();
    }
    return *file;
}

void PluginRegistry::list() {
    auto listing = std::make_shared<Listing>();
    Listed listed(*listing, handles_);
    for (const Directory& directory : directories_) {
        listed.add(directory);
    }
    listed.add(afterDirectories_);
    listed.add(last_);
    listing_ = std::move(listing);
}

}  // namespace Sylvar3::internal::Embedded
