// SPDX-License-Identifier: Apache-2.0
#include "Commands/ThreadsOption.h"

#include "Commands/OptionChecks.h"

#include <algorithm>
#include <thread>

namespace ovscene {
namespace {

constexpr std::int64_t kMostThreads = 1024;

}  // namespace

void addThreads(CLI::App& command, std::int64_t& threads, const std::string& help) {
    command.add_option("--threads", threads, help)
        ->check(isCountUpTo(kMostThreads))
        ->option_text("N");
}

std::size_t threadCount(std::int64_t threads) {
    const auto cores = static_cast<std::int64_t>(std::thread::hardware_concurrency());
    const std::int64_t all = std::clamp<std::int64_t>(cores, 1, kMostThreads);
    return static_cast<std::size_t>(threads == 0 ? all : threads);
}

}  // namespace ovscene
