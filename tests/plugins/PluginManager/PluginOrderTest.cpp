// SPDX-License-Identifier: Apache-2.0
#include "plugins/PluginManager/Plugins.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using namespace plugins;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

const void* getSuite() {
    return "in process";
}

class PluginOrder : public testing::Test {
protected:
    ~PluginOrder() override { PluginManager::setSearchDirectories({}); }
};

TEST_F(PluginOrder, IsThatOfTheSearchPathThenByName) {
    PluginManager::setSearchDirectories({folder("first"), folder("second")});
    EXPECT_THAT(namesOf("Fixture", 1), ElementsAre("Apple", "Zebra", "Aardvark", "Mango"));
    PluginManager::setSearchDirectories({folder("second")});
    PluginManager::appendSearchDirectory(folder("first"));
    EXPECT_THAT(namesOf("Fixture", 1), ElementsAre("Aardvark", "Mango", "Zebra", "Apple"));
    EXPECT_THAT(PluginManager::getSearchDirectories(),
                ElementsAre(folder("second"), folder("first")));
}

TEST_F(PluginOrder, TakesTheEarlierOfTwoWithOneName) {
    PluginManager::setSearchDirectories({folder("second"), folder("first")});
    EXPECT_STREQ("other", static_cast<const char*>(suiteOf("Zebra", "Fixture", 1)));
    EXPECT_EQ("a plug-in of this name comes before it, in " + folder("second/Other.so"),
              reasonFor(folder("first/Good.so"), "Zebra"));
}

TEST_F(PluginOrder, PutsThoseInProcessBehindTheFiles) {
    static OvPluginStruct last = described("Aa", "Order", getSuite);
    static OvPluginStruct second = described("Bb", "Order", getSuite);
    static OvPluginStruct first = described("Ab", "Order", getSuite);
    EXPECT_EQ("", PluginManager::registerPlugin(&last, PluginPlace::Last));
    EXPECT_EQ("", PluginManager::registerPlugin(&second));
    EXPECT_EQ("", PluginManager::registerPlugin(&first));
    EXPECT_THAT(namesOf("Order", 1), ElementsAre("Ab", "Bb", "Aa"));
    PluginManager::setSearchDirectories({folder("first")});
    EXPECT_THAT(namesOf("Order", 1), ElementsAre("Zz", "Ab", "Bb", "Aa"));
    EXPECT_EQ("is registered already", PluginManager::registerPlugin(&first));
}

TEST_F(PluginOrder, RejectsAFaultyPluginInProcess) {
    static OvPluginStruct faulty = described("Faulty", nullptr, getSuite);
    EXPECT_EQ("has no API name", PluginManager::registerPlugin(&faulty));
    EXPECT_EQ("is null", PluginManager::registerPlugin(nullptr));
}

TEST_F(PluginOrder, KnowsTheRuntimesApiAlways) {
    EXPECT_THAT(apiNames(), Contains("SylvarRuntime"));
    EXPECT_THAT(versionsOf("SylvarRuntime"), ElementsAre(1));
    EXPECT_THAT(namesOf("SylvarRuntime", 1), ElementsAre("EmbeddedRuntime"));
}

TEST_F(PluginOrder, HasNothingForAnUnknownApi) {
    EXPECT_THAT(versionsOf("nobody's"), IsEmpty());
    EXPECT_THAT(namesOf("nobody's", 1), IsEmpty());
    EXPECT_EQ(nullptr, PluginManager::getPlugin("Apple", "nobody's", 1));
    EXPECT_EQ(nullptr, PluginManager::getPlugin("", "", 0));
}

}  // namespace
