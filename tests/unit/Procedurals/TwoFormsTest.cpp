// SPDX-License-Identifier: Apache-2.0
// Where the line of command and the attribute form differ, point by point.
#include "ProceduralTest.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

using namespace ovtest;
using Sylvar3::internal::OvAttribute::TimedSamples;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class TwoForms : public ProceduralTest, public testing::WithParamInterface<Behind> {
protected:
    TwoForms() { producer = open(cameraScene(), GetParam()); }

    static GroupAttribute withCamera() {
        return group({{"includeCameraInfo", StringAttribute("As Parameters")}});
    }
};

INSTANTIATE_TEST_SUITE_P(, TwoForms, testing::Values(Behind::Group, Behind::Runtime), nameOf);

TEST_P(TwoForms, AreATextAndTheXmlOfAGroup) {
    const GroupAttribute attrs = group({{"args", group({{"a", IntAttribute(1)}})}});
    EXPECT_EQ(std::string(" -a 1") + kTail, classic(attrs));
    EXPECT_THAT(BuildScenegraphAttrProceduralArgumentsString(producer, context, attrs, callback),
                StartsWith("<attr type=\"group\""));
}

TEST_P(TwoForms, DropNestedGroupsOrKeepThemWithTypesAndTuples) {
    const Children args = {{"f", FloatAttribute({1, 2, 3, 4}, 2)},
                           {"g", group({{"x", IntAttribute(1)}}, true)}};
    EXPECT_EQ(" -f 1 2 3 4", classicArgs(args));
    expectEqual(group(args, true), attributeArgs(args));
}

TEST_P(TwoForms, ReadSystemArgumentsBehindTheUsersAloneOrInAnyCaseBesideThem) {
    const GroupAttribute attrs = group({{"systemArgs", group({{"b", IntAttribute(2)}})}});
    EXPECT_EQ(kTail, classic(attrs));
    expectEqual(IntAttribute(2), attributeForm(attrs).getChildByName("b"));
}

TEST_P(TwoForms, CopyExtraArgumentsOrTakeThemForAnOrdinaryString) {
    const Children args = {{"extraArgs", StringAttribute(Strings{"-foo 1", "-bar"})}};
    EXPECT_EQ(" -foo 1 ", classicArgs(args));
    expectEqual(group(args, true), attributeArgs(args));
}

TEST_P(TwoForms, TakeOrDropNamesWithTwoUnderscoresButNotThoseOfTheSystem) {
    const GroupAttribute attrs = group(
        {{"args", group({{"__a", IntAttribute(1)}, {"g", group({{"__c", IntAttribute(3)}})}})},
         {"systemArgs", group({{"__b", IntAttribute(2)}})}});
    EXPECT_EQ(std::string(" -__a 1 -__b 2") + kTail, classic(attrs));
    const GroupAttribute read = attributeForm(attrs);
    expectEqual(group({{"g", group({}, true)}}, true), read.getChildByName("args"));
    expectEqual(IntAttribute(2), read.getChildByName("__b"));
}

TEST_P(TwoForms, ResolveWithAndWithoutTheFlag) {
    const Children args = {{"a", StringAttribute("x")}};
    classicArgs(args);
    EXPECT_THAT(assets.take(), ElementsAre("x 1 true"));
    attributeArgs(args);
    EXPECT_THAT(assets.take(), ElementsAre("x 1 false"));
}

TEST_P(TwoForms, TellAFailureAndLeaveTheArgumentIncompleteOrKeepTheValueSilently) {
    assets.failFor("bad");
    const Children args = {{"a", StringAttribute(Strings{"x", "bad", "y"})}};
    EXPECT_EQ(" -a 'x ", classicArgs(args));
    EXPECT_EQ(1U, takeTold().size());
    expectEqual(group(args, true), attributeArgs(args));
    EXPECT_EQ(Strings(), takeTold());
}

TEST_P(TwoForms, HaveTheNumbersNearestTimeZeroOrOfAllTimes) {
    const Children args = {{"f", FloatAttribute(TimedSamples<float>{{-1, {1}}, {0.5F, {2}}})}};
    EXPECT_EQ(" -f 2", classicArgs(args));
    expectEqual(group(args, true), attributeArgs(args));
}

TEST_P(TwoForms, ResolveTheStringsOfTheSystemOrDoNot) {
    assets.answer("x", "X");
    const GroupAttribute attrs =
        group({{"args", group({})}, {"systemArgs", group({{"b", StringAttribute("x")}})}});
    EXPECT_EQ(std::string(" -b X") + kTail, classic(attrs));
    expectEqual(StringAttribute("x"), attributeForm(attrs).getChildByName("b"));
}

TEST_P(TwoForms, ResolveTheCameraPathOrDoNot) {
    assets.answer(kCamera, "X");
    EXPECT_THAT(classic(withCamera()), StartsWith(" -cameraInfo_path X -"));
    expectEqual(StringAttribute(kCamera),
                attributeForm(withCamera()).getChildByName("cameraInfo_path"));
}

TEST_P(TwoForms, HaveTheCameraMatrixOfOneTimeOrOfAll) {
    const TimedSamples<double> moves = {{0, {2, 0, 0}}, {1, {3, 0, 0}}};
    producer = open(StaticScene()
                        .set(kCamera, "geometry", geometryOf(reference::Camera()))
                        .set(kCamera, "xform.translate", DoubleAttribute(moves, 3))
                        .at("/root/a"),
                    GetParam());
    EXPECT_THAT(classic(withCamera()), HasSubstr("xform 1 0 0 0 0 1 0 0 0 0 1 0 2 0 0 1 -frame"));
    EXPECT_EQ(2,
              attributeForm(withCamera())
                  .getChild<FloatAttribute>("cameraInfo_xform")
                  .getNumberOfTimeSamples());
}

TEST_P(TwoForms, HaveNoResolutionOrThatOfTheContext) {
    context.xres = 640;
    context.yres = 480;
    EXPECT_THAT(classic(withCamera()), Not(HasSubstr("res")));
    const GroupAttribute read = attributeForm(withCamera());
    expectEqual(IntAttribute(640), read.getChildByName("cameraInfo_xres"));
    expectEqual(IntAttribute(480), read.getChildByName("cameraInfo_yres"));
}

TEST_P(TwoForms, HaveNoPathOfTheLocationOrIt) {
    EXPECT_THAT(classic(withCamera()), Not(HasSubstr("/root/a")));
    expectEqual(StringAttribute("/root/a"),
                attributeForm(withCamera()).getChildByName("varlinFullName"));
}

TEST_P(TwoForms, HaveTheFrameAsAWholeNumberOrAsAFloat) {
    context.frame = 16777217;
    EXPECT_THAT(classic(group({})), StartsWith(" -frame 16777217 -"));
    expectEqual(FloatAttribute(16777216.0F), attributeForm(group({})).getChildByName("frame"));
}
