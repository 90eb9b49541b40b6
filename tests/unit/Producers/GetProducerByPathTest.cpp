// SPDX-License-Identifier: Apache-2.0
#include "support/FakeProducer.h"
#include "support/StaticScene.h"

#include <gtest/gtest.h>

using namespace SYLVAR;
using ovtest::FakeProducer;
using ovtest::StaticScene;

namespace {

std::string pathOf(const GeometryProducerPtr& producer) {
    return producer ? producer->getFullName() : "none";
}

StaticScene world() {
    return StaticScene().at("/root/world/geo/mesh").at("/root/cameras");
}

FakeProducer::Steps stepsTo(const std::string& path, bool evict) {
    FakeProducer* const fake = new FakeProducer("/root/a");
    const GeometryProducerPtr held(fake);
    held->getProducerByPath(path, evict);
    return *fake->steps;
}

using Steps = FakeProducer::Steps;

}  // namespace

TEST(GetProducerByPath, LeadsFromTheProducersOwnNameDownward) {
    const GeometryProducerPtr here = world().open("/root/world");
    struct Row {
        const char* path;
        const char* found;
    };
    for (const Row& row : {Row{"world/geo", "/root/world/geo"},
                           Row{"/world/geo", "/root/world/geo"},
                           Row{"///world/geo/mesh", "/root/world/geo/mesh"},
                           Row{"/root/world/geo", "none"},
                           Row{"geo", "none"},
                           Row{"world/absent", "none"},
                           Row{"world/absent/geo", "none"},
                           Row{"world//geo", "none"},
                           Row{"world/", "none"},
                           Row{"worl", "none"}}) {
        EXPECT_EQ(row.found, pathOf(here->getProducerByPath(row.path, false))) << row.path;
    }
}

TEST(GetProducerByPath, TakesAFullPathOnTheTopOfTheTreeAlone) {
    const GeometryProducerPtr root = world().open();
    EXPECT_EQ("/root/world/geo", pathOf(root->getProducerByPath("/root/world/geo", false)));
    EXPECT_EQ(nullptr, world().open("/root/world")->getProducerByPath("root/world", false));
}

TEST(GetProducerByPath, FindsNothingAtAnEmptyPathUnlessItsNameIsEmpty) {
    const GeometryProducerPtr root = world().open();
    const GeometryProducerPtr nameless =
        CreateStaticGeometryProducer("/", world().group(), nullptr);
    for (const char* path : {"", "/", "///"}) {
        EXPECT_EQ(nullptr, root->getProducerByPath(path, false)) << path;
        EXPECT_EQ(nameless, nameless->getProducerByPath(path, false)) << path;
    }
}

TEST(GetProducerByPath, ReturnsThisVeryObjectForItsOwnNameAlone) {
    const GeometryProducerPtr root = world().open();
    const unsigned before = root->use_count();
    const GeometryProducerPtr found = root->getProducerByPath("root", false);
    EXPECT_EQ(root, found);
    EXPECT_EQ(before + 1, root->use_count());
}

TEST(GetProducerByPath, HandsDotsToGetChildByName) {
    const GeometryProducerPtr here = world().open("/root/world");
    struct Row {
        const char* path;
        const char* found;
    };
    for (const Row& row : {Row{".", "/root/world"},
                           Row{"./geo", "/root/world/geo"},
                           Row{"..", "/root"},
                           Row{"../cameras", "/root/cameras"},
                           Row{"../..", "none"},
                           Row{"world/geo/../geo/./mesh", "/root/world/geo/mesh"},
                           Row{"world/..", "/root"},
                           Row{"./world", "none"}}) {
        EXPECT_EQ(row.found, pathOf(here->getProducerByPath(row.path, false))) << row.path;
    }
}

TEST(GetProducerByPath, FindsNothingAboveTheTop) {
    const GeometryProducerPtr root = world().open();
    EXPECT_EQ(nullptr, root->getProducerByPath("..", false));
    EXPECT_EQ(nullptr, root->getProducerByPath("../root", false));
}

TEST(GetProducerByPath, TestsTheNameOfItsFirstPartAlone) {
    EXPECT_EQ((Steps{"..", "x"}).front(), stepsTo("../x", false).front());
    EXPECT_EQ((Steps{"b", "a"}), stepsTo("a/b/a", false));
    EXPECT_EQ(Steps{}, stepsTo("b/a", false));
}

TEST(GetProducerByPath, EvictsTheLastStepAlone) {
    EXPECT_EQ((Steps{"b", "c", "d evicted"}), stepsTo("a/b/c/d", true));
    EXPECT_EQ((Steps{"b evicted"}), stepsTo("a/b", true));
    EXPECT_EQ((Steps{"b", "c", "d"}), stepsTo("a/b/c/d", false));
}

TEST(GetProducerByPath, EvictsADotThatIsTheWholePath) {
    EXPECT_EQ(Steps{".. evicted"}, stepsTo("..", true));
    EXPECT_EQ((Steps{".", "b evicted"}), stepsTo("./b", true));
}

TEST(GetProducerByPath, EvictsNothingWhenThePathIsItsOwnName) {
    EXPECT_EQ(Steps{}, stepsTo("a", true));
}

TEST(GetProducerByPath, StopsAtTheFirstStepThatLeadsNowhere) {
    EXPECT_EQ((Steps{"b", "absent"}), stepsTo("a/b/absent/c", true));
}

TEST(GetProducerByPath, ConsumesADotThatIsItsOwnName) {
    FakeProducer* const dot = new FakeProducer("/root/.");
    const GeometryProducerPtr held(dot);
    EXPECT_EQ(held, held->getProducerByPath(".", false));
    EXPECT_EQ(Steps{}, *dot->steps);
}

TEST(GetProducerByPath, HandsEmptyPartsOn) {
    EXPECT_EQ((Steps{"", "b", ""}), stepsTo("a//b/", false));
}
