// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/ClientFactory.h>
#include <OvSylvarProducers/ThreadLocalClient.h>

#include "support/RuntimeTest.h"

#include <cstddef>
#include <cstring>
#include <optional>
#include <stdexcept>
#include <thread>

using namespace SYLVAR;
using testing::ElementsAre;

namespace {

using ClientPtr = std::shared_ptr<SylvarRuntime::Client>;

class ThreadLocal : public ovtest::RuntimeTest {
protected:
    /// Its client on a thread that then ends.
    static ClientPtr onAThread(ThreadLocalClient& local) {
        ClientPtr client;
        std::thread([&] { client = local.getClient(); }).join();
        return client;
    }

    static std::string toldAs(const std::string& text) {
        return "ThreadLocalClient error src/Filters/ThreadLocalClient/ThreadLocalClient.cpp: "
               "Invalid Op tree source: " +
               text;
    }
};

}  // namespace

TEST_F(ThreadLocal, MakesNoClientBeforeOneIsWanted) {
    const ThreadLocalClient local(freshSource());
    EXPECT_THAT(fake.take(), ElementsAre());
}

TEST_F(ThreadLocal, GivesAThreadTheSameClientEveryTime) {
    ThreadLocalClient local(freshSource());
    const ClientPtr client = local.getClient();
    ASSERT_TRUE(client);
    EXPECT_EQ(client, local.getClient());
    EXPECT_EQ(client, local.getClient());
    EXPECT_EQ(1U, fake.take("createRuntime").size());
}

TEST_F(ThreadLocal, GivesEachThreadAClientOfItsOwn) {
    ThreadLocalClient local(freshSource());
    const ClientPtr mine = local.getClient();
    std::thread([&] {
        const ClientPtr other = local.getClient();
        EXPECT_TRUE(other);
        EXPECT_NE(mine, other);
        EXPECT_NE(mine->getRuntime(), other->getRuntime());
        EXPECT_EQ(other, local.getClient());
    }).join();
    EXPECT_EQ(mine, local.getClient());
}

TEST_F(ThreadLocal, GivesAThreadOneClientForEquivalentSources) {
    const GroupAttribute tree = freshTree();
    ThreadLocalClient one(OpTreeSource::createFromGroupAttribute(tree));
    ThreadLocalClient two(OpTreeSource::createFromGroupAttribute(tree));
    EXPECT_EQ(one.getClient(), two.getClient());
    ThreadLocalClient other(freshSource());
    EXPECT_NE(one.getClient(), other.getClient());
}

TEST_F(ThreadLocal, LetsAClientOutliveTheObjectThatItWasMadeThrough) {
    const OpTreeSource source = freshSource();
    std::optional<ThreadLocalClient> first(std::in_place, source);
    const ClientPtr client = first->getClient();
    fake.take();
    first.reset();
    EXPECT_THAT(fake.take(), ElementsAre());
    ThreadLocalClient second(source);
    EXPECT_EQ(client, second.getClient());
    EXPECT_THAT(fake.take(), ElementsAre());
}

TEST_F(ThreadLocal, HandsAClientBackWhenItsThreadEndsForTheNextThreadToHave) {
    ThreadLocalClient local(freshSource());
    const ClientPtr first = onAThread(local);
    ASSERT_TRUE(first);
    fake.take();
    EXPECT_EQ(first, onAThread(local));
    EXPECT_EQ(first, onAThread(local));
    EXPECT_THAT(fake.take(), ElementsAre());
}

TEST_F(ThreadLocal, HandsAClientBackThoughTheObjectIsGone) {
    const OpTreeSource source = freshSource();
    ClientPtr first;
    std::thread([&] { first = ThreadLocalClient(source).getClient(); }).join();
    EXPECT_EQ(first, ClientCreateWithOpTree(source));
}

TEST_F(ThreadLocal, KeepsTheReferenceOfAThreadThatHasEnded) {
    ThreadLocalClient local(freshSource());
    const ClientPtr client = onAThread(local);
    ClientCreateWithOpTree(OpTreeSource::createFromFile(""));  // drains what is handed back
    EXPECT_EQ(4, client.use_count()) << "ours, the thread's, and two of the factory's record";
}

TEST_F(ThreadLocal, TellsOfASourceThatIsNotValidWhenItIsMadeAndNeverAgain) {
    ThreadLocalClient local(OpTreeSource::createFromGroupAttribute(GroupAttribute()));
    EXPECT_THAT(logs.take(), ElementsAre(toldAs("Invalid GroupAttribute provided.")));
    EXPECT_EQ(nullptr, local.getClient());
    EXPECT_EQ(nullptr, local.getClient());
    EXPECT_EQ(nullptr, onAThread(local));
    EXPECT_THAT(logs.take(), ElementsAre());
    EXPECT_THAT(fake.take(), ElementsAre());
}

TEST_F(ThreadLocal, TriesAgainInTheNextObjectWhenTheSourceWasNotValid) {
    const std::string name = freshName();
    const OpTreeSource source = OpTreeSource::createFromFile(name);
    ThreadLocalClient before(source);
    EXPECT_THAT(logs.take(), ElementsAre(toldAs("File \"" + name + "\" does not exist.")));
    EXPECT_EQ(name, freshFile("ops"));
    ThreadLocalClient after(source);
    EXPECT_TRUE(after.getClient());
    EXPECT_EQ(nullptr, before.getClient()) << "for ever";
}

TEST_F(ThreadLocal, DoesNotLookAtASourceAgainThatWasValidOnce) {
    const std::string name = freshFile("ops");
    const OpTreeSource source = OpTreeSource::createFromFile(name);
    const ThreadLocalClient before(source);
    std::remove(name.c_str());
    ThreadLocalClient after(source);
    EXPECT_THAT(logs.take(), ElementsAre());
    EXPECT_EQ(nullptr, after.getClient());
    EXPECT_THAT(logs.take(),
                ElementsAre("ClientFactory error src/Filters/ClientFactory/ClientFactory.cpp: "
                            "Invalid Op tree source: File \"" +
                            name + "\" does not exist."));
}

TEST_F(ThreadLocal, RemembersThatThereWasNoClientUntilTheThreadEnds) {
    ThreadLocalClient local(freshSource());
    fake.giveNullFrom("createRuntime");
    EXPECT_EQ(nullptr, local.getClient());
    EXPECT_EQ(1U, logs.take().size());
    fake.behave();
    EXPECT_EQ(nullptr, local.getClient());
    EXPECT_THAT(logs.take(), ElementsAre());
    EXPECT_THAT(fake.take(), ElementsAre("createRuntime "));
    EXPECT_TRUE(onAThread(local)) << "another thread";
}

TEST_F(ThreadLocal, HandsAnEmptyClientBackWithoutHarm) {
    ThreadLocalClient local(freshSource());
    fake.giveNullFrom("createRuntime");
    EXPECT_EQ(nullptr, onAThread(local));
    fake.behave();
    EXPECT_TRUE(onAThread(local));
}

TEST_F(ThreadLocal, LeavesTheSlotAloneWhenTheFactoryThrows) {
    ThreadLocalClient local(freshSource());
    fake.throwIn("commit");
    EXPECT_THROW(local.getClient(), std::runtime_error);
    fake.behave();
    EXPECT_TRUE(local.getClient());
}

TEST_F(ThreadLocal, TellsNothingWhenErrorsAreNotLogged) {
    OvLoggingHost::setLevel("ThreadLocalClient", OvLoggingHost::LogLevel::Off);
    const ThreadLocalClient local(OpTreeSource::createFromFile(""));
    EXPECT_THAT(logs.take(), ElementsAre());
}

TEST_F(ThreadLocal, HasItsOneVirtualOperationBehindTheDestructor) {
    std::ptrdiff_t place = 0;
    auto getClient = &ThreadLocalClient::getClient;
    std::memcpy(&place, &getClient, sizeof place);
    EXPECT_EQ(static_cast<std::ptrdiff_t>(2 * sizeof(void*)), place - 1);
}

TEST_F(ThreadLocal, KnowsWhoMadeIt) {
    const ThreadLocalClient local(freshSource());
    EXPECT_TRUE(local.isOfThisThread());
    std::thread([&] {
        EXPECT_FALSE(local.isOfThisThread());
        EXPECT_TRUE(local.replicate()->isOfThisThread());
    }).join();
}

TEST_F(ThreadLocal, GivesTheSameClientsThroughAReplica) {
    ThreadLocalClient local(freshSource());
    const ClientPtr mine = local.getClient();
    EXPECT_EQ(mine, local.replicate()->getClient());
    std::thread([&] {
        const auto replica = local.replicate();
        const ClientPtr theirs = replica->getClient();
        EXPECT_NE(mine, theirs);
        EXPECT_EQ(theirs, local.getClient());
        EXPECT_EQ(theirs, replica->replicate()->getClient());
    }).join();
}

TEST_F(ThreadLocal, GivesClientsThroughAReplicaThatOutlivesIt) {
    auto* const local = new ThreadLocalClient(freshSource());
    const ClientPtr client = local->getClient();
    const auto replica = local->replicate();
    delete local;
    EXPECT_EQ(client, replica->getClient());
}

TEST_F(ThreadLocal, ReplicatesWithoutLookingAtTheSourceOrTelling) {
    const std::string name = freshName();
    const ThreadLocalClient invalid(OpTreeSource::createFromFile(name));
    EXPECT_EQ(1U, logs.take().size());
    EXPECT_EQ(name, freshFile("ops"));
    EXPECT_EQ(nullptr, invalid.replicate()->getClient());
    EXPECT_THAT(logs.take(), ElementsAre());
}
