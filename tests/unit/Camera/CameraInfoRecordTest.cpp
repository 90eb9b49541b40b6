// SPDX-License-Identifier: Apache-2.0
#include "unit/Camera/CameraWords.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <type_traits>

using namespace SYLVAR;

// The fields stand in the order that callers know, and are of these kinds.
static_assert(std::is_standard_layout_v<CameraInfo> && !std::is_polymorphic_v<CameraInfo>);
static_assert(std::is_same_v<decltype(CameraInfo::fov), float> && offsetof(CameraInfo, fov) == 0);
static_assert(std::is_same_v<decltype(CameraInfo::near), float> &&
              offsetof(CameraInfo, near) == sizeof(float));
static_assert(std::is_same_v<decltype(CameraInfo::far), float> &&
              offsetof(CameraInfo, far) == 2 * sizeof(float));
static_assert(std::is_same_v<decltype(CameraInfo::left), float> &&
              offsetof(CameraInfo, left) == 3 * sizeof(float));
static_assert(std::is_same_v<decltype(CameraInfo::right), float> &&
              offsetof(CameraInfo, right) == 4 * sizeof(float));
static_assert(std::is_same_v<decltype(CameraInfo::top), float> &&
              offsetof(CameraInfo, top) == 5 * sizeof(float));
static_assert(std::is_same_v<decltype(CameraInfo::bottom), float> &&
              offsetof(CameraInfo, bottom) == 6 * sizeof(float));
static_assert(std::is_same_v<decltype(CameraInfo::orthographic), bool> &&
              offsetof(CameraInfo, orthographic) == 7 * sizeof(float));
static_assert(std::is_same_v<decltype(CameraInfo::xform), Imath::Matrix44<double>> &&
              offsetof(CameraInfo, xform) == 8 * sizeof(float));
static_assert(std::is_same_v<decltype(CameraInfo::xformAttr), FloatAttribute> &&
              offsetof(CameraInfo, xformAttr) ==
                  offsetof(CameraInfo, xform) + sizeof(Imath::Matrix44<double>));
static_assert(std::is_same_v<decltype(CameraInfo::orthographicWidth), float> &&
              offsetof(CameraInfo, orthographicWidth) ==
                  offsetof(CameraInfo, xformAttr) + sizeof(FloatAttribute));

// The lens at one time is the first eight of them and nothing else.
static_assert(std::is_standard_layout_v<CameraGeometry> &&
              std::is_trivially_copyable_v<CameraGeometry>);
static_assert(offsetof(CameraGeometry, fov) == offsetof(CameraInfo, fov));
static_assert(offsetof(CameraGeometry, near) == offsetof(CameraInfo, near));
static_assert(offsetof(CameraGeometry, far) == offsetof(CameraInfo, far));
static_assert(offsetof(CameraGeometry, left) == offsetof(CameraInfo, left));
static_assert(offsetof(CameraGeometry, right) == offsetof(CameraInfo, right));
static_assert(offsetof(CameraGeometry, top) == offsetof(CameraInfo, top));
static_assert(offsetof(CameraGeometry, bottom) == offsetof(CameraInfo, bottom));
static_assert(offsetof(CameraGeometry, orthographic) == offsetof(CameraInfo, orthographic));
static_assert(std::is_same_v<decltype(CameraGeometry::orthographic), bool>);
static_assert(sizeof(CameraGeometry) == 8 * sizeof(float));

TEST(CameraInfoRecord, IsAllZerosAndTheIdentityWithoutATransformWhenItIsNew) {
    const CameraInfo info;
    EXPECT_EQ((std::array<float, 7>{}), ovtest::lensOf(info));
    EXPECT_FALSE(info.orthographic);
    EXPECT_EQ(Imath::M44d(), info.xform);
    EXPECT_FALSE(info.xformAttr.isValid());
    EXPECT_EQ(0.0F, info.orthographicWidth);
}
