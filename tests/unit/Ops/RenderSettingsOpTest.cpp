// SPDX-License-Identifier: Apache-2.0
#include "support/LocationReading.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace ovtest;
using namespace Sylvar3::internal::OvAttribute;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

GroupAttribute output(const char* file) {
    return GroupBuilder().set("file", StringAttribute(file)).build();
}

std::shared_ptr<SylvarRuntime::Client> render(const GroupAttribute& arguments) {
    return openOver(StaticScene()
                        .set("/root", "renderSettings.resolution", "pal")
                        .set("/root", "renderSettings.outputs.beauty", output("a.exr"))
                        .set("/root/a", "x", 1),
                    "renderSettings",
                    arguments);
}

}  // namespace

TEST(RenderSettings, WritesTheSettingsAtTheTop) {
    const auto client =
        render(Args()
                   .set("camera", "/root/cam")
                   .set("resolution", "hd_720")
                   .set("tempDir", "/tmp/r")
                   .set("tileRender", IntAttribute(std::vector<int>{1, 2, 4, 4}))
                   .set("outputs", GroupBuilder().set("depth", output("z.exr")).build()));
    EXPECT_EQ("/root/cam", textAt(*client, "/root", "renderSettings.cameraName"));
    EXPECT_EQ("hd_720", textAt(*client, "/root", "renderSettings.resolution"));
    EXPECT_EQ("/tmp/r", textAt(*client, "/root", "renderSettings.tempDir"));
    EXPECT_EQ(1, intAt(*client, "/root", "renderSettings.tileRender"));
    EXPECT_EQ("z.exr", textAt(*client, "/root", "renderSettings.outputs.depth.file"));
    EXPECT_THAT(namesAt(*client, "/root/a"), ElementsAre("x"));
}

TEST(RenderSettings, LeavesWhatItIsNotGiven) {
    const auto client = render(Args().set("camera", "/root/cam"));
    EXPECT_EQ("pal", textAt(*client, "/root", "renderSettings.resolution"));
    EXPECT_EQ("a.exr", textAt(*client, "/root", "renderSettings.outputs.beauty.file"));
    EXPECT_THAT(namesAt(*client, "/root", "renderSettings"),
                ElementsAre("cameraName", "resolution", "outputs"));
}

TEST(RenderSettings, LeavesWhatItIsGivenAsNull) {
    const auto client = render(Args().set("camera", "/root/cam").set("resolution", Attribute()));
    EXPECT_EQ("pal", textAt(*client, "/root", "renderSettings.resolution"));
}

TEST(RenderSettings, MergesItsOutputsWithThoseThatAreThere) {
    const auto client =
        render(Args().set("outputs", GroupBuilder().set("depth", output("z.exr")).build()));
    EXPECT_THAT(namesAt(*client, "/root", "renderSettings.outputs"),
                ElementsAre("depth", "beauty"));
}

TEST(RenderSettings, TellsWhatIsWrongWithItsArguments) {
    struct Row {
        Args arguments;
        const char* reason;
    };
    const std::vector<Row> rows = {
        {Args().set("camera", "cam"), "argument \"camera\": expected a location's path"},
        {Args().set("outputs", GroupBuilder().set("beauty", IntAttribute(1)).build()),
         "argument \"outputs\": expected a group for each output, found none for \"beauty\""},
        {Args().set("tileRender", 1),
         "argument \"tileRender\": expected column and row, and perhaps their numbers, found 1 "
         "numbers"},
        {Args().set("tileRender", IntAttribute(std::vector<int>{1, 2, 3, 4, 5})),
         "argument \"tileRender\": expected column and row, and perhaps their numbers, found 5 "
         "numbers"},
        {Args().set("tileRender", IntAttribute(std::vector<int>{})),
         "argument \"tileRender\": expected column and row, and perhaps their numbers, found 0 "
         "numbers"},
        {Args().set("tileRender", DoubleAttribute(1.0)),
         "argument \"tileRender\": expected ints, found double"},
    };
    for (const Row& row : rows) {
        const auto client = render(row.arguments);
        EXPECT_THAT(errorAt(*client, "/root"), HasSubstr(row.reason));
        EXPECT_EQ("pal", textAt(*client, "/root", "renderSettings.resolution"));
    }
}
