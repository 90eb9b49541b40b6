// SPDX-License-Identifier: Apache-2.0
// What asks plug-ins, where there are none.
#include "support/RenderOutputTest.h"

using testing::ElementsAre;

namespace {

class AbsentDelegate : public ovtest::RenderOutputTest {
protected:
    const Handle root = at(ovtest::StaticScene().at("/root"));
};

}  // namespace

TEST_F(AbsentDelegate, ProcessesNothingAndLeavesTheResultAlone) {
    int input = 1;
    int before = 2;
    void* result = &before;
    EXPECT_FALSE(table.processLocationDelegate(root, "renderer", "type", &input, &result));
    EXPECT_FALSE(table.processLocationDelegate(root, nullptr, "type", &input, &result));
    EXPECT_FALSE(table.processLocationDelegate(root, "renderer", "", &input, &result));
    EXPECT_EQ(&before, result);
    EXPECT_FALSE(table.processLocationDelegate(root, "renderer", "type", &input, nullptr));
}

TEST_F(AbsentDelegate, ProcessesNothingWithoutAType) {
    int before = 2;
    void* result = &before;
    EXPECT_FALSE(table.processLocationDelegate(root, "renderer", nullptr, nullptr, &result));
    EXPECT_FALSE(table.processLocationDelegate(nullptr, nullptr, nullptr, nullptr, nullptr));
    EXPECT_EQ(&before, result);
}

TEST_F(AbsentDelegate, HasNoTypesThoughStillOneSampleAtTimeZero) {
    for (const char* const renderer : {"renderer", "", static_cast<const char*>(nullptr)}) {
        EXPECT_THAT(take(table.getLocationTypesWithDelegates(renderer)),
                    ovtest::IsWritten(R"({"$string": []})"));
    }
}

TEST_F(AbsentDelegate, FlushesWithoutAWord) {
    for (const char* const api :
         {"NoSuchApi", "SylvarRuntime", "", static_cast<const char*>(nullptr)}) {
        table.flushPluginCaches(api);
    }
    EXPECT_THAT(logs.take(), ElementsAre());
}
