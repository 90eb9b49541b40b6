// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>

namespace AssimpImport {

/// How far an import is. Fractions are told in order, and none after the import was stopped.
class ImportProgress {
public:
    using Tell = std::function<bool(float)>;

    /// `tell` returns false to stop the import; it may be empty.
    explicit ImportProgress(Tell tell) : tell_(std::move(tell)) {}

    /// Tells that `fraction` (0 to 1) is done; false when the import is to stop. A fraction that is
    /// no number, or less than the last one, is told as the last one.
    bool reach(float fraction);

    /// The same; throws `ImportError` when the import is to stop.
    void pass(float fraction);

    bool isStopped() const noexcept { return stopped_; }

private:
    Tell tell_;
    float reached_ = 0.0F;
    bool stopped_ = false;
};

}  // namespace AssimpImport
