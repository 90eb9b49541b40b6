// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Runtime/Budget.h"
#include "Platform/Embedded/Runtime/ChildNames.h"
#include "Platform/Embedded/Runtime/LocationWriter.h"
#include "Platform/Embedded/Runtime/Session.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

using namespace Sylvar3::internal::OvSylvar::Embedded;

TEST(ParseBytes, ReadsANumberAndItsUnit) {
    struct Row {
        const char* text;
        std::optional<std::int64_t> bytes;
    };
    for (const Row& row : {Row{"0", 0},
                           {"67108864", 67108864},
                           {"1K", 1024},
                           {"64M", 64 * 1024 * 1024},
                           {"2G", std::int64_t{2} << 30},
                           {"9223372036854775807", 9223372036854775807},
                           {"9223372036854775808", std::nullopt},
                           {"8589934592G", std::nullopt},
                           {"", std::nullopt},
                           {"M", std::nullopt},
                           {"-1", std::nullopt},
                           {"-1M", std::nullopt},
                           {"+1", std::nullopt},
                           {" 1", std::nullopt},
                           {"1 ", std::nullopt},
                           {"1m", std::nullopt},
                           {"1MB", std::nullopt},
                           {"1.5M", std::nullopt},
                           {"0x10", std::nullopt},
                           {"many", std::nullopt}}) {
        EXPECT_EQ(row.bytes, parseBytes(row.text)) << row.text;
    }
    EXPECT_EQ(std::nullopt, parseBytes(std::string("1\0", 2)));
}

TEST(ChildNames, FindsEachNameWithAnyHint) {
    for (const std::uint32_t count : {0U, 1U, 7U, 8U, 9U, 10U, 1000U, 100000U}) {
        Session session;
        LocationPage page(session);
        std::vector<std::string> texts;
        for (std::uint32_t i = 0; i < count; ++i) {
            texts.push_back("name" + std::to_string(i));
        }
        LocationWriter out(page);
        out.setChildren({texts.begin(), texts.end()});
        const ChildNames& names = *out.finish(0, {})->names;
        ASSERT_EQ(count, names.count);
        for (std::uint32_t i = 0; i < count; ++i) {
            ASSERT_EQ(texts[i], names[i]);
            ASSERT_EQ(i, names.find(texts[i], i));
            ASSERT_EQ(i, names.find(texts[i], i + 1));
            ASSERT_EQ(i, names.find(texts[i], 4000000000U));
        }
        EXPECT_EQ(-1, names.find("name", 0));
        EXPECT_EQ(-1, names.find("", count));
        EXPECT_EQ(-1, names.find("name" + std::to_string(count), count));
    }
}
