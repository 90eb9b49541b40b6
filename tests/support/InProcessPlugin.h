// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/PluginManager.h>
#include <SylvarPlatform/suites/Plugin.h>

#include <string>

namespace ovtest {

/// A plug-in of the test's own, which lives as long as the process. Empty on success, otherwise the
/// reason.
inline std::string registerPlugin(OvPluginStruct& plugin) {
    return Sylvar3::internal::OvPluginManager::PluginManager::registerPlugin(&plugin);
}

}  // namespace ovtest
