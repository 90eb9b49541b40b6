// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/ClientFactory.h>

#include "support/HeardRecords.h"
#include "support/RuntimeTest.h"

#include <algorithm>
#include <atomic>
#include <csignal>
#include <pthread.h>
#include <thread>

using namespace SYLVAR;
using testing::ElementsAre;

namespace {

std::atomic<int> interruptions{0};

/// While it lives, SIGUSR1 interrupts whoever waits.
class Interruptible {
public:
    Interruptible() {
        struct sigaction action = {};
        action.sa_handler = [](int) { ++interruptions; };
        ::sigaction(SIGUSR1, &action, &former_);
    }
    ~Interruptible() { ::sigaction(SIGUSR1, &former_, nullptr); }
    Interruptible(const Interruptible&) = delete;
    Interruptible& operator=(const Interruptible&) = delete;

private:
    struct sigaction former_ = {};
};

void interruptOften(pthread_t whom) {
    for (int i = 1; i <= 100; ++i) {
        ::pthread_kill(whom, SIGUSR1);
        while (interruptions < i) {
            std::this_thread::yield();
        }
    }
}

constexpr const char* kTree = "getAnonymousOpTree";
constexpr const char* kRegistry = "getAnonymousOpRegistry";

class RuntimeAnalytics : public ovtest::RuntimeTest {
protected:
    /// The records of one new client.
    Names recordsOfANewClient() {
        ovtest::HeardRecords heard;
        EXPECT_TRUE(ClientCreateWithOpTree(freshSource()));
        return heard.records;
    }
};

}  // namespace

TEST_F(RuntimeAnalytics, MakeNoQueryWhenTheyAreOff) {
    EXPECT_TRUE(ClientCreateWithOpTree(freshSource()));
    EXPECT_THAT(fake.take("queryRuntimeInfo"), ElementsAre());
}

TEST_F(RuntimeAnalytics, RecordTheOpTreeAndThenTheOpRegistry) {
    fake.answer(kTree, 0, R"({"ops":[1,2.5,"x"]})");
    fake.answer(kRegistry, 0, "[true]");
    EXPECT_THAT(recordsOfANewClient(),
                ElementsAre(R"(runtime.opTree {"ops":[1,2.5,"x"]})", "runtime.opRegistry [true]"));
    EXPECT_THAT(fake.take("queryRuntimeInfo"),
                ElementsAre("queryRuntimeInfo r1 getAnonymousOpTree",
                            "queryRuntimeInfo r1 getAnonymousOpRegistry"));
}

TEST_F(RuntimeAnalytics, AskAfterTheCommit) {
    recordsOfANewClient();
    const Names calls = fake.take();
    const auto commit = std::find(calls.begin(), calls.end(), "commit r1 t1");
    const auto query =
        std::find(calls.begin(), calls.end(), "queryRuntimeInfo r1 getAnonymousOpTree");
    ASSERT_NE(calls.end(), query);
    EXPECT_LT(commit, query);
}

TEST_F(RuntimeAnalytics, AskNothingAboutAClientThatIsUsedAgain) {
    const OpTreeSource source = freshSource();
    ClientInvalidate(ClientCreateWithOpTree(source));
    fake.answer(kTree, 0, "1");
    ovtest::HeardRecords heard;
    EXPECT_TRUE(ClientCreateWithOpTree(source));
    EXPECT_THAT(heard.records, ElementsAre());
}

TEST_F(RuntimeAnalytics, RecordTheOneAnswerWhenTheOtherQueryIsRefused) {
    fake.answer(kTree, 3, "\"a refusal\"");
    fake.answer(kRegistry, 0, "2");
    EXPECT_THAT(recordsOfANewClient(), ElementsAre("runtime.opRegistry 2"));
    fake.answer(kTree, 0, "1");
    fake.answer(kRegistry, -1, "2");
    EXPECT_THAT(recordsOfANewClient(), ElementsAre("runtime.opTree 1"));
}

TEST_F(RuntimeAnalytics, RecordNothingForAnAnswerWithoutText) {
    fake.answer(kTree, 0, "");
    fake.answer(kRegistry, 0, nullptr);
    EXPECT_THAT(recordsOfANewClient(), ElementsAre());
}

TEST_F(RuntimeAnalytics, ReadJsonAsTheParserDoesByDefault) {
    struct Row {
        const char* answer;
        const char* record;
    };
    const Row rows[] = {{" \t\r\n{} \t\r\n", "{}"},
                        {"null", "null"},
                        {"{} x", "null"},
                        {"{", "null"},
                        {"  ", "null"},
                        {"no json", "null"},
                        {"[1,]", "null"},
                        {"// comment\n1", "null"},
                        {"NaN", "null"},
                        {"\xef\xbb\xbf{}", "null"},
                        {"\"\xc3\xa9\"", "\"\xc3\xa9\""}};
    for (const Row& row : rows) {
        fake.answer(kTree, 0, row.answer);
        EXPECT_THAT(recordsOfANewClient(), ElementsAre("runtime.opTree " + std::string(row.record)))
            << row.answer;
        EXPECT_THAT(logs.take(), ElementsAre());
    }
}

TEST_F(RuntimeAnalytics, WaitForAnAnswerOnAnotherThread) {
    fake.answerOnAnotherThread();
    fake.answer(kTree, 0, "1");
    fake.answer(kRegistry, 0, "2");
    EXPECT_THAT(recordsOfANewClient(), ElementsAre("runtime.opTree 1", "runtime.opRegistry 2"));
}

TEST_F(RuntimeAnalytics, LetACreatorHandBackAClientWhileItWaits) {
    const OpTreeSource source = freshSource();
    const auto made = ClientCreateWithOpTree(source);
    fake.onCall("queryRuntimeInfo", [&] { ClientInvalidate(made); });
    recordsOfANewClient();
    EXPECT_EQ(made, ClientCreateWithOpTree(source));
}

TEST_F(RuntimeAnalytics, GoOnWaitingAfterASignal) {
    const Interruptible scope;
    const pthread_t creator = ::pthread_self();
    fake.answerOnAnotherThread();
    fake.onCall("answer", [&] {
        interruptions = 0;
        interruptOften(creator);
    });
    fake.answer(kTree, 0, "1");
    EXPECT_THAT(recordsOfANewClient(), ElementsAre("runtime.opTree 1"));
}

TEST_F(RuntimeAnalytics, AreReadAnewForEachClient) {
    fake.answer(kTree, 0, "1");
    {
        const ovtest::HeardRecords first;
        ClientCreateWithOpTree(freshSource());
        EXPECT_THAT(first.records, ElementsAre("runtime.opTree 1"));
    }
    ClientCreateWithOpTree(freshSource());
    const ovtest::HeardRecords second;
    ClientCreateWithOpTree(freshSource());
    EXPECT_THAT(second.records, ElementsAre("runtime.opTree 1"));
}
