// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <CLI/CLI.hpp>

#include <cstdint>

namespace ovscene {

/// For options that take a whole number of 0 or more, for those that take one from 1 up to `most`,
/// and for those that take a number above 0.
CLI::Validator isCount();
CLI::Validator isCountUpTo(std::int64_t most);
CLI::Validator isPositive();

}  // namespace ovscene
