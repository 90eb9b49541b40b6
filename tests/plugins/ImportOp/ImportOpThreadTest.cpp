// SPDX-License-Identifier: Apache-2.0
#include "plugins/ImportOp/ImportOp.h"
#include "support/Threads.h"

#include <gtest/gtest.h>

#include <atomic>
#include <vector>

using namespace ovtest;

TEST_F(ImportOp, IsParsedOnceByThreadsThatWantItAtOnce) {
    TestFile file("import_threads.obj");
    file.writeBytes(triangle());
    const int before = host.floatsMade();
    const auto client = open(Args().set("file", file.path()).set("maxLocations", 1000));
    const std::string mesh = findType(client, "/root", "mesh").substr(5);
    const int ofOneParse = host.floatsMade() - before;

    constexpr int kThreads = 8;
    const Client clients[] = {open(file.path(), "/root/a"), open(file.path(), "/root/b")};
    const char* const tops[] = {"/root/a", "/root/b"};
    std::vector<GroupAttribute> seen(kThreads);
    onThreads(kThreads, [&](int thread) {
        seen[static_cast<std::size_t>(thread)] =
            clients[thread % 2]->cookLocation(tops[thread % 2] + mesh).getAttrs();
    });
    EXPECT_EQ(before + 2 * ofOneParse, host.floatsMade());
    for (const GroupAttribute& attributes : seen) {
        EXPECT_TRUE(attributes.isValid());
        EXPECT_EQ(seen.front().handle(), attributes.handle());
    }
}

TEST_F(ImportOp, ChangesUnderThreadsThatCookIt) {
    TestFile file("import_threads_changed.obj");
    file.writeBytes(triangle());
    const auto client = open(file.path());
    const std::string mesh = findType(client, "/root", "mesh");
    std::atomic<int> odd{0};
    onThreads(4, [&](int thread) {
        for (int i = 0; i < 50; ++i) {
            if (thread == 0) {
                file.writeBytes(triangle("part", i % 2 == 0 ? "20" : "300"));
                client->getRuntime()->evict("/root");
            } else {
                const auto location = client->cookLocation(mesh);
                odd += location.doesLocationExist() &&
                               !location.getAttrs().getChildByName("geometry").isValid()
                           ? 1
                           : 0;
            }
        }
    });
    EXPECT_EQ(0, odd);
    client->getRuntime()->evict("/root");
    EXPECT_EQ("", errorAt(client, "/root"));
}
