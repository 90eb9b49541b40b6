// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/OpTreeSource.h>

#include <memory>

/// Clients of the runtime, made from op trees and used again. The process keeps every client that
/// was made, each with a runtime of its own.
namespace SYLVAR {

/// A client for the source: the one that was handed back last for an equivalent source, which is
/// then not looked at again, or a new one. The caller's until `ClientInvalidate`. Locations are
/// cooked when they are asked for.
///
/// Empty, with an error in the log, when the source is not valid, when there is no runtime, or when
/// the op tree cannot be built. What the source or the runtime throws travels, and nothing is kept
/// of the attempt.
///
/// When analytics are on, the records "runtime.opTree" and "runtime.opRegistry" tell of a new
/// client's runtime.
///
/// Any thread; one client is made at a time, and others wait meanwhile. Not for code that the
/// runtime, the log or analytics call.
OV_SYLVAR_PRODUCERS_API std::shared_ptr<SylvarRuntime::Client> ClientCreateWithOpTree(
    const OpTreeSource& source);

/// Hands a client back: from the next creation on, whichever its source, it may be another's. A
/// client that was not made here, that was handed back already, or that is empty does no harm.
///
/// Any thread, one that is ending too: it never waits for a creation that is under way.
OV_SYLVAR_PRODUCERS_API void ClientInvalidate(std::shared_ptr<SylvarRuntime::Client> client);

}  // namespace SYLVAR
