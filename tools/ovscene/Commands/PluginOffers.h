// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Scene/PluginList.h"

#include <set>
#include <string>

/// What plug-ins are good for, in words.
namespace ovscene {

/// What plug-ins of that API do, in one paragraph; that nothing asks for them when it is not known
/// here, in that version.
std::string aboutApi(const std::string& api, int version);

/// What one plug-in gives.
struct PluginOffer {
    std::string text;                 ///< May be "", and may hold any bytes.
    std::set<std::string> renderers;  ///< The names of renderers that come with it; "" for any.
};

/// Asks the plug-in for its table, and the table as far as its API is known. A stranger's code runs
/// in here; what it throws ends here.
PluginOffer offerOf(const ListedPlugin& plugin);

}  // namespace ovscene
