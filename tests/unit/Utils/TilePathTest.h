// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/RenderOutputUtilsHost.h>
#include <SylvarPlatform/Configuration.h>

#include "support/HeardLogs.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace ovtest {

/// Makes tile paths, with and without a template, and hears all that is told; what is told must be
/// heard by the test.
class TilePathTest : public testing::Test {
protected:
    using Tile = std::vector<int>;

    static void setTemplate(const std::string& value) {
        Sylvar3::OvConfiguration::v1::Config()->set(kKey, value);
    }
    static void unsetTemplate() { Sylvar3::OvConfiguration::v1::Config()->unset(kKey); }

    static std::string tilePath(const std::string& path, const Tile& tile = {1, 2}) {
        return SYLVAR::RenderOutputUtilsHost::ProcessTilePath(path, tile);
    }

    /// By a template that is set for this one path.
    static std::string byTemplate(const std::string& value,
                                  const std::string& path,
                                  const Tile& tile = {1, 2}) {
        setTemplate(value);
        std::string result = tilePath(path, tile);
        unsetTemplate();
        return result;
    }

    /// What was told since the last time, as "logger level: message".
    std::vector<std::string> heard() {
        std::vector<std::string> all;
        for (const std::string& line : logs_.take()) {
            all.push_back(withoutPlace(line));
        }
        return all;
    }

    static std::vector<std::string> missesTokens(const std::string& value) {
        return {"RenderOutputUtils warn: VARLIN_TILE_FILENAME (defined as \"" + value +
                "\") should contain @COLUMN@, @ROW@, @STEM@ and @EXT@, or @DEFAULT@"};
    }
    static std::vector<std::string> missesCounts(const std::string& value) {
        return {"RenderOutputUtils warn: VARLIN_TILE_FILENAME (defined as \"" + value +
                "\") is using @COLUMNS@ or @ROWS@, but tiles count is not available."};
    }
    static std::vector<std::string> missesPlace() {
        return {
            "RenderOutputUtils error: Invalid tile data size. Expected at least two elements "
            "(column and row)."};
    }

    void TearDown() override {
        unsetTemplate();
        EXPECT_EQ(std::vector<std::string>{}, heard());
        EXPECT_TRUE(logs_.hasLines());
    }

private:
    static constexpr const char* kKey = "VARLIN_TILE_FILENAME";

    /// "logger level file: message" without the file, when it is one of the suite's sources.
    static std::string withoutPlace(const std::string& line) {
        const std::string folder = " src/Utils/OvRenderOutputUtilsHost/";
        const std::string::size_type place = line.find(folder);
        return place == std::string::npos
                   ? line
                   : line.substr(0, place) + line.substr(line.find(": ", place));
    }

    HeardLogs logs_;
};

}  // namespace ovtest
