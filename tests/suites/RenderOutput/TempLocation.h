// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "support/RenderOutputTest.h"

#include <string>

namespace ovtest {

/// A test of where the output "beauty" of a location is rendered to.
class TempLocationTest : public RenderOutputTest {
protected:
    static constexpr const char* kFixed =
        "renderSettings.outputs.beauty.rendererSettings.tempRenderLocation";
    static constexpr const char* kDirectory = "renderSettings.tempDir";
    static constexpr const char* kId = "renderSettings.outputs.beauty.tempRenderId";

    std::string tempLocation(Handle location,
                             const char* prefix = "pre_",
                             const char* suffix = "exr",
                             float frame = 1.0F) const {
        return takeString(
            table.getRenderOutputTempLocation(location, "beauty", prefix, suffix, frame));
    }

    /// That of an output with a fixed location.
    std::string fixed(const std::string& location, float frame = 1.0F) {
        return tempLocation(
            at(StaticScene().set("/root", kFixed, StringAttribute(location))), "", "", frame);
    }
};

}  // namespace ovtest
