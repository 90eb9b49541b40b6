// SPDX-License-Identifier: Apache-2.0
// The render output table over services of the platform that fail, or are not there.
#include <ResolutionTableOv/ResolutionTable.h>

#include "support/RenderOutputTest.h"
#include "unit/Procedurals/TellingAssets.h"

#include <stdexcept>

using ovtest::StaticScene;
using ovtest::TellingAssets;
using ovtest::written;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::ThrowsMessage;

namespace {

class ForwardedAssets : public ovtest::RenderOutputTest {
protected:
    ForwardedAssets() { assets.failFor("broken"); }
    ~ForwardedAssets() override { TellingAssets::leave(); }

    std::string argumentsOf(const std::string& args, int style) {
        const StaticScene scene = StaticScene().set("/root", "procedural.args", written(args));
        return ovtest::takeString(table.buildProceduralArgumentsString(
            at(scene), style, "procedural", 7, 0, 0, 0, 0, 0, 0, 1, 1));
    }

    TellingAssets& assets = TellingAssets::fresh();
};

/// Without any table of resolutions.
class ForwardedResolution : public ovtest::RenderOutputTest {
protected:
    ForwardedResolution() { put(nullptr); }
    ~ForwardedResolution() override { put(table_); }

private:
    using Table = std::shared_ptr<ORM_OV::ResolutionTable::v4::ResolutionTable>;

    static void put(const Table& table) {
        ORM_OV::ResolutionTable::v4::SetResolutionTable(nullptr, table);
    }

    const Table table_ = ORM_OV::ResolutionTable::v4::GetResolutionTable(nullptr);
};

}  // namespace

TEST_F(ForwardedAssets, AreResolvedForTheFrame) {
    argumentsOf(R"({"n": "a.exr"})", OV_PROCEDURAL_ARGUMENTS_CLASSIC);
    EXPECT_THAT(assets.take(), ElementsAre("a.exr 7 true"));
    argumentsOf(R"({"n": "a.exr"})", OV_PROCEDURAL_ARGUMENTS_SCENEGRAPH_ATTR);
    EXPECT_THAT(assets.take(), ElementsAre("a.exr 7 false"));
}

TEST_F(ForwardedAssets, ThatFailAreToldToNobody) {
    EXPECT_EQ(" -n  -extra 1 -frame 7 -shutter 0 0 -cropwindow 0 0 0 0",
              argumentsOf(R"({"n": "broken", "extra": 1})", OV_PROCEDURAL_ARGUMENTS_CLASSIC));
    EXPECT_THAT(argumentsOf(R"({"n": "broken"})", OV_PROCEDURAL_ARGUMENTS_SCENEGRAPH_ATTR),
                HasSubstr("broken"));
    EXPECT_THAT(logs.take(), ElementsAre());
}

TEST_F(ForwardedResolution, WithoutATableThrowsForASettingAndLeavesTheSizeAlone) {
    const Handle root = at(StaticScene().set("/root", "renderSettings.resolution", "pal"));
    int width = 3;
    int height = 4;
    EXPECT_THAT(
        [&] { table.getRenderResolution(root, &width, &height); },
        ThrowsMessage<std::runtime_error>("GetRenderResolution: Error getting resolution table"));
    EXPECT_EQ(3, width);
    EXPECT_EQ(4, height);
}

TEST_F(ForwardedResolution, WithoutATableIsNotNeededForTheNullIterator) {
    int width = 0;
    EXPECT_EQ("square_512",
              ovtest::takeString(table.getRenderResolution(nullptr, &width, nullptr)));
    EXPECT_EQ(512, width);
}

TEST_F(ForwardedResolution, WithoutATableMakesEveryPixelAreaZero) {
    StaticScene scene = cameraScene();
    scene.at("/root/a");
    EXPECT_EQ(0, table.getPixelAreaThroughCamera(at(scene, "/root/a"), kCamera, "pal"));
}
