// SPDX-License-Identifier: Apache-2.0
// Many threads, each with a client and a runtime of its own, cost the cooking and the memory of
// one.
#include <OvSylvarProducers/ThreadAwareGeometryProducer.h>
#include <SylvarPlatform/AttributeFile.h>

#include "support/OpTree.h"
#include "support/RuntimeWalk.h"
#include "support/Sanitized.h"
#include "support/Threads.h"

#include <gtest/gtest.h>
#include <rapidjson/document.h>

#include <cstdint>
#include <cstdio>
#include <fstream>
#include <set>
#include <string>
#include <unistd.h>

#include <sys/wait.h>

using namespace ovtest;
using namespace SYLVAR;

namespace {

GroupAttribute sceneOf(int count) {
    return OpTree().op("g", "generate", Args().set("depth", 9).set("count", count)).group();
}

std::int64_t walk(const GeometryProducerPtr& location) {
    std::int64_t count = 1;
    for (GeometryProducerPtr child = location->getFirstChild(false); child;
         child = child->getNextSibling(false)) {
        count += walk(child);
    }
    return count;
}

std::int64_t residentBytes() {
    std::ifstream file("/proc/self/statm");
    std::int64_t total = 0;
    std::int64_t resident = 0;
    file >> total >> resident;
    return resident * sysconf(_SC_PAGESIZE);
}

/// The resident memory of a process that has walked the scene on that many threads; -1 when it
/// failed.
std::int64_t memoryOfWalk(int threads, int locations) {
    int ends[2] = {};
    if (pipe(ends) != 0) {
        return -1;
    }
    const pid_t child = fork();
    if (child == 0) {
        onThreads(threads, [&](int) {
            const auto top = CreateThreadAwareGeometryProducer(sceneOf(locations), "/root");
            if (walk(top) != locations) {
                _exit(1);
            }
        });
        const std::int64_t bytes = residentBytes();
        _exit(write(ends[1], &bytes, sizeof bytes) == sizeof bytes ? 0 : 1);
    }
    close(ends[1]);
    std::int64_t bytes = -1;
    if (read(ends[0], &bytes, sizeof bytes) != sizeof bytes) {
        bytes = -1;
    }
    close(ends[0]);
    int status = 0;
    waitpid(child, &status, 0);
    return status == 0 ? bytes : -1;
}

}  // namespace

TEST(RuntimeSharing, SixteenThreadsTakeTheMemoryOfOne) {
    if (kIsSanitized) {
        GTEST_SKIP() << "a sanitizer's allocator keeps what was freed";
    }
#ifdef NDEBUG
    const int locations = 1'000'000;
#else
    const int locations = 300'000;
#endif
    const std::int64_t one = memoryOfWalk(1, locations);
    const std::int64_t sixteen = memoryOfWalk(16, locations);
    ASSERT_GT(one, 0);
    ASSERT_GT(sixteen, 0);
    EXPECT_LE(static_cast<double>(sixteen), 1.2 * static_cast<double>(one));
}

TEST(RuntimeSharing, EachLocationIsCookedOnceInTheProcess) {
    const int locations = 5000;
    const auto holder = CreateThreadAwareGeometryProducer(sceneOf(locations), "/root");
    onThreads(16, [&](int) {
        const auto top = CreateThreadAwareGeometryProducer(sceneOf(locations), "/root");
        EXPECT_EQ(locations, walk(top));
    });
    rapidjson::Document statistics;
    statistics.Parse(query(*holder->getClient()->getRuntime(), "getStatistics").c_str());
    ASSERT_TRUE(statistics.IsObject());
    EXPECT_EQ(locations + 1, statistics["opTypes"]["generate"]["cooks"].GetInt())
        << "the locations and what is above the top one";
    EXPECT_EQ(locations + 1, statistics["store"]["entries"].GetInt());
    EXPECT_EQ(0, statistics["opTypes"]["generate"]["evictions"].GetInt());
}

TEST(RuntimeSharing, EachThreadHasAClientAndARuntimeOfItsOwn) {
    const auto top = CreateThreadAwareGeometryProducer(sceneOf(10), "/root");
    std::vector<std::shared_ptr<SylvarRuntime::Client>> clients(8);
    Barrier all(8);
    onThreads(8, [&](int i) {
        clients[static_cast<std::size_t>(i)] = top->getClient();
        all.wait();
    });
    std::set<const void*> different;
    for (const auto& client : clients) {
        different.insert(client.get());
        different.insert(client->getRuntime().get());
    }
    EXPECT_EQ(16U, different.size());
}

TEST(RootOnAFile, ThatIsMissingIsNull) {
    EXPECT_FALSE(CreateThreadAwareGeometryProducer("/nowhere/missing.optree", "/root"));
    EXPECT_FALSE(CreateThreadAwareGeometryProducer("", "/root/a"));
}

TEST(RootOnAFile, ThatGoesBeforeASecondThreadsFirstStepShowsThatThreadNothing) {
    using namespace Sylvar3::internal::OvAttribute;
    const std::string filename = std::string(OV_TEST_OUTPUT_DIR) + "/goes.optree";
    ASSERT_EQ(
        "",
        writeAttributeFile(sceneOf(10), AttributeContent::OpTree, AttributeForm::Binary, filename));
    const auto top = CreateThreadAwareGeometryProducer(filename, "/root");
    ASSERT_TRUE(top);
    ASSERT_EQ(0, std::remove(filename.c_str()));
    onThreads(1, [&](int) {
        EXPECT_FALSE(top->getFirstChild(false));
        EXPECT_FALSE(top->getChildByName("c0", false));
        EXPECT_FALSE(top->getClient());
        EXPECT_TRUE(top->getAttribute("type")) << "what was cooked is there";
    });
    EXPECT_TRUE(top->getFirstChild(false)) << "the first thread has its client";
}
