// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <CLI/CLI.hpp>

#include <cstddef>
#include <string>
#include <vector>

namespace ovscene {

/// For options that take an int of any sign, a number of any sign, and `count` numbers with commas
/// between them.
CLI::Validator isInt();
CLI::Validator isNumber();
CLI::Validator isNumberList(std::size_t count);

/// The numbers of a list that was checked; a number is a list of one.
std::vector<float> numbersOf(const std::string& list);

}  // namespace ovscene
