// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Runtime/Budget.h"

#include <SylvarPlatform/Configuration.h>

#include "Platform/Embedded/Runtime/RuntimeLog.h"
#include "Platform/Embedded/Runtime/Store.h"

#include <charconv>
#include <string_view>

namespace Sylvar3::internal::OvSylvar::Embedded {

namespace {

constexpr const char* kKey = "SYLVAR_MEMORY_BUDGET";

}  // namespace

std::optional<std::int64_t> parseBytes(const std::string& text) {
    std::int64_t number = 0;
    const char* const end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || number < 0 || end - rest > 1) {
        return std::nullopt;
    }
    if (rest == end) {
        return number;
    }
    const std::size_t power = std::string_view("KMG").find(*rest);
    std::int64_t bytes = 0;
    if (power == std::string_view::npos ||
        __builtin_mul_overflow(number, std::int64_t{1} << (10 * (power + 1)), &bytes)) {
        return std::nullopt;
    }
    return bytes;
}

void applyConfiguredBudget() {
    const OvConfiguration::v1::Configuration& configuration = *OvConfiguration::v1::Config();
    if (!configuration.has(kKey)) {
        return Store::instance().setBudget(Store::kUnlimited);
    }
    const std::string text = configuration.get(kKey);
    if (const std::optional<std::int64_t> bytes = parseBytes(text)) {
        Store::instance().setBudget(*bytes);
    } else {
        OV_LOG(runtimeLogger(),
               warn,
               kKey << " is \"" << text << "\", which is no number of bytes such as 512M");
    }
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
