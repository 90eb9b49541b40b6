// SPDX-License-Identifier: Apache-2.0
#include "suites/RenderOutputView/RenderOutputViewTest.h"

namespace {

using namespace SYLVAR::Suites;
using testing::HasSubstr;

class Procedurals : public ovtest::RenderOutputViewTest {
protected:
    Procedurals() {
        fake.at("/root");
        fake.set("/root", "rendererProcedural", ovtest::written(R"({"args": {"count": 3}})"));
        fake.set("/root", "text", ovtest::written(R"("no group")"));
    }

    const ProceduralContext context{7, -0.5F, 0.5F, {0, 0.25F, 0.5F, 1}, 640, 480};
};

TEST_F(Procedurals, AreToldTheirArgumentsAsACommandLine) {
    EXPECT_EQ(" -count 3 -frame 7 -shutter -0.5 0.5 -cropwindow 0 0.25 0.5 1",
              told(output.proceduralArguments(
                  open(), "rendererProcedural", context, ProceduralStyle::Classic)));
}

TEST_F(Procedurals, AreToldTheirArgumentsAsXml) {
    EXPECT_THAT(told(output.proceduralArguments(
                    open(), "rendererProcedural", context, ProceduralStyle::ScenegraphAttribute)),
                HasSubstr("varlinFullName"));
}

TEST_F(Procedurals, AreToldThePictureToo) {
    counted.suite.buildProceduralArgumentsString = [](OvSgIteratorStruct*,
                                                      int style,
                                                      const char* attributeName,
                                                      int frame,
                                                      float,
                                                      float,
                                                      float,
                                                      float,
                                                      float,
                                                      float,
                                                      int xres,
                                                      int yres) {
        EXPECT_EQ(OV_PROCEDURAL_ARGUMENTS_SCENEGRAPH_ATTR, style);
        EXPECT_STREQ("name", attributeName);
        EXPECT_EQ(7, frame);
        EXPECT_EQ(640, xres);
        EXPECT_EQ(480, yres);
        return static_cast<OvAttributeStruct*>(nullptr);
    };
    EXPECT_EQ("",
              told(output.proceduralArguments(
                  open(), "name", context, ProceduralStyle::ScenegraphAttribute)));
}

TEST_F(Procedurals, AreToldNothingWithoutAGroup) {
    for (const char* const name : {"text", "none"}) {
        EXPECT_EQ(
            "", told(output.proceduralArguments(open(), name, context, ProceduralStyle::Classic)));
    }
    EXPECT_EQ("",
              told(output.proceduralArguments(
                  Location(), "rendererProcedural", {}, ProceduralStyle::Classic)));
}

}  // namespace
