// SPDX-License-Identifier: Apache-2.0
// What this machine needs for its simplest steps: the measure of all other figures.
#include <benchmark/benchmark.h>
#include <xxhash.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <numeric>
#include <random>
#include <vector>

namespace {

void MallocPair(benchmark::State& state) {
    for (auto _ : state) {
        void* const memory = std::malloc(128);
        benchmark::DoNotOptimize(memory);
        std::free(memory);
    }
}
BENCHMARK(MallocPair);

/// One random cycle through 256 MiB, so that each load waits for the one before.
std::vector<std::uint64_t> randomCycle() {
    constexpr std::size_t kCount = (std::size_t{256} << 20) / sizeof(std::uint64_t);
    std::vector<std::uint64_t> next(kCount);
    std::iota(next.begin(), next.end(), std::uint64_t{0});
    std::mt19937_64 random(1);
    for (std::size_t i = kCount - 1; i > 0; --i) {
        std::swap(next[i], next[random() % i]);
    }
    return next;
}

void DependentLoad(benchmark::State& state) {
    static const std::vector<std::uint64_t> next = randomCycle();
    std::uint64_t at = 0;
    for (auto _ : state) {
        at = next[at];
        benchmark::DoNotOptimize(at);
    }
}
BENCHMARK(DependentLoad);

void Xxh3(benchmark::State& state) {
    const std::vector<char> bytes(static_cast<std::size_t>(state.range(0)), 'x');
    for (auto _ : state) {
        benchmark::DoNotOptimize(XXH3_128bits(bytes.data(), bytes.size()));
    }
    state.SetBytesProcessed(state.iterations() * state.range(0));
}
BENCHMARK(Xxh3)->Arg(1 << 10)->Arg(1 << 16)->Arg(1 << 22);

void Memcpy(benchmark::State& state) {
    const std::vector<char> from(static_cast<std::size_t>(state.range(0)), 'x');
    std::vector<char> to(from.size());
    for (auto _ : state) {
        std::memcpy(to.data(), from.data(), from.size());
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * state.range(0));
}
BENCHMARK(Memcpy)->Arg(1 << 10)->Arg(1 << 16)->Arg(1 << 22);

}  // namespace
