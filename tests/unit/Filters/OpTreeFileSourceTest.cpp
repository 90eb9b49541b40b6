// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/OpTreeFileSource.h>
#include <SylvarPlatform/SylvarServices.h>

#include "Filters/FileStream.h"
#include "support/OrdinaryUser.h"
#include "support/RuntimeTest.h"

#include <stdexcept>
#include <unistd.h>

#include <sys/stat.h>

using namespace SYLVAR;
using Sylvar3::OvSylvarServicesHost::v1::Sylvar;
using testing::ElementsAre;

namespace {

class OpTreeFile : public ovtest::RuntimeTest {
protected:
    std::shared_ptr<SylvarRuntime::Op> opOf(const std::string& filename) {
        return OpTreeFileSource(filename).getOp(transaction);
    }

    const std::shared_ptr<SylvarRuntime> runtime = Sylvar().createRuntime();
    const std::shared_ptr<SylvarRuntime::Transaction> transaction = runtime->createTransaction();
};

std::string thrownBy(const std::function<void()>& action) {
    try {
        action();
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return "nothing";
}

}  // namespace

TEST_F(OpTreeFile, HashesItsNameByteByByteWithSignedBytes) {
    struct Row {
        std::string name;
        std::uint64_t hash;
    };
    const Row rows[] = {{"", 0},
                        {"a", 0x3d38188654ef1dbf},
                        {"/a/b.optree", 0x0641474722a33587},
                        {"scene.optree", 0x41e4961cbe569833},
                        {"\xe9", 0xb2743b6c937200b8},
                        {std::string("\xff\x80\x7f\0x", 5), 0xfc0c94e2ba3be369}};
    for (const Row& row : rows) {
        EXPECT_EQ(row.hash, OpTreeFileSource(row.name).hash) << row.name;
    }
}

TEST_F(OpTreeFile, HashesTheNameAndNeverWhatTheFileHolds) {
    const std::string name = freshFile("ops one");
    const std::uint64_t before = OpTreeFileSource(name).hash;
    std::ofstream(name) << "ops two";
    EXPECT_EQ(before, OpTreeFileSource(name).hash);
}

TEST_F(OpTreeFile, IsNotValidWithoutAName) {
    std::string message = "before";
    EXPECT_FALSE(OpTreeFileSource("").isValid(&message));
    EXPECT_EQ("Empty filename provided.", message);
}

TEST_F(OpTreeFile, IsNotValidWhenItDoesNotExist) {
    const std::string name = freshName();
    std::string message = "before";
    EXPECT_FALSE(OpTreeFileSource(name).isValid(&message));
    EXPECT_EQ("File \"" + name + "\" does not exist.", message);
}

TEST_F(OpTreeFile, DoesNotExistWhenItsStatusCannotBeRead) {
    const std::string file = freshFile("ops");
    const std::string link = freshName("_link");
    ASSERT_EQ(0, ::symlink((file + "_gone").c_str(), link.c_str()));
    for (const std::string& name : {file + "/below", link, std::string(10000, 'x')}) {
        std::string message;
        EXPECT_FALSE(OpTreeFileSource(name).isValid(&message));
        EXPECT_EQ("File \"" + name + "\" does not exist.", message);
    }
}

TEST_F(OpTreeFile, LeavesTheMessageAloneWhenItIsValid) {
    std::string message = "before";
    EXPECT_TRUE(OpTreeFileSource(freshFile("anything")).isValid(&message));
    EXPECT_EQ("before", message);
}

TEST_F(OpTreeFile, NeedsNoPlaceForTheMessage) {
    EXPECT_FALSE(OpTreeFileSource("").isValid(nullptr));
    EXPECT_FALSE(OpTreeFileSource(freshName()).isValid(nullptr));
    EXPECT_TRUE(OpTreeFileSource(freshFile("")).isValid(nullptr));
}

TEST_F(OpTreeFile, IsValidAsADirectory) {
    EXPECT_TRUE(OpTreeFileSource(OV_TEST_OUTPUT_DIR).isValid(nullptr));
}

TEST_F(OpTreeFile, IsValidWhenItCannotBeRead) {
    const std::string name = freshFile("ops");
    ::chmod(name.c_str(), 0);
    EXPECT_TRUE(OpTreeFileSource(name).isValid(nullptr));
}

TEST_F(OpTreeFile, TakesItsNameAsItIs) {
    for (const char* const name : {"~", "$HOME", "~/", "./../$HOME", "A B"}) {
        std::string message;
        const OpTreeFileSource source(name);
        EXPECT_EQ(name, source.filename);
        EXPECT_EQ(name, source.describe());
        EXPECT_FALSE(source.isValid(&message)) << name;
        EXPECT_EQ("File \"" + std::string(name) + "\" does not exist.", message);
    }
}

TEST_F(OpTreeFile, IsTestedBeforeItIsOpenedAndNotAtCreation) {
    const std::string name = freshName();
    const OpTreeFileSource source(name);
    EXPECT_FALSE(source.isValid(nullptr));
    freshFile("ops");
    EXPECT_TRUE(source.isValid(nullptr));
}

TEST_F(OpTreeFile, GivesNoOpAndNoMessageWithoutAName) {
    fake.take();
    testing::internal::CaptureStderr();
    EXPECT_EQ(nullptr, opOf(""));
    EXPECT_EQ("", testing::internal::GetCapturedStderr());
    EXPECT_THAT(fake.take(), ElementsAre());
    EXPECT_THAT(logs.take(), ElementsAre());
}

TEST_F(OpTreeFile, ThrowsWhenItIsMissing) {
    const std::string name = freshName();
    EXPECT_EQ("Error opening file: " + name, thrownBy([&] { opOf(name); }));
    EXPECT_THAT(fake.take("deserializeOps"), ElementsAre());
}

TEST_F(OpTreeFile, ThrowsWhenItCannotBeOpened) {
    const std::string name = freshFile("ops");
    ::chmod(name.c_str(), 0);
    const ovtest::OrdinaryUser ordinary;
    EXPECT_EQ("Error opening file: " + name, thrownBy([&] { opOf(name); }));
}

TEST_F(OpTreeFile, IsReadByTheRuntimeInOneTransaction) {
    const auto op = opOf(freshFile("ops of a tree"));
    ASSERT_TRUE(op);
    EXPECT_LE(0, op->id);
    EXPECT_THAT(fake.take(),
                ElementsAre("createRuntime ", "createTransaction r1", "deserializeOps t1"));
}

TEST_F(OpTreeFile, GivesAnOpOfANegativeIdWhenItHoldsNoOps) {
    const auto op = opOf(freshFile("anything else"));
    ASSERT_TRUE(op);
    EXPECT_GT(0, op->id);
    EXPECT_THAT(logs.take(), ElementsAre());
}

TEST_F(OpTreeFile, IsReadInThePiecesThatTheRuntimeAsksForUpToAShortOne) {
    opOf(freshFile(std::string("ops\r\n\0\xff", 7) + std::string("\r1234567", 8)));
    EXPECT_THAT(fake.pieces(), ElementsAre(std::string("ops\r\n\0\xff", 7), "\r123456", "7"));
}

TEST_F(OpTreeFile, EndsWithAnEmptyPieceWhenItsSizeIsAMultipleOfAPiece) {
    opOf(freshFile("ops1234"));
    EXPECT_THAT(fake.pieces(), ElementsAre("ops1234", ""));
}

TEST_F(OpTreeFile, DeliversNothingWhenItIsEmptyOrADirectory) {
    EXPECT_GT(0, opOf(freshFile(""))->id);
    EXPECT_THAT(fake.pieces(), ElementsAre(""));
    EXPECT_GT(0, opOf(OV_TEST_OUTPUT_DIR)->id);
    EXPECT_THAT(fake.pieces(), ElementsAre(""));
}

TEST_F(OpTreeFile, GoesOnDeliveringNothingBehindItsEnd) {
    std::ifstream file = openFile(freshFile("abc"));
    char buffer[8];
    EXPECT_EQ(2, readFromFile(&file, buffer, 2));
    EXPECT_EQ(1, readFromFile(&file, buffer, 8));
    EXPECT_EQ(0, readFromFile(&file, buffer, 8));
}

TEST_F(OpTreeFile, BuildsNewOpsEachTime) {
    const OpTreeFileSource source(freshFile("ops"));
    EXPECT_NE(source.getOp(transaction), source.getOp(transaction));
    EXPECT_THAT(fake.take("deserializeOps"), ElementsAre("deserializeOps t1", "deserializeOps t1"));
}

TEST_F(OpTreeFile, LetsThroughWhatTheRuntimeThrows) {
    fake.throwIn("deserializeOps");
    const std::string name = freshFile("ops");
    EXPECT_EQ("fault of deserializeOps", thrownBy([&] { opOf(name); }));
}
