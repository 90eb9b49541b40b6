// SPDX-License-Identifier: Apache-2.0
#include "suites/SceneView/SceneViewTest.h"

#include <new>
#include <string>

namespace {

using namespace SYLVAR::Suites;
using testing::ElementsAre;

class LocationStep : public ovtest::SceneViewTest {
protected:
    LocationStep() {
        fake.at("/root", {"a", "missing", "b"}).at("/root/a", {"c"}).at("/root/a/c").at("/root/b");
    }
};

TEST_F(LocationStep, LeadsToNeighboursByPlaceNameAndPath) {
    const Location root = open();
    const Expected<Location> a = root.firstChild();
    ASSERT_EQ("/root/a", told(a));
    EXPECT_EQ("/root/b", told(a->nextSibling()));
    EXPECT_EQ("/root", told(a->parent()));
    EXPECT_EQ("/root", told(a->root()));
    EXPECT_EQ("/root/a/c", told(a->child("c")));
    EXPECT_EQ("/root/a", told(a->child(".")));
    EXPECT_EQ("/root", told(a->child("..")));
    EXPECT_EQ("/root/a/c", told(root.at("/root/a/c")));
    EXPECT_EQ("/root/b", told(root.child(std::string("b"))));
    EXPECT_EQ("/root/b", told(a->at(std::string("../b"))));
}

TEST_F(LocationStep, ThatLeadsNowhereIsAbsentAndNoError) {
    const Location root = open();
    EXPECT_EQ("absent", told(root.parent()));
    EXPECT_EQ("absent", told(root.nextSibling()));
    EXPECT_EQ("absent", told(root.child("missing")));
    EXPECT_EQ("absent", told(root.child(nullptr)));
    EXPECT_EQ("absent", told(root.at("/elsewhere")));
    EXPECT_EQ("absent", told(root.at(nullptr)));
}

TEST_F(LocationStep, FromAnAbsentLocationStaysAbsent) {
    const Location none;
    EXPECT_EQ("absent", told(none.firstChild()));
    EXPECT_EQ("absent", told(none.nextSibling()));
    EXPECT_EQ("absent", told(none.parent()));
    EXPECT_EQ("absent", told(none.root()));
    EXPECT_EQ("absent", told(none.child("a")));
    EXPECT_EQ("absent", told(none.at("a")));
    EXPECT_TRUE(none.finalize());
}

TEST_F(LocationStep, EvictsWhenItIsTold) {
    const Location root = open();
    fake.take();
    EXPECT_EQ("/root/a", told(root.firstChild()));
    EXPECT_EQ("/root/b", told(root.child("b")));
    EXPECT_EQ(Names(), fake.take("evict"));
    EXPECT_EQ("/root/a", told(root.firstChild(Evict::Yes)));
    EXPECT_EQ("/root/b", told(root.child("b", Evict::Yes)));
    EXPECT_EQ("/root/a/c", told(root.at("/root/a/c", Evict::Yes)));
    EXPECT_EQ(3U, fake.take("evict").size());
    const Expected<Location> a = root.firstChild();
    fake.take();
    EXPECT_EQ("/root/b", told(a->nextSibling(Evict::Yes)));
    EXPECT_EQ(2U, fake.take("evict").size()) << "the missing one and the one beside it";
}

TEST_F(LocationStep, GivesWhatTheRuntimeThrowsAsAnError) {
    const Location root = open();
    const Expected<Location> a = root.firstChild();
    fake.throwIn("cookLocation");
    for (const std::string& step : {told(root.firstChild()),
                                    told(a->nextSibling()),
                                    told(root.child("b")),
                                    told(root.at("/root/b"))}) {
        EXPECT_EQ("error: fault of cookLocation", step);
    }
    EXPECT_EQ("/root", told(a->parent())) << "which is there already";
    fake.behave();
    EXPECT_EQ("/root/a", told(root.firstChild()));
}

TEST_F(LocationStep, ByANameWithASlashIsAnError) {
    EXPECT_EQ("error: getChildByName does not support deep child lookups",
              told(open().child("a/c")));
}

TEST_F(LocationStep, GivesAForeignExceptionAsAnErrorWithAFixedText) {
    const Location root = open();
    fake.onCall("cookLocation", [] { throw 1; });
    EXPECT_EQ("error: the host threw what is no std::exception", told(root.firstChild()));
}

TEST_F(LocationStep, LetsTheLackOfMemoryTravel) {
    const Location root = open();
    fake.onCall("cookLocation", [] { throw std::bad_alloc(); });
    EXPECT_THROW(static_cast<void>(root.firstChild()), std::bad_alloc);
}

TEST_F(LocationStep, OfFinalizeReachesTheRuntimeAndTellsItsErrors) {
    const Location root = open();
    fake.take();
    EXPECT_TRUE(root.finalize());
    EXPECT_EQ(1U, fake.take("finalize").size());
    fake.throwIn("finalize");
    const Expected<void> refused = root.finalize();
    ASSERT_FALSE(refused);
    EXPECT_EQ("fault of finalize", refused.error().message());
}

}  // namespace
