// SPDX-License-Identifier: Apache-2.0
#include "suites/CFrames.h"
#include "support/IteratorTest.h"
#include "support/OrdinaryUser.h"

#include <stdexcept>

#include <sys/stat.h>

namespace {

class IteratorException : public ovtest::IteratorTest {
protected:
    /// The text of what an entry throws through a frame of plain C; "returned" when it throws
    /// nothing.
    std::string thrownThroughC(int entry, Handle handle, const char* text) const {
        int returned = 0;
        try {
            callThroughC(&table, handle, entry, text, &returned);
        } catch (const std::exception& error) {
            return returned == 0 ? error.what() : "returned and threw";
        }
        return returned == 1 ? "returned" : "neither";
    }
};

}  // namespace

TEST_F(IteratorException, OfTheRuntimeTravelsThroughEveryStep) {
    const Handle a = step(table.sgGetFirstChild(openTree(), 0));
    const Handle root = step(table.sgGetRoot(a));
    fake.throwIn("cookLocation");
    EXPECT_EQ("fault of cookLocation", thrownThroughC(kFirstChild, root, nullptr));
    EXPECT_EQ("fault of cookLocation", thrownThroughC(kNextSibling, a, nullptr));
    EXPECT_EQ("fault of cookLocation", thrownThroughC(kChildByName, root, "b"));
    EXPECT_EQ("fault of cookLocation", thrownThroughC(kByPath, root, "/root/b"));
    EXPECT_EQ("fault of cookLocation", thrownThroughC(kFinalize, root, nullptr));
    fake.behave();
    EXPECT_EQ("returned", thrownThroughC(kFinalize, root, nullptr));
    fake.throwIn("finalize");
    EXPECT_EQ("fault of finalize", thrownThroughC(kFinalize, root, nullptr));
    fake.behave();
    fake.throwIn("evict");
    EXPECT_EQ("fault of evict", thrownThroughC(kFirstChild, root, nullptr));
}

TEST_F(IteratorException, OfTheRuntimeIsMetByNothingThatReadsTheLocationAndThoseAboveItAlone) {
    const Handle x = step(table.sgGetByPath(openTree(), "/root/a/x", 0));
    fake.take();
    fake.throwIn("cookLocation");
    for (OvAttributeStruct* const answer : {table.sgGetAttribute(x, ""),
                                            table.sgGetGlobalAttribute(x, "none"),
                                            table.sgGetAttributeNames(x),
                                            table.sgGetGlobalXFormGroup(x),
                                            table.sgGetPotentialChildren(x)}) {
        ovtest::FakeRuntime::Attribute::adopt(answer);
    }
    EXPECT_EQ(Names(), fake.take("cookLocation"));
}

TEST_F(IteratorException, OfANameWithASlashLeavesChildByName) {
    const Handle root = openTree();
    EXPECT_EQ("getChildByName does not support deep child lookups",
              thrownThroughC(kChildByName, root, "a/x"));
    EXPECT_EQ("getChildByName does not support deep child lookups",
              thrownThroughC(kChildByName, root, "../a"));
}

TEST_F(IteratorException, OfAFileThatCannotBeOpenedLeavesTheDescription) {
    const std::string name = freshFile("ops");
    ASSERT_EQ(0, ::chmod(name.c_str(), 0));
    const ovtest::OrdinaryUser ordinary;
    EXPECT_EQ("Error opening file: " + name,
              thrownThroughC(kLoadOpTreeDescription, nullptr, name.c_str()));
}

TEST_F(IteratorException, LeavesNoCountBehind) {
    const Handle root = openTree();
    fake.throwIn("cookLocation");
    EXPECT_THROW(table.sgGetFirstChild(root, 0), std::runtime_error);
    EXPECT_EQ(1, ovtest::countOf(root));
}
