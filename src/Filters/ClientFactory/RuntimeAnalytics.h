// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/SylvarRuntime.h>

namespace SYLVAR {

/// Asks a runtime for its op tree and its op registry, and gives the answers to the manager of
/// analytics; nothing when analytics are off. An answer that is no JSON is recorded as a JSON null;
/// one that is empty, or a refusal, is not recorded.
///
/// Waits for the answers, however long they take. Throws `interprocess_exception` when it cannot
/// wait.
void recordRuntime(Sylvar3::internal::OvSylvar::SylvarRuntime& runtime);

}  // namespace SYLVAR
