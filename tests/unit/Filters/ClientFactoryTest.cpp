// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/ClientFactory.h>
#include <SylvarPlatform/SylvarServices.h>

#include "support/RuntimeTest.h"
#include "support/SuiteScope.h"

#include <limits>

using namespace SYLVAR;
using testing::ElementsAre;

namespace {

using ClientFactory = ovtest::RuntimeTest;

}  // namespace

TEST_F(ClientFactory, MakesACommittedClientInOneOrder) {
    const auto client = ClientCreateWithOpTree(freshSource());
    ASSERT_TRUE(client);
    const Names calls = fake.take();
    ASSERT_EQ(10U, calls.size());
    EXPECT_EQ("createRuntime ", calls[0]);
    EXPECT_EQ("createTransaction r1", calls[1]);
    EXPECT_EQ("createOp t1", calls[2]);
    EXPECT_THAT(calls[3], testing::StartsWith("setOpArgs t1 o1 'fresh"));
    EXPECT_EQ("setOpInputs t1 o1 <-", calls[4]);
    EXPECT_EQ("createClient t1", calls[5]);
    EXPECT_EQ("setClientOp t1 c1 o1", calls[6]);
    EXPECT_EQ("commit r1 t1", calls[7]);
    EXPECT_THAT((Names{calls[8], calls[9]}),
                testing::UnorderedElementsAre("release o1", "release t1"));
    EXPECT_THAT(logs.take(), ElementsAre());
}

TEST_F(ClientFactory, MakesAClientFromAFile) {
    const auto client = ClientCreateWithOpTree(OpTreeSource::createFromFile(freshFile("ops")));
    ASSERT_TRUE(client);
    EXPECT_THAT(fake.take(), testing::IsSupersetOf({"deserializeOps t1", "setClientOp t1 c1 o1"}));
}

TEST_F(ClientFactory, CooksNothing) {
    fake.at("/root");
    const auto client = ClientCreateWithOpTree(freshSource());
    const Names calls = fake.take();
    EXPECT_THAT(calls, testing::Each(testing::Not(testing::HasSubstr("Location"))));
    EXPECT_TRUE(client->cookLocation("/root").doesLocationExist());
}

TEST_F(ClientFactory, KeepsTheClientAndItsRuntimeAlone) {
    ClientCreateWithOpTree(freshSource());
    EXPECT_THAT(fake.live(), ElementsAre("c1", "r1"));
}

TEST_F(ClientFactory, GivesAClientOfItsOwnRuntimeToEachWhoHandsNoneBack) {
    const OpTreeSource source = freshSource();
    const auto one = ClientCreateWithOpTree(source);
    const auto two = ClientCreateWithOpTree(source);
    EXPECT_NE(one, two);
    EXPECT_NE(one->getRuntime(), two->getRuntime());
    EXPECT_THAT(fake.live(), ElementsAre("c1", "c2", "r1", "r2"));
}

TEST_F(ClientFactory, GivesAClientThatWasHandedBackAgainWithoutACallOfTheRuntime) {
    const GroupAttribute tree = freshTree();
    const auto made = ClientCreateWithOpTree(OpTreeSource::createFromGroupAttribute(tree));
    fake.take();
    ClientInvalidate(made);
    EXPECT_EQ(made, ClientCreateWithOpTree(OpTreeSource::createFromGroupAttribute(tree)));
    EXPECT_THAT(fake.take(), ElementsAre());
}

TEST_F(ClientFactory, GivesItAgainAndAgain) {
    const OpTreeSource source = freshSource();
    const auto made = ClientCreateWithOpTree(source);
    for (int round = 0; round < 5; ++round) {
        ClientInvalidate(made);
        EXPECT_EQ(made, ClientCreateWithOpTree(source));
        EXPECT_NE(made, ClientCreateWithOpTree(source));
    }
    EXPECT_EQ(6U, fake.take("createRuntime").size());
}

TEST_F(ClientFactory, GivesItOnceWhenItWasHandedBackTwice) {
    const OpTreeSource source = freshSource();
    const auto made = ClientCreateWithOpTree(source);
    ClientInvalidate(made);
    ClientInvalidate(made);
    EXPECT_EQ(made, ClientCreateWithOpTree(source));
    EXPECT_NE(made, ClientCreateWithOpTree(source));
}

TEST_F(ClientFactory, GivesItOnceWhenItWasHandedBackTwiceWithACreationInBetween) {
    const OpTreeSource source = freshSource();
    const auto made = ClientCreateWithOpTree(source);
    ClientInvalidate(made);
    ClientCreateWithOpTree(freshSource());
    ClientInvalidate(made);
    EXPECT_EQ(made, ClientCreateWithOpTree(source));
    EXPECT_NE(made, ClientCreateWithOpTree(source));
}

TEST_F(ClientFactory, GivesTheOneThatWasHandedBackLastFirst) {
    const OpTreeSource source = freshSource();
    const auto one = ClientCreateWithOpTree(source);
    const auto two = ClientCreateWithOpTree(source);
    const auto three = ClientCreateWithOpTree(source);
    ClientInvalidate(two);
    ClientInvalidate(three);
    ClientInvalidate(one);
    EXPECT_EQ(one, ClientCreateWithOpTree(source));
    EXPECT_EQ(three, ClientCreateWithOpTree(source));
    EXPECT_EQ(two, ClientCreateWithOpTree(source));
}

TEST_F(ClientFactory, GivesAClientToItsOwnSourceAlone) {
    const OpTreeSource source = freshSource();
    const auto made = ClientCreateWithOpTree(source);
    ClientInvalidate(made);
    EXPECT_NE(made, ClientCreateWithOpTree(freshSource()));
    EXPECT_EQ(made, ClientCreateWithOpTree(source));
}

TEST_F(ClientFactory, TakesAHandBackInAtTheNextCreationWhicheverItsSource) {
    const OpTreeSource source = freshSource();
    const auto made = ClientCreateWithOpTree(source);
    ClientInvalidate(made);
    EXPECT_EQ(nullptr, ClientCreateWithOpTree(OpTreeSource::createFromFile("")));
    EXPECT_EQ(made, ClientCreateWithOpTree(source));
}

TEST_F(ClientFactory, DoesNothingAboutAClientThatItNeverMade) {
    const auto runtime = Sylvar3::OvSylvarServicesHost::v1::Sylvar().createRuntime();
    const auto transaction = runtime->createTransaction();
    const auto foreign = transaction->createClient();
    ClientInvalidate(foreign);
    ClientInvalidate(nullptr);
    const OpTreeSource source = freshSource();
    EXPECT_NE(foreign, ClientCreateWithOpTree(source));
    EXPECT_NE(foreign, ClientCreateWithOpTree(source));
    EXPECT_THAT(logs.take(), ElementsAre());
    EXPECT_EQ(1, foreign.use_count());
}

TEST_F(ClientFactory, LetsGoOfAClientThatItNeverMade) {
    {
        const auto runtime = Sylvar3::OvSylvarServicesHost::v1::Sylvar().createRuntime();
        ClientInvalidate(runtime->createTransaction()->createClient());
    }
    EXPECT_THAT(fake.live(), ElementsAre("c1", "r1"));
    ClientCreateWithOpTree(OpTreeSource::createFromFile(""));
    EXPECT_THAT(fake.live(), ElementsAre());
}

TEST_F(ClientFactory, GivesTheClientOfAFileThatHasVanishedSinceWhileOneIsIdle) {
    const std::string name = freshFile("ops");
    const OpTreeSource source = OpTreeSource::createFromFile(name);
    const auto made = ClientCreateWithOpTree(source);
    ClientInvalidate(made);
    std::remove(name.c_str());
    EXPECT_EQ(made, ClientCreateWithOpTree(source));
    EXPECT_THAT(logs.take(), ElementsAre());
    EXPECT_EQ(nullptr, ClientCreateWithOpTree(source));
    EXPECT_THAT(logs.take(),
                ElementsAre("ClientFactory error src/Filters/ClientFactory/ClientFactory.cpp: "
                            "Invalid Op tree source: File \"" +
                            name + "\" does not exist."));
}

TEST_F(ClientFactory, DoesNotNoticeThatAFileWasEdited) {
    const std::string name = freshFile("ops");
    const OpTreeSource source = OpTreeSource::createFromFile(name);
    const auto made = ClientCreateWithOpTree(source);
    ClientInvalidate(made);
    freshFile("no longer a tree");
    EXPECT_EQ(made, ClientCreateWithOpTree(source));
}

TEST_F(ClientFactory, SharesIdleClientsAmongSourcesOfEqualHashesAndDifferentKinds) {
    const std::string name = freshFile("ops");
    const OpTreeSource file = OpTreeSource::createFromFile(name);
    static std::uint64_t hash;
    hash = file.source()->hash;
    OvAttributeSuite suite = *OvGetAttributeSuite();
    suite.getHash = [](OvAttributeStruct*) { return OvAttributeHash{{hash, 1}}; };
    const GroupAttribute tree = freshTree();
    const ovtest::SuiteScope scope(suite);
    const OpTreeSource group = OpTreeSource::createFromGroupAttribute(tree);
    const auto made = ClientCreateWithOpTree(group);
    ClientInvalidate(made);
    EXPECT_EQ(made, ClientCreateWithOpTree(file));
}

TEST_F(ClientFactory, NeverLetsAClientGoHoweverManyAreHandedBack) {
    const OpTreeSource source = freshSource();
    std::vector<std::shared_ptr<SylvarRuntime::Client>> made;
    for (int i = 0; i < 200; ++i) {
        made.push_back(ClientCreateWithOpTree(source));
    }
    for (const auto& client : made) {
        ClientInvalidate(client);
    }
    ClientCreateWithOpTree(freshSource());
    const Names calls = fake.take("release");
    EXPECT_THAT(calls, testing::Each(testing::Not(testing::HasSubstr("release c"))));
    EXPECT_THAT(calls, testing::Each(testing::Not(testing::HasSubstr("release r"))));
    made.clear();
    EXPECT_EQ(402U, fake.live().size());
}
