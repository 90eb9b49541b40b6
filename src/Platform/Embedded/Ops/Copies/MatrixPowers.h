// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <Imath/ImathMatrix.h>

#include <cstddef>
#include <vector>

namespace Sylvar3::internal::OvSylvar::Embedded {

/// Products of equal matrices. Immutable; any thread.
class MatrixPowers {
public:
    /// Those of up to `most` factors.
    MatrixPowers(const Imath::M44d& matrix, std::size_t most) : squares_{matrix} {
        for (std::size_t rest = most / 2; rest > 0; rest /= 2) {
            squares_.push_back(squares_.back() * squares_.back());
        }
    }

    /// The product of that many factors; of none, the identity.
    Imath::M44d operator[](std::size_t exponent) const {
        Imath::M44d product;
        bool isIdentity = true;  // It is not multiplied by: infinity times 0 is NaN.
        for (std::size_t i = 0; exponent > 0; ++i, exponent /= 2) {
            if (exponent % 2 == 1) {
                product = isIdentity ? squares_[i] : product * squares_[i];
                isIdentity = false;
            }
        }
        return product;
    }

private:
    std::vector<Imath::M44d> squares_;  ///< Of 1, 2, 4, ... factors.
};

}  // namespace Sylvar3::internal::OvSylvar::Embedded
