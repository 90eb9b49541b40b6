// SPDX-License-Identifier: Apache-2.0
#include "plugins/LocationDelegate/DelegateTest.h"
#include "support/Gate.h"
#include "support/Threads.h"

#include <array>
#include <atomic>
#include <cstddef>
#include <fstream>
#include <iterator>
#include <string>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {

using namespace delegates;
using testing::ElementsAre;

constexpr int kThreads = 8;

/// A thread that asks for a delegate.
class Asker {
public:
    void ask() {
        thread_ = std::thread([this] {
            id_ = ::gettid();
            found_ = Cache::getPluginSuite("mesh", "ray");
            hasAnswer_ = true;
        });
    }

    /// Whether it was answered, once that is told or the thread sleeps.
    bool isAnswered() const {
        while (!hasAnswer_ && !sleeps()) {
            std::this_thread::yield();
        }
        return hasAnswer_;
    }

    const void* answer() {
        thread_.join();
        return found_;
    }

private:
    bool sleeps() const {
        std::ifstream file("/proc/self/task/" + std::to_string(id_) + "/stat");
        const std::string text{std::istreambuf_iterator<char>(file), {}};
        const std::size_t name = text.rfind(')');
        return name != std::string::npos && text.compare(name + 2, 1, "S") == 0;
    }

    std::thread thread_;
    std::atomic<pid_t> id_{0};
    std::atomic<bool> hasAnswer_{false};
    const void* found_ = nullptr;
};

class DelegateThreads : public DelegateTest {};

TEST_F(DelegateThreads, ThatComeTogetherAskEachDelegateOnce) {
    search({"first", "second"});
    std::vector<const ScriptedDelegate*> all;
    for (const char* name : {"Delta", "Echo", "Foxtrot", "Golf", "Alpha"}) {
        all.push_back(&script(name, {"mesh", name}));
    }
    ovtest::onThreads(kThreads, [&](int thread) {
        if (thread % 4 == 0) {
            Cache::initializeCache();
            ASSERT_TRUE(Cache::isCacheInitialized());
        } else if (thread % 4 == 1) {
            ASSERT_THAT(typesFor(),
                        ElementsAre("Alpha", "Delta", "Echo", "Foxtrot", "Golf", "mesh"));
        } else {
            ASSERT_EQ("Delta", delegateFor("mesh"));
        }
    });
    for (const ScriptedDelegate* one : all) {
        EXPECT_STREQ("ctr", one->calls);
    }
}

TEST_F(DelegateThreads, ThatComeDuringTheWalkWaitForItsEnd) {
    static ovtest::Gate isUnderWay;
    static ovtest::Gate mayGoOn;
    search({"first"});
    const ScriptedDelegate& delta = script("Delta", {"mesh"}, "ray");
    script("Golf", {"curves"}).onCall = [](int call, void*) {
        if (call == CALL_TYPES) {
            isUnderWay.open();
            mayGoOn.wait();
        }
    };
    std::thread walker([] {
        Cache::initializeCache();
        isUnderWay.open();
    });
    isUnderWay.wait();
    std::array<Asker, kThreads> askers;
    for (Asker& asker : askers) {
        asker.ask();
    }
    for (const Asker& asker : askers) {
        EXPECT_FALSE(asker.isAnswered());
    }
    EXPECT_FALSE(Cache::isCacheInitialized());
    mayGoOn.open();
    for (Asker& asker : askers) {
        EXPECT_EQ(&delta, asker.answer());
    }
    walker.join();
    EXPECT_STREQ("ctr", delta.calls);
}

}  // namespace
