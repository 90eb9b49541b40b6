// SPDX-License-Identifier: Apache-2.0
#include "plugins/OpType/TestOp.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace ovtest;
using testing::EndsWith;
using testing::HasSubstr;

namespace {

class OpTypeSchema : public TestOp {};

}  // namespace

TEST_F(OpTypeSchema, IsCheckedBeforeThePluginIsAsked) {
    struct Row {
        GroupAttribute arguments;
        const char* reason;
    };
    for (const Row& row :
         {Row{Action("path").set("valuse", values()),
              "there is no argument \"valuse\"; did you mean \"values\"?"},
          {Args().set("action", 1), "argument \"action\": expected string, found int"},
          {Args().set("values", "x"), "argument \"values\": expected group, found string"}}) {
        EXPECT_THAT(errorAt(open(row.arguments)), HasSubstr(row.reason));
    }
    EXPECT_THAT(errorAt(OpTree()
                            .op("s", "generate")
                            .op("t", "test.op", Action("path"), {"s", "s", "s"})
                            .open()),
                HasSubstr("has 3 inputs, and takes at most 2"));
}

TEST_F(OpTypeSchema, LeavesWhatEveryOpHasToTheRuntime) {
    const auto client = open(Args().set("note", "for people").set("enabled", 1));
    EXPECT_EQ(0, intAt(client, "argumentCount"));
    EXPECT_FALSE(isThere(open(Args().set("enabled", 0)), "/root"));
}

TEST_F(OpTypeSchema, GivesAnEmptyGroupWhereThereAreNoArguments) {
    EXPECT_EQ(0, intAt(open(GroupAttribute()), "argumentCount"));
    EXPECT_EQ(1, intAt(open(Action("path")), "argumentCount"));
}

TEST_F(OpTypeSchema, ShowsWhyThePluginRefusesTheArguments) {
    EXPECT_EQ("test.op (op 1 of 1), /root: argument \"action\": found \"refuse\"",
              errorAt(open(Action("refuse"))));
    EXPECT_THAT(errorAt(open(Action("refuseWithoutReason"))), EndsWith("create gives no reason"));
    EXPECT_THAT(errorAt(open(Action("refuseAtLength"))), EndsWith(std::string(1023, 'x')));
}
