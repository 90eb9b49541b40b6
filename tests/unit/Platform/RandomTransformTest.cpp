// SPDX-License-Identifier: Apache-2.0
// Random chains of transforms, compared with what comes of moving points step by step.
#include <SylvarPlatform/XFormUtil.h>

#include "support/Transforms.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <map>
#include <random>
#include <set>
#include <string>
#include <utility>
#include <vector>

using namespace Sylvar3::internal::OvAttribute;
using namespace Sylvar3::internal::OvSylvarServices;
using ovtest::atExistingTimes;
using ovtest::atTime;
using ovtest::group;
using ovtest::Numbers;
using ovtest::samplesOf;
using ovtest::TimedNumbers;

namespace {

using Point = std::array<double, 4>;

/// A child of an "xform" group, as the test knows it.
struct Step {
    std::string name;
    TimedNumbers samples;
    bool isThere = true;  ///< It takes part.

    bool is(const char* prefix) const { return name.rfind(prefix, 0) == 0; }
};

/// The locations by number.
using Chain = std::map<int, std::vector<Step>>;

Numbers valuesAt(const TimedNumbers& samples, float time) {
    std::map<float, Numbers> byTime;
    for (const auto& [at, values] : samples) {
        byTime.emplace(at, values);  // The first of one time.
    }
    const auto after = byTime.lower_bound(time);
    if (after == byTime.end()) {
        return byTime.rbegin()->second;
    }
    if (after == byTime.begin() || after->first == time) {
        return after->second;
    }
    const auto& [begin, from] = *std::prev(after);
    const double share = (double{time} - begin) / (double{after->first} - begin);
    Numbers values;
    for (std::size_t i = 0; i < from.size(); ++i) {
        values.push_back(from[i] + (after->second[i] - from[i]) * share);
    }
    return values;
}

/// The point turned by Rodrigues' formula.
Point turned(const Point& p, const Numbers& angleAndAxis) {
    double x = angleAndAxis[1];
    double y = angleAndAxis[2];
    double z = angleAndAxis[3];
    const double length = std::sqrt(x * x + y * y + z * z);
    if (length == 0) {
        return p;
    }
    x /= length;
    y /= length;
    z /= length;
    const double angle = angleAndAxis[0] * std::acos(-1.0) / 180;
    const Point cross = {y * p[2] - z * p[1], z * p[0] - x * p[2], x * p[1] - y * p[0], 0};
    const double along = (x * p[0] + y * p[1] + z * p[2]) * (1 - std::cos(angle));
    const Point axis = {x, y, z, 0};
    Point result = p;
    for (std::size_t i = 0; i < 3; ++i) {
        result[i] = p[i] * std::cos(angle) + cross[i] * std::sin(angle) + axis[i] * along;
    }
    return result;
}

Point after(const Point& p, const Step& step, float time) {
    const Numbers v = valuesAt(step.samples, time);
    if (step.is("translate")) {
        return {p[0] + v[0] * p[3], p[1] + v[1] * p[3], p[2] + v[2] * p[3], p[3]};
    }
    if (step.is("scale")) {
        return {p[0] * v[0], p[1] * v[1], p[2] * v[2], p[3]};
    }
    if (step.is("rotate")) {
        return turned(p, v);
    }
    Point result{};
    for (std::size_t row = 0; row < 4; ++row) {
        for (std::size_t column = 0; column < 4; ++column) {
            result[column] += p[row] * v[row * 4 + column];
        }
    }
    return result;
}

/// A bound for what the numbers that go into each component of the point can add up to, from such a
/// bound for the point before: the same as above with all signs gone.
Point magnitudeAfter(const Point& m, Step step, float time) {
    if (step.is("rotate")) {
        const double all = m[0] + m[1] + m[2];
        return {all, all, all, m[3]};
    }
    for (auto& [at, values] : step.samples) {
        for (double& value : values) {
            value = std::fabs(value);
        }
    }
    return after(m, step, time);
}

/// All steps that take part and that no origin has forgotten, those that act first first.
std::vector<Step> actingOn(const Chain& chain) {
    std::vector<Step> steps;
    bool isForgotten = false;
    for (auto level = chain.rbegin(); level != chain.rend() && !isForgotten; ++level) {
        for (auto step = level->second.rbegin(); step != level->second.rend() && !isForgotten;
             ++step) {
            isForgotten = step->isThere && step->is("origin");
            if (step->isThere && !isForgotten) {
                steps.push_back(*step);
            }
        }
    }
    return steps;
}

bool hasOrigin(const Chain& chain) {
    for (const auto& [number, steps] : chain) {
        for (const Step& step : steps) {
            if (step.isThere && step.is("origin")) {
                return true;
            }
        }
    }
    return false;
}

/// The rows of the matrix, and a bound for the numbers that went into each value.
struct Expected {
    Numbers matrix;
    Numbers magnitudes;
};

Expected expectedAt(const std::vector<Step>& steps, float time) {
    Expected expected;
    for (std::size_t row = 0; row < 4; ++row) {
        Point point{};
        point[row] = 1;
        Point magnitude = point;
        for (const Step& step : steps) {
            point = after(point, step, time);
            magnitude = magnitudeAfter(magnitude, step, time);
        }
        expected.matrix.insert(expected.matrix.end(), point.begin(), point.end());
        expected.magnitudes.insert(expected.magnitudes.end(), magnitude.begin(), magnitude.end());
    }
    return expected;
}

/// Makes chains, and the attributes that stand for them.
class Maker {
public:
    explicit Maker(unsigned seed) : random_(seed) {}

    int number(int below) { return static_cast<int>(random_() % static_cast<unsigned>(below)); }

    float time() { return static_cast<float>(number(17) - 8) / 8.0F; }

    Chain chain() {
        Chain result;
        for (int i = 0, levels = number(6); i < levels; ++i) {
            std::vector<Step>& steps = result[number(12)];
            steps.clear();
            for (int k = 0, count = number(4); k < count; ++k) {
                steps.push_back(step(k));
            }
        }
        return result;
    }

    GroupAttribute groupOf(const Chain& chain) {
        std::vector<GroupAttribute::Child> levels;
        for (const auto& [level, steps] : chain) {
            std::vector<GroupAttribute::Child> children;
            for (const Step& step : steps) {
                children.emplace_back(step.name, attributeOf(step));
            }
            levels.emplace_back("i" + std::to_string(level), group(children));
        }
        levels.emplace_back("note", ovtest::doubles({1, 2, 3}));
        std::shuffle(levels.begin(), levels.end(), random_);
        return group(levels);
    }

private:
    Step step(int place) {
        static const std::pair<const char*, int> kinds[] = {
            {"translate", 3}, {"rotate", 4}, {"scale", 3}, {"matrix", 16}, {"size", 3}};
        if (number(25) == 0) {
            return {"origin" + std::to_string(place), {{time(), {1}}}, number(4) != 0};
        }
        const auto& [name, count] = kinds[number(5)];
        Step result{name + std::to_string(place), {}, name != std::string("size")};
        int values = count + number(2);
        if (number(10) == 0) {
            values = number(count);
            result.isThere = false;
        }
        for (int i = 0, samples = 1 + (number(3) == 0 ? number(5) : 0); i < samples; ++i) {
            result.samples.emplace_back(time(), numbers(values));
        }
        if (result.samples.size() > 1 && result.isThere && result.is("rotate")) {
            keepAxesFromZero(result.samples);
        }
        return result;
    }

    /// Where an axis passes through zero, rounding decides on its direction.
    static void keepAxesFromZero(TimedNumbers& samples) {
        for (auto& [time, values] : samples) {
            values[3] = 1 + std::fabs(values[3]);
        }
    }

    /// Integers and halves, which all kinds of attributes but those of integers can hold.
    Numbers numbers(int count) {
        Numbers values;
        for (int i = 0; i < count; ++i) {
            values.push_back(number(2) == 0 ? number(5) - 2 : (number(9) - 4) / 2.0);
        }
        return values;
    }

    Attribute attributeOf(const Step& step) {
        if (step.is("origin") && !step.isThere) {
            return number(2) == 0 ? Attribute() : StringAttribute("origin");
        }
        bool isWhole = true;
        for (const auto& [time, values] : step.samples) {
            for (const double value : values) {
                isWhole = isWhole && value == std::floor(value);
            }
        }
        const int kind = number(isWhole ? 3 : 2);
        return kind == 0   ? of<DoubleAttribute>(step.samples)
               : kind == 1 ? of<FloatAttribute>(step.samples)
                           : of<IntAttribute>(step.samples);
    }

    template <class Data>
    static Attribute of(const TimedNumbers& samples) {
        TimedSamples<typename Data::value_type> converted;
        for (const auto& [time, values] : samples) {
            auto& [toTime, to] = converted.emplace_back();
            toTime = time;
            for (const double value : values) {
                to.push_back(static_cast<typename Data::value_type>(value));
            }
        }
        return Data(converted);
    }

    std::mt19937 random_;
};

testing::AssertionResult agree(const Expected& expected, const Numbers& found) {
    if (found.size() != 16) {
        return testing::AssertionFailure() << found.size() << " values";
    }
    for (std::size_t i = 0; i < 16; ++i) {
        if (!(std::fabs(expected.matrix[i] - found[i]) <= 1e-12 * expected.magnitudes[i])) {
            return testing::AssertionFailure()
                   << "value " << i << ": " << found[i] << " instead of " << expected.matrix[i];
        }
    }
    return testing::AssertionSuccess();
}

std::set<float> timesOf(const std::vector<Step>& steps) {
    std::set<float> times;
    for (const Step& step : steps) {
        for (const auto& [time, values] : step.samples) {
            times.insert(time);
        }
    }
    return times.empty() ? std::set<float>{0} : times;
}

constexpr unsigned kChains = 3000;

}  // namespace

TEST(RandomTransforms, MovePointsAsTheirStepsDoOneByOne) {
    for (unsigned seed = 0; seed < kChains; ++seed) {
        Maker make(seed);
        const Chain chain = make.chain();
        const GroupAttribute attribute = make.groupOf(chain);
        const std::vector<Step> steps = actingOn(chain);
        for (int i = 0; i < 3; ++i) {
            const float time = make.time() * 1.25F;
            const TransformMatrix found = atTime(attribute, time);
            ASSERT_EQ(!steps.empty() || hasOrigin(chain), found.attribute.isValid()) << seed;
            ASSERT_EQ(hasOrigin(chain), found.isAbsolute) << seed;
            if (found.attribute) {
                const TimedNumbers samples = samplesOf(found.attribute);
                ASSERT_EQ(1U, samples.size()) << seed;
                ASSERT_EQ(time, samples[0].first) << seed;
                ASSERT_TRUE(agree(expectedAt(steps, time), samples[0].second))
                    << "seed " << seed << ", time " << time << '\n'
                    << attribute.getXML();
            }
        }
    }
}

TEST(RandomTransforms, HaveAMatrixAtEachTimeOfTheirSteps) {
    for (unsigned seed = 0; seed < kChains; ++seed) {
        Maker make(seed);
        const Chain chain = make.chain();
        const GroupAttribute attribute = make.groupOf(chain);
        const std::vector<Step> steps = actingOn(chain);
        const TransformMatrix found = atExistingTimes(attribute);
        ASSERT_EQ(!steps.empty() || hasOrigin(chain), found.attribute.isValid()) << seed;
        ASSERT_EQ(hasOrigin(chain), found.isAbsolute) << seed;
        if (!found.attribute) {
            continue;
        }
        std::vector<float> times;
        for (const auto& [time, matrix] : samplesOf(found.attribute)) {
            times.push_back(time);
            ASSERT_TRUE(agree(expectedAt(steps, time), matrix))
                << "seed " << seed << ", time " << time << '\n'
                << attribute.getXML();
        }
        const std::set<float> expected = timesOf(steps);
        ASSERT_EQ(std::vector<float>(expected.begin(), expected.end()), times) << seed;
    }
}
