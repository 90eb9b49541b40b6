// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/OpTreeAttributeSource.h>
#include <SylvarPlatform/SylvarServices.h>

#include "support/RuntimeTest.h"

#include <stdexcept>

using namespace SYLVAR;
using namespace Sylvar3::internal::OvAttribute;
using Sylvar3::OvSylvarServicesHost::v1::Sylvar;
using testing::ElementsAre;

namespace {

class OpTreeGroup : public ovtest::RuntimeTest {
protected:
    OpTreeGroup() : transaction(Sylvar().createRuntime()->createTransaction()) { fake.take(); }

    std::shared_ptr<SylvarRuntime::Op> opOf(const GroupAttribute& tree) {
        return OpTreeAttributeSource(tree).getOp(transaction);
    }

    /// An op of a tree, with the names of its inputs.
    static GroupAttribute op(const char* type, const std::vector<std::string>& inputs = {}) {
        GroupBuilder builder;
        builder.set("opType", StringAttribute(type));
        if (!inputs.empty()) {
            builder.set("opInputs", StringAttribute(inputs));
        }
        return builder.build();
    }

    const std::shared_ptr<SylvarRuntime::Transaction> transaction;
};

}  // namespace

TEST_F(OpTreeGroup, IsNotValidWhenItIsNull) {
    std::string message = "before";
    EXPECT_FALSE(OpTreeAttributeSource(GroupAttribute()).isValid(&message));
    EXPECT_EQ("Invalid GroupAttribute provided.", message);
    EXPECT_FALSE(OpTreeAttributeSource(GroupAttribute()).isValid(nullptr));
}

TEST_F(OpTreeGroup, IsValidWhateverItsChildrenAre) {
    const GroupAttribute trees[] = {GroupAttribute({}, false),
                                    GroupAttribute({{"op", IntAttribute(1)}}, false),
                                    GroupAttribute({{"op", Attribute()}}, false)};
    for (const GroupAttribute& tree : trees) {
        std::string message = "before";
        EXPECT_TRUE(OpTreeAttributeSource(tree).isValid(&message));
        EXPECT_EQ("before", message);
        EXPECT_TRUE(OpTreeAttributeSource(tree).isValid(nullptr));
    }
}

TEST_F(OpTreeGroup, IsDescribedTheSameWhateverItHolds) {
    EXPECT_EQ("GroupAttribute", OpTreeAttributeSource(GroupAttribute()).describe());
    EXPECT_EQ("GroupAttribute", OpTreeAttributeSource(freshTree()).describe());
}

TEST_F(OpTreeGroup, LeavesTheTransactionAloneWhenItIsNull) {
    EXPECT_EQ(nullptr, opOf(GroupAttribute()));
    EXPECT_THAT(fake.take(), ElementsAre());
}

TEST_F(OpTreeGroup, GivesNoOpWhenItHasNoChildren) {
    EXPECT_EQ(nullptr, opOf(GroupAttribute({}, false)));
    EXPECT_THAT(fake.take(), ElementsAre());
}

TEST_F(OpTreeGroup, MakesAllOpsBeforeItConnectsThem) {
    opOf(GroupAttribute({{"b", op("second")}, {"a", op("first", {"b"})}}, false));
    EXPECT_THAT(fake.take(),
                ElementsAre("createOp t1",
                            "setOpArgs t1 o1 'second' null",
                            "createOp t1",
                            "setOpArgs t1 o2 'first' null",
                            "setOpInputs t1 o1 <-",
                            "setOpInputs t1 o2 <- o1",
                            "release o1",
                            "release o2"));
}

TEST_F(OpTreeGroup, EndsInItsLastChildWhateverFeedsWhat) {
    const auto last = opOf(GroupAttribute({{"z", op("z", {"a"})}, {"a", op("a")}}, false));
    ASSERT_TRUE(last);
    EXPECT_THAT(fake.live(), ElementsAre("o2", "r1", "t1"));
}

TEST_F(OpTreeGroup, ConnectsAnOpToOneThatComesLater) {
    opOf(GroupAttribute({{"a", op("a", {"b"})}, {"b", op("b")}}, false));
    EXPECT_THAT(fake.take("setOpInputs"),
                ElementsAre("setOpInputs t1 o1 <- o2", "setOpInputs t1 o2 <-"));
}

TEST_F(OpTreeGroup, LetsSeveralOpsTakeOneInputAndOneOpTakeItTwice) {
    opOf(GroupAttribute({{"a", op("a")}, {"b", op("b", {"a"})}, {"c", op("c", {"a", "b", "a"})}},
                        false));
    EXPECT_THAT(
        fake.take("setOpInputs"),
        ElementsAre(
            "setOpInputs t1 o1 <-", "setOpInputs t1 o2 <- o1", "setOpInputs t1 o3 <- o1 o2 o1"));
}

TEST_F(OpTreeGroup, GivesTheRuntimeAnEmptyInputForANameThatNoChildHas) {
    opOf(GroupAttribute({{"a", op("a")}, {"b", op("b", {"a", "who", "a", ""})}}, false));
    EXPECT_THAT(fake.take("setOpInputs"),
                ElementsAre("setOpInputs t1 o1 <-", "setOpInputs t1 o2 <- o1 null o1 null"));
    EXPECT_THAT(logs.take(), ElementsAre());
}

TEST_F(OpTreeGroup, KnowsAChildWithoutANameByTheEmptyOne) {
    opOf(GroupAttribute({{"", op("a")}, {"b", op("b", {""})}}, false));
    EXPECT_THAT(fake.take("setOpInputs"),
                ElementsAre("setOpInputs t1 o1 <-", "setOpInputs t1 o2 <- o1"));
}

TEST_F(OpTreeGroup, TakesInputsFromTheSampleNearestZeroAndTheFirstOfEquals) {
    const TimedSamples<std::string> samples{{-3, {"far"}}, {1, {"a"}}, {-1, {"b"}}};
    const GroupAttribute last = GroupBuilder().set("opInputs", StringAttribute(samples)).build();
    opOf(GroupAttribute({{"a", op("a")}, {"b", op("b")}, {"last", last}}, false));
    EXPECT_EQ("setOpInputs t1 o3 <- o1", fake.take("setOpInputs").back());
}

TEST_F(OpTreeGroup, TakesTheTypeFromTheFirstValueOfTheSampleNearestZero) {
    const TimedSamples<std::string> samples{{2, {"far", "x"}}, {1, {"near", "x"}}};
    opOf(GroupAttribute({{"a", GroupBuilder().set("opType", StringAttribute(samples)).build()}},
                        false));
    EXPECT_THAT(fake.take("setOpArgs"), ElementsAre("setOpArgs t1 o1 'near' null"));
}

TEST_F(OpTreeGroup, MakesAnOpOfTheEmptyTypeOfAChildWithoutOne) {
    struct Row {
        const char* what;
        Attribute type;
    };
    const Row rows[] = {{"missing", Attribute()},
                        {"an integer", IntAttribute(1)},
                        {"a group", GroupAttribute({}, false)},
                        {"no values", StringAttribute(std::vector<std::string>())}};
    for (const Row& row : rows) {
        const auto made =
            opOf(GroupAttribute({{"a", GroupAttribute({{"opType", row.type}}, false)}}, false));
        ASSERT_TRUE(made) << row.what;
        const Names calls = fake.take("setOpArgs");
        ASSERT_EQ(1U, calls.size());
        EXPECT_THAT(calls[0], testing::EndsWith(" '' null")) << row.what;
    }
}

TEST_F(OpTreeGroup, HandsTheArgumentsOnTogetherWithTheType) {
    const GroupAttribute args = GroupBuilder().set("path", StringAttribute("/root")).build();
    const GroupAttribute child =
        GroupBuilder().set("opArgs", args).set("opType", StringAttribute("x")).build();
    opOf(GroupAttribute({{"a", child}}, false));
    EXPECT_THAT(fake.take("setOpArgs"), ElementsAre("setOpArgs t1 o1 'x' with arguments"));
    EXPECT_EQ(args.getHash(), fake.argumentsOf("o1").getHash());
}

TEST_F(OpTreeGroup, HandsANullOnForArgumentsThatAreNoGroup) {
    const GroupAttribute child =
        GroupBuilder().set("opArgs", StringAttribute("x")).set("opInputs", IntAttribute(1)).build();
    ASSERT_TRUE(opOf(GroupAttribute({{"a", child}}, false)));
    EXPECT_THAT(
        fake.take(),
        ElementsAre(
            "createOp t1", "setOpArgs t1 o1 '' null", "setOpInputs t1 o1 <-", "release o1"));
}

TEST_F(OpTreeGroup, StopsAtAChildThatIsNoGroupAndLeavesTheOpsBeforeItWhereTheyAre) {
    for (const Attribute& child : {Attribute(IntAttribute(1)), Attribute()}) {
        EXPECT_EQ(nullptr,
                  opOf(GroupAttribute({{"a", op("a")}, {"b", child}, {"c", op("c")}}, false)));
        const Names calls = fake.take();
        ASSERT_EQ(3U, calls.size());
        EXPECT_EQ("createOp t1", calls[0]);
        EXPECT_THAT(calls[1], testing::EndsWith(" 'a' null"));
        EXPECT_THAT(calls[2], testing::StartsWith("release "));
    }
    EXPECT_THAT(logs.take(), ElementsAre());
}

TEST_F(OpTreeGroup, GivesNoOpWhenTheRuntimeHasNoneToGive) {
    fake.giveNullFrom("createOp");
    EXPECT_EQ(nullptr, opOf(GroupAttribute({{"a", op("a")}, {"b", op("b")}}, false)));
    EXPECT_THAT(fake.take(), ElementsAre("createOp t1"));
}

TEST_F(OpTreeGroup, BuildsNewOpsEachTimeAndCommitsNothing) {
    const OpTreeAttributeSource source(GroupAttribute({{"a", op("a")}}, false));
    EXPECT_NE(source.getOp(transaction), source.getOp(transaction));
    EXPECT_THAT(fake.take("createOp"), ElementsAre("createOp t1", "createOp t1"));
    EXPECT_THAT(fake.take("commit"), ElementsAre());
}

TEST_F(OpTreeGroup, LetsThroughWhatTheRuntimeThrows) {
    const GroupAttribute tree({{"a", op("a")}}, false);
    for (const char* const operation : {"createOp", "setOpArgs", "setOpInputs"}) {
        fake.behave();
        fake.throwIn(operation);
        EXPECT_THROW(opOf(tree), std::runtime_error) << operation;
    }
}

TEST_F(OpTreeGroup, HoldsManyOps) {
    std::vector<GroupAttribute::Child> children;
    for (int i = 0; i < 2000; ++i) {
        const std::string name = "op" + std::to_string(i);
        children.emplace_back(name, op("chain", {"op" + std::to_string(i - 1)}));
    }
    ASSERT_TRUE(opOf(GroupAttribute(children, false)));
    EXPECT_EQ("setOpInputs t1 o2000 <- o1999", fake.take("setOpInputs").back());
}
