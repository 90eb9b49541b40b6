// SPDX-License-Identifier: Apache-2.0
#include "ProceduralTest.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <new>
#include <stdexcept>
#include <string>

using namespace ovtest;
using testing::ElementsAre;

class StringArguments : public ProceduralTest {
protected:
    std::string written(const Strings& values) {
        return classicArgs({{"n", StringAttribute(values)}});
    }
    std::string written(const std::string& value) { return written(Strings{value}); }
};

TEST_F(StringArguments, StandBareWhenTheyHaveNoBlank) {
    EXPECT_EQ(" -n x", written("x"));
    EXPECT_EQ(" -n /a/b.c", written("/a/b.c"));
    EXPECT_EQ(" -n -x", written("-x"));
}

TEST_F(StringArguments, StandBetweenQuotesWhenTheyAreEmptyOrHaveABlank) {
    EXPECT_EQ(" -n ''", written(""));
    EXPECT_EQ(" -n ' '", written(" "));
    EXPECT_EQ(" -n 'x y'", written("x y"));
    EXPECT_EQ(" -n ' x'", written(" x"));
}

// An oddity: a tab and a new line are no blank.
TEST_F(StringArguments, StandBareWithAnyOtherWhiteSpace) {
    EXPECT_EQ(" -n a\tb", written("a\tb"));
    EXPECT_EQ(" -n a\nb", written("a\nb"));
    EXPECT_EQ(" -n a\r\v\fb", written("a\r\v\fb"));
    EXPECT_EQ(
        " -n a\xC2\xA0"
        "b",
        written("a\xC2\xA0"
                "b"));
}

// An oddity: nothing is escaped.
TEST_F(StringArguments, KeepQuotesThatUnbalanceTheLine) {
    EXPECT_EQ(" -n it's", written("it's"));
    EXPECT_EQ(" -n 'it's so'", written("it's so"));
    EXPECT_EQ(" -n '", written("'"));
    EXPECT_EQ(" -n 'it's \"b\\'", written(Strings{"it's", "\"b\\"}));
}

TEST_F(StringArguments, AreQuotedAsOneListWhenThereAreSeveral) {
    EXPECT_EQ(" -n 'a b c'", written(Strings{"a", "b c"}));
    EXPECT_EQ(" -n ' '", written(Strings{"", ""}));
    EXPECT_EQ(" -n 'a  b'", written(Strings{"a", "", "b"}));
    EXPECT_EQ(" -n 'a b c d'",
              classicArgs({{"n", StringAttribute(Strings{"a", "b", "c", "d"}, 2)}}));
}

TEST_F(StringArguments, AreResolvedForTheFrameWithTheFlag) {
    context.frame = 7;
    classic(group({{"args",
                    group({{"n", StringAttribute("one")},
                           {"m", StringAttribute(Strings{"two", "", "th ree"})}})}}));
    EXPECT_THAT(assets.take(), ElementsAre("one 7 true", "two 7 true", " 7 true", "th ree 7 true"));
}

TEST_F(StringArguments, AreQuotedAsTheyWereResolved) {
    assets.answer("x y", "xy").answer("z", "a b").answer("gone", "");
    EXPECT_EQ(" -n xy", written("x y"));
    EXPECT_EQ(" -n 'a b'", written("z"));
    EXPECT_EQ(" -n ''", written("gone"));
    EXPECT_EQ(" -n 'xy a b '", written(Strings{"x y", "z", "gone"}));
}

TEST_F(StringArguments, AreResolvedByThePluginOfThePlatformWhenNoOtherIsSet) {
    TellingAssets::leave();
    context.frame = 7;
    EXPECT_EQ(" -n /a.0007.exr -frame 7 -shutter 0 0 -cropwindow 0 0 0 0",
              classic(group({{"args", group({{"n", StringAttribute("/a.####.exr")}})}})));
}

TEST_F(StringArguments, StandWithoutAValueWhenItCannotBeResolved) {
    assets.failFor("bad");
    EXPECT_EQ(" -n ", written("bad"));
    EXPECT_THAT(takeTold(),
                ElementsAre("asset resolve failed on  'bad' when building an procedural call."));
    EXPECT_EQ(
        std::string(" -n  -m 1") + kTail,
        classic(group({{"args", group({{"n", StringAttribute("bad")}, {"m", IntAttribute(1)}})}})));
}

// An oddity: there is a quote too few.
TEST_F(StringArguments, EndBeforeTheFirstValueOfAListThatCannotBeResolvedAndWithoutAQuote) {
    const Strings list = {"one", "two", "three"};
    const Strings lines = {" -n '", " -n 'one ", " -n 'one two "};
    for (std::size_t i = 0; i < list.size(); ++i) {
        TellingAssets::fresh().failFor(list[i]);
        EXPECT_EQ(lines[i], written(list)) << list[i];
        EXPECT_EQ(i + 1, assets.take().size()) << "what stands behind it is not asked for";
        EXPECT_THAT(takeTold(),
                    ElementsAre("asset resolve failed on  '" + list[i] +
                                "' when building an procedural call."));
    }
}

TEST_F(StringArguments, EndAtTheSamePlaceWithoutACallback) {
    callback = nullptr;
    assets.failFor("bad");
    EXPECT_EQ(" -n ", written("bad"));
    EXPECT_EQ(" -n '", written(Strings{"bad", "b", "c"}));
    EXPECT_EQ(" -n 'first ", written(Strings{"first", "bad", "c"}));
    EXPECT_EQ(" -n 'first second ", written(Strings{"first", "second", "bad"}));
}

TEST_F(StringArguments, AreFollowedByTheNextOnesAsUsual) {
    assets.failFor("bad");
    EXPECT_EQ(" -n 'a  -m 'x y' -o ' -p  -q 1",
              classicArgs({{"n", StringAttribute(Strings{"a", "bad", "c"})},
                           {"m", StringAttribute("x y")},
                           {"o", StringAttribute(Strings{"bad", "b"})},
                           {"p", StringAttribute("bad")},
                           {"q", IntAttribute(1)}}));
    EXPECT_EQ(3U, takeTold().size());
}

TEST_F(StringArguments, TellTheValueAsItWasAskedForAndTheProducer) {
    assets.failFor("it's a\nvalue");
    written("it's a\nvalue");
    ASSERT_EQ(1U, told().size());
    EXPECT_EQ("asset resolve failed on  'it's a\nvalue' when building an procedural call.",
              told().front().first);
    EXPECT_EQ(producer, told().front().second);
    told().clear();
}

TEST_F(StringArguments, MayFailWithAnyException) {
    struct NoException {};
    const std::function<void()> failures[] = {[] { throw std::runtime_error("x"); },
                                              [] { throw std::logic_error("x"); },
                                              [] { throw std::bad_alloc(); },
                                              [] { throw 7; },
                                              [] { throw "text"; },
                                              [] { throw NoException(); }};
    for (const auto& fail : failures) {
        assets.failFor("bad", fail);
        EXPECT_EQ(" -n ", written("bad"));
        EXPECT_EQ(" -n 'a ", written(Strings{"a", "bad"}));
        EXPECT_EQ(2U, takeTold().size());
    }
}

TEST_F(StringArguments, LetWhatTheCallbackThrowsTravel) {
    assets.failFor("bad");
    callback = [](const std::string& message, SYLVAR::GeometryProducerPtr) {
        throw std::domain_error(message);
    };
    EXPECT_THROW(written("bad"), std::domain_error);
    EXPECT_THROW(written(Strings{"a", "bad"}), std::domain_error);
}
