// SPDX-License-Identifier: Apache-2.0
#include "plugins/OpType/TestOp.h"
#include "support/OpTreeFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace ovtest;

namespace {

class OpTypeLife : public TestOp {
protected:
    static GroupAttribute counting(const TestFile& file) {
        return Action("count").set("file", file.path());
    }
};

}  // namespace

TEST_F(OpTypeLife, IsOneInstanceForAllEqualOpsOfTheProcess) {
    TestFile file("op_type_shared");
    const auto first = open(counting(file));
    const auto second = open(counting(file));
    const int instance = intAt(first, "instance");
    EXPECT_LT(0, instance);
    EXPECT_EQ(instance, intAt(second, "instance"));
    EXPECT_NE(instance, intAt(open(Action("count")), "instance"));
}

TEST_F(OpTypeLife, IsAnotherOpWhenItsIdentityIsAnother) {
    TestFile file("op_type_identity");
    const auto first = open(counting(file));
    const int before = intAt(first, "instance");
    file.writeBytes("changed");
    const auto second = open(counting(file));
    EXPECT_LT(before, intAt(second, "instance"));
    EXPECT_EQ(before, intAt(first, "instance"));
}

TEST_F(OpTypeLife, HasAnotherInstanceAfterAnEvictThatFindsAChange) {
    TestFile file("op_type_changed");
    const auto client = open(counting(file));
    const int before = intAt(client, "instance");
    client->getRuntime()->evict("/root");
    EXPECT_EQ(before, intAt(client, "instance"));
    file.writeBytes("changed");
    EXPECT_EQ(before, intAt(client, "instance"));
    client->getRuntime()->evict("/root/elsewhere");
    EXPECT_LT(before, intAt(client, "instance"));
}
