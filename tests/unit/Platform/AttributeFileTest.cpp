// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/AttributeFile.h>
#include <SylvarPlatform/DataAttribute.h>
#include <SylvarPlatform/GroupAttribute.h>

#include "support/AttributeBytes.h"
#include "support/OrdinaryUser.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <thread>
#include <unistd.h>
#include <vector>

#include <sys/resource.h>
#include <sys/stat.h>

namespace {

using namespace Sylvar3::internal::OvAttribute;
using testing::StartsWith;

constexpr auto kBinary = AttributeForm::Binary;
constexpr auto kContent = AttributeContent::Attribute;

TEST(AttributeFormOf, IsTextForNamesThatEndInJson) {
    struct Row {
        const char* filename;
        AttributeForm form;
    };
    for (const Row& row : {Row{"scene.optree.json", AttributeForm::Text},
                           Row{"/a/b.json", AttributeForm::Text},
                           Row{".json", AttributeForm::Text},
                           Row{"scene.optree", kBinary},
                           Row{"", kBinary},
                           Row{"json", kBinary},
                           Row{"scene.json.optree", kBinary},
                           Row{"scene.JSON", kBinary},
                           Row{"scene.json ", kBinary}}) {
        EXPECT_EQ(row.form, attributeFormOf(row.filename)) << row.filename;
    }
}

/// A folder of its own for each test.
class AttributeFile : public testing::Test {
protected:
    AttributeFile() {
        std::string pattern = testing::TempDir() + "attribute-file-XXXXXX";
        folder_ = mkdtemp(pattern.data());
    }
    ~AttributeFile() override { std::filesystem::remove_all(folder_); }

    std::string path(const std::string& name) const { return folder_ + "/" + name; }

    void put(const std::string& name, const std::string& bytes) const {
        std::ofstream(path(name), std::ios::binary) << bytes;
    }

    std::string get(const std::string& name) const {
        std::ifstream file(path(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }

    std::size_t countOfFiles() const {
        return static_cast<std::size_t>(
            std::distance(std::filesystem::directory_iterator(folder_), {}));
    }

    std::string write(const std::string& name, const Attribute& attribute = IntAttribute(7)) const {
        return writeAttributeFile(attribute, kContent, kBinary, path(name));
    }

    int readBack(const std::string& name) const {
        return castAttribute<IntAttribute>(readAttributeFile(path(name)).attribute).getValue(-1);
    }

    std::string folder_;
};

TEST_F(AttributeFile, IsReadAsItWasWritten) {
    EXPECT_EQ(
        "", writeAttributeFile(IntAttribute(7), AttributeContent::StaticScene, kBinary, path("a")));
    const AttributeReadResult read = readAttributeFile(path("a"));
    EXPECT_EQ("", read.error);
    EXPECT_EQ(IntAttribute(7).getHash(), read.attribute.getHash());
    EXPECT_EQ(AttributeContent::StaticScene, read.content);
    EXPECT_EQ(kBinary, read.form);
    EXPECT_EQ(1U, countOfFiles());
}

TEST_F(AttributeFile, IsNamedInWhatIsSaidWhenItIsMissing) {
    const AttributeReadResult read = readAttributeFile(path("missing"));
    EXPECT_FALSE(read.attribute);
    EXPECT_EQ("Cannot open \"" + path("missing") + "\": No such file or directory.", read.error);
    EXPECT_EQ("Cannot open \"\": No such file or directory.", readAttributeFile("").error);
}

TEST_F(AttributeFile, CannotBeAFolder) {
    EXPECT_EQ("Cannot read \"" + folder_ + "\": Is a directory.", readAttributeFile(folder_).error);
    EXPECT_EQ("Cannot write \"" + folder_ + "\": Is a directory.",
              writeAttributeFile(IntAttribute(1), kContent, kBinary, folder_));
}

TEST_F(AttributeFile, CannotBeReadWithoutTheRightTo) {
    put("secret", "");
    chmod(path("secret").c_str(), 0);
    const ovtest::OrdinaryUser user;
    EXPECT_EQ("Cannot open \"" + path("secret") + "\": Permission denied.",
              readAttributeFile(path("secret")).error);
}

TEST_F(AttributeFile, IsToldWhatItIsNot) {
    struct Row {
        const char* bytes;
        const char* error;
    };
    for (const Row& row : {Row{"", "It is empty."},
                           Row{"x", "It is neither the binary nor the text form."},
                           Row{"neither of the two", "It is neither the binary nor the text form."},
                           Row{"[1]", "It is neither the binary nor the text form."},
                           Row{"OVAT", "It is neither the binary nor the text form."},
                           Row{"abcdOVA", "It is neither the binary nor the text form."},
                           Row{"abcdovat", "It is neither the binary nor the text form."},
                           Row{"abcdOVAT",
                               "The binary file is malformed: it is cut short, or its sizes do "
                               "not fit together."}}) {
        put("a", row.bytes);
        const AttributeReadResult read = readAttributeFile(path("a"));
        EXPECT_FALSE(read.attribute);
        EXPECT_EQ("\"" + path("a") + "\": " + row.error, read.error);
    }
}

TEST_F(AttributeFile, IsToldApartByItsFirstBytesNotByItsName) {
    EXPECT_EQ("", writeAttributeFile(IntAttribute(7), kContent, kBinary, path("a.json")));
    EXPECT_EQ(kBinary, readAttributeFile(path("a.json")).form);
    EXPECT_EQ(7, readBack("a.json"));
}

TEST_F(AttributeFile, IsReplacedWhole) {
    put("a", "what was there before, and longer than what comes" + std::string(10000, ' '));
    EXPECT_EQ("", write("a"));
    EXPECT_EQ(ovtest::binaryOf(IntAttribute(7)), get("a"));
    EXPECT_EQ(1U, countOfFiles()) << "nothing is left beside it";
}

TEST_F(AttributeFile, StaysAsItWasWhenTheWritingFails) {
    put("a", "old");
    EXPECT_EQ("Cannot write \"" + path("a") + "\": The null attribute cannot be written.",
              write("a", Attribute()));
    EXPECT_EQ("old", get("a"));
    EXPECT_EQ(1U, countOfFiles());
}

/// For as long as it lives no file may grow beyond a few bytes.
class NoRoom {
public:
    NoRoom() : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit small{1000, before_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &small);
    }
    ~NoRoom() {
        setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handler_);
    }
    NoRoom(const NoRoom&) = delete;
    NoRoom& operator=(const NoRoom&) = delete;

private:
    void (*handler_)(int);
    rlimit before_{};
};

TEST_F(AttributeFile, StaysAsItWasWhenThereIsNoRoomForTheNewOne) {
    put("a", "old");
    const DoubleAttribute large(std::vector<double>(100000, 1.0));
    const std::string error = [&] {
        const NoRoom noRoom;
        return write("a", large);
    }();
    EXPECT_EQ("Cannot write \"" + path("a") + "\": File too large.", error);
    EXPECT_EQ("old", get("a"));
    EXPECT_EQ(1U, countOfFiles());
}

TEST_F(AttributeFile, IsNotMadeWhenTheWritingFails) {
    EXPECT_NE("", write("a", Attribute()));
    EXPECT_EQ(0U, countOfFiles());
}

TEST_F(AttributeFile, CannotBeWrittenIntoAFolderThatIsNotThere) {
    EXPECT_EQ("Cannot write \"" + path("no/a") + "\": No such file or directory.", write("no/a"));
}

TEST_F(AttributeFile, CannotBeWrittenToAFullDisk) {
    const char* const full = "Cannot write \"/dev/full\": No space left on device.";
    EXPECT_EQ(full, writeAttributeFile(IntAttribute(7), kContent, kBinary, "/dev/full"));
    const DoubleAttribute large(std::vector<double>(100000, 1.0));
    EXPECT_EQ(full, writeAttributeFile(large, kContent, kBinary, "/dev/full"));
}

TEST_F(AttributeFile, IsWrittenToADeviceAsItIs) {
    EXPECT_EQ("", writeAttributeFile(IntAttribute(7), kContent, kBinary, "/dev/null"));
    struct stat device {};
    ASSERT_EQ(0, stat("/dev/null", &device));
    EXPECT_TRUE(S_ISCHR(device.st_mode));
}

TEST_F(AttributeFile, KeepsItsPermissions) {
    put("a", "old");
    for (const mode_t mode : {0600U, 0640U, 0755U}) {
        chmod(path("a").c_str(), mode);
        EXPECT_EQ("", write("a"));
        struct stat now {};
        ASSERT_EQ(0, stat(path("a").c_str(), &now));
        EXPECT_EQ(mode, now.st_mode & 07777U);
    }
}

TEST_F(AttributeFile, HasThePermissionsOfEveryNewFile) {
    const mode_t old = umask(027);
    EXPECT_EQ("", write("a"));
    umask(old);
    struct stat now {};
    ASSERT_EQ(0, stat(path("a").c_str(), &now));
    EXPECT_EQ(0640U, now.st_mode & 07777U);
}

TEST_F(AttributeFile, IsWrittenWhereALinkLeads) {
    put("target", "old");
    std::filesystem::create_symlink("target", path("link"));
    EXPECT_EQ("", write("link"));
    EXPECT_TRUE(std::filesystem::is_symlink(path("link")));
    EXPECT_EQ(7, readBack("target"));
    EXPECT_EQ(7, readBack("link"));
}

TEST_F(AttributeFile, IsMadeWhereALinkLeadsThatLeadsToNothingYet) {
    std::filesystem::create_symlink("target", path("link"));
    EXPECT_EQ("", write("link"));
    EXPECT_TRUE(std::filesystem::is_symlink(path("link")));
    EXPECT_EQ(7, readBack("target"));
}

TEST_F(AttributeFile, MayHaveTheLongestNameThatAFolderTakes) {
    const std::string name(255, 'n');
    EXPECT_EQ("", write(name));
    EXPECT_EQ(7, readBack(name));
}

TEST_F(AttributeFile, GoesThroughAPipe) {
    ASSERT_EQ(0, mkfifo(path("pipe").c_str(), 0600));
    const std::vector<double> values(100000, 1.5);
    std::thread writer([&] {
        EXPECT_EQ("", writeAttributeFile(DoubleAttribute(values), kContent, kBinary, path("pipe")));
    });
    const AttributeReadResult read = readAttributeFile(path("pipe"));
    writer.join();
    EXPECT_EQ("", read.error);
    EXPECT_EQ(DoubleAttribute(values).getHash(), read.attribute.getHash());
    EXPECT_TRUE(std::filesystem::is_fifo(path("pipe")));
}

/// A stream that hands out its bytes by a rule of its own.
struct Stream {
    std::string bytes;
    std::size_t read = 0;
    long longest = 1L << 30;  ///< Of one piece; short counts end the stream.
    long wrongAt = -1;        ///< From this call on the answer is `wrong`.
    long wrong = 0;           ///< Added to the size asked for when `isTooMuch`.
    bool isTooMuch = false;
    long calls = 0;

    static long deliver(void* self, void* buffer, long size) {
        auto& stream = *static_cast<Stream*>(self);
        if (stream.calls++ == stream.wrongAt) {
            return stream.isTooMuch ? size + stream.wrong : stream.wrong;
        }
        const long left = static_cast<long>(stream.bytes.size() - stream.read);
        const long count = std::min({left, size, stream.longest});
        std::copy_n(stream.bytes.data() + stream.read, count, static_cast<char*>(buffer));
        stream.read += static_cast<std::size_t>(count);
        return count;
    }
};

AttributeReadResult readFrom(Stream& stream) {
    return readAttribute(&stream, Stream::deliver);
}

std::string largeBinary() {
    return ovtest::binaryOf(DoubleAttribute(std::vector<double>(100000, 2.5)));
}

TEST(ReadAttribute, AsksUntilTheStreamEnds) {
    Stream stream{largeBinary()};
    const AttributeReadResult read = readFrom(stream);
    EXPECT_EQ("", read.error);
    EXPECT_EQ(stream.bytes.size(), stream.read);
}

TEST(ReadAttribute, AsksForNothingAfterAShortCount) {
    Stream stream{ovtest::binaryOf(IntAttribute(7))};
    EXPECT_TRUE(readFrom(stream).attribute);
    EXPECT_EQ(2, stream.calls) << "the first bytes, then the rest";
}

TEST(ReadAttribute, TakesAShortCountForTheEndOfTheStream) {
    Stream oneByOne{largeBinary()};
    oneByOne.longest = 1;
    EXPECT_FALSE(readFrom(oneByOne).attribute);
    EXPECT_EQ(1, oneByOne.calls);

    Stream inPieces{largeBinary()};
    inPieces.longest = 1000;
    EXPECT_EQ("The binary file is malformed: it is cut short, or its sizes do not fit together.",
              readFrom(inPieces).error);
}

TEST(ReadAttribute, TakesACountThatCannotBeForTheEndOfTheStream) {
    for (const long call : {0L, 1L, 2L}) {
        for (const Stream& wrong : {Stream{"", 0, 1L << 30, call, -1, false},
                                    Stream{"", 0, 1L << 30, call, -1000000, false},
                                    Stream{"", 0, 1L << 30, call, 0, false},
                                    Stream{"", 0, 1L << 30, call, 1, true},
                                    Stream{"", 0, 1L << 30, call, 1L << 40, true}}) {
            Stream stream = wrong;
            stream.bytes = largeBinary();
            const AttributeReadResult read = readFrom(stream);
            EXPECT_FALSE(read.attribute);
            EXPECT_EQ(call == 0 ? "It is empty."
                                : "The binary file is malformed: it is cut short, or its sizes do "
                                  "not fit together.",
                      read.error);
            EXPECT_EQ(call + 1, stream.calls);
        }
    }
}

TEST(ReadAttribute, LetsTravelWhatTheCallbackThrows) {
    const std::string bytes = largeBinary();
    for (int call = 0; call < 4; ++call) {
        struct Throwing {
            Stream stream;
            long throwsAt;
        } source{Stream{bytes}, call};
        const OvReadFunction read = [](void* self, void* buffer, long size) {
            auto& throwing = *static_cast<Throwing*>(self);
            if (throwing.stream.calls == throwing.throwsAt) {
                throw std::runtime_error("the stream broke");
            }
            return Stream::deliver(&throwing.stream, buffer, size);
        };
        EXPECT_THROW(readAttribute(&source, read), std::runtime_error);
        source.stream = Stream{bytes};
        EXPECT_THROW(Attribute::readAttributeStream(&source, read, 0), std::runtime_error);
    }
}

TEST(ReadAttributeStream, GivesTheAttributeOrNull) {
    Stream sound{ovtest::binaryOf(IntAttribute(7))};
    EXPECT_EQ(IntAttribute(7).getHash(),
              Attribute::readAttributeStream(&sound, Stream::deliver, 0).getHash());
    for (const std::string& bytes :
         {std::string(), std::string("rubbish"), sound.bytes.substr(20)}) {
        Stream stream{bytes};
        EXPECT_FALSE(Attribute::readAttributeStream(&stream, Stream::deliver, 0));
    }
}

TEST(ReadAttributeStream, TakesAllThatAFileMayHold) {
    for (const AttributeContent content :
         {AttributeContent::Attribute, AttributeContent::StaticScene, AttributeContent::OpTree}) {
        Stream stream{ovtest::bytesOf(GroupAttribute({}, true), kBinary, content)};
        EXPECT_TRUE(Attribute::readAttributeStream(&stream, Stream::deliver, 0));
    }
}

TEST(ReadAttributeBytes, TakesNoBytesAtAll) {
    EXPECT_EQ("It is empty.", readAttributeBytes(nullptr, 0).error);
}

TEST(WriteAttribute, StopsWhenItIsTold) {
    int calls = 0;
    const OvWriteFunction stop = [](void* count, const void*, long) {
        ++*static_cast<int*>(count);
        return 0;
    };
    const DoubleAttribute large(std::vector<double>(100000, 1.0));
    EXPECT_EQ("The writing was stopped.", writeAttribute(large, kContent, kBinary, &calls, stop));
    EXPECT_EQ(1, calls);
}

TEST(WriteAttribute, CannotWriteTheNullAttribute) {
    for (const AttributeForm form : {AttributeForm::Binary, AttributeForm::Text}) {
        EXPECT_EQ("The null attribute cannot be written.",
                  writeAttribute(Attribute(), kContent, form, nullptr, nullptr));
    }
}

TEST(WriteAttribute, LetsTravelWhatTheCallbackThrows) {
    const OvWriteFunction broken = [](void*, const void*, long) -> int {
        throw std::runtime_error("the stream broke");
    };
    EXPECT_THROW(writeAttribute(IntAttribute(1), kContent, kBinary, nullptr, broken),
                 std::runtime_error);
}

}  // namespace
