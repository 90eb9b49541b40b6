// SPDX-License-Identifier: Apache-2.0
// Asking a list of patterns about the paths of a scene, each time about another.
#include "CountAllocations.h"
#include "Platform/Embedded/Ops/Patterns/PathPatterns.h"

#include <benchmark/benchmark.h>

#include <cstddef>
#include <random>
#include <string>
#include <vector>

using namespace Sylvar3::internal::OvSylvar::Embedded;
using ovbench::CountAllocations;

namespace {

using Texts = std::vector<std::string>;

std::string text(std::size_t number) {
    return std::to_string(number);
}

/// Pattern `i` of a list of each kind.
std::string literal(std::size_t i) {
    return "/root/world/street" + text(i % 30) + "/house" + text(i % 7) + "/lamp" + text(i);
}
std::string prefix(std::size_t i) {
    return "/root/world/lamp" + text(i) + "*";
}
std::string anywherePrefix(std::size_t i) {
    return "/root/**/name" + text(i) + "_*";
}
std::string anywhereSuffix(std::size_t i) {
    return "/root/**/*_" + text(i) + "geo";
}
std::string mixed(std::size_t i) {
    using Kind = std::string (*)(std::size_t);
    static constexpr Kind kKinds[] = {anywherePrefix, literal, anywhereSuffix, prefix};
    return (i % 3 == 2 ? "!" : "") + kKinds[i % 4](i);
}

template <class Pattern>
PathPatterns list(Pattern pattern, std::int64_t count) {
    Texts texts;
    for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) {
        texts.push_back(pattern(i));
    }
    return PathPatterns(texts);
}

/// Paths of four to six names; about half of them are matched by a list of a thousand.
Texts pathsOf(std::string (*pattern)(std::size_t)) {
    std::mt19937 random(3);
    Texts paths(1024);
    for (std::string& path : paths) {
        path = pattern(random() % 2000);
        path.erase(0, path.front() == '!' ? 1 : 0);
        const std::size_t span = path.find("**");
        if (span != std::string::npos) {
            path.replace(span, 2, "world/group" + text(random() % 100));
        }
        const std::size_t star = path.find('*');
        if (star != std::string::npos) {
            path.replace(star, 1, text(random() % 1000));
        }
        if (random() % 2 == 0) {
            path += "/shape";
        }
    }
    return paths;
}

template <class Ask>
void askList(benchmark::State& state, std::string (*pattern)(std::size_t), Ask ask) {
    const PathPatterns patterns = list(pattern, state.range(0));
    const Texts paths = pathsOf(pattern);
    std::size_t next = 0;
    std::size_t yes = 0;
    const CountAllocations count(state);
    for (auto _ : state) {
        yes += ask(patterns, paths[next]) ? 1 : 0;
        next = (next + 1) % paths.size();
    }
    state.counters["yes"] =
        benchmark::Counter(static_cast<double>(yes), benchmark::Counter::kAvgIterations);
}

void Matches(benchmark::State& state, std::string (*pattern)(std::size_t)) {
    askList(state, pattern, [](const PathPatterns& patterns, const std::string& path) {
        return patterns.matches(path);
    });
}
BENCHMARK_CAPTURE(Matches, Literals, literal)->Arg(1000);
BENCHMARK_CAPTURE(Matches, Prefixes, prefix)->Arg(1000);
BENCHMARK_CAPTURE(Matches, PrefixesAnywhere, anywherePrefix)->Arg(1000);
BENCHMARK_CAPTURE(Matches, SuffixesAnywhere, anywhereSuffix)->Arg(1000);
BENCHMARK_CAPTURE(Matches, Mixed, mixed)->Arg(1)->Arg(1000)->Arg(10000);

void CanMatchBelow(benchmark::State& state, std::string (*pattern)(std::size_t)) {
    askList(state, pattern, [](const PathPatterns& patterns, const std::string& path) {
        return patterns.canMatchBelow(path);
    });
}
BENCHMARK_CAPTURE(CanMatchBelow, Literals, literal)->Arg(1000);
BENCHMARK_CAPTURE(CanMatchBelow, Mixed, mixed)->Arg(1000);

void Compile(benchmark::State& state) {
    for (auto _ : state) {
        benchmark::DoNotOptimize(list(mixed, state.range(0)));
    }
}
BENCHMARK(Compile)->Arg(1000)->Unit(benchmark::kMicrosecond);

}  // namespace
