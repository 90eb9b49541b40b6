// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/AttributeFile.h>

#include "support/HeardLogs.h"
#include "support/OpTree.h"
#include "support/RuntimeWalk.h"
#include "support/StaticScene.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

using namespace ovtest;
using namespace Sylvar3::internal::OvAttribute;
using Sylvar3::OvSylvarServicesHost::v1::Sylvar;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

/// Bytes that are read a few at a time.
struct Stream {
    std::string bytes;
    std::size_t at = 0;

    static long read(void* stream, void* buffer, long size) {
        auto& self = *static_cast<Stream*>(stream);
        const std::size_t count =
            std::min<std::size_t>(static_cast<std::size_t>(size), self.bytes.size() - self.at);
        std::memcpy(buffer, self.bytes.data() + self.at, count);
        self.at += count;
        return static_cast<long>(count);
    }
};

std::string bytesOf(const Attribute& attribute, AttributeContent content, AttributeForm form) {
    std::string bytes;
    const std::string fault = writeAttribute(
        attribute, content, form, &bytes, [](void* stream, const void* piece, long size) {
            static_cast<std::string*>(stream)->append(static_cast<const char*>(piece),
                                                      static_cast<std::size_t>(size));
            return 1;
        });
    EXPECT_EQ("", fault);
    return bytes;
}

/// What comes of a stream: the op's id, and the scene that a client of it sees.
struct Read {
    explicit Read(std::string bytes) {
        const auto runtime = Sylvar().createRuntime();
        const auto transaction = runtime->createTransaction();
        Stream stream{std::move(bytes)};
        const auto op = transaction->deserializeOps(&stream, Stream::read);
        id = op ? op->id : -2;
        client = transaction->createClient();
        transaction->setClientOp(client, op);
        runtime->commit(transaction);
    }

    std::int32_t id;
    std::shared_ptr<SylvarRuntime::Client> client;
};

OpTree goodTree() {
    return OpTree()
        .op("s", "scene", Args().set("tree", StaticScene().at("/root/a").group()))
        .op("t", "scene", Args().set("tree", StaticScene().at("/root/b").group()))
        .op("m", "merge", GroupAttribute(), {"s", "t"});
}

}  // namespace

TEST(DeserializeOps, ReadsBothForms) {
    HeardLogs logs;
    for (const AttributeForm form : {AttributeForm::Binary, AttributeForm::Text}) {
        const Read read(bytesOf(goodTree().group(), AttributeContent::OpTree, form));
        EXPECT_GE(read.id, 0);
        EXPECT_EQ(3, countFrom(*read.client, "/root"));
    }
    EXPECT_THAT(logs.take(), IsEmpty());
}

TEST(DeserializeOps, ReturnsTheLastOpBesideOpsThatAreThereAlready) {
    const auto runtime = Sylvar().createRuntime();
    const auto transaction = runtime->createTransaction();
    const auto first = transaction->createOp();
    Stream stream{bytesOf(goodTree().group(), AttributeContent::OpTree, AttributeForm::Text)};
    const auto read = transaction->deserializeOps(&stream, Stream::read);
    const auto merged = transaction->createOp();
    transaction->setOpArgs(first, "scene", Args().set("tree", StaticScene().at("/root/c").group()));
    transaction->setOpArgs(merged, "merge", Attribute());
    transaction->setOpInputs(merged, {first, read});
    const auto client = transaction->createClient();
    transaction->setClientOp(client, merged);
    runtime->commit(transaction);
    EXPECT_EQ((std::vector<std::string>{"c", "a", "b"}), childrenOf(client->cookLocation("/root")));
}

TEST(DeserializeOps, GivesANegativeIdAndAMessageForABadStream) {
    const std::string text =
        bytesOf(goodTree().group(), AttributeContent::OpTree, AttributeForm::Text);
    const std::string binary =
        bytesOf(goodTree().group(), AttributeContent::OpTree, AttributeForm::Binary);
    for (const std::string& bytes :
         {std::string(),
          std::string("no op tree"),
          std::string(1000, '\0'),
          text.substr(0, text.size() / 2),
          binary.substr(0, binary.size() / 2),
          binary.substr(0, 8),
          bytesOf(StaticScene().at("/root/a").group(),
                  AttributeContent::StaticScene,
                  AttributeForm::Binary),
          bytesOf(goodTree().group(), AttributeContent::Attribute, AttributeForm::Text),
          bytesOf(GroupAttribute({}, false), AttributeContent::OpTree, AttributeForm::Text),
          bytesOf(IntAttribute(1), AttributeContent::OpTree, AttributeForm::Text)}) {
        HeardLogs logs;
        const Read read(bytes);
        EXPECT_LT(read.id, 0) << bytes;
        EXPECT_THAT(logs.take(),
                    ElementsAre(HasSubstr("SylvarRuntime error src/Platform/Embedded/Runtime/"
                                          "Transaction.cpp: A stream is no op tree: ")))
            << bytes;
        EXPECT_FALSE(read.client->cookLocation("/root").doesLocationExist());
    }
}

TEST(DeserializeOps, IsAnOpThatNothingChanges) {
    HeardLogs logs;
    const auto runtime = Sylvar().createRuntime();
    const auto transaction = runtime->createTransaction();
    Stream stream{"bad"};
    const auto bad = transaction->deserializeOps(&stream, Stream::read);
    transaction->setOpArgs(bad, "scene", Args().set("tree", StaticScene().at("/root").group()));
    transaction->setOpInputs(bad, {bad});
    const auto user = transaction->createOp();
    transaction->setOpInputs(user, {bad});
    const auto client = transaction->createClient();
    transaction->setClientOp(client, user);
    runtime->commit(transaction);
    EXPECT_FALSE(client->cookLocation("/root").doesLocationExist());
}

TEST(DeserializeOps, TakesAChildThatIsNoGroupForAnOpWithAnError) {
    HeardLogs logs;
    const GroupAttribute scene =
        Args().set("tree", StaticScene().at("/root/stands").group()).set("at", "/root");
    const GroupAttribute op({{"opType", StringAttribute("scene")}, {"opArgs", scene}}, false);
    const GroupAttribute both(
        {{"opType", StringAttribute("merge")},
         {"opInputs", StringAttribute(std::vector<std::string>{"bad", "good"})},
         {"opArgs", GroupAttribute(Args().set("attributes", "deep"))}},
        false);
    const GroupAttribute tree({{"bad", IntAttribute(7)}, {"good", op}, {"both", both}}, false);
    const Read read(bytesOf(tree, AttributeContent::OpTree, AttributeForm::Text));
    EXPECT_EQ(0, read.id < 0);
    EXPECT_TRUE(read.client->cookLocation("/root/stands").doesLocationExist());
    const char* const text = "op (op 1 of 3 \"bad\"), /root: the op \"bad\" is no group";
    EXPECT_EQ(text,
              read.client->cookLocation("/root")
                  .getAttrs()
                  .getChild<StringAttribute>("errorMessage")
                  .getValue(""));
    EXPECT_THAT(logs.take(), ElementsAre(HasSubstr(text)));
}

TEST(DeserializeOps, TakesPartsOfAnOpThatAreOfAnotherKindForMissing) {
    HeardLogs logs;
    const GroupAttribute op({{"opType", IntAttribute(1)},
                             {"opArgs", StringAttribute("none")},
                             {"opInputs", IntAttribute({1, 2, 3})}},
                            false);
    const Read read(bytesOf(
        GroupAttribute({{"op", op}}, false), AttributeContent::OpTree, AttributeForm::Binary));
    EXPECT_EQ(0, read.id);
    EXPECT_FALSE(read.client->cookLocation("/root").doesLocationExist());
}

TEST(DeserializeOps, WarnsOfAnInputThatNoOpIsNamed) {
    HeardLogs logs;
    OpTree tree = goodTree();
    tree.op("last", "merge", GroupAttribute(), {"m", "elsewhere"});
    const Read read(bytesOf(tree.group(), AttributeContent::OpTree, AttributeForm::Text));
    EXPECT_EQ(3, countFrom(*read.client, "/root"));
    EXPECT_THAT(logs.take(),
                ElementsAre(HasSubstr("merge (op 4 of 4 \"last\"): input 2 is not there")));
}
