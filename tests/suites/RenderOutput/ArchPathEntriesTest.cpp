// SPDX-License-Identifier: Apache-2.0
#include "support/RenderOutputTest.h"

using ovtest::takeStrings;
using testing::ElementsAre;

namespace {

class ArchPathEntries : public ovtest::RenderOutputTest {};

}  // namespace

TEST_F(ArchPathEntries, TellTheArchitecture) {
    EXPECT_THAT(takeStrings(table.getArchString()), ElementsAre("kelnix1"));
}

TEST_F(ArchPathEntries, ReplaceEveryMarkerInAPath) {
    struct Row {
        const char* path;
        const char* expanded;
    };
    for (const Row& row : {Row{"/%ARCH/lib/%ARCH", "/kelnix1/lib/kelnix1"},
                           Row{"%ARCHIVE", "kelnix1IVE"},
                           Row{"/lib/%arch", "/lib/%arch"},
                           Row{"/lib", "/lib"},
                           Row{"", ""}}) {
        EXPECT_THAT(takeStrings(table.expandArchPath(row.path)), ElementsAre(row.expanded));
    }
}
