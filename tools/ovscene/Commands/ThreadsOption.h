// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <CLI/CLI.hpp>

#include <cstddef>
#include <cstdint>
#include <string>

namespace ovscene {

/// Adds the option "--threads", 1 to 1024. `threads` outlives the application.
void addThreads(CLI::App& command, std::int64_t& threads, const std::string& help);

/// So many threads; for 0 as many as there are cores.
std::size_t threadCount(std::int64_t threads);

}  // namespace ovscene
