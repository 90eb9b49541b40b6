// SPDX-License-Identifier: Apache-2.0
#include "support/RenderOutputTest.h"

using ovtest::IsWritten;
using ovtest::written;

namespace {

class TextureEntry : public ovtest::RenderOutputTest {
protected:
    Attribute converted(const std::string& textures) const {
        return take(table.convertTexturesToArbitraryAttr(written(textures).handle()));
    }
};

}  // namespace

TEST_F(TextureEntry, MakesArbitraryAttributesOfAssignments) {
    EXPECT_THAT(
        converted(R"({"color": "c.tx", "bump": {"maps": ["a.tx", "b.tx"], "indicies": [0, 1]}})"),
        IsWritten(R"({"color": {"value": "c.tx", "scope": "primitive"},
                      "bump": {"scope": "face", "indexedValue": ["a.tx", "b.tx"],
                               "index": [0, 1]}})"));
}

TEST_F(TextureEntry, MakesAnEmptyGroupOfAnEmptyOne) {
    EXPECT_THAT(converted("{}"), IsWritten(R"({"$inherit": true})"));
    EXPECT_THAT(converted(R"({"number": 3})"), IsWritten(R"({"$inherit": true})"));
}

TEST_F(TextureEntry, MakesNullOfWhatIsNoGroup) {
    EXPECT_EQ(nullptr, table.convertTexturesToArbitraryAttr(nullptr));
    for (const char* const textures : {R"("c.tx")", "3", "2.5", R"({"$string": []})"}) {
        EXPECT_FALSE(converted(textures).isValid()) << textures;
    }
}

TEST_F(TextureEntry, BorrowsItsArgument) {
    const Attribute textures = written(R"({"color": "c.tx"})");
    const Attribute first = take(table.convertTexturesToArbitraryAttr(textures.handle()));
    const Attribute second = take(table.convertTexturesToArbitraryAttr(textures.handle()));
    EXPECT_EQ(first.getHash(), second.getHash());
    EXPECT_THAT(textures, IsWritten(R"({"color": "c.tx"})"));
}
