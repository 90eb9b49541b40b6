// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/DataAttribute.h>
#include <SylvarPlatform/GroupAttribute.h>

#include "support/AttributeBytes.h"
#include "unit/Platform/BinaryFileParts.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <string>
#include <vector>

namespace {

using namespace Sylvar3::internal::OvAttribute;
using ovtest::BinaryFileParts;

constexpr std::uint8_t kTimed = 2;
constexpr std::uint32_t kMost = std::numeric_limits<std::uint32_t>::max();

std::string errorOf(const BinaryFileParts& parts) {
    const AttributeReadResult read = ovtest::readBytes(parts.bytes());
    EXPECT_EQ(read.error.empty(), read.attribute.isValid());
    EXPECT_EQ(AttributeForm::Binary, read.form);
    return read.error;
}

/// {"a": 7, "b": null, "c": "text"}, with everything in its place.
BinaryFileParts soundFile() {
    BinaryFileParts parts;
    parts.addShape({"a", "b", "c"});
    parts.addInt(7);
    parts.addString("text");
    parts.addGroup(0, {1, 0, 2});
    return parts;
}

TEST(BinaryFileParts, MakesASoundFile) {
    const AttributeReadResult read = ovtest::readBytes(soundFile().bytes());
    EXPECT_EQ("", read.error);
    EXPECT_EQ(
        GroupAttribute({{"a", IntAttribute(7)}, {"b", Attribute()}, {"c", StringAttribute("text")}},
                       false)
            .getHash(),
        read.attribute.getHash());
}

struct Damage {
    const char* error;
    std::function<void(BinaryFileParts&)> make;
};

void expectErrors(const std::vector<Damage>& rows) {
    for (std::size_t i = 0; i < rows.size(); ++i) {
        BinaryFileParts parts = soundFile();
        rows[i].make(parts);
        EXPECT_EQ(std::string("The binary file is malformed: ") + rows[i].error + ".",
                  errorOf(parts))
            << "row " << i;
    }
}

TEST(MalformedBinary, IsOfAnotherVersionOrContent) {
    expectErrors({
        {"it has the version 0, and this reader knows 1", [](auto& parts) { parts.version = 0; }},
        {"it has the version 2, and this reader knows 1", [](auto& parts) { parts.version = 2; }},
        {"it does not say what it holds", [](auto& parts) { parts.content = 3; }},
        {"it does not say what it holds", [](auto& parts) { parts.content = 255; }},
    });
}

TEST(MalformedBinary, HoldsNoAttribute) {
    EXPECT_EQ("The binary file is malformed: it holds no attribute.", errorOf(BinaryFileParts()));
}

TEST(MalformedBinary, HasAGroupThatRefersForwardOrToItself) {
    const char* const forward = "a group refers to an attribute that does not stand in front of it";
    expectErrors({
        {forward,
         [](auto& parts) {
             parts.children = {3, 0, 2};
         }},
        {forward,
         [](auto& parts) {
             parts.children = {1, 4, 2};
         }},
        {forward,
         [](auto& parts) {
             parts.children = {1, 0, kMost};
         }},
        {forward,
         [](auto& parts) {
             parts.entries.insert(parts.entries.begin(), parts.entries.back());
             parts.children.insert(parts.children.begin(), {2, 0, 0});
         }},
    });
}

TEST(MalformedBinary, HasAGroupWithoutNames) {
    const char* const error = "a group has names that are not there";
    expectErrors({
        {error, [](auto& parts) { parts.addGroup(1, {}); }},
        {error, [](auto& parts) { parts.addGroup(kMost, {}); }},
    });
}

TEST(MalformedBinary, HasAnEntryThatNoAttributeCanBe) {
    const char* const error = "an entry is neither a group nor a possible data attribute";
    const auto entry = [](std::uint8_t kind,
                          std::uint32_t tupleSize,
                          std::uint32_t samples,
                          std::uint64_t values) {
        return [=](BinaryFileParts& parts) {
            parts.entries.emplace_back(kind, kTimed, tupleSize, samples, 0U, values);
            parts.times.assign(4, 0.0F);
        };
    };
    constexpr std::uint64_t kMostValues = std::numeric_limits<std::uint64_t>::max();
    expectErrors({
        {error, entry(0, 1, 1, 0)},
        {error, entry(6, 1, 1, 0)},
        {error, entry(255, 1, 1, 0)},
        {error, entry(1, 0, 1, 0)},
        {error, entry(1, 0x80000000U, 1, 0)},
        {error, entry(1, 1, 0x80000000U, 0)},
        {error, entry(1, 1, 0, 1)},
        {error, entry(4, 1, 0, 5)},
        {error, entry(3, 1, 1, kMostValues)},
        {error, entry(3, 1, 1, std::uint64_t{1} << 63)},
    });
}

TEST(MalformedBinary, HasSeveralSamplesWithoutTimes) {
    expectErrors({{"an attribute of several samples has no times",
                   [](auto& parts) { parts.addData(1, 0, 2); }}});
}

TEST(MalformedBinary, HasCountsThatAreTooLong) {
    constexpr std::uint64_t kHuge = std::uint64_t{1} << 62;
    expectErrors({
        {"its ints end too early", [](auto& parts) { parts.ints.clear(); }},
        {"its ints end too early", [](auto& parts) { parts.addData(1, 1); }},
        {"its floats end too early", [](auto& parts) { parts.addData(2, kHuge); }},
        {"its doubles end too early", [](auto& parts) { parts.addData(3, 1); }},
        {"its strings end too early", [](auto& parts) { parts.addData(4, 1); }},
        {"its strings end too early", [](auto& parts) { parts.addData(4, kHuge); }},
        {"its strings end too early", [](auto& parts) { parts.stringLengths[0] = 5; }},
        {"its strings end too early", [](auto& parts) { parts.stringLengths[0] = kMost; }},
        {"its strings end too early", [](auto& parts) { parts.stringText.pop_back(); }},
        {"its times end too early", [](auto& parts) { parts.addData(1, 0, 1, kTimed); }},
        {"its times end too early", [](auto& parts) { parts.addData(1, 0, 0x7fffffff, kTimed); }},
        {"its children end too early", [](auto& parts) { parts.children.pop_back(); }},
        {"its children end too early", [](auto& parts) { parts.addGroup(0, {}); }},
        {"its names end too early", [](auto& parts) { parts.shapeSizes[0] = 4; }},
        {"its names end too early", [](auto& parts) { parts.shapeSizes[0] = kMost; }},
        {"its names end too early", [](auto& parts) { parts.shapeSizes.push_back(1); }},
        {"its names end too early", [](auto& parts) { parts.nameLengths[2] = 2; }},
        {"its names end too early", [](auto& parts) { parts.nameLengths[0] = kMost; }},
    });
}

TEST(MalformedBinary, MultipliesToMoreThanAnyFile) {
    expectErrors({
        {"an entry is larger than any file",
         [](auto& parts) {
             parts.addData(2, std::uint64_t{1} << 62, 4, kTimed);
             parts.times.assign(4, 0.0F);
         }},
        {"its doubles end too early",
         [](auto& parts) {
             parts.addData(3, std::uint64_t{1} << 61, 4, kTimed);
             parts.times.assign(4, 0.0F);
         }},
    });
}

TEST(MalformedBinary, HoldsMoreThanItsEntriesTake) {
    expectErrors({
        {"it holds children that nothing refers to",
         [](auto& parts) { parts.children.push_back(0); }},
        {"it holds names that nothing refers to",
         [](auto& parts) { parts.nameLengths.push_back(0); }},
        {"it holds names that nothing refers to", [](auto& parts) { parts.nameText += "x"; }},
        {"it holds names that nothing refers to",
         [](auto& parts) {
             parts.shapeSizes.assign({3, 0, 0, 0});
         }},
        {"it holds times that nothing refers to", [](auto& parts) { parts.times = {0.0F}; }},
        {"it holds ints that nothing refers to", [](auto& parts) { parts.ints.push_back(0); }},
        {"it holds floats that nothing refers to", [](auto& parts) { parts.floats = {0.0F}; }},
        {"it holds doubles that nothing refers to", [](auto& parts) { parts.doubles = {0.0}; }},
        {"it holds strings that nothing refers to",
         [](auto& parts) { parts.stringLengths.push_back(0); }},
        {"it holds strings that nothing refers to", [](auto& parts) { parts.stringText += "x"; }},
    });
}

TEST(MalformedBinary, HasANulInAString) {
    expectErrors({{"a string holds a NUL", [](auto& parts) { parts.stringText[1] = '\0'; }},
                  {"a string holds a NUL", [](auto& parts) { parts.stringText[3] = '\0'; }}});
}

TEST(MalformedBinary, HasOneNameTwice) {
    const char* const error = "a group has one name twice";
    expectErrors({
        {error, [](auto& parts) { parts.nameText = "aba"; }},
        {error,
         [](auto& parts) {
             parts.nameText = "ab";
             parts.nameLengths = {0, 2, 0};
         }},
        {error,
         [](auto& parts) {
             parts.addShape({"x", "x"});
         }},
    });
}

TEST(MalformedBinary, LacksItsEntries) {
    flatbuffers::FlatBufferBuilder buffer;
    ovtest::File::AttributeFileBuilder file(buffer);
    file.add_version(1);
    const auto table =
        flatbuffers::Offset<ovtest::File::AttributeFile>(buffer.EndTable(buffer.GetSize()));
    buffer.Finish(table, ovtest::File::AttributeFileIdentifier());
    const AttributeReadResult read =
        readAttributeBytes(buffer.GetBufferPointer(), buffer.GetSize());
    EXPECT_FALSE(read.attribute);
    EXPECT_EQ("The binary file is malformed: it is cut short, or its sizes do not fit together.",
              read.error);
}

TEST(MalformedBinary, IsTheIdentifierAlone) {
    for (const char* rest : {"", "x", "xxxxxxxxxxxxxxxx"}) {
        const AttributeReadResult read = ovtest::readBytes(std::string("\x10\0\0\0OVAT", 8) + rest);
        EXPECT_FALSE(read.attribute);
        EXPECT_EQ(
            "The binary file is malformed: it is cut short, or its sizes do not fit together.",
            read.error);
    }
}

TEST(BinaryForm, TakesVectorsThatAreAbsentForEmptyOnes) {
    flatbuffers::FlatBufferBuilder buffer;
    const std::vector<ovtest::File::Entry> entries = {
        ovtest::File::Entry(4, 0, 1, 1, 0, std::uint64_t{0})};
    const auto vector = buffer.CreateVectorOfStructs(entries);
    ovtest::File::AttributeFileBuilder file(buffer);
    file.add_version(1);
    file.add_entries(vector);
    ovtest::File::FinishAttributeFileBuffer(buffer, file.Finish());
    const AttributeReadResult read =
        readAttributeBytes(buffer.GetBufferPointer(), buffer.GetSize());
    EXPECT_EQ("", read.error);
    EXPECT_EQ(StringAttribute(std::vector<std::string>{}).getHash(), read.attribute.getHash());
}

TEST(BinaryForm, TakesANulInANameAndTimesThatASampleNeedNotStore) {
    BinaryFileParts parts;
    parts.addShape({std::string("a\0b", 3)});
    parts.addData(1, 1, 1, kTimed);
    parts.times = {0.0F};
    parts.ints = {7};
    parts.addGroup(0, {1});
    const AttributeReadResult read = ovtest::readBytes(parts.bytes());
    EXPECT_EQ("", read.error);
    EXPECT_EQ(GroupAttribute({{std::string("a\0b", 3), IntAttribute(7)}}, false).getHash(),
              read.attribute.getHash());
}

}  // namespace
