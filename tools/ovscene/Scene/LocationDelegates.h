// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/suites/LocationDelegate.h>

#include <string>
#include <vector>

/// Delegates: plug-ins that handle locations of some types for a renderer.
namespace ovscene {

/// What a delegate says of itself.
struct DelegateAnswer {
    std::string fault;     ///< Why it cannot be asked; "" when it can.
    std::string renderer;  ///< "" for any renderer.
    std::vector<std::string> types;
};

/// Asks a delegate, which is a stranger's: what it throws becomes the fault.
DelegateAnswer askDelegate(const OvLocationDelegate& delegate);

/// The types of location that the host's render output table finds a delegate of that renderer for,
/// "" being any. Asks all plug-ins that a search has found, once in a process.
std::vector<std::string> typesWithDelegates(const std::string& renderer);

}  // namespace ovscene
