// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Attributes/Forms/FileForms.h"
#include "Platform/Embedded/Attributes/Forms/Xml/XmlReader.h"
#include "Platform/Embedded/Attributes/Values/Lifetime.h"
#include "support/AllocationPeak.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace {

using namespace Sylvar3::internal::OvAttribute::Embedded;

constexpr std::size_t kSize = 2 << 20;
constexpr double kMost = 16;

/// `begin`, then what `part(i)` gives for i = 0, 1, ... up to the size, then `end`.
std::string repeated(const std::string& begin,
                     const std::function<std::string(std::size_t)>& part,
                     const std::string& end,
                     std::size_t size = kSize) {
    std::string text = begin;
    for (std::size_t i = 0; text.size() < size; ++i) {
        text += part(i);
    }
    return text + end;
}

std::string repeated(const std::string& begin, const std::string& part, const std::string& end) {
    return repeated(
        begin, [&](std::size_t /*i*/) { return part; }, end);
}

/// A name of its own for each number, as short as can be.
std::string shortName(std::size_t i) {
    constexpr std::string_view kLetters =
        "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789 "
        "!#%&'()*+,-./:;<=>?@[]^_`{|}~";
    std::string name;
    do {
        name += kLetters[i % kLetters.size()];
        i /= kLetters.size();
    } while (i != 0);
    return name;
}

struct Case {
    const char* what;
    std::string text;
};

std::string document(const std::string& root) {
    return R"({"format":"sylvar","version":1,"content":"attribute","root":)" + root + "}";
}

std::string nested(const std::string& open, const std::string& close, std::size_t unit) {
    const std::size_t levels = kSize / unit;
    std::string text;
    for (std::size_t i = 0; i < levels; ++i) {
        text += open;
    }
    text += "0";
    for (std::size_t i = 0; i < levels; ++i) {
        text += close;
    }
    return text;
}

std::string nestedNames() {
    std::string text;
    const std::size_t levels = kSize / 8;
    for (std::size_t i = 0; i < levels; ++i) {
        text += "{\"" + shortName(i) + "\":";
    }
    return text + "0" + std::string(levels, '}');
}

double factorOfText(const std::string& text) {
    const std::int64_t peak = ovtest::allocationPeakOf([&] {
        const ReadValue read = readText(text);
        if (read.value) {
            release(*read.value);
        }
    });
    return static_cast<double>(peak) / static_cast<double>(text.size());
}

double factorOfXml(const std::string& xml) {
    const std::int64_t peak = ovtest::allocationPeakOf([&] {
        if (Value* const value = readXml(xml)) {
            release(*value);
        }
    });
    return static_cast<double>(peak) / static_cast<double>(xml.size());
}

const Case kTexts[] = {
    {"open groups", repeated("", "{\"\":", "")},
    {"open groups in a document", document(repeated("", "{\"\":", ""))},
    {"nested groups", document(nested("{\"\":", "}", 5))},
    {"open arrays", document(repeated("", "[", ""))},
    {"ints", document(repeated("[0", ",0", "]"))},
    {"open ints", document(repeated("[0", ",0", ""))},
    {"doubles", document(repeated("[0.5", ",0", "]"))},
    {"typed doubles", document(repeated("{\"$double\":[0", ",0", "]}"))},
    {"typed floats", document(repeated("{\"$float\":[0", ",0", "]}"))},
    {"strings", document(repeated("[\"\"", ",\"\"", "]"))},
    {"empty samples", document(repeated("{\"$float\":[[]", ",[]", "],\"$times\":[0]}"))},
    {"times", document(repeated("{\"$float\":[[]],\"$times\":[0", ",0", "]}"))},
    {"a long string", document(repeated("\"", "x", "\""))},
    {"a long string of escapes", document(repeated("\"", "\\\\xFF", "\""))},
    {"a long name", document(repeated("{\"", "x", "\":0}"))},
    {"children",
     document(repeated(
         "{\"\":0",
         [](std::size_t i) { return ",\"" + shortName(i) + "\":0"; },
         "}"))},
    {"null children",
     document(repeated(
         "{\"\":0",
         [](std::size_t i) { return ",\"" + shortName(i) + "\":null"; },
         "}"))},
    {"string children",
     document(repeated(
         "{\"\":0",
         [](std::size_t i) { return ",\"" + shortName(i) + "\":\"\""; },
         "}"))},
    {"children of one name", document(repeated("{\"\":0", ",\"\":0", "}"))},
    {"empty groups", document(repeated("{\"\":0", ",\"\":{}", "}"))},
    {"children of a few names more than a power of two",
     document(repeated(
         "{\"\":0",
         [](std::size_t i) { return ",\"" + shortName(i) + "\":0"; },
         "}",
         (std::size_t{1} << 18) * 8 + 70000))},
    {"groups of different names",
     document(repeated(
         "{\"\":0",
         [](std::size_t i) { return ",\"\":{\"" + shortName(i) + "\":0}"; },
         "}"))},
    {"nested groups of different names", document(nestedNames())},
    {"comments", document(repeated("", "/**/", "0"))},
};

const Case kXmls[] = {
    {"open groups", repeated("", "<attr type=\"group\">", "")},
    {"open elements", repeated("", "<attr>", "")},
    {"foreign elements", repeated("", "<a/>", "")},
    {"elements", repeated("<attr>", "<attr/>", "</attr>")},
    {"elements and text", repeated("<attr>", "<attr/>x", "</attr>")},
    {"attributes", repeated("<attr", " a=\"\"", "/>")},
    {"nested groups",
     "<attr type=\"group\">" + nested("<attr name=\"\" type=\"group\">", "</attr>", 36) +
         "</attr>"},
    {"ints", repeated("<attr type=\"int\"><sample time=\"0\">", "0 ", "</sample></attr>")},
    {"doubles", repeated("<attr type=\"double\"><sample time=\"0\">", "0 ", "</sample></attr>")},
    {"strings",
     repeated("<attr type=\"string\"><sample time=\"0\">", "<value/>", "</sample></attr>")},
    {"samples", repeated("<attr type=\"int\">", "<sample time=\"0\"/>", "</attr>")},
    {"sections",
     repeated("<attr type=\"string\"><sample time=\"0\"><value>",
              "<![CDATA[]]>",
              "</value></sample></attr>")},
    {"comments", repeated("<attr type=\"group\">", "<!---->", "</attr>")},
    {"children",
     repeated(
         "<attr type=\"group\">",
         [](std::size_t i) { return "<attr name=\"c" + std::to_string(i) + "\" type=\"null\"/>"; },
         "</attr>")},
};

class TextMemory : public testing::Test {
protected:
    void SetUp() override {
        if (!ovtest::isAllocationPeakKnown()) {
            GTEST_SKIP() << "A sanitizer has an allocator of its own.";
        }
    }
};

TEST_F(TextMemory, ReadingATextTakesAtMostSixteenTimesItsSize) {
    for (const Case& row : kTexts) {
        const double factor = factorOfText(row.text);
        EXPECT_LE(factor, kMost) << row.what;
    }
}

TEST_F(TextMemory, ReadingAnXmlTakesAtMostSixteenTimesItsSize) {
    for (const Case& row : kXmls) {
        const double factor = factorOfXml(row.text);
        EXPECT_LE(factor, kMost) << row.what;
    }
}

}  // namespace
