// SPDX-License-Identifier: Apache-2.0
#include "support/RenderOutputTest.h"

using ovtest::StaticScene;
using ovtest::takeStrings;
using ovtest::written;
using testing::ElementsAre;

namespace {

class RenderSettingsEntries : public ovtest::RenderOutputTest {
protected:
    static StaticScene sceneWith(const std::string& settings) {
        return StaticScene().set("/root", "renderSettings", written(settings)).at("/root/a");
    }
};

}  // namespace

TEST_F(RenderSettingsEntries, GiveTheResolutionAndItsSize) {
    int width = 0;
    int height = 0;
    const Handle root = at(sceneWith(R"({"resolution": "pal"})"));
    EXPECT_THAT(takeStrings(table.getRenderResolution(root, &width, &height)), ElementsAre("pal"));
    EXPECT_EQ(720, width);
    EXPECT_EQ(576, height);
}

TEST_F(RenderSettingsEntries, WriteNoSizeToANullPlace) {
    const Handle root = at(sceneWith(R"({"resolution": "pal"})"));
    int width = 0;
    int height = 0;
    EXPECT_THAT(takeStrings(table.getRenderResolution(root, &width, nullptr)), ElementsAre("pal"));
    EXPECT_THAT(takeStrings(table.getRenderResolution(root, nullptr, &height)), ElementsAre("pal"));
    EXPECT_THAT(takeStrings(table.getRenderResolution(root, nullptr, nullptr)), ElementsAre("pal"));
    EXPECT_EQ(720, width);
    EXPECT_EQ(576, height);
}

TEST_F(RenderSettingsEntries, GiveASquareOf512WithoutASetting) {
    for (const Handle root : {at(StaticScene().at("/root")),
                              at(sceneWith(R"({"resolution": 1080})")),
                              at(sceneWith(R"({"resolution": "pal"})"), "/root/a"),
                              static_cast<Handle>(nullptr)}) {
        int width = 0;
        int height = 0;
        EXPECT_THAT(takeStrings(table.getRenderResolution(root, &width, &height)),
                    ElementsAre("square_512"));
        EXPECT_EQ(512, width);
        EXPECT_EQ(512, height);
    }
}

TEST_F(RenderSettingsEntries, GiveTheCamerasPath) {
    EXPECT_THAT(takeStrings(table.getCameraPath(at(sceneWith(R"({"cameraName": "/root/cam"})")))),
                ElementsAre("/root/cam"));
}

TEST_F(RenderSettingsEntries, GiveTheUsualCamerasPathWithoutASetting) {
    for (const char* const settings : {"{}", R"({"cameraName": 3})"}) {
        EXPECT_THAT(takeStrings(table.getCameraPath(at(sceneWith(settings)))), ElementsAre(kCamera))
            << settings;
    }
}

TEST_F(RenderSettingsEntries, GiveTheUsualCamerasPathBelowTheLocationThatHasASetting) {
    const Handle a = at(sceneWith(R"({"cameraName": "/root/cam"})"), "/root/a");
    EXPECT_THAT(takeStrings(table.getCameraPath(a)), ElementsAre(kCamera));
}

TEST_F(RenderSettingsEntries, GiveAnEmptyCamerasPathForASettingWithoutValues) {
    const Handle root = at(sceneWith(R"({"cameraName": {"$string": []}})"));
    EXPECT_THAT(takeStrings(table.getCameraPath(root)), ElementsAre(""));
}

TEST_F(RenderSettingsEntries, GiveAnEmptyCamerasPathForTheNullIterator) {
    EXPECT_THAT(takeStrings(table.getCameraPath(nullptr)), ElementsAre(""));
}
