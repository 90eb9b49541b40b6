// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/GeometryProducer.h>

#include <memory>
#include <string>

namespace SYLVAR {

/// The location at a path, seen through one client that all producers of the walk share and keep.
/// Every step cooks and waits. `evict` in a step drops the location from the runtime's cache first.
///
/// Null when the client or the path is empty, when the path does not begin with "/", and when the
/// location or one above it is not there: they are cooked from the top down. What the runtime
/// throws travels. As many threads may walk as the client allows.
OV_SYLVAR_PRODUCERS_API GeometryProducerPtr
CreateSyncGeometryProducer(const std::shared_ptr<SylvarRuntime::Client>& client,
                           const std::string& path);

}  // namespace SYLVAR
