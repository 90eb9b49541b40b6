// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/ScenegraphIteratorHost.h>

#include "support/FreshCaches.h"
#include "support/HeardLogs.h"
#include "support/RenderOutputTable.h"
#include "support/StaticScene.h"
#include "support/WrittenAttributes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace ovtest {

/// The "geometry" of a camera, in which no two values are alike.
constexpr char kLens[] = R"({"fov": 40.5, "near": 0.5, "far": 1000.0, "left": -1.5, "right": 1.25,
                             "top": 0.75, "bottom": -0.625, "orthographicWidth": 8.0})";

/// A test of the render output table, over scenes that no runtime cooks. Begins without remembered
/// cameras and materials.
class RenderOutputTest : public testing::Test {
protected:
    using Handle = OvSgIteratorStruct*;
    using Attribute = Sylvar3::internal::OvAttribute::Attribute;
    using FloatAttribute = Sylvar3::internal::OvAttribute::FloatAttribute;
    using IntAttribute = Sylvar3::internal::OvAttribute::IntAttribute;
    using StringAttribute = Sylvar3::internal::OvAttribute::StringAttribute;
    using Strings = std::vector<std::string>;

    static constexpr const char* kCamera = "/root/world/cam/camera";

    RenderOutputTest() { emptySceneCaches(); }
    ~RenderOutputTest() override {
        emptySceneCaches();
        EXPECT_TRUE(logs.hasLines());
    }

    /// An iterator at a path of the scene.
    Handle at(const StaticScene& scene, const std::string& path = "/root") {
        return iterators.step(SYLVAR::OvGeometryProducerToHandle(scene.open(path)));
    }

    /// What the table has returned, given back when it is no longer looked at.
    static Attribute take(OvAttributeStruct* owned) { return Attribute::adopt(owned); }

    /// A scene of one camera, where a render looks for one.
    static StaticScene cameraScene() {
        return StaticScene().at("/root").set(kCamera, "geometry", written(kLens));
    }

    const OvRenderOutputUtilsSuite& table = renderOutputTable();
    Iterators iterators;
    HeardLogs logs;
};

}  // namespace ovtest
