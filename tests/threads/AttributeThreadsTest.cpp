// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/DataAttribute.h>
#include <SylvarPlatform/GroupBuilder.h>
#include <SylvarPlatform/SampleAccessor.h>

#include "support/AttributeBytes.h"
#include "support/Threads.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace Sylvar3::internal::OvAttribute;
using ovtest::Barrier;
using ovtest::onThreads;

constexpr int kThreads = 8;

/// A tree with values of all kinds; none of its hashes are known yet.
GroupAttribute freshTree() {
    GroupBuilder builder;
    for (int i = 0; i < 64; ++i) {
        const std::string group = "group" + std::to_string(i % 8);
        builder.set(group + ".n" + std::to_string(i), IntAttribute(i));
        builder.set(group + ".text" + std::to_string(i), StringAttribute(std::string(200, 't')));
        builder.set(group + ".m", DoubleAttribute(std::vector<double>(32, i)));
    }
    return builder.build();
}

TEST(AttributeThreads, RetainAndReleaseOneValue) {
    StringAttribute shared("shared");
    onThreads(kThreads, [&](int) {
        for (int i = 0; i < 5000; ++i) {
            const Attribute copy = shared;
            const StringAttribute again = castAttribute<StringAttribute>(copy);
            ASSERT_EQ("shared", again.getValue(""));
        }
    });
    shared = StringAttribute();
}

TEST(AttributeThreads, DropTheLastReferenceOnWhicheverThreadItIs) {
    for (int round = 0; round < 200; ++round) {
        std::vector<Attribute> references(kThreads, freshTree());
        onThreads(kThreads,
                  [&](int thread) { references[static_cast<std::size_t>(thread)] = Attribute(); });
    }
}

TEST(AttributeThreads, AgreeOnAHashThatAllComputeFirst) {
    const Hash expected = freshTree().getHash();
    for (int round = 0; round < 50; ++round) {
        const GroupAttribute tree = freshTree();
        onThreads(kThreads, [&](int thread) {
            if (thread % 2 == 0) {
                tree.getChildByName("group" + std::to_string(thread)).getHash();
            }
            EXPECT_EQ(expected, tree.getHash());
        });
    }
}

TEST(AttributeThreads, ReadOneTreeAtATime) {
    const GroupAttribute tree = freshTree();
    onThreads(kThreads, [&](int) {
        for (int i = 0; i < 500; ++i) {
            const int wanted = i % 64;
            const auto group = tree.getChild<GroupAttribute>("group" + std::to_string(wanted % 8));
            ASSERT_EQ(wanted,
                      group.getChild<IntAttribute>("n" + std::to_string(wanted)).getValue(-1));
            const SampleAccessor<DoubleAttribute> samples(group.getChildByName("m"), 0.0F);
            ASSERT_EQ(32, samples.getNumberOfValues());
            ASSERT_EQ(17, group.getNumberOfChildren());
        }
    });
}

TEST(AttributeThreads, MakeAndDropGroupsOfOneShape) {
    for (int round = 0; round < 20; ++round) {
        onThreads(kThreads, [&](int thread) {
            for (int i = 0; i < 500; ++i) {
                const GroupAttribute group(
                    {{"only here", IntAttribute(thread)}, {"and here", IntAttribute(i)}}, false);
                ASSERT_EQ("only here", group.getChildNameView(0));
                ASSERT_EQ(i, group.getChild<IntAttribute>("and here").getValue(-1));
            }
        });
    }
}

TEST(AttributeThreads, DropTheLastGroupOfAShapeWhileOthersMakeTheFirst) {
    Barrier next(kThreads);
    onThreads(kThreads, [&](int thread) {
        GroupAttribute held;
        for (int round = 0; round < 500; ++round) {
            next.wait();
            if ((thread + round) % 2 == 0) {
                held = GroupAttribute();
            } else {
                held = GroupAttribute({{"passed round", IntAttribute(round)}}, false);
                ASSERT_EQ(round, held.getChild<IntAttribute>("passed round").getValue(-1));
            }
        }
    });
}

TEST(AttributeThreads, BuildTheSameGroupEachWithItsOwnBuilder) {
    const GroupAttribute source = freshTree();
    std::vector<Attribute> built(kThreads);
    onThreads(kThreads, [&](int thread) {
        GroupBuilder builder;
        builder.update(source).set("group0.new", IntAttribute(1)).setGroupInherit(true);
        built[static_cast<std::size_t>(thread)] = builder.build();
    });
    for (const Attribute& one : built) {
        EXPECT_EQ(built[0].getHash(), one.getHash());
    }
}

/// A tree whose values lie in the pages of one block.
GroupAttribute readTree() {
    return castAttribute<GroupAttribute>(
        ovtest::readBytes(ovtest::binaryOf(freshTree())).attribute);
}

TEST(AttributeThreads, HoldAndLeavePagesOfOneBlockAgainAndAgain) {
    const GroupAttribute tree = readTree();
    Barrier next(kThreads);
    onThreads(kThreads, [&](int) {
        for (int round = 0; round < 300; ++round) {
            const std::string number = std::to_string(round % 64);
            const std::string group = "group" + std::to_string(round % 64 % 8);
            next.wait();  // All want the same page, which nobody holds.
            const auto text = tree.getChild<StringAttribute>(group + ".text" + number);
            ASSERT_EQ(200U, text.getValue("").size());
        }
    });
}

TEST(AttributeThreads, KeepTheBlockAliveByTheirOwnValueWhenTheRestIsLetGo) {
    for (int round = 0; round < 50; ++round) {
        GroupAttribute tree = readTree();
        Barrier everyoneHolds(kThreads + 1);
        std::vector<Attribute> held(kThreads);
        onThreads(kThreads + 1, [&](int thread) {
            if (thread == kThreads) {
                everyoneHolds.wait();
                tree = GroupAttribute();
                return;
            }
            const std::string number = std::to_string(thread);
            auto mine = tree.getChild<IntAttribute>("group" + number + ".n" + number);
            everyoneHolds.wait();
            ASSERT_EQ(thread, mine.getValue(-1));
            mine = IntAttribute();
        });
    }
}

TEST(AttributeThreads, PassValuesOfOneBlockFromThreadToThread) {
    GroupAttribute tree = readTree();
    std::vector<std::vector<Attribute>> hands(kThreads);
    for (std::size_t i = 0; i < kThreads; ++i) {
        for (std::int64_t j = 0; j < tree.getNumberOfChildren(); ++j) {
            const auto group = castAttribute<GroupAttribute>(tree.getChildByIndex(j));
            hands[i].push_back(group.getChildByIndex(static_cast<std::int64_t>(i)));
            hands[i].push_back(group);
        }
    }
    tree = GroupAttribute();
    Barrier passed(kThreads);
    onThreads(kThreads, [&](int thread) {
        const auto mine = static_cast<std::size_t>(thread);
        for (int round = 0; round < 50; ++round) {
            std::vector<Attribute> taken = hands[(mine + 1) % kThreads];
            passed.wait();
            std::swap(hands[mine], taken);
            passed.wait();
            taken.clear();
        }
        for (const Attribute& attribute : hands[mine]) {
            ASSERT_NE(Hash(), attribute.getHash());
        }
        hands[mine].clear();
    });
}

TEST(AttributeThreads, ReadAndWriteTheirOwnFilesAtATime) {
    const GroupAttribute tree = freshTree();
    const std::string bytes = ovtest::binaryOf(tree);
    onThreads(kThreads, [&](int) {
        for (int i = 0; i < 20; ++i) {
            const Attribute read = ovtest::readBytes(bytes).attribute;
            ASSERT_EQ(tree.getHash(), read.getHash());
            ASSERT_EQ(bytes, ovtest::binaryOf(read));
        }
    });
}

TEST(AttributeThreads, ReadAndWriteTheirOwnTextsAtATime) {
    const GroupAttribute tree = freshTree();
    const std::string text = ovtest::bytesOf(tree, AttributeForm::Text);
    const std::string xml = tree.getXML();
    onThreads(kThreads, [&](int) {
        for (int i = 0; i < 5; ++i) {
            const Attribute read = ovtest::readBytes(text).attribute;
            ASSERT_EQ(tree.getHash(), read.getHash());
            ASSERT_EQ(text, ovtest::bytesOf(tree, AttributeForm::Text));
            ASSERT_EQ(tree.getHash(), Attribute::parseXML(xml).getHash());
            ASSERT_EQ(xml, tree.getXML());
        }
    });
}

}  // namespace
