// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/ClientFactory.h>
#include <OvSylvarProducers/ThreadLocalClient.h>

#include "support/HeardRecords.h"
#include "support/RuntimeTest.h"
#include "support/Threads.h"

#include <cstdio>
#include <future>
#include <set>
#include <thread>

using namespace SYLVAR;
using ovtest::onThreads;

namespace {

using ClientPtr = std::shared_ptr<SylvarRuntime::Client>;
using ClientThreads = ovtest::RuntimeTest;

constexpr int kThreads = 8;

}  // namespace

TEST_F(ClientThreads, GetAClientEachThroughOneObjectAndKeepIt) {
    ThreadLocalClient local(freshSource());
    std::vector<ClientPtr> clients(kThreads);
    ovtest::Barrier allHaveOne(kThreads);
    onThreads(kThreads, [&](int i) {
        ClientPtr& mine = clients[static_cast<std::size_t>(i)];
        mine = local.getClient();
        allHaveOne.wait();
        for (int round = 0; round < 50; ++round) {
            EXPECT_EQ(mine, local.getClient());
        }
    });
    EXPECT_EQ(kThreads, static_cast<int>(std::set(clients.begin(), clients.end()).size()));
    EXPECT_EQ(0U, std::set(clients.begin(), clients.end()).count(nullptr));
}

TEST_F(ClientThreads, GetTheClientsOfThoseBeforeThem) {
    ThreadLocalClient local(freshSource());
    ovtest::Barrier allHaveOne(kThreads);
    for (int generation = 0; generation < 5; ++generation) {
        onThreads(kThreads, [&](int) {
            EXPECT_TRUE(local.getClient());
            allHaveOne.wait();
        });
    }
    EXPECT_EQ(static_cast<std::size_t>(kThreads), fake.take("createRuntime").size());
}

TEST_F(ClientThreads, MakeObjectsForOneSourceAtOnceAndShareTheirSlot) {
    const GroupAttribute tree = freshTree();
    onThreads(kThreads, [&](int) {
        ThreadLocalClient one(OpTreeSource::createFromGroupAttribute(tree));
        ThreadLocalClient two(OpTreeSource::createFromGroupAttribute(tree));
        EXPECT_EQ(one.getClient(), two.getClient());
        EXPECT_EQ(one.getClient(), two.replicate()->getClient());
    });
}

TEST_F(ClientThreads, NeverHoldOneClientAtTheSameTime) {
    const OpTreeSource source = freshSource();
    std::mutex mutex;
    std::set<ClientPtr> held;
    onThreads(kThreads, [&](int) {
        for (int round = 0; round < 50; ++round) {
            const ClientPtr client = ClientCreateWithOpTree(source);
            {
                const std::lock_guard<std::mutex> lock(mutex);
                EXPECT_TRUE(held.insert(client).second);
            }
            {
                const std::lock_guard<std::mutex> lock(mutex);
                held.erase(client);
            }
            ClientInvalidate(client);
        }
    });
    EXPECT_GE(static_cast<std::size_t>(kThreads), fake.take("createRuntime").size());
}

TEST_F(ClientThreads, HandBackWhileACreationIsStuck) {
    const OpTreeSource source = freshSource();
    const ClientPtr made = ClientCreateWithOpTree(source);
    std::promise<void> isStuck;
    std::promise<void> goOn;
    fake.onCall("createRuntime", [&] {
        isStuck.set_value();
        goOn.get_future().wait();
    });
    std::thread creator([] { ClientCreateWithOpTree(freshSource()); });
    isStuck.get_future().wait();
    std::thread([&] { ClientInvalidate(made); }).join();  // returns, though the other is stuck
    goOn.set_value();
    creator.join();
    EXPECT_EQ(made, ClientCreateWithOpTree(source));
}

TEST_F(ClientThreads, EndWhileACreationIsStuck) {
    ThreadLocalClient local(freshSource());
    std::promise<void> hasClient;
    std::promise<void> mayEnd;
    ClientPtr client;
    std::thread ending([&] {
        client = local.getClient();
        hasClient.set_value();
        mayEnd.get_future().wait();
    });
    hasClient.get_future().wait();
    std::promise<void> isStuck;
    std::promise<void> goOn;
    fake.onCall("createRuntime", [&] {
        isStuck.set_value();
        goOn.get_future().wait();
    });
    std::thread creator([] { ClientCreateWithOpTree(freshSource()); });
    isStuck.get_future().wait();
    mayEnd.set_value();
    ending.join();  // though the other is stuck
    goOn.set_value();
    creator.join();
    std::thread([&] { EXPECT_EQ(client, local.getClient()); }).join();
}

TEST_F(ClientThreads, MakeOneClientAtATime) {
    std::mutex mutex;
    int within = 0;
    int most = 0;
    fake.onCall("createRuntime", [&] {
        const std::lock_guard<std::mutex> lock(mutex);
        most = std::max(most, ++within);
    });
    fake.onCall("commit", [&] {
        const std::lock_guard<std::mutex> lock(mutex);
        --within;
    });
    const OpTreeSource source = freshSource();
    onThreads(kThreads, [&](int) {
        for (int round = 0; round < 10; ++round) {
            EXPECT_TRUE(ClientCreateWithOpTree(source));
        }
    });
    EXPECT_EQ(1, most);
}

TEST_F(ClientThreads, UseOneObjectOfASourceThatIsNotValid) {
    ThreadLocalClient local(OpTreeSource::createFromFile(""));
    EXPECT_EQ(1U, logs.take().size());
    onThreads(kThreads, [&](int) { EXPECT_EQ(nullptr, local.getClient()); });
    EXPECT_TRUE(logs.take().empty());
}

TEST_F(ClientThreads, HandBackTheSameClientsAtOnce) {
    const OpTreeSource source = freshSource();
    const ClientPtr one = ClientCreateWithOpTree(source);
    const ClientPtr two = ClientCreateWithOpTree(source);
    onThreads(kThreads, [&](int i) {
        for (int round = 0; round < 50; ++round) {
            ClientInvalidate(i % 2 == 0 ? one : two);
        }
    });
    const std::set<ClientPtr> again{ClientCreateWithOpTree(source), ClientCreateWithOpTree(source)};
    EXPECT_EQ((std::set<ClientPtr>{one, two}), again);
    EXPECT_EQ(0U, again.count(ClientCreateWithOpTree(source)));
}

TEST_F(ClientThreads, WaitForTheAnswersAboutOneClientBeforeTheNextIsMade) {
    std::mutex mutex;
    int within = 0;
    int most = 0;
    int answers = 0;
    fake.onCall("createRuntime", [&] {
        const std::lock_guard<std::mutex> lock(mutex);
        most = std::max(most, ++within);
    });
    fake.onCall("answer", [&] {
        std::this_thread::yield();
        const std::lock_guard<std::mutex> lock(mutex);
        within -= ++answers % 2 == 0 ? 1 : 0;
    });
    fake.answerOnAnotherThread();
    fake.answer("getAnonymousOpTree", 0, "1");
    fake.answer("getAnonymousOpRegistry", 0, "2");
    const ovtest::HeardRecords heard;
    const OpTreeSource source = freshSource();
    onThreads(kThreads, [&](int) {
        for (int round = 0; round < 10; ++round) {
            EXPECT_TRUE(ClientCreateWithOpTree(source));
        }
    });
    EXPECT_EQ(1, most);
    EXPECT_EQ(std::size_t{2} * kThreads * 10, heard.records.size());
}
