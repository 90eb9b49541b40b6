// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>

namespace AssimpImport {

/// How many locations an import may still make.
class LocationBudget {
public:
    /// 0: no limit.
    explicit LocationBudget(std::int64_t limit) noexcept : limit_(limit) {}

    /// Throws `ImportError` when `count` more are too many.
    void spend(std::size_t count);

private:
    std::int64_t limit_;
    std::int64_t spent_ = 0;
};

}  // namespace AssimpImport
