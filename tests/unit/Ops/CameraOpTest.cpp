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
    return OpTree().op("one", "camera", arguments.set("path", kPath)).open();
}

std::string kindAt(const SylvarRuntime::Client& client, const std::string& name) {
    switch (attributeAt(client, kPath, name).getType()) {
        case OV_ATTRIBUTE_DOUBLE:
            return "double";
        case OV_ATTRIBUTE_STRING:
            return "string";
        default:
            return "other";
    }
}

double numberAt(const SylvarRuntime::Client& client, const std::string& name) {
    const std::vector<double> numbers = doublesAt(client, kPath, name);
    return numbers.empty() ? -999 : numbers.front();
}

}  // namespace

TEST(CameraOp, MakesOneLocationAndTheWayToIt) {
    EXPECT_THAT(pathsFrom(*open(Args())),
                ElementsAre("/root", "/root/world", "/root/world/cam", kPath));
    EXPECT_EQ("camera", textAt(*open(Args()), kPath, "type"));
}

TEST(CameraOp, HasEveryValueOfTheLensAsADouble) {
    const auto client = open(Args());
    for (const char* const name :
         {"fov", "near", "far", "left", "right", "top", "bottom", "orthographicWidth"}) {
        EXPECT_EQ("double", kindAt(*client, std::string("geometry.") + name)) << name;
    }
    EXPECT_EQ(45, numberAt(*client, "geometry.fov"));
    EXPECT_EQ(-1, numberAt(*client, "geometry.left"));
    EXPECT_EQ("perspective", textAt(*client, kPath, "geometry.projection"));
}

TEST(CameraOp, TakesItsValuesOfAnyNumberKindWithTheirSamples) {
    const FloatAttribute zoom(TimedSamples<float>{{0.0F, {30.0F}}, {1.0F, {40.0F}}}, 1);
    const auto client =
        open(Args().set("near", 2).set("fov", zoom).set("projection", "orthographic"));
    EXPECT_EQ("double", kindAt(*client, "geometry.near"));
    EXPECT_EQ(2, numberAt(*client, "geometry.near"));
    EXPECT_EQ(40, doublesAt(*client, kPath, "geometry.fov", 1.0F).front());
    EXPECT_EQ("orthographic", textAt(*client, kPath, "geometry.projection"));
}

TEST(CameraOp, HasTheTransformThatItIsGiven) {
    const GroupAttribute xform({{"translate", DoubleAttribute(std::vector<double>{1, 2, 3}, 3)}},
                               false);
    EXPECT_EQ((std::vector<double>{1, 2, 3}),
              doublesAt(*open(Args().set("xform", xform)), kPath, "xform.translate"));
    EXPECT_FALSE(attributeAt(*open(Args()), kPath, "xform").isValid());
}

TEST(CameraOp, TellsAtItsPathWhatIsWrongWithItsArguments) {
    struct Row {
        Args arguments;
        const char* reason;
    };
    const std::vector<Row> rows = {
        {Args().set("fov", 400), "argument \"fov\": expected 0 to 360, found 400"},
        {Args().set("fov", DoubleAttribute(std::nan(""))), "argument \"fov\": expected 0 to 360"},
        {Args().set("near", IntAttribute(std::vector<int>{1, 2})),
         "argument \"near\": expected one int, found 2"},
        {Args().set("projection", "fisheye"),
         "argument \"projection\": expected one of \"perspective\" \"orthographic\", found "
         "\"fisheye\""},
        {Args().set("fow", 40), "there is no argument \"fow\"; did you mean \"fov\"?"},
        {Args().set("xform", 1), "argument \"xform\": expected group, found int"},
        {Args().set("xform", GroupBuilder().set("translat", DoubleAttribute(1.0)).build()),
         "argument \"xform\": there is no step \"translat\"; did you mean \"translate\"?"},
    };
    for (const Row& row : rows) {
        EXPECT_THAT(errorAt(*open(row.arguments), kPath),
                    HasSubstr("camera (op 1 of 1), " + std::string(kPath) + ": " + row.reason));
    }
    EXPECT_THAT(errorAt(*OpTree().op("c", "camera").open(), "/root"),
                HasSubstr("argument \"path\" is missing"));
}
