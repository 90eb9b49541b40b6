// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/suites/Renderer.h>

#include <string>
#include <vector>

/// The renderers among the plug-ins that the last search found.
namespace ovscene {

/// Their names, in the plug-in manager's order. Throws PluginUnusable when there is none, with the
/// folders searched and what cannot be used there.
std::vector<std::string> rendererNames();

/// The one of that name; without a name the only one that there is. Throws Usage when a name is
/// needed, and PluginUnusable when there is no such renderer or its table cannot be used.
struct Renderer {
    std::string name;
    const OvRenderer* table;
};
Renderer findRenderer(const std::string& name);

/// What it makes, for people; of one that cannot be used, why not.
std::string aboutRenderer(const std::string& name);

}  // namespace ovscene
