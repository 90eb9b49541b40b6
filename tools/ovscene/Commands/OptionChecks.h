// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <CLI/CLI.hpp>

#include <cstdint>
#include <string>
#include <vector>

namespace ovscene {

/// For options that take a whole number of 0 or more, for those that take one from 1 up to `most`,
/// for those that take a number above 0, and for those that take NAME=VALUE.
CLI::Validator isCount();
CLI::Validator isCountUpTo(std::int64_t most);
CLI::Validator isPositive();
CLI::Validator isSetting();

/// An option that may be there any number of times, each with one value.
CLI::Option* addRepeatable(CLI::App& app,
                           const std::string& name,
                           std::vector<std::string>& values,
                           const std::string& help,
                           const CLI::Validator& check);

}  // namespace ovscene
