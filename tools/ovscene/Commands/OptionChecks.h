// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <CLI/CLI.hpp>

namespace ovscene {

/// For options that take a whole number of 0 or more, and for those that take a number above 0.
CLI::Validator isCount();
CLI::Validator isPositive();

}  // namespace ovscene
