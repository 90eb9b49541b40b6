// SPDX-License-Identifier: Apache-2.0
#include "RandomCameras.h"

#include <cmath>
#include <limits>

namespace ovtest {

namespace {

template <class Number>
constexpr Number kOddNumbers[] = {
    Number(0),
    -Number(0),
    Number(1),
    Number(-1),
    std::numeric_limits<Number>::infinity(),
    -std::numeric_limits<Number>::infinity(),
    std::numeric_limits<Number>::quiet_NaN(),
    std::numeric_limits<Number>::max(),
    std::numeric_limits<Number>::lowest(),
    std::numeric_limits<Number>::min(),
    std::numeric_limits<Number>::denorm_min(),
    -std::numeric_limits<Number>::denorm_min(),
};

constexpr int kOddCount = 12;

}  // namespace

double RandomCameras::unit() {
    return static_cast<double>(random_()) / 2147483648.0 - 1.0;
}

double RandomCameras::magnitude(int exponents) {
    return std::ldexp(unit(), below(2 * exponents) - exponents);
}

float RandomCameras::oddFloat() {
    return below(2) == 0 ? kOddNumbers<float>[below(kOddCount)]
                         : static_cast<float>(magnitude(126));
}

double RandomCameras::oddDouble() {
    return below(2) == 0 ? kOddNumbers<double>[below(kOddCount)] : magnitude(600);
}

reference::Camera RandomCameras::camera() {
    reference::Camera camera;
    camera.fov = static_cast<float>(80 + 70 * unit());
    camera.near = static_cast<float>(std::exp(3 * unit()));
    camera.far = camera.near + static_cast<float>(std::exp(5 + 5 * unit()));
    camera.left = static_cast<float>(-1 + 0.7 * unit());
    camera.right = static_cast<float>(1 + 0.7 * unit());
    camera.top = static_cast<float>(1 + 0.7 * unit());
    camera.bottom = static_cast<float>(-1 + 0.7 * unit());
    camera.orthographic = below(2) == 0;
    camera.orthographicWidth = static_cast<float>(std::exp(4 * unit()));
    if (below(2) == 0) {
        float* const fields[] = {&camera.fov,
                                 &camera.near,
                                 &camera.far,
                                 &camera.left,
                                 &camera.right,
                                 &camera.top,
                                 &camera.bottom,
                                 &camera.orthographicWidth};
        for (int i = 0, count = 1 + below(3); i < count; ++i) {
            *fields[below(8)] = below(3) == 0 ? *fields[below(8)] : oddFloat();
        }
    }
    if (below(8) == 0) {
        (below(2) == 0 ? camera.right : camera.top) = below(2) == 0 ? camera.left : camera.bottom;
    }
    camera.xform = matrix();
    return camera;
}

/// Turned, scaled and moved.
reference::Matrix RandomCameras::placed() {
    reference::Matrix result = reference::identity();
    for (std::size_t axis = 0; axis < 3; ++axis) {
        const double angle = 4 * unit();
        const std::size_t a = (axis + 1) % 3;
        const std::size_t b = (axis + 2) % 3;
        reference::Matrix turn = reference::identity();
        turn[a][a] = turn[b][b] = std::cos(angle);
        turn[a][b] = std::sin(angle);
        turn[b][a] = -turn[a][b];
        result = reference::product(result, turn);
    }
    for (std::size_t row = 0; row < 3; ++row) {
        const double factor = below(3) == 0 ? 2 * unit() : 1;
        for (std::size_t column = 0; column < 3; ++column) {
            result[row][column] *= factor;
        }
        result[3][row] = 10 * unit();
    }
    return result;
}

reference::Matrix RandomCameras::singular() {
    reference::Matrix result = placed();
    const auto row = static_cast<std::size_t>(below(3));
    result[row] = below(2) == 0 ? std::array<double, 4>{} : result[(row + 1) % 3];
    return below(3) == 0 ? reference::Matrix{} : result;
}

reference::Matrix RandomCameras::matrix() {
    const int kind = below(10);
    if (kind == 0) {
        return reference::identity();
    }
    if (kind == 1) {
        return singular();
    }
    reference::Matrix result = placed();
    if (kind == 2) {
        for (std::size_t row = 0; row < 4; ++row) {
            result[row][3] = unit();
        }
    } else if (kind == 3) {
        const double factor = magnitude(300);
        for (std::size_t row = 0; row < 4; ++row) {
            for (std::size_t column = 0; column < 3; ++column) {
                result[row][column] *= factor;
            }
        }
    } else if (kind == 4) {
        result[static_cast<std::size_t>(below(4))][static_cast<std::size_t>(below(4))] =
            oddDouble();
    }
    return result;
}

reference::Point RandomCameras::point() {
    reference::Point point = {20 * unit(), 20 * unit(), 20 * unit()};
    if (below(4) == 0) {
        point[static_cast<std::size_t>(below(3))] = oddDouble();
    }
    return point;
}

std::array<double, 6> RandomCameras::bound() {
    std::array<double, 6> result{};
    for (std::size_t i = 0; i < 3; ++i) {
        result[2 * i] = 10 * unit();
        result[2 * i + 1] = result[2 * i] + 5 * (1 + unit());
    }
    if (below(4) == 0) {
        result[static_cast<std::size_t>(below(6))] = oddDouble();
    }
    return result;
}

int RandomCameras::extent() {
    constexpr int kOdd[] = {0, 1, -1, 16777217, 2147483647, -2147483647 - 1};
    return below(4) == 0 ? kOdd[below(6)] : 1 + below(5000);
}

}  // namespace ovtest
