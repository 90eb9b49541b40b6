// SPDX-License-Identifier: Apache-2.0
// What an operation throws leaves the table as it is.
#include "support/FreshCaches.h"
#include "support/IteratorTest.h"
#include "support/RenderOutputTest.h"

#include <functional>
#include <stdexcept>

using ovtest::StaticScene;
using ovtest::written;
using testing::IsEmpty;

namespace {

/// The text of what a call throws; "returned" when it throws nothing.
std::string thrownBy(const std::function<void()>& call) {
    try {
        call();
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return "returned";
}

class ForwardedException : public ovtest::RenderOutputTest {};

/// With a runtime that fails as it is told.
class ForwardedRuntimeException : public ovtest::IteratorTest {
protected:
    ForwardedRuntimeException() {
        ovtest::emptySceneCaches();
        fake.set("/root/a", "procedural", written(R"({"includeCameraInfo": "As Parameters",
                             "cameraInfo": {"whichCamera": "Other Camera", "cameraPath": "/root/b"}})"));
        fake.set("/root/a", "plain", written(R"({"args": {"n": 3}})"));
        fake.set("/root", "material", written(R"({"surfaceShader": "standard"})"));
        root = openTree();
        a = step(table.sgGetFirstChild(root, 0));
    }
    ~ForwardedRuntimeException() override { ovtest::emptySceneCaches(); }

    const OvRenderOutputUtilsSuite& outputs = ovtest::renderOutputTable();
    Handle root = nullptr;
    Handle a = nullptr;
};

}  // namespace

TEST_F(ForwardedException, OfAnUnknownResolutionTravelsAndLeavesTheSizeAlone) {
    const Handle root = at(StaticScene().set("/root", "renderSettings.resolution", "9000x1"));
    int width = 3;
    int height = 4;
    EXPECT_EQ("FileOut: Error querying resolution table for resolution: '9000x1'.",
              thrownBy([&] { table.getRenderResolution(root, &width, &height); }));
    EXPECT_EQ(3, width);
    EXPECT_EQ(4, height);
    EXPECT_THAT(logs.take(), IsEmpty());
}

TEST_F(ForwardedException, OfALocationWithoutABoundTravels) {
    StaticScene scene = cameraScene();
    scene.at("/root/a");
    const Handle a = at(scene, "/root/a");
    EXPECT_EQ("Cannot get bounds attribute on /root/a",
              thrownBy([&] { table.getPixelAreaThroughCamera(a, kCamera, "square_512"); }));
    EXPECT_THAT(logs.take(), IsEmpty());
}

TEST_F(ForwardedRuntimeException, TravelsThroughEveryEntryThatLooksForACamera) {
    fake.throwIn("cookLocation");
    EXPECT_EQ("fault of cookLocation", thrownBy([&] { outputs.getCameraInfo(root, "/root/b"); }));
    SYLVAR::ClearCameraInfoCache();
    EXPECT_EQ("fault of cookLocation",
              thrownBy([&] { outputs.getPixelAreaThroughCamera(a, "/root/b", "square_512"); }));
    SYLVAR::ClearCameraInfoCache();
    EXPECT_EQ("fault of cookLocation", thrownBy([&] {
                  outputs.buildProceduralArgumentsString(
                      a, OV_PROCEDURAL_ARGUMENTS_CLASSIC, "procedural", 1, 0, 0, 0, 0, 0, 0, 1, 1);
              }));
    EXPECT_THAT(logs.take(), IsEmpty());
}

TEST_F(ForwardedRuntimeException, IsMetByNoEntryThatReadsTheLocationAndThoseAboveItAlone) {
    const Sylvar3::internal::OvAttribute::StringAttribute surface("surface");
    fake.take();
    fake.throwIn("cookLocation");
    const ovtest::Network network(outputs.getShadingNetworkNodesFromIterator(a));
    for (OvAttributeStruct* const answer :
         {outputs.buildProceduralArgumentsString(
              a, OV_PROCEDURAL_ARGUMENTS_CLASSIC, "plain", 1, 0, 0, 0, 0, 0, 0, 1, 1),
          outputs.buildProceduralArgumentsString(
              a, OV_PROCEDURAL_ARGUMENTS_SCENEGRAPH_ATTR, "plain", 1, 0, 0, 0, 0, 0, 0, 1, 1),
          outputs.getRenderResolution(a, nullptr, nullptr),
          outputs.getCameraPath(a),
          outputs.getFlattenedMaterialAttr(a, surface.handle()),
          outputs.getRenderOutputTempLocation(a, "beauty", "", "", 1),
          outputs.processTilePath(a, "/a/b.exr")}) {
        EXPECT_TRUE(SYLVAR::Attribute::adopt(answer).isValid());
    }
    EXPECT_THAT(fake.take("cookLocation"), IsEmpty());
}
