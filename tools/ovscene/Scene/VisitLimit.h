// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ExitStatus.h"
#include "Print/NumberText.h"

#include <cstdint>
#include <string>
#include <utility>

namespace ovscene {

/// A limit on what one command visits: a small file that shares its parts many times over can
/// expand to more than anybody could wait for.
class VisitLimit {
public:
    static constexpr std::int64_t kMost = std::int64_t{1} << 26;

    explicit VisitLimit(std::string filename) : filename_(std::move(filename)) {}

    /// Throws InputMalformed once the limit is passed.
    void count() {
        if (++visited_ > kMost) {
            throw CommandError(ExitStatus::InputMalformed,
                               filename_ + ": expands to more than " + numberText(kMost) +
                                   " locations and attributes");
        }
    }

private:
    std::string filename_;
    std::int64_t visited_ = 0;
};

}  // namespace ovscene
