// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/suites/RenderOutputUtilsSuite.h>
#include <OvSylvarProducers/suites/Scene.hpp>

#include <stdexcept>
#include <utility>

/// The program as a host: it publishes the library's tables in the host's, and walks scenes through
/// them itself, as those do whom it loads.
namespace ovscene {

/// Publishes the tables. Call it before plug-ins are loaded, which then find them; again it does
/// nothing. Throws a `CommandError`, Unexpected, when the tables' names are taken. Any thread.
void publishHostTables();

/// The scene table, found in the host's. Throws a `CommandError`, Unexpected, when it cannot be
/// published, or when a table is not there. Any thread.
const SYLVAR::Suites::Scene& hostScene();

/// The render output table, found in the host's. Throws as `hostScene` does. Any thread.
const OvRenderOutputUtilsSuite& hostRenderOutputUtils();

/// What a table gave. An error in its place becomes an exception of the same text: what the runtime
/// threw comes through the tables as it was.
template <class T>
T valueOf(SYLVAR::Suites::Expected<T> expected) {
    if (!expected) {
        throw std::runtime_error(expected.error().message());
    }
    return *std::move(expected);
}

}  // namespace ovscene
