// SPDX-License-Identifier: Apache-2.0
// Procedural arguments in both forms, beside the plain writing of the same numbers.
#include <OvSylvarProducers/ProceduralArguments.h>

#include "support/StaticScene.h"

#include <benchmark/benchmark.h>

#include <charconv>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

using namespace Sylvar3::internal::OvAttribute;

namespace {

constexpr std::size_t kArguments = 1000;
constexpr std::size_t kValues = 4;

/// Of all digits, from -1 up to 1; the same ones in every run.
std::vector<double> randomNumbers() {
    std::mt19937_64 random(1);
    std::vector<double> numbers(kArguments * kValues);
    for (double& number : numbers) {
        number = static_cast<double>(static_cast<std::int64_t>(random())) / 9223372036854775808.0;
    }
    return numbers;
}

template <class NumberAttribute>
GroupAttribute numericArguments() {
    using Number = typename NumberAttribute::value_type;
    const std::vector<double> numbers = randomNumbers();
    GroupBuilder arguments(GroupBuilder::Mode::Flat);
    for (std::size_t i = 0; i < kArguments; ++i) {
        const double* const first = numbers.data() + i * kValues;
        arguments.set("argument" + std::to_string(i),
                      NumberAttribute(std::vector<Number>(first, first + kValues)));
    }
    return GroupBuilder().set("args", arguments.build()).build();
}

using Build = std::string (*)(SYLVAR::GeometryProducerPtr,
                              SYLVAR::ProceduralOutputContextInfo&,
                              GroupAttribute,
                              SYLVAR::ProceduralErrorCallback);

void build(benchmark::State& state, Build form, const GroupAttribute& attrs) {
    const SYLVAR::GeometryProducerPtr producer = ovtest::StaticScene().at("/root/a").open();
    SYLVAR::ProceduralOutputContextInfo context;
    std::size_t bytes = 0;
    for (auto _ : state) {
        const std::string text = form(producer, context, attrs, nullptr);
        bytes = text.size();
        benchmark::DoNotOptimize(text.data());
    }
    state.counters["bytes"] = static_cast<double>(bytes);
}

/// The measure of the two below it.
template <class Number>
void PlainNumbers(benchmark::State& state) {
    const std::vector<double> doubles = randomNumbers();
    const std::vector<Number> numbers(doubles.begin(), doubles.end());
    std::vector<char> text(numbers.size() * 32);
    for (auto _ : state) {
        char* at = text.data();
        for (const Number number : numbers) {
            *at++ = ' ';
            at = std::to_chars(at,
                               text.data() + text.size(),
                               static_cast<double>(number),
                               std::chars_format::general,
                               12)
                     .ptr;
        }
        benchmark::DoNotOptimize(at);
        benchmark::ClobberMemory();
    }
}
BENCHMARK(PlainNumbers<float>)->Unit(benchmark::kMicrosecond);
BENCHMARK(PlainNumbers<double>)->Unit(benchmark::kMicrosecond);

template <class NumberAttribute>
void ClassicArguments(benchmark::State& state) {
    build(
        state, &SYLVAR::BuildClassicProceduralArgumentsString, numericArguments<NumberAttribute>());
}
BENCHMARK(ClassicArguments<FloatAttribute>)->Unit(benchmark::kMicrosecond);
BENCHMARK(ClassicArguments<DoubleAttribute>)->Unit(benchmark::kMicrosecond);

template <class NumberAttribute>
void ScenegraphAttrArguments(benchmark::State& state) {
    build(state,
          &SYLVAR::BuildScenegraphAttrProceduralArgumentsString,
          numericArguments<NumberAttribute>());
}
BENCHMARK(ScenegraphAttrArguments<FloatAttribute>)->Unit(benchmark::kMicrosecond);
BENCHMARK(ScenegraphAttrArguments<DoubleAttribute>)->Unit(benchmark::kMicrosecond);

}  // namespace
