// SPDX-License-Identifier: Apache-2.0
#include "ImportProgress.h"

#include "ImportError.h"

namespace AssimpImport {

bool ImportProgress::reach(float fraction) {
    if (fraction > reached_) {
        reached_ = fraction < 1.0F ? fraction : 1.0F;
    }
    if (!stopped_ && tell_) {
        stopped_ = !tell_(reached_);
    }
    return !stopped_;
}

void ImportProgress::pass(float fraction) {
    if (!reach(fraction)) {
        throw ImportError("the import was stopped");
    }
}

}  // namespace AssimpImport
