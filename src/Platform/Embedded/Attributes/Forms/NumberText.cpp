// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Attributes/Forms/NumberText.h"

#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <system_error>

namespace Sylvar3::internal::OvAttribute::Embedded::NumberText {

namespace {

template <class T>
struct Layout;

template <>
struct Layout<float> {
    using Bits = std::uint32_t;
    static constexpr Bits kPlainNan = 0x7FC00000;
};

template <>
struct Layout<double> {
    using Bits = std::uint64_t;
    static constexpr Bits kPlainNan = 0x7FF8000000000000;
};

template <class T>
typename Layout<T>::Bits bitsOf(T value) {
    typename Layout<T>::Bits bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    return bits;
}

char* writeText(char* to, std::string_view text) {
    std::memcpy(to, text.data(), text.size());
    return to + text.size();
}

template <class Bits>
char* writeBits(char* to, Bits bits) {
    to = writeText(to, "\\x");
    for (int shift = static_cast<int>(sizeof bits) * 8 - 4; shift >= 0; shift -= 4) {
        *to++ = "0123456789ABCDEF"[(bits >> shift) & 15];
    }
    return to;
}

template <class T>
char* writeReal(char* to, T value) {
    if (std::isfinite(value)) {
        return std::to_chars(to, to + kLongest, value).ptr;
    }
    if (std::isinf(value)) {
        return writeText(to, value < 0 ? "-inf" : "inf");
    }
    return bitsOf(value) == Layout<T>::kPlainNan ? writeText(to, "nan")
                                                 : writeBits(to, bitsOf(value));
}

template <class T, class... How>
bool readAll(std::string_view text, T& value, How... how) {
    T read{};
    const char* const end = text.data() + text.size();
    const std::from_chars_result result = std::from_chars(text.data(), end, read, how...);
    if (result.ec != std::errc() || result.ptr != end) {
        return false;
    }
    value = read;
    return true;
}

template <class T>
bool readBits(std::string_view digits, T& value) {
    typename Layout<T>::Bits bits = 0;
    const bool isWhole = digits.size() == sizeof bits * 2 && digits[0] != '-';
    if (!isWhole || !readAll(digits, bits, 16)) {
        return false;
    }
    std::memcpy(&value, &bits, sizeof value);
    return true;
}

template <class T>
bool readSpecialOf(std::string_view text, T& value) {
    if (text == "inf" || text == "-inf") {
        const T infinity = std::numeric_limits<T>::infinity();
        value = text[0] == '-' ? -infinity : infinity;
        return true;
    }
    if (text == "nan") {
        const auto bits = Layout<T>::kPlainNan;
        std::memcpy(&value, &bits, sizeof value);
        return true;
    }
    return text.substr(0, 2) == "\\x" && readBits(text.substr(2), value);
}

template <class T>
bool readReal(std::string_view text, T& value) {
    const std::size_t first = text.substr(0, 1) == "-" ? 1 : 0;
    const char c = first < text.size() ? text[first] : '\0';
    const bool isPlain = (c >= '0' && c <= '9') || c == '.';
    return isPlain ? readAll(text, value) : readSpecialOf(text, value);
}

}  // namespace

char* write(char* to, std::int32_t value) {
    return std::to_chars(to, to + kLongest, value).ptr;
}

char* write(char* to, float value) {
    return writeReal(to, value);
}

char* write(char* to, double value) {
    return writeReal(to, value);
}

bool read(std::string_view text, std::int32_t& value) {
    return readAll(text, value);
}

bool read(std::string_view text, float& value) {
    return readReal(text, value);
}

bool read(std::string_view text, double& value) {
    return readReal(text, value);
}

bool readSpecial(std::string_view text, float& value) {
    return readSpecialOf(text, value);
}

bool readSpecial(std::string_view text, double& value) {
    return readSpecialOf(text, value);
}

}  // namespace Sylvar3::internal::OvAttribute::Embedded::NumberText
