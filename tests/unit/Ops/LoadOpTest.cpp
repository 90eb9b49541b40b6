// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/AssetPlugin.h>
#include <SylvarPlatform/Configuration.h>

#include "support/HeardLogs.h"
#include "support/OpTree.h"
#include "support/OpTreeFile.h"
#include "support/RuntimeCounts.h"
#include "support/RuntimeWalk.h"
#include "support/Sanitized.h"
#include "support/StaticScene.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <deque>
#include <filesystem>
#include <fstream>
#include <functional>
#include <stdexcept>
#include <string>
#include <unistd.h>
#include <utility>

#include <sys/resource.h>
#include <sys/stat.h>

using namespace ovtest;
using namespace Sylvar3::internal::OvAttribute;
using Sylvar3::OvAssetHost::v1::AssetPlugin;
using Sylvar3::OvAssetHost::v1::OvAssetPluginManager;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

std::shared_ptr<SylvarRuntime::Client> load(const std::string& file, const char* at = "/root") {
    return OpTree().op("l", "load", Args().set("file", file).set("at", at)).open();
}

GroupAttribute sceneOf(const char* path) {
    return StaticScene().at(path).set(path, "mark", 7).group();
}

/// An op tree whose scene has one location.
GroupAttribute treeOf(const char* path) {
    return OpTree().op("s", "scene", Args().set("tree", sceneOf(path))).group();
}

std::string errorAt(const SylvarRuntime::Client& client, const char* path) {
    return client.cookLocation(path)
        .getAttrs()
        .getChild<StringAttribute>("errorMessage")
        .getValue("");
}

bool isThere(const SylvarRuntime::Client& client, const char* path) {
    return client.cookLocation(path).doesLocationExist();
}

/// An op tree whose ops are made while its file is read: the first asks for the path of an asset.
GroupAttribute treeThatAsks(const char* path) {
    return OpTree()
        .op("l", "load", Args().set("file", "meanwhile"))
        .op("s", "scene", Args().set("tree", sceneOf(path)))
        .group();
}

/// What happens where the op tree asks, once.
class Meanwhile final : public AssetPlugin {
public:
    explicit Meanwhile(std::function<void()> happens) : happens_(std::move(happens)) {
        OvAssetPluginManager::setDefaultAssetPlugin(this);
    }
    ~Meanwhile() override { OvAssetPluginManager::setDefaultAssetPlugin(nullptr); }
    Meanwhile(const Meanwhile&) = delete;
    Meanwhile& operator=(const Meanwhile&) = delete;

    bool hasHappened() const { return !happens_; }

    std::string resolveAsset(const std::string& assetId, int, bool) override {
        if (assetId == "meanwhile" && happens_) {
            std::exchange(happens_, nullptr)();
        }
        return assetId;
    }

private:
    std::function<void()> happens_;
};

/// For as long as it lives the process gets no more than 64 MiB.
class LittleMemory {
public:
    LittleMemory() {
        rlim_t pages = 0;
        std::ifstream("/proc/self/statm") >> pages;
        getrlimit(RLIMIT_AS, &before_);
        const auto pageBytes = static_cast<rlim_t>(sysconf(_SC_PAGESIZE));
        const rlimit little{pages * pageBytes + (rlim_t{64} << 20), before_.rlim_max};
        setrlimit(RLIMIT_AS, &little);
    }
    ~LittleMemory() { setrlimit(RLIMIT_AS, &before_); }
    LittleMemory(const LittleMemory&) = delete;
    LittleMemory& operator=(const LittleMemory&) = delete;

private:
    rlimit before_{};
};

}  // namespace

TEST(Load, ShowsAnOpTreeAndAStoredSceneInEitherForm) {
    for (const char* const name : {"load_forms.optree", "load_forms.optree.json"}) {
        TestFile file(name);
        EXPECT_TRUE(isThere(*load(file.writeOpTree(treeOf("/root/tree")).path()), "/root/tree"));
        EXPECT_TRUE(isThere(*load(file.writeScene(sceneOf("/root/scene")).path()), "/root/scene"));
    }
}

TEST(Load, PutsTheFilesRootWhereItIsTold) {
    TestFile file("load_at.optree");
    file.writeOpTree(treeOf("/root/a/b"));
    const auto client = load(file.path(), "/root/world/set");
    EXPECT_EQ((std::vector<std::string>{"world"}), childrenOf(client->cookLocation("/root")));
    EXPECT_TRUE(isThere(*client, "/root/world/set/a/b"));
    EXPECT_FALSE(isThere(*client, "/root/a"));
    EXPECT_EQ(5, countFrom(*client, "/root"));
    EXPECT_EQ(7,
              client->cookLocation("/root/world/set/a/b")
                  .getAttrs()
                  .getChild<IntAttribute>("mark")
                  .getValue(0));
}

TEST(Load, TellsWhatIsWrongWithAFile) {
    HeardLogs logs;
    struct Row {
        const char* bytes;  // Null: there is no file.
        const char* reason;
    };
    for (const Row& row :
         {Row{nullptr, "No such file or directory"},
          {"", "It is empty."},
          {"garbage", "It is neither the binary nor the text form."},
          {"{\"format\": \"sylvar\"", "line 1, column 20: A comma or \"}\" is expected"},
          {"{\"format\": \"sylvar\", \"version\": 1, \"content\": \"attribute\", "
           "\"root\": 1}",
           "holds neither an op tree nor a scene"},
          {"{\"format\": \"sylvar\", \"version\": 1, \"content\": \"op tree\", "
           "\"root\": {}}",
           "the op tree has no ops"}}) {
        TestFile file("load_wrong.optree");
        if (row.bytes) {
            file.writeBytes(row.bytes);
        }
        const auto client = load(file.path(), "/root/a");
        EXPECT_THAT(errorAt(*client, "/root/a"),
                    AllOf(HasSubstr("load (op 1 of 1), /root/a: "),
                          HasSubstr(file.path()),
                          HasSubstr(row.reason)));
        EXPECT_EQ(2, countFrom(*client, "/root"));
        EXPECT_EQ(1U, logs.take().size());
    }
}

TEST(Load, RefusesWhatIsNoPlainFile) {
    HeardLogs logs;
    const TestFile pipe("load_pipe.optree");
    const TestFile link("load_pipe_link.optree");
    ASSERT_EQ(0, mkfifo(pipe.path().c_str(), 0600));
    std::filesystem::create_symlink(pipe.path(), link.path());
    for (const std::string& path :
         {pipe.path(), link.path(), std::string(OV_TEST_OUTPUT_DIR), std::string("/dev/zero")}) {
        EXPECT_EQ("load (op 1 of 1), /root: " + path + ": it is no plain file",
                  errorAt(*load(path), "/root"));
        EXPECT_THAT(logs.take(), SizeIs(1)) << path;
    }
}

TEST(Load, TellsThatThereIsNotEnoughMemoryForAFileUntilItIsEvicted) {
    if (kIsSanitized) {
        GTEST_SKIP() << "the allocator ends the process";
    }
    HeardLogs logs;
    TestFile file("load_large.optree.json");
    file.writeOpTree(treeOf("/root/b"));
    std::ofstream(file.path(), std::ios::app) << std::string(std::size_t{48} << 20, ' ');
    const auto client = OpTree()
                            .op("s", "scene", Args().set("tree", sceneOf("/root/beside")))
                            .op("l", "load", Args().set("file", file.path()).set("at", "/root/a"))
                            .op("m", "merge", GroupAttribute(), {"s", "l"})
                            .open();
    {
        const LittleMemory little;
        EXPECT_EQ(
            "load (op 2 of 3), /root/a: " + file.path() + ": there is not enough memory to read it",
            errorAt(*client, "/root/a"));
    }
    EXPECT_THAT(logs.take(), SizeIs(1));
    EXPECT_TRUE(isThere(*client, "/root/beside"));
    EXPECT_FALSE(isThere(*client, "/root/a/b"));
    client->getRuntime()->evict("/root");
    EXPECT_TRUE(isThere(*client, "/root/a/b"));
}

TEST(Load, DoesNotOpenAFileBeforeItIsNeeded) {
    HeardLogs logs;
    TestFile file("load_lazy.optree");
    file.writeBytes("garbage");
    const auto client = load(file.path(), "/root/world/late");
    isThere(*client, "/root");
    isThere(*client, "/root/world");
    isThere(*client, "/root/world/other");
    EXPECT_THAT(logs.take(), IsEmpty());
    isThere(*client, "/root/world/late");
    EXPECT_EQ(1U, logs.take().size());
}

TEST(Load, IsAnErrorWhereAFileLoadsItself) {
    HeardLogs logs;
    TestFile file("load_self.optree");
    file.writeOpTree(OpTree()
                         .op("s", "scene", Args().set("tree", sceneOf("/root/a")))
                         .op("l", "load", Args().set("file", file.path()).set("at", "/root/again"))
                         .op("m", "merge", GroupAttribute(), {"s", "l"})
                         .group());
    const auto client = load(file.path());
    EXPECT_TRUE(isThere(*client, "/root/a"));
    int faults = 0;
    walkFrom(*client, "/root", [&](const std::string& path, const auto&) {
        faults += errorAt(*client, path.c_str()).find("loads itself") != std::string::npos;
    });
    EXPECT_EQ(1, faults);
    EXPECT_THAT(logs.take(), ElementsAre(HasSubstr("loads itself")));
}

TEST(Load, IsAnErrorWhereFilesLoadOneAnother) {
    HeardLogs logs;
    TestFile a("load_round_a.optree");
    TestFile b("load_round_b.optree");
    const auto loading = [](const TestFile& file) {
        return OpTree()
            .op("s", "scene", Args().set("tree", sceneOf("/root/beside")))
            .op("l", "load", Args().set("file", file.path()).set("at", "/root/next"))
            .op("m", "merge", GroupAttribute(), {"s", "l"})
            .group();
    };
    a.writeOpTree(loading(b));
    b.writeOpTree(loading(a));
    const auto client = load(a.path());
    int faults = 0;
    walkFrom(*client, "/root", [&](const std::string& path, const auto&) {
        faults += errorAt(*client, path.c_str()).find("loads itself") != std::string::npos;
    });
    EXPECT_EQ(1, faults);
    EXPECT_THAT(logs.take(), ElementsAre(HasSubstr("loads itself")));
    EXPECT_TRUE(isThere(*client, "/root/beside"));
    EXPECT_TRUE(isThere(*client, "/root/next/beside"));
    const auto other = load(b.path());
    EXPECT_TRUE(isThere(*other, "/root/beside"));
    EXPECT_GT(10, countFrom(*other, "/root"));
}

TEST(Load, IsAnErrorWhereFilesLoadOneAnotherTooDeeply) {
    HeardLogs logs;
    constexpr int kCount = 500;
    std::deque<TestFile> files;
    for (int i = 0; i < kCount; ++i) {
        files.emplace_back("load_deep_" + std::to_string(i) + ".optree");
    }
    files.back().writeOpTree(treeOf("/root/a"));
    for (std::size_t i = 0; i + 1 < files.size(); ++i) {
        files[i].writeOpTree(
            OpTree().op("l", "load", Args().set("file", files[i + 1].path())).group());
    }
    const auto deep = load(files.front().path());
    EXPECT_THAT(errorAt(*deep, "/root"), HasSubstr("more than 400 levels deep"));
    EXPECT_THAT(logs.take(), ElementsAre(HasSubstr("more than 400 levels deep")));
    EXPECT_TRUE(isThere(*load(files[200].path()), "/root/a"));
    EXPECT_THAT(logs.take(), IsEmpty());
}

TEST(Load, FindsItsFileAlongTheSearchPathOfAssets) {
    TestFile file("load_searched.optree");
    file.writeOpTree(treeOf("/root/a"));
    auto& settings = *Sylvar3::OvConfiguration::v1::Config();
    settings.set("SYLVAR_ASSET_PATH", "/nowhere:" OV_TEST_OUTPUT_DIR);
    const auto client = load("load_searched.optree");
    settings.unset("SYLVAR_ASSET_PATH");
    EXPECT_TRUE(isThere(*client, "/root/a"));
}

TEST(Load, TakesTheNameForThePathWhereTheAssetPluginFails) {
    class Failing : public AssetPlugin {
        std::string resolveAsset(const std::string&, int, bool) override {
            throw std::runtime_error("no such show");
        }
    };
    HeardLogs logs;
    static Failing failing;
    TestFile file("load_failing.optree");
    file.writeOpTree(treeOf("/root/a"));
    OvAssetPluginManager::setDefaultAssetPlugin(&failing);
    const auto client = load(file.path());
    OvAssetPluginManager::setDefaultAssetPlugin(nullptr);
    EXPECT_TRUE(isThere(*client, "/root/a"));
    // Once for the identity of the op, and once for the op.
    EXPECT_THAT(logs.take(), ElementsAre(HasSubstr("no such show"), HasSubstr("no such show")));
}

TEST(Load, SharesTheOpsOfAFileWithAllThatLoadIt) {
    TestFile file("load_shared.optree");
    file.writeOpTree(OpTree().op("g", "generate", Args().set("depth", 1).set("seed", 701)).group());
    const auto here = load(file.path(), "/root/here");
    const auto there = load(file.path(), "/root/there");
    EXPECT_EQ(33 + 1, cooksDuring(*here, "generate", [&] { countFrom(*here, "/root"); }));
    EXPECT_EQ(0, cooksDuring(*here, "generate", [&] { countFrom(*there, "/root"); }));
}

TEST(Load, SeesAChangedFileAfterAnEvictAndNotBefore) {
    TestFile file("load_changed.optree");
    file.writeOpTree(treeOf("/root/before"));
    const auto client = load(file.path());
    const auto other = load(file.path());
    EXPECT_TRUE(isThere(*client, "/root/before"));
    EXPECT_TRUE(isThere(*other, "/root/before"));
    file.writeOpTree(treeOf("/root/afterwards"));
    EXPECT_FALSE(isThere(*client, "/root/afterwards"));
    client->getRuntime()->evict("/root");
    EXPECT_FALSE(client->getCachedLocation("/root").second);
    EXPECT_TRUE(isThere(*client, "/root/afterwards"));
    EXPECT_FALSE(isThere(*client, "/root/before"));
    EXPECT_TRUE(isThere(*other, "/root/afterwards"));
    EXPECT_FALSE(isThere(*other, "/root/before"));
}

TEST(Load, SeesAChangedFileBelowOpsThatOtherRuntimesHave) {
    TestFile inner("load_below.optree");
    TestFile outer("load_below_outer.optree");
    inner.writeOpTree(treeOf("/root/before"));
    outer.writeOpTree(OpTree().op("l", "load", Args().set("file", inner.path())).group());
    const GroupAttribute values({{"set", IntAttribute(1)}}, false);
    const auto client = load(inner.path());
    const auto other =
        OpTree()
            .op("l", "load", Args().set("file", outer.path()))
            .op("s", "setAttributes", Args().set("paths", "/**").set("values", values), {"l"})
            .open();
    EXPECT_TRUE(isThere(*client, "/root/before"));
    EXPECT_TRUE(isThere(*other, "/root/before"));
    inner.writeOpTree(treeOf("/root/afterwards"));
    client->getRuntime()->evict("/root/before");
    EXPECT_FALSE(other->getCachedLocation("/root").second);
    EXPECT_TRUE(isThere(*other, "/root/afterwards"));
    EXPECT_FALSE(isThere(*other, "/root/before"));
}

TEST(Load, SeesAChangedFileThatAFileLoads) {
    TestFile inner("load_inner.optree");
    TestFile outer("load_outer.optree");
    inner.writeOpTree(treeOf("/root/before"));
    outer.writeOpTree(
        OpTree().op("l", "load", Args().set("file", inner.path()).set("at", "/root/in")).group());
    const auto client = load(outer.path());
    EXPECT_TRUE(isThere(*client, "/root/in/before"));
    inner.writeScene(sceneOf("/root/afterwards"));
    client->getRuntime()->evict("/root/in");
    EXPECT_TRUE(isThere(*client, "/root/in/afterwards"));
    EXPECT_FALSE(isThere(*client, "/root/in/before"));
}

TEST(Load, SeesAChangedFileInARuntimeThatIsMadeLater) {
    TestFile file("load_later.optree");
    file.writeOpTree(treeOf("/root/before"));
    const auto first = load(file.path());
    EXPECT_TRUE(isThere(*first, "/root/before"));
    file.writeOpTree(treeOf("/root/afterwards"));
    const auto second = load(file.path());
    EXPECT_TRUE(isThere(*second, "/root/afterwards"));
    EXPECT_TRUE(isThere(*first, "/root/before"));
}

TEST(Load, TellsThatAFileChangesWhileItIsRead) {
    HeardLogs logs;
    TestFile file("load_torn.optree");
    file.writeOpTree(treeThatAsks("/root/before"));
    const auto client = load(file.path());
    {
        const Meanwhile meanwhile([&] { file.writeOpTree(treeOf("/root/afterwards")); });
        EXPECT_EQ("load (op 1 of 1), /root: " + file.path() + ": it changed while it was read",
                  errorAt(*client, "/root"));
        EXPECT_TRUE(meanwhile.hasHappened());
    }
    EXPECT_THAT(logs.take(), SizeIs(1));
    EXPECT_FALSE(isThere(*client, "/root/before"));
    EXPECT_FALSE(isThere(*client, "/root/afterwards"));
    client->getRuntime()->evict("/root");
    EXPECT_EQ("", errorAt(*client, "/root"));
    EXPECT_TRUE(isThere(*client, "/root/afterwards"));
}

TEST(Load, ForgetsAFileThatIsEvictedWhileItIsRead) {
    HeardLogs logs;
    TestFile file("load_while_read.optree");
    file.writeOpTree(treeThatAsks("/root/before"));
    const auto client = load(file.path());
    {
        const Meanwhile meanwhile([&] {
            file.writeOpTree(treeOf("/root/afterwards"));
            client->getRuntime()->evict("/root");
        });
        client->cookLocation("/root");
        EXPECT_TRUE(meanwhile.hasHappened());
    }
    EXPECT_EQ("", errorAt(*client, "/root"));
    EXPECT_FALSE(isThere(*client, "/root/before"));
    EXPECT_TRUE(isThere(*client, "/root/afterwards"));
}

TEST(Load, MissesADeletedFileAfterAnEvictAndFindsItAgain) {
    HeardLogs logs;
    TestFile file("load_deleted.optree");
    file.writeOpTree(treeOf("/root/a"));
    const auto client = load(file.path());
    EXPECT_TRUE(isThere(*client, "/root/a"));
    file.remove();
    EXPECT_TRUE(isThere(*client, "/root/a"));
    client->getRuntime()->evict("/root");
    EXPECT_THAT(errorAt(*client, "/root"), HasSubstr(file.path()));
    EXPECT_FALSE(isThere(*client, "/root/a"));
    file.writeOpTree(treeOf("/root/b"));
    EXPECT_FALSE(isThere(*client, "/root/b"));
    client->getRuntime()->evict("/root");
    EXPECT_TRUE(isThere(*client, "/root/b"));
}
