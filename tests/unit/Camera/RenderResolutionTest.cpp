// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/RenderResolution.h>

#include "CameraScenes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <climits>
#include <stdexcept>
#include <string>
#include <vector>

using namespace ovtest;
using namespace Sylvar3::internal::OvAttribute;
using SYLVAR::GeometryProducerPtr;
using SYLVAR::GetRenderResolution;
using testing::ThrowsMessage;

namespace {

struct Size {
    std::string name = "untouched";
    int xres = -7;
    int yres = -8;

    bool operator==(const Size& other) const {
        return name == other.name && xres == other.xres && yres == other.yres;
    }
};

std::ostream& operator<<(std::ostream& stream, const Size& size) {
    return stream << '"' << size.name << "\" " << size.xres << " x " << size.yres;
}

const Size kDefault = {"square_512", 512, 512};

Size sizeOf(const GeometryProducerPtr& root) {
    Size size;
    GetRenderResolution(&size.name, &size.xres, &size.yres, root);
    return size;
}

}  // namespace

class RenderResolution : public CameraScene {
protected:
    GeometryProducerPtr set(const Attribute& resolution) const {
        return openScene(StaticScene().set("/root", "renderSettings.resolution", resolution),
                         GetParam());
    }
    GeometryProducerPtr set(const std::string& name) const { return set(StringAttribute(name)); }
};

INSTANTIATE_TEST_SUITE_P(,
                         RenderResolution,
                         testing::Values(Behind::Group, Behind::Runtime),
                         nameOf);

TEST_P(RenderResolution, IsWhatTheTableHasUnderTheNameInTheSettings) {
    EXPECT_EQ((Size{"hd_1080", 1920, 1080}), sizeOf(set("hd_1080")));
    EXPECT_EQ((Size{"pal", 720, 576}), sizeOf(set("pal")));
}

TEST_P(RenderResolution, MayHaveAnyNameAndAnySizeThatTheTableHas) {
    for (const std::string name : {"",
                                   " ",
                                   "640x480",
                                   "'",
                                   "/root",
                                   "a.b",
                                   "gr\xC3\xB6\xC3\x9F"
                                   "e",
                                   "two\nlines"}) {
        for (const int extent : {0, -3, 1, INT_MAX, INT_MIN}) {
            setTable(name, extent, 5);
            EXPECT_EQ((Size{name, extent, 5}), sizeOf(set(name)));
        }
    }
}

TEST_P(RenderResolution, AsksTheTableAnewOnEveryCall) {
    const auto root = set("picture");
    setTable("picture", 1, 2);
    EXPECT_EQ((Size{"picture", 1, 2}), sizeOf(root));
    setTable("picture", 3, 4);
    EXPECT_EQ((Size{"picture", 3, 4}), sizeOf(root));
}

TEST_P(RenderResolution, Is512By512WithoutASetting) {
    EXPECT_EQ(kDefault, sizeOf(openScene(StaticScene().at("/root"), GetParam())));
}

TEST_P(RenderResolution, Is512By512ForASettingThatIsNoString) {
    EXPECT_EQ(kDefault, sizeOf(set(IntAttribute(1080))));
    EXPECT_EQ(kDefault, sizeOf(set(DoubleAttribute(2.0))));
    EXPECT_EQ(kDefault, sizeOf(set(GroupBuilder().set("width", IntAttribute(1)).build())));
}

// An oddity: the default is not looked up.
TEST_P(RenderResolution, DoesNotLookTheDefaultUp) {
    const auto root = openScene(StaticScene().at("/root"), GetParam());
    setTable("square_512", 3, 4);
    EXPECT_EQ(kDefault, sizeOf(root));
    EXPECT_EQ((Size{"square_512", 3, 4}), sizeOf(set("square_512")));
    setTable("other", 3, 4);
    EXPECT_EQ(kDefault, sizeOf(root));
}

TEST_P(RenderResolution, NeedsNoTableWithoutASetting) {
    takeTableAway();
    EXPECT_EQ(kDefault, sizeOf(openScene(StaticScene().at("/root"), GetParam())));
    EXPECT_EQ(kDefault, sizeOf(set(IntAttribute(1080))));
}

TEST_P(RenderResolution, IsThatOfTheEmptyNameForASettingWithoutValues) {
    const auto root = set(StringAttribute(std::vector<std::string>()));
    EXPECT_THAT([&] { sizeOf(root); },
                ThrowsMessage<std::runtime_error>(
                    "FileOut: Error querying resolution table for resolution: ''."));
    setTable("", 6, 7);
    EXPECT_EQ((Size{"", 6, 7}), sizeOf(root));
}

TEST_P(RenderResolution, IsOfTheFirstValueAtTheSampleNearestTimeZero) {
    EXPECT_EQ((Size{"pal", 720, 576}),
              sizeOf(set(StringAttribute(std::vector<std::string>{"pal", "hd_720"}))));
    const TimedSamples<std::string> samples = {{-1.0F, {"hd_720"}}, {0.5F, {"pal"}}};
    EXPECT_EQ((Size{"pal", 720, 576}), sizeOf(set(StringAttribute(samples))));
}

TEST_P(RenderResolution, ThrowsWithoutATable) {
    const auto root = set("pal");
    takeTableAway();
    EXPECT_THAT(
        [&] { sizeOf(root); },
        ThrowsMessage<std::runtime_error>("GetRenderResolution: Error getting resolution table"));
}

// An oddity: nothing here is a file that is written.
TEST_P(RenderResolution, SpeaksOfFileOutWhenTheTableDoesNotKnowTheName) {
    EXPECT_THAT([&] { sizeOf(set("9000x1")); },
                ThrowsMessage<std::runtime_error>(
                    "FileOut: Error querying resolution table for resolution: '9000x1'."));
    EXPECT_THAT([&] { sizeOf(set("it's")); },
                ThrowsMessage<std::runtime_error>(
                    "FileOut: Error querying resolution table for resolution: 'it's'."));
}

TEST_P(RenderResolution, WritesNothingWhenItThrows) {
    Size size;
    EXPECT_THROW(GetRenderResolution(&size.name, &size.xres, &size.yres, set("no")),
                 std::runtime_error);
    takeTableAway();
    EXPECT_THROW(GetRenderResolution(&size.name, &size.xres, &size.yres, set("pal")),
                 std::runtime_error);
    EXPECT_EQ(Size(), size);
}

TEST_P(RenderResolution, PassesOverPlacesThatAreNull) {
    const auto root = set("pal");
    Size size;
    GetRenderResolution(nullptr, &size.xres, nullptr, root);
    EXPECT_EQ((Size{"untouched", 720, -8}), size);
    GetRenderResolution(nullptr, nullptr, &size.yres, root);
    EXPECT_EQ((Size{"untouched", 720, 576}), size);
    GetRenderResolution(&size.name, nullptr, nullptr, root);
    EXPECT_EQ((Size{"pal", 720, 576}), size);
}

TEST_P(RenderResolution, LooksTheNameUpThoughAllPlacesAreNull) {
    EXPECT_NO_THROW(GetRenderResolution(nullptr, nullptr, nullptr, set("pal")));
    EXPECT_THROW(GetRenderResolution(nullptr, nullptr, nullptr, set("no")), std::runtime_error);
}

TEST(RenderResolutionOfNoRoot, Is512By512) {
    EXPECT_EQ(kDefault, sizeOf(nullptr));
    EXPECT_NO_THROW(GetRenderResolution(nullptr, nullptr, nullptr, nullptr));
}
