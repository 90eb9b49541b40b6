// SPDX-License-Identifier: Apache-2.0
#include "Scene/HostTables.h"

#include <OvSylvarProducers/suites/Initialize.h>

#include "ExitStatus.h"

namespace ovscene {

void publishHostTables() {
    static const int failure = OvSylvarProducersInitialize(OvGetHostTable());
    if (failure != 0) {
        throw CommandError(
            ExitStatus::Unexpected,
            "the tables of the library cannot be published: " + std::to_string(failure));
    }
}

}  // namespace ovscene
