// SPDX-License-Identifier: Apache-2.0
#include "Commands/NumberOptions.h"

#include <charconv>
#include <cmath>
#include <string_view>
#include <system_error>

namespace ovscene {
namespace {

template <class Number>
bool readsAs(std::string_view text, Number& number) {
    const char* const end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, number);
    return result.ec == std::errc() && result.ptr == end;
}

/// False when one is no finite number.
bool readsAsList(std::string_view text, std::vector<float>& numbers) {
    while (true) {
        const std::size_t comma = text.find(',');
        if (!readsAs(text.substr(0, comma), numbers.emplace_back()) ||
            !std::isfinite(numbers.back())) {
            return false;
        }
        if (comma == std::string_view::npos) {
            return true;
        }
        text.remove_prefix(comma + 1);
    }
}

std::string checkInt(const std::string& text) {
    int number = 0;
    return readsAs(text, number) ? "" : "'" + text + "' is no whole number of 32 bits";
}

std::string checkNumber(const std::string& text) {
    float number = 0;
    const bool fits = readsAs(text, number) && std::isfinite(number);
    return fits ? "" : "'" + text + "' is no decimal number that a float holds";
}

}  // namespace

CLI::Validator isInt() {
    return CLI::Validator(checkInt, "int");
}

CLI::Validator isNumber() {
    return CLI::Validator(checkNumber, "number");
}

CLI::Validator isNumberList(std::size_t count) {
    const auto check = [count](const std::string& text) {
        std::vector<float> numbers;
        const bool fits = readsAsList(text, numbers) && numbers.size() == count;
        return fits ? std::string()
                    : "'" + text + "' is no list of " + std::to_string(count) +
                          " numbers with commas between them";
    };
    return CLI::Validator(check, "numbers");
}

std::vector<float> numbersOf(const std::string& list) {
    std::vector<float> numbers;
    readsAsList(list, numbers);
    return numbers;
}

}  // namespace ovscene
