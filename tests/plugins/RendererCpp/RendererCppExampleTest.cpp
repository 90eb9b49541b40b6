// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/suites/Initialize.h>
#include <SylvarPlatform/PluginManager.h>
#include <SylvarPlatform/suites/Renderer.h>

#include "support/RuntimeTest.h"

#include <string>

using Sylvar3::internal::OvAttribute::FloatAttribute;
using Sylvar3::internal::OvAttribute::StringAttribute;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

/// What it tells of a render that is not set up.
const std::string kNoSettings =
    "resolution square_512: 512 x 512\n"
    "camera /root/world/cam/camera: none\n";

class RendererCppExample : public ovtest::RuntimeTest {
protected:
    RendererCppExample() {
        using Sylvar3::internal::OvPluginManager::PluginManager;
        EXPECT_EQ(0, OvSylvarProducersInitialize(OvGetHostTable()));
        PluginManager::setSearchDirectories({OV_TEST_EXAMPLE_DIR});
        renderer_ = static_cast<const OvRenderer*>(PluginManager::getPluginSuite(
            PluginManager::getPlugin("CensusCpp", OV_RENDERER_API_NAME, OV_RENDERER_API_VERSION)));
        job.size = sizeof(OvRenderJob);
        job.threads = 1;
    }

    /// What it prints.
    std::string render(int expected = 0) {
        if (!renderer_) {
            return "there is no renderer";
        }
        testing::internal::CaptureStdout();
        EXPECT_EQ(expected, renderer_->render(&job));
        return testing::internal::GetCapturedStdout();
    }

    OvRenderJob job{};

private:
    const OvRenderer* renderer_ = nullptr;
};

TEST_F(RendererCppExample, PrintsTheTopOfTheTreeAndCountsAll) {
    fake.at("/root", {"a", "b"}).at("/root/b").at("/root/a", {"c", "d"});
    fake.at("/root/a/c", {"e"}).at("/root/a/d").at("/root/a/c/e", {"f"}).at("/root/a/c/e/f");
    fake.set("/root/a", "type", StringAttribute("group"));
    fake.set("/root/a/d", "type", StringAttribute("mesh"));
    fake.set("/root/a/d", "geometry.points", FloatAttribute({1, 2, 3, 4, 5, 6}, 3));
    fake.set("/root/a/c/e/f", "type", StringAttribute("mesh"));
    fake.set("/root/a/c/e/f", "geometry.points", FloatAttribute({1, 2, 3}, 3));
    const GroupAttribute tree = freshTree();
    job.opTree = tree.handle();
    EXPECT_EQ(kNoSettings +
                  "/root  -\n"
                  "/root/a  group\n"
                  "/root/a/c  -\n"
                  "/root/a/c/e  -\n"
                  "/root/a/d  mesh\n"
                  "/root/b  -\n"
                  "7 locations, 5 levels, 3 points, 0 materials, 0 shading nodes\n"
                  "       4  -\n"
                  "       1  group\n"
                  "       2  mesh\n",
              render());
    EXPECT_EQ(1U, fake.take("finalize").size());
    EXPECT_THAT(logs.take(), IsEmpty());
}

TEST_F(RendererCppExample, OpensFilesAndNamesWhatItDoesNotKnow) {
    fake.at("/root");
    const std::string file = freshFile("ops");
    const char* const options[] = {"samples=4"};
    job.opTreeFile = file.c_str();
    job.options = options;
    job.optionCount = 1;
    EXPECT_EQ(kNoSettings +
                  "/root  -\n"
                  "1 locations, 1 levels, 0 points, 0 materials, 0 shading nodes\n"
                  "       1  -\n",
              render());
    EXPECT_THAT(logs.take(),
                ElementsAre(testing::AllOf(HasSubstr("CensusCpp warn"),
                                           HasSubstr("there is no option \"samples=4\""))));
}

TEST_F(RendererCppExample, FailsWithTheErrorInTheLog) {
    fake.at("/root", {"a"}).at("/root/a");
    const GroupAttribute tree = freshTree();
    job.opTree = tree.handle();
    fake.onCall("cookLocation", [this] {
        if (fake.take("cookLocation").back().find("/root/a") != std::string::npos) {
            throw 1;
        }
    });
    EXPECT_EQ(kNoSettings + "/root  -\n", render(1));
    EXPECT_THAT(
        logs.take(),
        ElementsAre(testing::AllOf(HasSubstr("CensusCpp error"), HasSubstr("no std::exception"))));
}

TEST_F(RendererCppExample, FailsWhenTheSceneCannotBeOpened) {
    EXPECT_EQ("", render(1));
    EXPECT_THAT(logs.take(),
                testing::Contains(
                    testing::AllOf(HasSubstr("CensusCpp error"), HasSubstr("cannot be opened"))));
}

}  // namespace
