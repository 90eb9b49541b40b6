// SPDX-License-Identifier: Apache-2.0
#include "ProceduralTest.h"

#include <gtest/gtest.h>

#include <clocale>
#include <locale>
#include <string>

using namespace ovtest;

namespace {

struct ForeignDigits : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

/// The locale that new streams have.
class StreamLocale {
public:
    explicit StreamLocale(const std::locale& locale) : old_(std::locale::global(locale)) {}
    ~StreamLocale() { std::locale::global(old_); }
    StreamLocale(const StreamLocale&) = delete;
    StreamLocale& operator=(const StreamLocale&) = delete;

private:
    std::locale old_;
};

/// The locale of the C library.
class ProcessLocale {
public:
    /// The first of these that the machine has, and that has a comma in its numbers.
    ProcessLocale() {
        for (const char* name : {"de_DE.UTF-8", "de_DE.utf8", "fr_FR.UTF-8", "it_IT.UTF-8"}) {
            isForeign_ = isForeign_ || std::setlocale(LC_ALL, name);
        }
    }
    ~ProcessLocale() { std::setlocale(LC_ALL, "C"); }
    ProcessLocale(const ProcessLocale&) = delete;
    ProcessLocale& operator=(const ProcessLocale&) = delete;

    bool isForeign() const { return isForeign_; }

private:
    bool isForeign_ = false;
};

}  // namespace

class ArgumentLocale : public ProceduralTest {
protected:
    ArgumentLocale() { context = {1234567, 1234.5F, 0.25F, {1e6F, 0.5F, 0, 1}, 10000, 20000}; }

    void expectPlainNumbers() {
        const GroupAttribute attrs =
            group({{"args",
                    group({{"i", IntAttribute({1234567, -1234567})},
                           {"f", FloatAttribute(1234.5F)},
                           {"d", DoubleAttribute({1234567.25, 1e30})}})},
                   {"includeCameraInfo", StringAttribute("As Parameters")}});
        EXPECT_EQ(
            " -i 1234567 -1234567 -f 1234.5 -d 1234567.25 1e+30"
            " -cameraInfo_path /root/world/cam/camera -cameraInfo_fov 45 -cameraInfo_near 0.5"
            " -cameraInfo_far 100 -cameraInfo_left -1 -cameraInfo_right 1 -cameraInfo_top 1"
            " -cameraInfo_bottom -1 -cameraInfo_xform 1 0 0 0 0 1 0 0 0 0 1 0 0 0 0 1"
            " -frame 1234567 -shutter 1234.5 0.25 -cropwindow 1000000 0.5 0 1",
            classic(attrs));
        const GroupAttribute read = attributeForm(attrs);
        expectEqual(attrs.getChildByName("args.d"), read.getChildByName("args.d"));
        expectEqual(FloatAttribute(1234567.0F), read.getChildByName("frame"));
        expectEqual(FloatAttribute({1234.5F, 0.25F}, 2), read.getChildByName("shutter"));
        expectEqual(IntAttribute(10000), read.getChildByName("cameraInfo_xres"));
    }
};

TEST_F(ArgumentLocale, DoesNotMatterWhenNewStreamsGroupDigitsAndHaveACommaForThePoint) {
    const StreamLocale foreign(std::locale(std::locale::classic(), new ForeignDigits));
    expectPlainNumbers();
}

TEST_F(ArgumentLocale, DoesNotMatterWhenTheProcessHasAnotherOne) {
    const ProcessLocale foreign;
    if (!foreign.isForeign()) {
        GTEST_SKIP() << "the machine has no locale with a comma in its numbers";
    }
    expectPlainNumbers();
}
