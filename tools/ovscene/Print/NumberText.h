// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string>

namespace ovscene {

/// The shortest text that reads back to the same number, whatever the locale; "nan", "inf" and
/// "-inf" for what is no number.
std::string numberText(std::int64_t value);
std::string numberText(std::int32_t value);
std::string numberText(float value);
std::string numberText(double value);

/// A number with its noun: "1 location", "2 locations".
std::string counted(std::int64_t count, const std::string& noun);

/// Seconds for people: four decimals.
std::string secondsText(double seconds);

}  // namespace ovscene
