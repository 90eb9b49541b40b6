// SPDX-License-Identifier: Apache-2.0
#include "Print/NumberText.h"

#include <charconv>
#include <cmath>
#include <type_traits>

namespace ovscene {
namespace {

template <class Number, class... Format>
std::string converted(Number value, Format... format) {
    char buffer[400];  // the longest double in fixed form
    const auto result = std::to_chars(buffer, buffer + sizeof(buffer), value, format...);
    return std::string(buffer, result.ptr);
}

template <class Real>
std::string realText(Real value) {
    return std::isnan(value) ? std::string("nan") : converted(value);
}

}  // namespace

std::string numberText(std::int64_t value) {
    return converted(value);
}

std::string numberText(std::int32_t value) {
    return converted(value);
}

std::string numberText(float value) {
    return realText(value);
}

std::string numberText(double value) {
    return realText(value);
}

std::string counted(std::int64_t count, const std::string& noun) {
    return numberText(count) + " " + noun + (count == 1 ? "" : "s");
}

std::string secondsText(double seconds) {
    return converted(seconds, std::chars_format::fixed, 4) + " s";
}

}  // namespace ovscene
