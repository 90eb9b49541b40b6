// SPDX-License-Identifier: Apache-2.0
#include "suites/SceneView/SceneViewTest.h"

#include <type_traits>
#include <utility>

namespace {

using namespace SYLVAR::Suites;

class LocationCount : public ovtest::SceneViewTest {
protected:
    LocationCount() { fake.at("/root", {"a"}).at("/root/a"); }
};

static_assert(!std::is_copy_constructible_v<Location> && !std::is_copy_assignable_v<Location>);
static_assert(std::is_nothrow_move_constructible_v<Location>);
static_assert(std::is_nothrow_move_assignable_v<Location>);

TEST_F(LocationCount, OfARootIsTheOneThatItCameWith) {
    EXPECT_EQ(1, countOf(open()));
}

TEST_F(LocationCount, OfAStepIsOneThoughItCameWithNone) {
    const Location root = open();
    const Expected<Location> child = root.firstChild();
    ASSERT_TRUE(child && *child);
    EXPECT_EQ(1, countOf(*child));
    EXPECT_EQ(1, countOf(root));
}

TEST_F(LocationCount, EndsWithTheLocation) {
    const Location root = open();
    EXPECT_EQ(1U, tables.locations().open());
    {
        const Expected<Location> child = root.firstChild();
        EXPECT_EQ(2U, tables.locations().open());
    }
    EXPECT_EQ(1U, tables.locations().open());
}

TEST_F(LocationCount, RisesWithEachShareOfTheSameHandle) {
    const Location root = open();
    {
        const Location other = root.share();
        EXPECT_EQ(root.handle(), other.handle());
        EXPECT_EQ(2, countOf(root));
    }
    EXPECT_EQ(1, countOf(root));
}

TEST_F(LocationCount, MovesWithTheLocationAndLeavesAnAbsentOne) {
    Location root = open();
    OvSgIteratorStruct* const handle = root.handle();
    Location moved = std::move(root);
    EXPECT_EQ(handle, moved.handle());
    EXPECT_FALSE(root);  // NOLINT(bugprone-use-after-move): what is left is told
    EXPECT_EQ(1, countOf(moved));
}

TEST_F(LocationCount, OfWhatIsAssignedToIsGivenBack) {
    Location here = open();
    Expected<Location> child = here.firstChild();
    ASSERT_TRUE(child);
    OvSgIteratorStruct* const handle = child->handle();
    here = *std::move(child);
    EXPECT_EQ(handle, here.handle());
    EXPECT_EQ(1, countOf(here));
    EXPECT_EQ(1U, tables.locations().open());
}

TEST_F(LocationCount, StaysWhenALocationIsMovedToItself) {
    Location root = open();
    Location& same = root;
    root = std::move(same);
    ASSERT_TRUE(root);
    EXPECT_EQ(1, countOf(root));
}

TEST_F(LocationCount, IsHandedOverByDetachAndTakenOverByAdopt) {
    Location root = open();
    OvSgIteratorStruct* const handle = root.detach();
    EXPECT_FALSE(root);
    EXPECT_EQ(1, countOf(handle));
    EXPECT_EQ(1, countOf(scene.adopt(handle)));
}

TEST_F(LocationCount, RisesWhenABorrowedHandleIsShared) {
    const Location root = open();
    EXPECT_EQ(2, countOf(scene.share(root.handle())));
    EXPECT_EQ(1, countOf(root));
}

TEST_F(LocationCount, IsNoneForNullHandles) {
    EXPECT_FALSE(scene.adopt(nullptr));
    EXPECT_FALSE(scene.share(nullptr));
    EXPECT_FALSE(Location().share());
    EXPECT_EQ(nullptr, Location().handle());
    EXPECT_EQ(nullptr, Location().detach());
}

}  // namespace
