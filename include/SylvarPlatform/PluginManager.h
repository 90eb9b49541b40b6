// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/Export.h>
#include <SylvarPlatform/suites/Plugin.h>

#include <cstdint>
#include <string>
#include <vector>

namespace Sylvar3::internal::OvPluginManager {

/// A plug-in file, or one plug-in, that cannot be used.
struct RejectedPlugin {
    std::string file;    ///< The file, or the directory that cannot be read; "" in process.
    std::string plugin;  ///< The plug-in's name; "" where the fault is not one plug-in's.
    std::string reason;  ///< For people.
};

/// Where a plug-in that is registered in process stands in the order.
enum class PluginPlace {
    AfterDirectories,  ///< Behind all plug-ins of files, by name.
    Last               ///< Behind those too, by name: what is taken when nothing else is there.
};

/// The plug-ins of the process, from directories of shared objects and registered in process. A
/// plug-in serves one version of one API; both are told by strings and numbers alone.
///
/// Their order is stable: directories as they are searched, then those registered in process, and
/// in each of these by name. Of two with the same name, API and version the earlier one is taken.
///
/// A handle is a plug-in's own struct. It and the suite stay valid for the life of the process,
/// even when the plug-in's directory is no longer searched. A null or unknown handle is no error.
///
/// Any thread may call any operation at any time. No lock is held while a plug-in's code runs, so
/// that it may call these operations too; it then sees the plug-ins as they were before a search
/// that is under way. The vectors' former contents are replaced. Nothing throws, unless memory
/// runs out.
class SYLVAR_PLATFORM_API PluginManager {
public:
    PluginManager() = delete;

    /// Every API that has a plug-in, and always "SylvarRuntime"; ascending.
    static void getApiNames(std::vector<std::string>& names);

    /// The versions of that API for which there are plug-ins, ascending; none for an unknown API.
    static void getPluginApiVersions(const std::string& apiName, std::vector<int>& versions);

    /// The plug-ins of that API at that version, in their order.
    static void getPluginNames(const std::string& apiName,
                               std::vector<std::string>& names,
                               unsigned int version);

    /// The handle; null when there is no such plug-in.
    static OvPluginStruct* getPlugin(const std::string& pluginName,
                                     const std::string& apiName,
                                     unsigned int version);

    /// The plug-in's function table. The first call hands the host table to the plug-in and asks
    /// it; the answer is remembered, and those who call meanwhile wait. Null when the plug-in has
    /// none, refuses the host or throws, and for a call that would have to wait for itself.
    static const void* getPluginSuite(OvPluginStruct* plugin);

    /// Asks the plug-in to drop its caches. What it throws is swallowed.
    static void flushSpecificPluginCache(OvPluginStruct* plugin);

    /// @name For hosts
    /// @{

    /// Searches these directories, not those below them, in place of the former ones; loads the
    /// files there that end in ".so" before it returns, in the calling thread. Again with the same
    /// directories: finds what is new.
    static void setSearchDirectories(const std::vector<std::string>& directories);

    /// The same for one more directory, behind the others.
    static void appendSearchDirectory(const std::string& directory);

    static std::vector<std::string> getSearchDirectories();

    /// Adds a plug-in of the host's own. The struct must live as long as the process. Empty on
    /// success, otherwise the reason.
    static std::string registerPlugin(OvPluginStruct* plugin,
                                      PluginPlace place = PluginPlace::AfterDirectories);

    /// The table that is handed to plug-ins from now on; it must live as long as the process.
    /// Null, and at first: `OvGetHostTable()`.
    static void setHostTable(const OvHostTable* host);

    /// What cannot be used and why: first what the search and the registrations found, in order,
    /// then the plug-ins that failed when they were asked for their suite.
    static std::vector<RejectedPlugin> getRejectedPlugins();

    /// @}
};

}  // namespace Sylvar3::internal::OvPluginManager
