// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/ArchPath.h>

#include <gtest/gtest.h>

using namespace SYLVAR;

TEST(ArchPath, IsOfOneArchitecture) {
    EXPECT_EQ("kelnix1", GetArchString());
}

TEST(ArchPath, OfTheEmptyPathIsEmpty) {
    EXPECT_EQ("", ExpandArchPath(""));
}

TEST(ArchPath, WithoutAMarkerIsLeftAlone) {
    EXPECT_EQ("/plugins/lib/a.so", ExpandArchPath("/plugins/lib/a.so"));
    EXPECT_EQ("/plugins/ARCH/%/%%", ExpandArchPath("/plugins/ARCH/%/%%"));
}

TEST(ArchPath, HasEveryMarkerReplaced) {
    EXPECT_EQ("/kelnix1/lib/kelnix1", ExpandArchPath("/%ARCH/lib/%ARCH"));
    EXPECT_EQ("kelnix1kelnix1", ExpandArchPath("%ARCH%ARCH"));
}

TEST(ArchPath, KeepsLettersThatFollowTheMarker) {
    EXPECT_EQ("/kelnix1IVE/kelnix1.so", ExpandArchPath("/%ARCHIVE/%ARCH.so"));
}

TEST(ArchPath, KnowsTheMarkerByItsCase) {
    EXPECT_EQ("/%arch/%Arch", ExpandArchPath("/%arch/%Arch"));
}

TEST(ArchPath, DoesNotLookAgainAtWhatItReplaced) {
    EXPECT_EQ("%kelnix1ARCH", ExpandArchPath("%%ARCHARCH"));
}
