// SPDX-License-Identifier: Apache-2.0
#include "Commands/OptionChecks.h"

#include <charconv>
#include <cmath>
#include <cstddef>
#include <string>
#include <system_error>

namespace ovscene {
namespace {

template <class Number>
bool readsAs(const std::string& text, Number& number) {
    const char* const end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, number);
    return result.ec == std::errc() && result.ptr == end;
}

std::string checkCount(const std::string& text) {
    std::int64_t count = -1;
    return readsAs(text, count) && count >= 0 ? "" : "'" + text + "' is no number of 0 or more";
}

std::string checkPositive(const std::string& text) {
    double number = 0;
    const bool fits = readsAs(text, number) && std::isfinite(number) && number > 0;
    return fits ? "" : "'" + text + "' is no number above 0";
}

std::string checkSetting(const std::string& text) {
    const std::size_t equals = text.find('=');
    return equals != std::string::npos && equals > 0 ? "" : "'" + text + "' is no NAME=VALUE";
}

}  // namespace

CLI::Validator isCount() {
    return CLI::Validator(checkCount, "count");
}

CLI::Validator isCountUpTo(std::int64_t most) {
    const auto check = [most](const std::string& text) {
        std::int64_t count = 0;
        const bool fits = readsAs(text, count) && count > 0 && count <= most;
        return fits ? std::string()
                    : "'" + text + "' is no number from 1 to " + std::to_string(most);
    };
    return CLI::Validator(check, "count");
}

CLI::Validator isPositive() {
    return CLI::Validator(checkPositive, "number");
}

CLI::Validator isSetting() {
    return CLI::Validator(checkSetting, "setting");
}

CLI::Option* addRepeatable(CLI::App& app,
                           const std::string& name,
                           std::vector<std::string>& values,
                           const std::string& help,
                           const CLI::Validator& check) {
    return app.add_option(name, values, help)
        ->allow_extra_args(false)  // one for each time that the option is there
        ->check(check);
}

}  // namespace ovscene
