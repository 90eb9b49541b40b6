// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Platform/Embedded/Runtime/InternedOp.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace Sylvar3::internal::OvSylvar::Embedded {

class Session;

/// An op on the way of a value, and the location that it made on that way.
struct TraceStep {
    std::shared_ptr<InternedOp> op;
    std::string path;
};

/// Where an attribute comes from.
struct Trace {
    bool hasLocation = false;
    bool hasAttribute = false;
    bool isDropped = false;  ///< The attribute is not there, since the first op did not hand it on.

    /// First the op that gave the value, then those that handed it on, up to the op that is looked
    /// at. Without the attribute the op that dropped it is the first one or, when none did, the one
    /// that gave the location; without the location there are none.
    std::vector<TraceStep> steps;
};

/// Follows an attribute from an op down its inputs. A dot in `name` steps into a group, and "" is
/// the group of all attributes.
///
/// An op has handed a value on when what it read for its location has the very same value under
/// that name: not an equal one. To see that, each op on the way cooks the location once more, for
/// this alone; so it does not matter what is dropped meanwhile. Without the attribute, the location
/// is followed: to what an op read at the same path, or handed on as a whole.
///
/// Takes no more of the stack for a long way. Throws what a cook throws that is no fault of an op,
/// and `OpError` when the scene changes meanwhile, or the way has more than a million ops.
Trace traceAttribute(Session& session,
                     const std::shared_ptr<InternedOp>& op,
                     std::string_view path,
                     std::string_view name);

/// As the runtime's table tells it. Names hold whatever bytes the op tree has.
std::string jsonOf(const Trace& trace);

}  // namespace Sylvar3::internal::OvSylvar::Embedded
