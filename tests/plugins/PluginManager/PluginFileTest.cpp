// SPDX-License-Identifier: Apache-2.0
#include "plugins/PluginManager/Plugins.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <set>
#include <string>

namespace {

using namespace plugins;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class PluginFile : public testing::Test {
protected:
    ~PluginFile() override { PluginManager::setSearchDirectories({}); }
};

TEST_F(PluginFile, GivesItsPlugins) {
    PluginManager::setSearchDirectories({folder("first")});
    EXPECT_THAT(apiNames(), Contains("Fixture"));
    EXPECT_THAT(versionsOf("Fixture"), ElementsAre(1, 3));
    EXPECT_THAT(namesOf("Fixture", 1), ElementsAre("Apple", "Zebra"));
    EXPECT_THAT(namesOf("Fixture", 3), ElementsAre("Apple"));
    EXPECT_THAT(namesOf("Fixture", 2), IsEmpty());
    EXPECT_THAT(PluginManager::getRejectedPlugins(), IsEmpty());
}

TEST_F(PluginFile, IsRejectedWithTheReason) {
    PluginManager::setSearchDirectories({folder("faulty")});
    struct Row {
        const char* file;
        const char* reason;
    };
    for (const Row& row : {Row{"NoElf.so", "file too short"},
                           {"Folder.so", "is no regular file"},
                           {"EmptyFile.so", "exports no OvGetPluginCount"},
                           {"NoGetter.so", "exports no OvGetPlugin"},
                           {"NegativeCount.so", "claims to have -1 plug-ins"},
                           {"HugeCount.so", "claims to have 2147483647 plug-ins"},
                           {"NullStruct.so", "plug-in 0 is null"},
                           {"ThrowingCount.so", "OvGetPluginCount throws"},
                           {"ThrowingGetter.so", "OvGetPlugin throws: no plug-in 0"}}) {
        EXPECT_THAT(reasonFor(folder("faulty/") + row.file, ""), HasSubstr(row.reason)) << row.file;
    }
    EXPECT_EQ("", reasonFor(folder("faulty/Ignored.txt"), ""));
}

TEST_F(PluginFile, HasItsFaultyPluginsRejectedOneByOne) {
    PluginManager::setSearchDirectories({folder("faulty")});
    const std::string file = folder("faulty/FaultyEntries.so");
    struct Row {
        const char* plugin;
        const char* reason;
    };
    for (const Row& row : {Row{"", "plug-in 0 claims a size of 64 bytes instead of 56"},
                           {"NullApi", "plug-in 5 has no API name"},
                           {"NoApiVersion", "has the API version 0"},
                           {"NegativeApiVersion", "has the API version -1"},
                           {"NoGetSuite", "has no getSuite"},
                           {"TooLongApi", "has a too long API name"},
                           {"Healthy", "is the struct of another plug-in"}}) {
        EXPECT_THAT(reasonFor(file, row.plugin), HasSubstr(row.reason)) << row.plugin;
    }
    std::set<std::string> nameless;
    for (const RejectedPlugin& one : PluginManager::getRejectedPlugins()) {
        if (one.file == file && one.plugin.empty()) {
            nameless.insert(one.reason);
        }
    }
    EXPECT_THAT(nameless,
                ElementsAre("plug-in 0 claims a size of 64 bytes instead of 56",
                            "plug-in 1 has version 2 instead of 1",
                            "plug-in 2 has no name",
                            "plug-in 3 has an empty name"));
    EXPECT_THAT(namesOf("Faulty", 1), ElementsAre("Healthy"));
}

TEST_F(PluginFile, IsOneUnderAllItsNames) {
    namespace fs = std::filesystem;
    const fs::path links = fs::path(OV_TEST_OUTPUT_DIR) / "links";
    fs::remove_all(links);
    fs::create_directories(links);
    fs::create_symlink(folder("first/Good.so"), links / "A.so");
    fs::create_hard_link(folder("first/Good.so"), links / "B.so");
    fs::create_symlink(links / "nowhere", links / "C.so");
    PluginManager::setSearchDirectories({links.string(), folder("first"), links.string()});
    EXPECT_THAT(namesOf("Fixture", 1), ElementsAre("Apple", "Zebra"));
    EXPECT_EQ("No such file or directory", reasonFor((links / "C.so").string(), ""));
    EXPECT_EQ("", reasonFor((links / "B.so").string(), "Apple"));
}

TEST_F(PluginFile, IsFoundWhenTheDirectoryIsSearchedAgain) {
    namespace fs = std::filesystem;
    const fs::path growing = fs::path(OV_TEST_OUTPUT_DIR) / "growing";
    fs::remove_all(growing);
    fs::create_directories(growing);
    std::ofstream(growing / "Good.so") << "not yet";
    PluginManager::setSearchDirectories({growing.string()});
    EXPECT_THAT(namesOf("Fixture", 1), IsEmpty());
    EXPECT_NE("", reasonFor((growing / "Good.so").string(), ""));
    fs::copy_file(folder("first/Good.so"),
                  growing / "Good.so",
                  fs::copy_options::overwrite_existing);  // The same inode, now a plug-in file.
    PluginManager::setSearchDirectories({growing.string()});
    EXPECT_THAT(namesOf("Fixture", 1), ElementsAre("Apple", "Zebra"));
    EXPECT_EQ("", reasonFor((growing / "Good.so").string(), ""));
}

TEST_F(PluginFile, IsRejectedWhenItIsCutShort) {
    namespace fs = std::filesystem;
    const fs::path cut = fs::path(OV_TEST_OUTPUT_DIR) / "cut";
    fs::remove_all(cut);
    fs::create_directories(cut);
    const std::uintmax_t whole = fs::file_size(folder("first/Good.so"));
    for (std::uintmax_t size = 0; size < whole; size += whole / 64 + 1) {
        const fs::path file = cut / (std::to_string(size) + ".so");
        fs::copy_file(folder("first/Good.so"), file);
        fs::resize_file(file, size);
    }
    PluginManager::setSearchDirectories({cut.string()});
    std::size_t cutShort = 0;
    for (const RejectedPlugin& one : PluginManager::getRejectedPlugins()) {
        cutShort += one.reason == "is cut short" ? 1 : 0;
    }
    EXPECT_LT(0U, cutShort);
}

TEST_F(PluginFile, StaysLoadedWhenItsDirectoryIsLeft) {
    PluginManager::setSearchDirectories({folder("first")});
    OvPluginStruct* plugin = PluginManager::getPlugin("Apple", "Fixture", 3);
    ASSERT_NE(nullptr, plugin);
    PluginManager::setSearchDirectories({});
    EXPECT_EQ(nullptr, PluginManager::getPlugin("Apple", "Fixture", 3));
    EXPECT_NE(nullptr, PluginManager::getPluginSuite(plugin));
}

TEST_F(PluginFile, CannotBeFoundInADirectoryThatIsNotThere) {
    PluginManager::setSearchDirectories({folder("nowhere"), ""});
    EXPECT_EQ("No such file or directory", reasonFor(folder("nowhere"), ""));
    EXPECT_EQ("No such file or directory", reasonFor("", ""));
    EXPECT_THAT(PluginManager::getSearchDirectories(), ElementsAre(folder("nowhere"), ""));
}

}  // namespace
