// SPDX-License-Identifier: Apache-2.0
#include "support/IteratorTest.h"
#include "support/SuiteCalls.h"

#include <fstream>
#include <new>

using Sylvar3::internal::OvAttribute::IntAttribute;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

namespace {

constexpr char kFailed[] = "Sylvar3 producer create failed.\n";
constexpr char kFailedLog[] =
    "ScenegraphIteratorHost error src/Utils/OvScenegraphIteratorHost/RootCreation.cpp: "
    "Sylvar3 producer create failed.";

std::string thrown(const std::string& text) {
    return "Error occurred creating ThreadAwareGeometyProducer.\nException message: '" + text +
           "'\n" + kFailed;
}

class RootCreation : public ovtest::IteratorTest {
protected:
    /// What the standard error stream is told by an attempt that gives null.
    template <class Create>
    static std::string toldByFailing(Create create) {
        testing::internal::CaptureStderr();
        const Handle root = create();
        std::string told = testing::internal::GetCapturedStderr();
        EXPECT_EQ(nullptr, root);
        return told;
    }
    std::string toldByFile(const std::string& name) const {
        return toldByFailing([&] { return table.sgCreateRootFromFile(name.c_str()); });
    }
    std::string toldByTree(const GroupAttribute& tree) const {
        return toldByFailing([&] { return table.sgCreateRootFromAttr(tree.handle()); });
    }
};

class ConcurrentRoot : public RootCreation {
protected:
    ConcurrentRoot() { ::setenv(kConcurrent, "1", 1); }
};

}  // namespace

TEST_F(RootCreation, OpensAnOpTreeFile) {
    const Handle root = openFile(freshFile("ops"));
    EXPECT_EQ("/root", pathOf(root));
    EXPECT_EQ(1U, fake.take("deserializeOps").size());
    EXPECT_THAT(logs.take(), IsEmpty());
}

TEST_F(RootCreation, OpensAnOpTreeGroupWhichIsBorrowed) {
    const GroupAttribute tree = freshTree();
    EXPECT_EQ("/root", pathOf(iterators.root(table.sgCreateRootFromAttr(tree.handle()))));
    EXPECT_EQ(1, tree.getNumberOfChildren());
}

TEST_F(RootCreation, GivesBackEveryReferenceThatItTakesOfWhatItBorrows) {
    const IntAttribute number(3);
    ovtest::SuiteCalls calls;
    toldByFailing([&] { return table.sgCreateRootFromAttr(number.handle()); });
    int taken = 0;
    int givenBack = 0;
    for (const ovtest::SuiteCall& call : calls.take()) {
        taken += call == ovtest::SuiteCall{"retain", number.handle()} ? 1 : 0;
        givenBack += call == ovtest::SuiteCall{"release", number.handle()} ? 1 : 0;
    }
    EXPECT_EQ(taken, givenBack);
    EXPECT_GT(taken, 0);
}

TEST_F(RootCreation, GivesEachThreadAClientOfItsOwn) {
    const Handle root = openTree();
    fake.take();
    std::thread([&] { ovtest::Iterators().step(table.sgGetFirstChild(root, 0)); }).join();
    EXPECT_EQ(1U, fake.take("createRuntime").size());
}

TEST_F(RootCreation, FailsWithALineAndALogForAFileThatIsMissing) {
    EXPECT_EQ(kFailed, toldByFile(freshName()));
    EXPECT_THAT(logs.take(), Contains(kFailedLog).Times(1));
}

TEST_F(RootCreation, FailsWithALineAndALogForAFileThatHoldsNoOpTree) {
    EXPECT_EQ(kFailed, toldByFile(freshFile("no tree")));
    EXPECT_THAT(logs.take(), Contains(kFailedLog).Times(1));
}

TEST_F(RootCreation, FailsWithALineAndALogForASceneWithoutARoot) {
    fake.put("/root", GroupAttribute());
    EXPECT_EQ(kFailed, toldByTree(freshTree()));
    EXPECT_THAT(logs.take(), ElementsAre(kFailedLog));
}

TEST_F(RootCreation, FailsForTheNullAttributeAndForOneThatIsNoGroup) {
    EXPECT_EQ(kFailed, toldByTree(GroupAttribute()));
    EXPECT_EQ(kFailed, toldByFailing([this] {
                  return table.sgCreateRootFromAttr(IntAttribute(3).handle());
              }));
    EXPECT_THAT(logs.take(), Contains(kFailedLog).Times(2));
    EXPECT_THAT(fake.take(), IsEmpty());
}

TEST_F(RootCreation, FailsForTheEmptyFileName) {
    EXPECT_EQ(kFailed, toldByFile(""));
    EXPECT_THAT(logs.take(), Contains(kFailedLog).Times(1));
}

TEST_F(RootCreation, TellsTheErrorStreamAlsoWhenTheLogIsOff) {
    OvLoggingHost::setLevel("ScenegraphIteratorHost", OvLoggingHost::LogLevel::Off);
    fake.put("/root", GroupAttribute());
    EXPECT_EQ(kFailed, toldByTree(freshTree()));
    EXPECT_THAT(logs.take(), IsEmpty());
}

TEST_F(RootCreation, CatchesAnExceptionAndTellsItBeforeTheFailure) {
    fake.throwIn("cookLocation");
    EXPECT_EQ(thrown("fault of cookLocation"), toldByTree(freshTree()));
    EXPECT_EQ(thrown("fault of cookLocation"), toldByFile(freshFile("ops")));
    EXPECT_THAT(logs.take(), ElementsAre(kFailedLog, kFailedLog));
}

TEST_F(RootCreation, CatchesEveryStandardException) {
    fake.onCall("createRuntime", [] { throw std::bad_alloc(); });
    EXPECT_EQ(thrown("std::bad_alloc"), toldByTree(freshTree()));
    EXPECT_EQ(thrown("std::bad_alloc"), toldByFile(freshFile("ops")));
}

TEST_F(RootCreation, LetsAnExceptionOfAnotherTypePass) {
    fake.onCall("cookLocation", [] { throw 42; });
    testing::internal::CaptureStderr();
    EXPECT_THROW(table.sgCreateRootFromAttr(freshTree().handle()), int);
    EXPECT_THROW(table.sgCreateRootFromFile(freshFile("ops").c_str()), int);
    EXPECT_EQ("", testing::internal::GetCapturedStderr());
    EXPECT_THAT(logs.take(), IsEmpty());
}

TEST_F(RootCreation, TakesTheExceptionsTextAsItStands) {
    fake.onCall("cookLocation", [] { throw std::runtime_error("'quoted'\nand \x01 raw"); });
    EXPECT_EQ(thrown("'quoted'\nand \x01 raw"), toldByTree(freshTree()));
}

TEST_F(RootCreation, IsTheUsualWayForAnyValueButOne) {
    for (const char* const value : {"0", "true", "11", "", " 1", "1 ", "01"}) {
        ::setenv(kConcurrent, value, 1);
        EXPECT_TRUE(openFile(freshFile("ops", value))) << value;
        EXPECT_EQ(nullptr, renderRuntime()) << value;
    }
}

TEST_F(RootCreation, FromAGroupKnowsNoOtherWay) {
    ::setenv(kConcurrent, "1", 1);
    EXPECT_TRUE(openTree());
    EXPECT_EQ(nullptr, renderRuntime());
}

TEST_F(ConcurrentRoot, MakesARuntimeOfItsOwnAndOneClient) {
    const std::string name = freshFile("ops of a file that is longer than one piece");
    const Handle root = openFile(name);
    EXPECT_EQ("/root", pathOf(root));
    EXPECT_THAT(fake.take(),
                ElementsAre("createRuntime ",
                            "createTransaction r1",
                            "deserializeOps t1",
                            "createClient t1",
                            "setClientOp t1 c1 o1",
                            "commit r1 t1",
                            "cookLocation c1 /root",
                            "release o1",
                            "release t1"));
    EXPECT_THAT(logs.take(), IsEmpty());
}

TEST_F(ConcurrentRoot, DeliversTheBytesOfTheFile) {
    std::string bytes = "ops";
    for (int i = 0; i < 1000; ++i) {
        bytes += static_cast<char>(i * 7);
    }
    ASSERT_TRUE(openFile(freshFile(bytes)));
    std::string delivered;
    for (const std::string& piece : fake.pieces()) {
        delivered += piece;
    }
    EXPECT_EQ(bytes, delivered);
}

TEST_F(ConcurrentRoot, HandsTheReaderARecordOfTheStreamAndTheName) {
    struct Record {
        std::istream* stream;
        const char* filename;
    };
    const std::string name = freshFile("ops");
    std::string told;
    int firstByte = 0;
    fake.onCall("deserializeOps", [&] {
        const auto& record = *static_cast<const Record*>(fake.readContext());
        told = record.filename;
        firstByte = record.stream->peek();
    });
    ASSERT_TRUE(openFile(name));
    EXPECT_EQ(name, told);
    EXPECT_EQ('o', firstByte);
}

TEST_F(ConcurrentRoot, SharesTheClientWithAllThreads) {
    const Handle root = openFile(freshFile("ops"));
    fake.take();
    std::thread([&] { ovtest::Iterators().step(table.sgGetFirstChild(root, 0)); }).join();
    EXPECT_THAT(fake.take(), ElementsAre("cookLocation c1 /root/a"));
}

TEST_F(ConcurrentRoot, PublishesItsRuntimeUntilTheNextOneTakesItsPlace) {
    ASSERT_TRUE(openFile(freshFile("ops", "1")));
    const auto first = renderRuntime();
    ASSERT_TRUE(first);
    fake.onCall("createRuntime", [] { EXPECT_EQ(nullptr, renderRuntime()); });
    ASSERT_TRUE(openFile(freshFile("ops", "2")));
    const auto second = renderRuntime();
    ASSERT_TRUE(second);
    EXPECT_NE(first, second);
}

TEST_F(ConcurrentRoot, PublishesItsRuntimeBeforeItIsUsed) {
    fake.onCall("createTransaction", [] { EXPECT_NE(nullptr, renderRuntime()); });
    ASSERT_TRUE(openFile(freshFile("ops")));
}

TEST_F(ConcurrentRoot, KeepsTheRuntimePublishedWhenTheIteratorsAreGone) {
    table.sgRelease(table.sgCreateRootFromFile(freshFile("ops").c_str()));
    EXPECT_NE(nullptr, renderRuntime());
}

TEST_F(ConcurrentRoot, KeepsTheRuntimePublishedWhenNoRootComesOfIt) {
    fake.put("/root", GroupAttribute());
    EXPECT_EQ(kFailed, toldByFile(freshFile("ops", "1")));
    EXPECT_NE(nullptr, renderRuntime());
    fake.onCall("cookLocation", [] { throw std::runtime_error("fault"); });
    EXPECT_EQ(thrown("fault"), toldByFile(freshFile("ops", "2")));
    EXPECT_NE(nullptr, renderRuntime());
}

TEST_F(ConcurrentRoot, KeepsTheRuntimePublishedWhenTheUsualWayFollows) {
    ASSERT_TRUE(openFile(freshFile("ops", "1")));
    const auto published = renderRuntime();
    ASSERT_TRUE(published);
    ::unsetenv(kConcurrent);
    ASSERT_TRUE(openFile(freshFile("ops", "2")));
    ASSERT_TRUE(openTree());
    EXPECT_EQ(published, renderRuntime());
}

TEST_F(ConcurrentRoot, KeepsOnlyTheRuntimeAndTheClientOfWhatItMade) {
    ASSERT_TRUE(openFile(freshFile("ops")));
    EXPECT_THAT(fake.live(), ElementsAre("c1", "r1"));
}

TEST_F(ConcurrentRoot, WithoutARuntimeIsNullWithALogAndNothingElse) {
    ASSERT_TRUE(openFile(freshFile("ops", "1")));
    fake.giveNullFrom("createRuntime");
    EXPECT_EQ("", toldByFile(freshFile("ops", "2")));
    EXPECT_THAT(logs.take(),
                ElementsAre("ScenegraphIteratorHost error "
                            "src/Utils/OvScenegraphIteratorHost/RootCreation.cpp: "
                            "Runtime could not be loaded."));
    EXPECT_EQ(nullptr, renderRuntime());
}

TEST_F(ConcurrentRoot, FailsWhenTheRuntimeGivesNoTransactionOrNoClient) {
    for (const char* const entry : {"createTransaction", "createClient"}) {
        fake.giveNullFrom(entry);
        EXPECT_EQ(kFailed, toldByFile(freshFile("ops", entry))) << entry;
        EXPECT_THAT(logs.take(), ElementsAre(kFailedLog)) << entry;
        fake.behave();
    }
}

TEST_F(ConcurrentRoot, HandsAnOpThatCouldNotBeBuiltToTheClientAllTheSame) {
    EXPECT_TRUE(openFile(freshFile("no tree", "1")));
    EXPECT_THAT(fake.take("setClientOp"), ElementsAre("setClientOp t1 c1 o1"));
    fake.giveNullFrom("deserializeOps");
    EXPECT_TRUE(openFile(freshFile("ops", "2")));
    EXPECT_THAT(fake.take("setClientOp"), ElementsAre("setClientOp t2 c2 null"));
}

TEST_F(ConcurrentRoot, ReadsAMissingFileAsAnEmptyOneAndSaysNothingAboutIt) {
    EXPECT_TRUE(openFile(freshName()));
    EXPECT_THAT(fake.pieces(), ElementsAre(""));
    fake.put("/root", GroupAttribute());
    EXPECT_EQ(kFailed, toldByFile(freshName()));
    EXPECT_THAT(logs.take(), ElementsAre(kFailedLog));
}

TEST_F(ConcurrentRoot, CatchesAnExceptionAndTellsItBeforeTheFailure) {
    for (const char* const entry : {"createRuntime",
                                    "createTransaction",
                                    "deserializeOps",
                                    "createClient",
                                    "setClientOp",
                                    "commit",
                                    "cookLocation"}) {
        fake.throwIn(entry);
        EXPECT_EQ(thrown("fault of " + std::string(entry)), toldByFile(freshFile("ops", entry)));
        EXPECT_THAT(logs.take(), ElementsAre(kFailedLog)) << entry;
        fake.behave();
    }
}

TEST_F(ConcurrentRoot, LetsAnExceptionOfAnotherTypePass) {
    fake.onCall("commit", [] { throw 42; });
    EXPECT_THROW(table.sgCreateRootFromFile(freshFile("ops").c_str()), int);
}

TEST_F(ConcurrentRoot, IsChosenAnewOnEachCall) {
    ::unsetenv(kConcurrent);
    EXPECT_TRUE(openFile(freshFile("ops", "1")));
    EXPECT_EQ(nullptr, renderRuntime());
    ::setenv(kConcurrent, "1", 1);
    EXPECT_TRUE(openFile(freshFile("ops", "2")));
    EXPECT_NE(nullptr, renderRuntime());
}

TEST_F(ConcurrentRoot, OfVersionTwoIsTheSame) {
    iterators.root(ovtest::iteratorTable2().sgCreateRootFromFile(freshFile("ops").c_str()));
    EXPECT_NE(nullptr, renderRuntime());
}
