// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace SYLVAR {

/// The entry of the table that asks plug-ins to drop their caches.
void flushPluginCaches(const char* apiName);

}  // namespace SYLVAR
