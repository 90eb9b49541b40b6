// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/OpTreeDescription.h>

#include "support/AttributeBytes.h"
#include "support/OrdinaryUser.h"
#include "support/RuntimeTest.h"
#include "support/SuiteScope.h"

#include <stdexcept>

#include <sys/stat.h>

using namespace SYLVAR;
using namespace Sylvar3::internal::OvAttribute;

namespace {

class OpTreeDescription : public ovtest::RuntimeTest {
protected:
    OpTreeDescription() { testing::internal::CaptureStderr(); }
    ~OpTreeDescription() override {
        EXPECT_EQ(Names(), logs.take());
        EXPECT_EQ(Names(), fake.take());
    }

    static std::string told() { return testing::internal::GetCapturedStderr(); }
};

std::string thrownBy(const std::string& filename) {
    try {
        LoadOpTreeDescriptionFromFile(filename, false);
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return "nothing";
}

/// The table of functions is not there for as long as it lives.
class NoSuite {
public:
    NoSuite() { Attribute::_attrSuite = nullptr; }
    ~NoSuite() { Attribute::_attrSuite = OvGetAttributeSuite(); }
};

}  // namespace

TEST_F(OpTreeDescription, IsTheGroupInTheFileWhateverTheFlag) {
    const GroupAttribute tree = freshTree();
    for (const auto form : {AttributeForm::Binary, AttributeForm::Text}) {
        const std::string name = freshFile(ovtest::bytesOf(tree, form, AttributeContent::OpTree));
        EXPECT_EQ(tree.getHash(), LoadOpTreeDescriptionFromFile(name, false).getHash());
        EXPECT_EQ(tree.getHash(), LoadOpTreeDescriptionFromFile(name, true).getHash());
    }
    EXPECT_EQ("", told());
}

TEST_F(OpTreeDescription, OfAMissingFileIsNullAndToldOnTheErrorStream) {
    const std::string name = freshName();
    for (const bool flag : {false, true}) {
        EXPECT_FALSE(LoadOpTreeDescriptionFromFile(name, flag));
    }
    const std::string line =
        "LoadOpTreeDescriptionFromFile(): Op tree file \"" + name + "\" does not exist.\n";
    EXPECT_EQ(line + line, told());
}

TEST_F(OpTreeDescription, OfTheEmptyNameIsThatOfAMissingFile) {
    EXPECT_FALSE(LoadOpTreeDescriptionFromFile("", false));
    EXPECT_EQ("LoadOpTreeDescriptionFromFile(): Op tree file \"\" does not exist.\n", told());
}

TEST_F(OpTreeDescription, WithoutAnAttributeLibraryIsNullAndToldOnTheErrorStream) {
    const std::string name = freshFile("");
    {
        const NoSuite none;
        EXPECT_FALSE(LoadOpTreeDescriptionFromFile(name, false).isValid());
    }
    EXPECT_EQ("LoadOpTreeDescriptionFromFile(): OvAttribute suite is null!\n", told());
}

TEST_F(OpTreeDescription, LooksForTheFileBeforeTheAttributeLibrary) {
    const std::string name = freshName();
    {
        const NoSuite none;
        EXPECT_FALSE(LoadOpTreeDescriptionFromFile(name, false).isValid());
    }
    EXPECT_EQ("LoadOpTreeDescriptionFromFile(): Op tree file \"" + name + "\" does not exist.\n",
              told());
}

TEST_F(OpTreeDescription, ThrowsForAFileThatIsThereAndCannotBeOpened) {
    const std::string name = freshFile("x");
    ::chmod(name.c_str(), 0);
    {
        const ovtest::OrdinaryUser ordinary;
        EXPECT_EQ("Error opening file: " + name, thrownBy(name));
    }
    EXPECT_EQ("", told());
}

TEST_F(OpTreeDescription, IsNullWithoutAMessageForAnythingElse) {
    struct Row {
        const char* what;
        std::string bytes;
    };
    const Row rows[] = {{"empty", ""},
                        {"no attribute", "anything else"},
                        {"no group", ovtest::binaryOf(IntAttribute(1))},
                        {"cut", ovtest::binaryOf(freshTree()).substr(0, 20)}};
    for (const Row& row : rows) {
        EXPECT_FALSE(LoadOpTreeDescriptionFromFile(freshFile(row.bytes), false)) << row.what;
    }
    EXPECT_FALSE(LoadOpTreeDescriptionFromFile(OV_TEST_OUTPUT_DIR, false)) << "a directory";
    EXPECT_EQ("", told());
}

TEST_F(OpTreeDescription, TakesTheNameAsItIs) {
    EXPECT_FALSE(LoadOpTreeDescriptionFromFile("~", false));
    EXPECT_FALSE(LoadOpTreeDescriptionFromFile("$HOME", false));
    EXPECT_EQ(
        "LoadOpTreeDescriptionFromFile(): Op tree file \"~\" does not exist.\n"
        "LoadOpTreeDescriptionFromFile(): Op tree file \"$HOME\" does not exist.\n",
        told());
}

TEST_F(OpTreeDescription, LetsThroughWhatTheReaderThrows) {
    const std::string name = freshFile("x");
    OvAttributeSuite suite = *OvGetAttributeSuite();
    suite.readStream = [](void*, OvReadFunction) -> OvAttributeStruct* {
        throw std::runtime_error("fault of readStream");
    };
    {
        const ovtest::SuiteScope scope(suite);
        EXPECT_EQ("fault of readStream", thrownBy(name));
    }
    EXPECT_EQ("", told());
}

TEST_F(OpTreeDescription, GivesTheReaderAZeroReadForAnEmptyFile) {
    static std::vector<long> counts;
    counts.clear();
    const std::string name = freshFile("");
    OvAttributeSuite suite = *OvGetAttributeSuite();
    suite.readStream = [](void* stream, OvReadFunction read) -> OvAttributeStruct* {
        char buffer[16];
        counts.push_back(read(stream, buffer, sizeof buffer));
        return nullptr;
    };
    {
        const ovtest::SuiteScope scope(suite);
        EXPECT_FALSE(LoadOpTreeDescriptionFromFile(name, false).isValid());
    }
    EXPECT_THAT(counts, testing::ElementsAre(0));
    EXPECT_EQ("", told());
}
