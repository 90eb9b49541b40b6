// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/GeometryProducer.h>

#include <string>

namespace SYLVAR {

/// The location at a path, from the top location down, of the scene that an op tree file describes.
/// It is cooked, and so are those above it. `evict` in a step drops the location from the runtime's
/// cache first.
///
/// This is the producer for many threads: whichever thread makes a step cooks with a client of its
/// own, and producers may be handed from thread to thread. `getClient` is the calling thread's.
///
/// Null when the path is empty or does not begin with "/", when the location or one above it is not
/// there, and when there is no client (which the log tells). What the runtime throws travels, and
/// so does `std::runtime_error`, "Error opening file: <name>". Any thread.
OV_SYLVAR_PRODUCERS_API GeometryProducerPtr
CreateThreadAwareGeometryProducer(const std::string& opTreeFile, const std::string& path);

/// The same for an op tree that a group spells out, as `OpTreeAttributeSource` tells.
OV_SYLVAR_PRODUCERS_API GeometryProducerPtr
CreateThreadAwareGeometryProducer(const GroupAttribute& opTree, const std::string& path);

}  // namespace SYLVAR
