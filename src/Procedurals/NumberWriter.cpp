// SPDX-License-Identifier: Apache-2.0
#include "Procedurals/NumberWriter.h"

#include <array>
#include <charconv>

namespace SYLVAR {
namespace {

constexpr int kDigits = 12;
constexpr std::size_t kLongest = 32;  // more than "-1.23456789012e-308"

template <class... How>
void write(std::ostream& stream, How... how) {
    std::array<char, kLongest> text;
    const auto written = std::to_chars(text.data(), text.data() + text.size(), how...);
    stream.write(text.data(), written.ptr - text.data());
}

}  // namespace

void WriteNumber(std::ostream& stream, double number) {
    write(stream, number, std::chars_format::general, kDigits);
}

void WriteNumber(std::ostream& stream, std::int32_t number) {
    write(stream, number);
}

}  // namespace SYLVAR
