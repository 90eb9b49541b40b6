// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ReferenceProjection.h"

#include <random>

namespace ovtest {

/// Cameras, matrices and numbers, the same ones for a seed. Most are such as scenes have; the
/// others are of any magnitude, or degenerate: no extent, singular, infinite, no number.
class RandomCameras {
public:
    explicit RandomCameras(unsigned seed) : random_(seed) {}

    int below(int end) { return static_cast<int>(random_() % static_cast<unsigned>(end)); }

    /// From -1 up to 1.
    double unit();

    /// Of any magnitude that a float can have, or one of the values at its ends.
    float oddFloat();
    double oddDouble();

    reference::Camera camera();
    reference::Matrix matrix();
    reference::Point point();
    std::array<double, 6> bound();

    /// The width or the height of a picture.
    int extent();

private:
    double magnitude(int exponents);
    reference::Matrix placed();
    reference::Matrix singular();

    std::mt19937 random_;
};

}  // namespace ovtest
