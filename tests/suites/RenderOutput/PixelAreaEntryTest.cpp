// SPDX-License-Identifier: Apache-2.0
#include "support/RenderOutputTest.h"

using ovtest::StaticScene;
using ovtest::written;

namespace {

class PixelAreaEntry : public ovtest::RenderOutputTest {
protected:
    /// A box that takes up half the width and a quarter of the height of the picture.
    static StaticScene boxScene() {
        return StaticScene()
            .set(kCamera, "geometry", written(R"({"fov": 40.0, "near": 0.5, "far": 9.0,
                "left": -1.0, "right": 1.0, "top": 1.0, "bottom": -1.0,
                "projection": "orthographic"})"))
            .set("/root/a", "bound", written("[-0.5, 0.5, 0.0, 0.5, -2.0, -1.0]"))
            .at("/root/unbound");
    }

    int area(Handle location, const char* camera, const char* resolution) const {
        return table.getPixelAreaThroughCamera(location, camera, resolution);
    }
};

}  // namespace

TEST_F(PixelAreaEntry, IsOfTheLocationThroughTheCameraInThePicture) {
    const Handle a = at(boxScene(), "/root/a");
    EXPECT_EQ(256 * 128, area(a, kCamera, "square_512"));
    EXPECT_EQ(960 * 270, area(a, kCamera, "hd_1080"));
}

TEST_F(PixelAreaEntry, IsZeroForAResolutionThatNobodyKnows) {
    EXPECT_EQ(0, area(at(boxScene(), "/root/a"), kCamera, "9000x1"));
    EXPECT_EQ(0, area(at(boxScene(), "/root/a"), kCamera, ""));
}

TEST_F(PixelAreaEntry, IsZeroForACameraThatIsNotThereAlsoWithoutABound) {
    EXPECT_EQ(0, area(at(boxScene(), "/root/a"), "/root/none", "square_512"));
    EXPECT_EQ(0, area(at(boxScene(), "/root/unbound"), "/root/none", "square_512"));
}

TEST_F(PixelAreaEntry, IsZeroForTheNullIterator) {
    EXPECT_EQ(0, area(nullptr, kCamera, "square_512"));
}
