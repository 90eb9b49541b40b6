// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/Export.h>

#include <string>
#include <vector>

namespace SYLVAR {

/// Which delegate handles locations of a type for a renderer: what the plug-ins of the API
/// "ScenegraphLocationDelegatePlugin", version 1 (`SylvarPlatform/suites/LocationDelegate.h`),
/// answer when they are asked, once in a process. A plug-in that is loaded later is never seen.
///
/// Of two for the same type and renderer the earlier one in the order of the plug-ins is kept; the
/// other is dropped without a message. A delegate for any renderer is known under the empty name
/// alone, and nothing leads from a renderer's name to it: who wants both asks twice.
///
/// Any thread may call everything here; those who come while the plug-ins are asked wait. When
/// memory runs out meanwhile, `std::bad_alloc` travels, and who comes next asks them all anew.
class OV_SYLVAR_PRODUCERS_API OvScenegraphLocationDelegateCache {
public:
    OvScenegraphLocationDelegateCache() = delete;

    /// Asks the plug-ins, when nobody has yet.
    static void initializeCache();

    /// Whether all plug-ins have been asked.
    static bool isCacheInitialized();

    /// What `initializeCache` runs once: asks all plug-ins, unless that is done. Not to be called
    /// by two threads at once.
    static void populate();

    /// The delegate's function table (`OvLocationDelegate`), which stays the plug-in's and lives as
    /// long as the process; null when there is none. Initializes the cache.
    static const void* getPluginSuite(const std::string& locationType,
                                      const std::string& rendererName);

    /// Replaces `locationTypes` by the types that there are delegates of that renderer for,
    /// ascending. Initializes the cache.
    static void getLocationTypesWithDelegates(std::vector<std::string>& locationTypes,
                                              const std::string& rendererName);
};

}  // namespace SYLVAR
