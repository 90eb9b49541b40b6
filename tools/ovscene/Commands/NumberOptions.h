// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <CLI/CLI.hpp>

#include <cstddef>
#include <string>
#include <vector>

namespace ovscene {

/// For options that take an int of any sign, and for those that take `count` numbers with commas
/// between them.
CLI::Validator isInt();
CLI::Validator isNumberList(std::size_t count);

/// The numbers of a list that was checked.
std::vector<float> numbersOf(const std::string& list);

}  // namespace ovscene
