// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/suites/RenderOutput.hpp>

#include "suites/RenderOutputView/CountedRenderOutput.h"
#include "suites/SceneView/SceneViewTest.h"
#include "support/FreshCaches.h"
#include "support/WrittenAttributes.h"

#include <string>

namespace ovtest {

/// A scene of the fake runtime and what a renderer asks of it, through the views alone. No camera
/// and no material is remembered when a test begins; in the end every handle was given back exactly
/// once, and none was shared.
class RenderOutputViewTest : public SceneViewTest {
protected:
    using RenderOutput = SYLVAR::Suites::RenderOutput;

    RenderOutputViewTest() { emptySceneCaches(); }
    ~RenderOutputViewTest() override {
        EXPECT_EQ(0U, CountedRenderOutput::handles().open());
        EXPECT_EQ(0, CountedRenderOutput::handles().excess());
    }

    static const OvRenderOutputUtilsSuite& hostSuite() {
        return *static_cast<const OvRenderOutputUtilsSuite*>(host().findSuite(
            OV_RENDER_OUTPUT_UTILS_SUITE_NAME, OV_RENDER_OUTPUT_UTILS_SUITE_VERSION));
    }

    /// The view of an attribute in the text form.
    Value valueOf(const std::string& text) const {
        return Value::share(tables.attributes, written(text).handle());
    }

    /// The location at a path from /root on.
    Location open(const std::string& path = "/root") const {
        Expected<Location> found = SceneViewTest::open().at(path);
        EXPECT_TRUE(found);
        return found ? *std::move(found) : Location();
    }

    /// The text, or "error: " and what went wrong.
    static std::string told(const Expected<std::string>& text) {
        return text ? *text : "error: " + text.error().message();
    }

    CountedRenderOutput counted{hostSuite()};
    const RenderOutput output{counted.suite, tables.attributes};
};

}  // namespace ovtest
