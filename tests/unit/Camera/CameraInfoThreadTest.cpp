// SPDX-License-Identifier: Apache-2.0
#include "support/Threads.h"
#include "support/Transforms.h"
#include "unit/Camera/CameraOfAScene.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <utility>
#include <vector>

using namespace SYLVAR;
using ovtest::kCamera;
using ovtest::slide;
using ovtest::withCamera;

namespace {

constexpr int kThreads = 8;
constexpr int kRounds = 200;

class CameraInfoOnThreads : public ovtest::CameraOfAScene {};

double sumOf(const CameraInfo& info) {
    double sum = info.fov + info.orthographicWidth + info.xform[3][0];
    for (std::int64_t i = 0; i < info.xformAttr.getNumberOfTimeSamples(); ++i) {
        sum += info.xformAttr.getValue(0, 12, info.xformAttr.getSampleTime(i));
    }
    return sum;
}

}  // namespace

INSTANTIATE_TEST_SUITE_P(EveryScene,
                         CameraInfoOnThreads,
                         ovtest::everyScene(),
                         ovtest::nameOfScene);

TEST_P(CameraInfoOnThreads, IsReadByManyAtOnceAndFreedByTheLast) {
    auto info =
        cameraOf(withCamera({}).set(kCamera, "xform.translate", slide({{-1, 1}, {0, 2}, {1, 4}})));
    ASSERT_TRUE(info);
    const double expected = sumOf(*info);
    const std::weak_ptr<CameraInfo> watched = info;
    std::vector<std::shared_ptr<CameraInfo>> owners(kThreads, info);
    info.reset();
    ClearCameraInfoCache();
    std::vector<double> sums(kThreads);
    ovtest::onThreads(kThreads, [&](int i) {
        const auto place = static_cast<std::size_t>(i);
        for (int round = 0; round < kRounds; ++round) {
            const FloatAttribute copy = owners[place]->xformAttr;
            sums[place] = sumOf(*owners[place]);
        }
        owners[place].reset();
    });
    EXPECT_THAT(sums, testing::Each(expected));
    EXPECT_TRUE(watched.expired());
}

TEST_P(CameraInfoOnThreads, IsMadeByOneThreadAfterAnother) {
    const GeometryProducerPtr root = open(withCamera({}));
    std::vector<std::shared_ptr<CameraInfo>> seen(kThreads);
    for (auto& one : seen) {
        ovtest::onThreads(1, [&](int) { one = GetCameraInfo(root, kCamera); });
    }
    ASSERT_TRUE(seen.front());
    EXPECT_THAT(seen, testing::Each(seen.front()));
}
