// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/OpTreeSource.h>
#include <SylvarPlatform/GroupBuilder.h>

#include "support/FakeRuntime.h"
#include "support/HeardLogs.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <string>
#include <vector>

namespace ovtest {

/// A test over the fake runtime. Clients and sources live as long as the process, so every test
/// has op trees and files of its own.
class RuntimeTest : public testing::Test {
protected:
    using Names = std::vector<std::string>;
    using GroupAttribute = SYLVAR::GroupAttribute;
    using GroupBuilder = Sylvar3::internal::OvAttribute::GroupBuilder;
    using OpTreeSource = SYLVAR::OpTreeSource;

    ~RuntimeTest() override {
        EXPECT_EQ(Names(), fake.faults());
        EXPECT_TRUE(logs.hasLines());
    }

    /// An op tree of one op that no test had before.
    static GroupAttribute freshTree() {
        static int count = 0;
        const std::string type = "fresh" + std::to_string(++count);
        return GroupBuilder()
            .set("op.opType", Sylvar3::internal::OvAttribute::StringAttribute(type))
            .build();
    }
    static OpTreeSource freshSource() {
        return OpTreeSource::createFromGroupAttribute(freshTree());
    }

    /// The name of a file that is not there; no other test has it.
    static std::string freshName(const std::string& suffix = "") {
        const auto* const test = testing::UnitTest::GetInstance()->current_test_info();
        std::string name = OV_TEST_OUTPUT_DIR "/" + std::string(test->test_suite_name()) + "_" +
                           test->name() + suffix;
        std::remove(name.c_str());
        return name;
    }
    static std::string freshFile(const std::string& bytes, const std::string& suffix = "") {
        const std::string name = freshName(suffix);
        std::ofstream(name, std::ios::binary) << bytes;
        return name;
    }

    FakeRuntime& fake = FakeRuntime::fresh();
    HeardLogs logs;
};

}  // namespace ovtest
