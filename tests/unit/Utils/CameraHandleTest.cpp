// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/RenderOutputUtilsHost.h>

#include "support/RenderOutputTest.h"

#include <cstdlib>
#include <memory>

using ovtest::Camera;
using ovtest::countIn;
using SYLVAR::CameraInfo;
using SYLVAR::RenderOutputUtilsHost::OvCameraInfoToHandle;
using SYLVAR::RenderOutputUtilsHost::OvHandleToCameraInfo;
using testing::HasSubstr;

namespace {

using CameraPtr = std::shared_ptr<CameraInfo>;

class CameraHandle : public ovtest::RenderOutputTest {
protected:
    CameraHandle() { info->fov = 33.0F; }

    CameraPtr info = std::make_shared<CameraInfo>();
};

/// Ends the process with 65 handles of a camera, and what else is done between.
template <class Function>
[[noreturn]] void endWith65Handles(const CameraPtr& info, Function between) {
    static auto* const left = new std::vector<CameraInfoStruct*>();
    OvLoggingHost::setLogSink({});
    OvLoggingHost::setLevel("RenderOutputUtils", OvLoggingHost::LogLevel::Debug);
    for (int i = 0; i < 65; ++i) {
        left->push_back(OvCameraInfoToHandle(info));
    }
    between(left->front());
    std::exit(0);  // NOLINT(concurrency-mt-unsafe): there is one thread
}

}  // namespace

TEST_F(CameraHandle, OfNothingIsNullAndTheOtherWayRound) {
    EXPECT_EQ(nullptr, OvCameraInfoToHandle(nullptr));
    EXPECT_EQ(nullptr, OvHandleToCameraInfo(nullptr));
}

TEST_F(CameraHandle, IsANewOneOfOneReferenceEachTime) {
    const Camera one(OvCameraInfoToHandle(info));
    const Camera other(OvCameraInfoToHandle(info));
    ASSERT_NE(nullptr, one);
    EXPECT_NE(one, other);
    EXPECT_EQ(1, countIn(one.get()));
    EXPECT_EQ(1, countIn(other.get()));
}

TEST_F(CameraHandle, SharesItsCameraAndKeepsItsCountWhenThatIsTaken) {
    const Camera one(OvCameraInfoToHandle(info));
    const Camera other(OvCameraInfoToHandle(info));
    table.retainCameraInfo(one.get());
    EXPECT_EQ(info, OvHandleToCameraInfo(one.get()));
    EXPECT_EQ(info, OvHandleToCameraInfo(other.get()));
    EXPECT_EQ(2, countIn(one.get()));
    EXPECT_EQ(1, countIn(other.get()));
    table.releaseCameraInfo(one.get());
}

TEST_F(CameraHandle, IsARecordOfACountAndThenACamera) {
    struct Record {
        int count;
        CameraPtr camera;
    };
    const Camera handle(OvCameraInfoToHandle(info));
    const auto& record = *reinterpret_cast<const Record*>(handle.get());
    EXPECT_EQ(1, record.count);
    EXPECT_EQ(info, record.camera);
}

TEST_F(CameraHandle, LetsItsCameraGoWithItsLastReference) {
    CameraInfoStruct* const handle = OvCameraInfoToHandle(info);
    const std::weak_ptr<CameraInfo> alive = info;
    info.reset();
    table.retainCameraInfo(handle);
    table.releaseCameraInfo(handle);
    ASSERT_FALSE(alive.expired());
    table.releaseCameraInfo(handle);
    EXPECT_TRUE(alive.expired());
}

TEST_F(CameraHandle, LetsItsCameraGoAlsoWhenTheCountFallsBelowZero) {
    CameraInfoStruct* const handle = OvCameraInfoToHandle(info);
    const std::weak_ptr<CameraInfo> alive = info;
    info.reset();
    *reinterpret_cast<int*>(handle) = -3;
    table.releaseCameraInfo(handle);
    EXPECT_TRUE(alive.expired());
}

TEST_F(CameraHandle, ReadsTheCameraItself) {
    const Camera handle(OvCameraInfoToHandle(info));
    EXPECT_EQ(33.0F, table.getCameraFov(handle.get()));
    EXPECT_EQ(&info->xform[0][0], table.getCameraXform(handle.get()));
}

TEST_F(CameraHandle, IsOfTheVeryCameraThatIsRemembered) {
    const Handle root = at(cameraScene());
    const Camera handle(table.getCameraInfo(root, kCamera));
    EXPECT_EQ(SYLVAR::GetCameraInfo(SYLVAR::OvHandleToGeometryProducer(root), kCamera),
              OvHandleToCameraInfo(handle.get()));
}

TEST_F(CameraHandle, IsCountedToTheEndOfTheProcess) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_EXIT(endWith65Handles(info, [](CameraInfoStruct*) {}),
                testing::ExitedWithCode(0),
                HasSubstr("Final CameraInfoStruct count: A ("));
}

TEST_F(CameraHandle, OfNothingIsNotCounted) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_EXIT(endWith65Handles(info,
                                 [&](CameraInfoStruct* handle) {
                                     OvCameraInfoToHandle(nullptr);
                                     OvHandleToCameraInfo(nullptr);
                                     OvHandleToCameraInfo(handle);
                                     table.releaseCameraInfo(nullptr);
                                 }),
                testing::ExitedWithCode(0),
                HasSubstr("Final CameraInfoStruct count: A ("));
}

TEST_F(CameraHandle, OfNothingAloneIsNotToldOf) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_EXIT(
        {
            OvLoggingHost::setLogSink({});
            OvLoggingHost::setLevel("RenderOutputUtils", OvLoggingHost::LogLevel::Debug);
            OvCameraInfoToHandle(nullptr);
            OvHandleToCameraInfo(nullptr);
            std::exit(0);  // NOLINT(concurrency-mt-unsafe): there is one thread
        },
        testing::ExitedWithCode(0),
        testing::IsEmpty());
}
