// SPDX-License-Identifier: Apache-2.0
#include "support/LocationReading.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace ovtest;
using namespace Sylvar3::internal::OvAttribute;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

constexpr const char* kPath = "/root/world/cam/camera";

std::shared_ptr<SylvarRuntime::Client> open(Args arguments) {
    return OpTree().op("one", "light", arguments.set("path", kPath)).open();
}

double numberAt(const SylvarRuntime::Client& client, const std::string& name) {
    const std::vector<double> numbers = doublesAt(client, kPath, name);
    return numbers.empty() ? -999 : numbers.front();
}

}  // namespace

TEST(LightOp, HasEveryValueOfItsType) {
    struct Row {
        const char* type;
        std::vector<std::string> names;
    };
    const std::vector<Row> rows = {
        {"distant", {"type", "color", "intensity", "exposure", "angle"}},
        {"point", {"type", "color", "intensity", "exposure", "radius"}},
        {"spot",
         {"type", "color", "intensity", "exposure", "radius", "coneAngle", "coneInnerAngle"}},
        {"area", {"type", "color", "intensity", "exposure", "width", "height"}},
        {"ambient", {"type", "color", "intensity", "exposure"}},
    };
    for (const Row& row : rows) {
        const auto client = open(Args().set("type", row.type));
        EXPECT_EQ("light", textAt(*client, kPath, "type"));
        EXPECT_EQ(row.type, textAt(*client, kPath, "light.type"));
        EXPECT_EQ(row.names, namesAt(*client, kPath, "light"));
        EXPECT_EQ((std::vector<double>{1, 1, 1}), doublesAt(*client, kPath, "light.color"));
    }
}

TEST(LightOp, TakesTheValuesThatItIsGiven) {
    const auto client = open(Args()
                                 .set("type", "area")
                                 .set("color", FloatAttribute(std::vector<float>{1, 0.5F, 0}, 3))
                                 .set("exposure", 3)
                                 .set("width", DoubleAttribute(2.5)));
    EXPECT_EQ((std::vector<double>{1, 0.5, 0}), doublesAt(*client, kPath, "light.color"));
    EXPECT_EQ(3, numberAt(*client, "light.exposure"));
    EXPECT_EQ(2.5, numberAt(*client, "light.width"));
}

TEST(LightOp, TellsAtItsPathWhatIsWrongWithItsArguments) {
    struct Row {
        Args arguments;
        const char* reason;
    };
    const std::vector<Row> rows = {
        {Args().set("type", "point").set("width", 1),
         "argument \"width\": expected nothing, since the light is a point"},
        {Args().set("color", 1), "argument \"color\": expected 3 numbers, found 1"},
        {Args().set("intensity", -1), "argument \"intensity\": expected 0 to 3.4"},
        {Args().set("type", "sun"), "argument \"type\": expected one of \"distant\""},
    };
    for (const Row& row : rows) {
        EXPECT_THAT(errorAt(*open(row.arguments), kPath), HasSubstr(row.reason));
    }
}
