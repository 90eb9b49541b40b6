// SPDX-License-Identifier: Apache-2.0
// What is cooked for a camera, and what stays when cooking fails.
#include <OvSylvarProducers/ThreadAwareGeometryProducer.h>

#include "support/RuntimeTest.h"
#include "unit/Camera/CameraWords.h"

#include <stdexcept>

using namespace SYLVAR;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class CameraInfoCooks : public ovtest::RuntimeTest {
protected:
    CameraInfoCooks() {
        ClearCameraInfoCache();
        fake.at("/root", {"camera", "bare"});
        fake.at("/root/bare");
        fake.at("/root/camera").set("/root/camera", "geometry", ovtest::lens());
    }
    ~CameraInfoCooks() override { ClearCameraInfoCache(); }

    GeometryProducerPtr open() {
        GeometryProducerPtr root = CreateThreadAwareGeometryProducer(tree, "/root");
        fake.take();
        return root;
    }

    const GroupAttribute tree = freshTree();
};

}  // namespace

TEST_F(CameraInfoCooks, TheWayToTheCameraOnce) {
    const GeometryProducerPtr root = open();
    EXPECT_TRUE(GetCameraInfo(root, "/root/camera"));
    EXPECT_THAT(fake.take("cookLocation"), ElementsAre("cookLocation c1 /root/camera"));
    EXPECT_TRUE(GetCameraInfo(root, "/root/camera"));
    EXPECT_THAT(fake.take(), IsEmpty());
}

TEST_F(CameraInfoCooks, NothingAgainForARootOfTheSameHash) {
    const auto first = GetCameraInfo(open(), "/root/camera");
    const GeometryProducerPtr root = open();
    EXPECT_EQ(first, GetCameraInfo(root, "/root/camera"));
    EXPECT_THAT(fake.take(), IsEmpty());
}

TEST_F(CameraInfoCooks, NothingAgainForAFailureUntilTheCacheIsCleared) {
    const GeometryProducerPtr root = open();
    EXPECT_FALSE(GetCameraInfo(root, "/root/bare"));
    EXPECT_THAT(fake.take("cookLocation"), ElementsAre("cookLocation c1 /root/bare"));
    EXPECT_FALSE(GetCameraInfo(root, "/root/bare"));
    EXPECT_THAT(fake.take(), IsEmpty());
    ClearCameraInfoCache();
    fake.set("/root/bare", "geometry", ovtest::lens());
    EXPECT_TRUE(GetCameraInfo(root, "/root/bare"));
    EXPECT_THAT(fake.take("cookLocation"), ElementsAre("cookLocation c1 /root/bare"));
}

TEST_F(CameraInfoCooks, AgainForARootWithAnotherHash) {
    EXPECT_FALSE(GetCameraInfo(open(), "/root/bare"));
    fake.set("/root/bare", "geometry", ovtest::lens());
    EXPECT_FALSE(GetCameraInfo(open(), "/root/bare"));
    fake.set("/root", "shot", StringAttribute("two"));
    EXPECT_TRUE(GetCameraInfo(open(), "/root/bare"));
}

TEST_F(CameraInfoCooks, RememberAFailureWhenTheRuntimeThrows) {
    const GeometryProducerPtr root = open();
    fake.throwIn("cookLocation");
    EXPECT_THROW(GetCameraInfo(root, "/root/camera"), std::runtime_error);
    fake.behave();
    fake.take();
    EXPECT_FALSE(GetCameraInfo(root, "/root/camera"));
    EXPECT_THAT(fake.take(), IsEmpty());
    ClearCameraInfoCache();
    EXPECT_TRUE(GetCameraInfo(root, "/root/camera"));
}
