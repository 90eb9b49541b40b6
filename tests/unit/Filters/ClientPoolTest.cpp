// SPDX-License-Identifier: Apache-2.0
#include "Filters/ClientFactory/ClientPool.h"

#include <SylvarPlatform/SylvarServices.h>

#include "support/RuntimeTest.h"

#include <limits>

using namespace SYLVAR;
using testing::ElementsAre;

namespace {

/// Clients that a pool alone holds; the fake tells which of them live.
class ClientPoolOfThree : public ovtest::RuntimeTest {
protected:
    ClientPoolOfThree() {
        for (int i = 0; i < 3; ++i) {
            const auto runtime = Sylvar3::OvSylvarServicesHost::v1::Sylvar().createRuntime();
            clients.push_back(runtime->createTransaction()->createClient());
            pool.add(source, runtime, clients.back());
        }
        fake.take();
    }

    void handBack(std::size_t i) {
        pool.handBack(clients[i]);
        clients[i].reset();
    }

    const OpTreeSource source = freshSource();
    std::vector<ClientPtr> clients;
    ClientPool pool;
};

}  // namespace

TEST_F(ClientPoolOfThree, HasRoomForAllByDefault) {
    EXPECT_EQ(std::numeric_limits<std::size_t>::max(), pool.maxClients);
    handBack(0);
    pool.evict();
    EXPECT_EQ(3U, pool.size());
}

TEST_F(ClientPoolOfThree, LetsTheOneThatWasHandedBackFirstGoFirst) {
    handBack(1);
    handBack(0);
    handBack(2);
    pool.maxClients = 2;
    pool.evict();
    EXPECT_THAT(fake.take(), ElementsAre("release c2", "release r2"));
    pool.maxClients = 1;
    pool.evict();
    EXPECT_THAT(fake.take(), ElementsAre("release c1", "release r1"));
    EXPECT_THAT(fake.live(), ElementsAre("c3", "r3"));
}

TEST_F(ClientPoolOfThree, CountsThoseThatAreHandedOutAndLetsIdleOnesAloneGo) {
    handBack(1);
    pool.maxClients = 0;
    pool.evict();
    EXPECT_EQ(2U, pool.size());
    EXPECT_THAT(fake.take(), ElementsAre("release c2", "release r2"));
    EXPECT_EQ(nullptr, pool.take(source));
}

TEST_F(ClientPoolOfThree, LetsNoneGoAtItsLimit) {
    handBack(0);
    pool.maxClients = 3;
    pool.evict();
    EXPECT_EQ(3U, pool.size());
}

TEST_F(ClientPoolOfThree, ForgetsWhatItLetGoInBothLists) {
    const ClientPtr kept = clients[1];
    handBack(0);
    handBack(1);
    pool.maxClients = 2;
    pool.evict();
    EXPECT_EQ(kept, pool.take(source));
    EXPECT_EQ(nullptr, pool.take(source));
    pool.maxClients = 0;
    pool.evict();
    EXPECT_EQ(2U, pool.size());
}

TEST_F(ClientPoolOfThree, LeavesOneThatWasLetGoAlone) {
    const ClientPtr gone = clients[0];
    handBack(0);
    pool.maxClients = 2;
    pool.evict();
    pool.handBack(gone);
    EXPECT_EQ(nullptr, pool.take(source));
}
