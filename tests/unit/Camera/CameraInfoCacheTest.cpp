// SPDX-License-Identifier: Apache-2.0
// What the process remembers of cameras.
#include "support/FakeProducer.h"
#include "support/Transforms.h"
#include "unit/Camera/CameraOfAScene.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>

using namespace SYLVAR;
using namespace Sylvar3::internal::OvAttribute;
using ovtest::doubles;
using ovtest::FakeProducer;
using ovtest::kCamera;
using ovtest::StaticScene;
using ovtest::withCamera;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class CameraInfoCache : public testing::Test {
protected:
    CameraInfoCache() { ClearCameraInfoCache(); }
    ~CameraInfoCache() override { ClearCameraInfoCache(); }

    using FakePtr = boost::intrusive_ptr<FakeProducer>;

    /// A producer whose hash is its path, and that is a camera.
    static FakePtr camera(const std::string& path) {
        FakePtr made(new FakeProducer(path));
        made->set("geometry", ovtest::lens());
        return made;
    }
};

/// The same over every kind of scene.
class CameraInfoCacheOf : public ovtest::CameraOfAScene {};

}  // namespace

INSTANTIATE_TEST_SUITE_P(EveryScene, CameraInfoCacheOf, ovtest::everyScene(), ovtest::nameOfScene);

TEST_P(CameraInfoCacheOf, GivesTheSameRecordAgain) {
    const GeometryProducerPtr root = open(withCamera({}));
    const auto first = GetCameraInfo(root, kCamera);
    ASSERT_TRUE(first);
    EXPECT_EQ(first, GetCameraInfo(root, kCamera));
}

TEST_P(CameraInfoCacheOf, SharesTheRecordAmongRootsOfOneHash) {
    const StaticScene scene = withCamera({});
    const auto first = rememberedCameraOf(scene);
    ASSERT_TRUE(first);
    EXPECT_EQ(first, rememberedCameraOf(scene));
}

TEST_P(CameraInfoCacheOf, HasOneForEachPath) {
    const GeometryProducerPtr root = open(withCamera(withCamera({}), "/root/other"));
    const auto first = GetCameraInfo(root, kCamera);
    const auto second = GetCameraInfo(root, "/root/other");
    ASSERT_TRUE(first && second);
    EXPECT_NE(first, second);
    EXPECT_NE(first, GetCameraInfo(root, std::string(kCamera).substr(1)));
}

TEST_P(CameraInfoCacheOf, HasANewOneForARootWithAnotherHashAndKeepsTheOldOne) {
    StaticScene before = withCamera({}).set("/root", "shot", 1);
    StaticScene after = withCamera({}).set("/root", "shot", 2);
    after.set(kCamera, "geometry.fov", DoubleAttribute(90.0));
    const auto old = rememberedCameraOf(before);
    const auto anew = rememberedCameraOf(after);
    ASSERT_TRUE(old && anew);
    EXPECT_NE(old, anew);
    EXPECT_EQ(90.0F, anew->fov);
    EXPECT_NE(90.0F, old->fov);
    EXPECT_EQ(old, rememberedCameraOf(before));
    EXPECT_EQ(anew, rememberedCameraOf(after));
}

TEST_P(CameraInfoCacheOf, TellsScenesApartByTheirTopsAloneWhenTheyAreCooked) {
    const auto first = rememberedCameraOf(withCamera({}));
    const auto second = rememberedCameraOf(withCamera({}).set(kCamera, "lastEdit", 2));
    ASSERT_TRUE(first && second);
    EXPECT_EQ(GetParam() != ovtest::SceneKind::Static, first == second);
}

TEST_P(CameraInfoCacheOf, LeavesWhatItHandedOutGoodWhenItIsCleared) {
    const StaticScene scene = withCamera({}).set(kCamera, "xform.translate", doubles({1, 2, 3}));
    auto kept = rememberedCameraOf(scene);
    ASSERT_TRUE(kept);
    ClearCameraInfoCache();
    EXPECT_EQ(2.0F, kept->xformAttr.getValue(0, 13));
    EXPECT_EQ(3, kept->xform[3][2]);
    EXPECT_NE(kept, rememberedCameraOf(scene));
}

TEST_P(CameraInfoCacheOf, LetsTheRecordGoWithItsLastOwner) {
    auto kept = rememberedCameraOf(withCamera({}));
    const std::weak_ptr<CameraInfo> watched = kept;
    kept.reset();
    EXPECT_FALSE(watched.expired());
    ClearCameraInfoCache();
    EXPECT_TRUE(watched.expired());
}

TEST_F(CameraInfoCache, IsClearedWhenItIsEmptyToo) {
    ClearCameraInfoCache();
    ClearCameraInfoCache();
    EXPECT_TRUE(GetCameraInfo(camera("/camera"), "/camera"));
}

TEST_F(CameraInfoCache, RemembersThatAPathDoesNotExistWithoutASecondLook) {
    const FakePtr root(new FakeProducer("/root"));
    EXPECT_FALSE(GetCameraInfo(root, "/root/absent"));
    EXPECT_THAT(*root->steps, ElementsAre("absent"));
    EXPECT_FALSE(GetCameraInfo(root, "/root/absent"));
    EXPECT_THAT(*root->steps, ElementsAre("absent"));
}

TEST_F(CameraInfoCache, TriesAFailedPathAgainAfterItWasCleared) {
    const FakePtr root(new FakeProducer("/root"));
    GetCameraInfo(root, "/root/absent");
    ClearCameraInfoCache();
    EXPECT_FALSE(GetCameraInfo(root, "/root/absent"));
    EXPECT_THAT(*root->steps, ElementsAre("absent", "absent"));
}

TEST_F(CameraInfoCache, RemembersEachKindOfFailureThoughItsReasonIsGone) {
    struct Row {
        const char* name;
        Attribute geometry;
    };
    for (const Row& row :
         {Row{"no geometry", Attribute()},
          Row{"no group", DoubleAttribute(1.0)},
          Row{"no lens", GroupBuilder().build()},
          Row{"no top", GroupBuilder().update(ovtest::lens()).remove("top").build()},
          Row{"a float",
              GroupBuilder().update(ovtest::lens()).set("fov", FloatAttribute(45.0F)).build()}}) {
        ClearCameraInfoCache();
        const FakePtr root = camera("/camera");
        root->set("geometry", row.geometry);
        EXPECT_FALSE(GetCameraInfo(root, "/camera")) << row.name;
        root->set("geometry", ovtest::lens());
        EXPECT_FALSE(GetCameraInfo(root, "/camera")) << row.name;
        ClearCameraInfoCache();
        EXPECT_TRUE(GetCameraInfo(root, "/camera")) << row.name;
    }
}

TEST_F(CameraInfoCache, RemembersNothingOfANullRoot) {
    // A root of the empty path has the empty hash: the key is the camera's path alone.
    EXPECT_FALSE(GetCameraInfo(nullptr, ""));
    EXPECT_TRUE(GetCameraInfo(camera(""), ""));
}

TEST_F(CameraInfoCache, KnowsACameraByItsPathWithTheHashOfTheRootBehindItAndNothingBetween) {
    // "x/r" and "/x" make the same key as "x" and "/r/x".
    const auto first = GetCameraInfo(camera("/r/x"), "x");
    ASSERT_TRUE(first);
    EXPECT_EQ(first, GetCameraInfo(FakePtr(new FakeProducer("/x")), "x/r"));
}
