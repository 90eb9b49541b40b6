// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/ClientFactory.h>

#include "support/HeardRecords.h"
#include "support/RuntimeTest.h"

#include <stdexcept>

using namespace SYLVAR;
using namespace Sylvar3::internal::OvAttribute;
using testing::ElementsAre;

namespace {

class ClientFactoryFailure : public ovtest::RuntimeTest {
protected:
    static std::string toldAs(const std::string& text) {
        return "ClientFactory error src/Filters/ClientFactory/ClientFactory.cpp: " + text;
    }

    /// After the fault is gone the source is as good as new, and nothing is left of the attempt.
    void expectNothingKeptOf(const OpTreeSource& source) {
        EXPECT_THAT(fake.live(), ElementsAre());
        fake.behave();
        EXPECT_TRUE(ClientCreateWithOpTree(source));
        EXPECT_EQ(2U, fake.live().size()) << "one client, one runtime";
    }
};

/// Takes no record.
class FaultyAnalytics final : public Sylvar3::OvRenderServices::v1::AnalyticsManager {
public:
    FaultyAnalytics() { g_instance = this; }
    ~FaultyAnalytics() override { g_instance = nullptr; }

    void addRecord(const std::string& key, const Value& /*value*/) override {
        throw std::runtime_error("no place for " + key);
    }
};

std::string thrownFor(const OpTreeSource& source) {
    try {
        ClientCreateWithOpTree(source);
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return "nothing";
}

}  // namespace

TEST_F(ClientFactoryFailure, TellsOfASourceThatIsNotValidOnceForEachCall) {
    const OpTreeSource source = OpTreeSource::createFromGroupAttribute(GroupAttribute());
    const std::string line = toldAs("Invalid Op tree source: Invalid GroupAttribute provided.");
    EXPECT_EQ(nullptr, ClientCreateWithOpTree(source));
    EXPECT_THAT(logs.take(), ElementsAre(line));
    EXPECT_EQ(nullptr, ClientCreateWithOpTree(source));
    EXPECT_THAT(logs.take(), ElementsAre(line));
    EXPECT_EQ(nullptr, ClientCreateWithOpTree(OpTreeSource::createFromFile("")));
    EXPECT_THAT(logs.take(),
                ElementsAre(toldAs("Invalid Op tree source: Empty filename provided.")));
    EXPECT_THAT(fake.take(), ElementsAre()) << "no runtime was made";
}

TEST_F(ClientFactoryFailure, MakesAClientWhenAFileThatWasMissingIsThere) {
    const std::string name = freshName();
    const OpTreeSource source = OpTreeSource::createFromFile(name);
    EXPECT_EQ(nullptr, ClientCreateWithOpTree(source));
    EXPECT_EQ(name, freshFile("ops"));
    EXPECT_TRUE(ClientCreateWithOpTree(source));
}

TEST_F(ClientFactoryFailure, TellsThatThereIsNoRuntime) {
    fake.giveNullFrom("createRuntime");
    const OpTreeSource source = freshSource();
    EXPECT_EQ(nullptr, ClientCreateWithOpTree(source));
    EXPECT_THAT(logs.take(), ElementsAre(toldAs("Runtime could not be loaded.")));
    EXPECT_THAT(fake.take(), ElementsAre("createRuntime "));
    expectNothingKeptOf(source);
}

TEST_F(ClientFactoryFailure, TakesARuntimeWithoutATransactionOrAClientForNone) {
    for (const char* const operation : {"createTransaction", "createClient"}) {
        SCOPED_TRACE(operation);
        fake.behave();
        fake.giveNullFrom(operation);
        const Names before = fake.live();
        EXPECT_EQ(nullptr, ClientCreateWithOpTree(freshSource()));
        EXPECT_THAT(logs.take(), ElementsAre(toldAs("Runtime could not be loaded.")));
        EXPECT_EQ(before, fake.live());
    }
}

TEST_F(ClientFactoryFailure, TellsOfAFileThatHoldsNoOpTree) {
    const std::string name = freshFile("anything else");
    const OpTreeSource source = OpTreeSource::createFromFile(name);
    EXPECT_EQ(nullptr, ClientCreateWithOpTree(source));
    EXPECT_THAT(logs.take(), ElementsAre(toldAs("Could not parse OpTree from '" + name + "'.")));
    EXPECT_THAT(fake.take("createClient"), ElementsAre());
    EXPECT_EQ(name, freshFile("ops"));
    expectNothingKeptOf(source);
}

TEST_F(ClientFactoryFailure, TellsOfAGroupWhoseOpHasANegativeId) {
    fake.giveBadOps();
    const OpTreeSource source = freshSource();
    EXPECT_EQ(nullptr, ClientCreateWithOpTree(source));
    EXPECT_THAT(logs.take(), ElementsAre(toldAs("Could not parse OpTree from 'GroupAttribute'.")));
    expectNothingKeptOf(source);
}

TEST_F(ClientFactoryFailure, TakesAnOpThatIsNotThereForOneOfANegativeId) {
    const GroupAttribute rows[] = {GroupAttribute({{"a", IntAttribute(1)}}, false),
                                   GroupAttribute({}, false)};
    for (const GroupAttribute& tree : rows) {
        EXPECT_EQ(nullptr, ClientCreateWithOpTree(OpTreeSource::createFromGroupAttribute(tree)));
        EXPECT_THAT(logs.take(),
                    ElementsAre(toldAs("Could not parse OpTree from 'GroupAttribute'.")));
        EXPECT_THAT(fake.live(), ElementsAre());
    }
}

TEST_F(ClientFactoryFailure, LetsThroughThatAFileCannotBeOpened) {
    const std::string name = OV_TEST_OUTPUT_DIR "/vanishes";
    // Valid as long as it is asked, and gone when it is opened: the runtime's creation takes it.
    std::ofstream(name) << "ops";
    fake.onCall("createTransaction", [&] { std::remove(name.c_str()); });
    const OpTreeSource source = OpTreeSource::createFromFile(name);
    EXPECT_EQ("Error opening file: " + name, thrownFor(source));
    EXPECT_THAT(logs.take(), ElementsAre());
    fake.onCall("createTransaction", [] {});
    std::ofstream(name) << "ops";
    expectNothingKeptOf(source);
}

TEST_F(ClientFactoryFailure, LetsThroughWhatTheRuntimeThrowsAndKeepsNothing) {
    for (const char* const operation : {"createRuntime",
                                        "createTransaction",
                                        "createOp",
                                        "setOpArgs",
                                        "setOpInputs",
                                        "createClient",
                                        "setClientOp",
                                        "commit"}) {
        SCOPED_TRACE(operation);
        const OpTreeSource source = freshSource();
        const Names before = fake.live();
        fake.throwIn(operation);
        EXPECT_EQ("fault of " + std::string(operation), thrownFor(source));
        EXPECT_EQ(before, fake.live());
        fake.behave();
        EXPECT_TRUE(ClientCreateWithOpTree(source)) << "the lock was given back";
        EXPECT_THAT(logs.take(), ElementsAre());
    }
}

TEST_F(ClientFactoryFailure, LosesTheClientWhenAQueryThrows) {
    const ovtest::HeardRecords records;
    const OpTreeSource source = freshSource();
    fake.throwIn("queryRuntimeInfo");
    EXPECT_EQ("fault of queryRuntimeInfo", thrownFor(source));
    EXPECT_EQ(1U, fake.take("commit").size());
    EXPECT_THAT(fake.live(), ElementsAre());
    expectNothingKeptOf(source);
}

TEST_F(ClientFactoryFailure, LosesTheClientWhenARecordIsRefused) {
    const OpTreeSource source = freshSource();
    fake.answer("getAnonymousOpTree", 0, "1");
    fake.answer("getAnonymousOpRegistry", 0, "2");
    {
        const FaultyAnalytics analytics;
        EXPECT_EQ("no place for runtime.opTree", thrownFor(source));
    }
    EXPECT_EQ(1U, fake.take("queryRuntimeInfo").size()) << "the other is not asked";
    expectNothingKeptOf(source);
}

TEST_F(ClientFactoryFailure, EndsAClientBeforeItsRuntime) {
    const ovtest::HeardRecords records;
    fake.throwIn("queryRuntimeInfo");
    thrownFor(freshSource());
    const Names calls = fake.take("release");
    ASSERT_EQ(4U, calls.size());
    EXPECT_EQ("release c1", calls[2]);
    EXPECT_EQ("release r1", calls[3]);
}

TEST_F(ClientFactoryFailure, MakesNoTextWhenErrorsAreNotLogged) {
    OvLoggingHost::setLevel("ClientFactory", OvLoggingHost::LogLevel::Off);
    EXPECT_EQ(nullptr, ClientCreateWithOpTree(OpTreeSource::createFromFile("")));
    EXPECT_THAT(logs.take(), ElementsAre());
}

TEST_F(ClientFactoryFailure, TakesHandBacksInBeforeItFails) {
    const OpTreeSource source = freshSource();
    const auto made = ClientCreateWithOpTree(source);
    ClientInvalidate(made);
    fake.throwIn("createRuntime");
    thrownFor(freshSource());
    EXPECT_EQ(made, ClientCreateWithOpTree(source));
}
