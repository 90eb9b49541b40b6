// SPDX-License-Identifier: Apache-2.0
// What is cooked when one location is asked for.
#include "support/LocationReading.h"
#include "support/RuntimeCounts.h"

#include <gtest/gtest.h>

using namespace ovtest;
using namespace Sylvar3::internal::OvAttribute;

namespace {

using Names = std::vector<std::string>;

/// Above the top locations, /root, /root/c3, and /root/c3/c4.
constexpr const char* kPath = "/root/c3/c4";
constexpr std::int64_t kChain = 4;

GroupAttribute scene(int seed) {
    return Args().set("seed", seed).set("breadth", 8).set("depth", 4);
}

GroupAttribute oneMatrix() {
    return Args()
        .set("prototypes", "/root/c1")
        .set("parent", "/root/copies")
        .set("matrices", DoubleAttribute(translation(1, 2, 3)));
}

struct Row {
    const char* type;
    GroupAttribute arguments;
};

/// Every op type that looks at a scene, with patterns that could match anywhere.
std::vector<Row> allOps() {
    const Args everywhere = Args().set("paths", "/root/**");
    const GroupAttribute value = Args().set("x", 1);
    return {
        {"merge", Args()},
        {"mount", Args().set("at", "/root/mounted")},
        {"prune", Args().set("paths", "/root/**/nowhere")},
        {"isolate", everywhere},
        {"setAttributes", Args(everywhere).set("values", value)},
        {"deleteAttributes", Args(everywhere).set("names", "value*")},
        {"transform", Args(everywhere).set("matrix", DoubleAttribute(translation(1, 2, 3)))},
        {"duplicate", Args().set("source", "/root/c1/c1").set("copies", 100)},
        {"instance", oneMatrix()},
        {"assignMaterial", Args(everywhere).set("material", value)},
        {"renderSettings", Args().set("camera", "/root/cam")},
    };
}

bool takesTwoInputs(const std::string& type) {
    return type == "merge" || type == "mount" || type == "instance";
}

}  // namespace

TEST(OpLaziness, CooksTheChainOfALocationAndNothingBesideWhateverTheOp) {
    int seed = 5000;
    for (const Row& row : allOps()) {
        SCOPED_TRACE(row.type);
        Names inputs = {"scene"};
        OpTree tree;
        tree.op("scene", "generate", scene(++seed));
        if (takesTwoInputs(row.type)) {
            tree.op("other", "scene", Args().set("tree", StaticScene().at("/root/x").group()));
            inputs.emplace_back("other");
        }
        const auto client = tree.op("op", row.type, row.arguments, inputs).open();
        const RuntimeCounts before(*client);
        EXPECT_TRUE(client->cookLocation(kPath).doesLocationExist());
        const RuntimeCounts after(*client);
        EXPECT_EQ(kChain, after.cooks("generate") - before.cooks("generate"));
        EXPECT_EQ(kChain, after.cooks(row.type) - before.cooks(row.type));
    }
}

TEST(OpLaziness, CooksTheChainOfALocationThroughAllOpsAtOnce) {
    OpTree tree;
    tree.op("scene", "generate", scene(5100));
    tree.op("other", "scene", Args().set("tree", StaticScene().at("/root/y").group()));
    std::string below = "scene";
    for (const Row& row : allOps()) {
        Names inputs = {below};
        if (takesTwoInputs(row.type)) {
            inputs.emplace_back("other");
        }
        below = row.type;
        tree.op(below, row.type, row.arguments, inputs);
    }
    const auto client = tree.open();
    const RuntimeCounts before(*client);
    EXPECT_TRUE(client->cookLocation(kPath).doesLocationExist());
    const RuntimeCounts after(*client);
    EXPECT_EQ(kChain, after.cooks("generate") - before.cooks("generate"));
    for (const Row& row : allOps()) {
        EXPECT_EQ(kChain, after.cooks(row.type) - before.cooks(row.type)) << row.type;
    }
}

TEST(OpLaziness, CooksNothingBeforeALocationIsAskedFor) {
    const RuntimeCounts before(*OpTree().op("s", "scene", Args()).open());
    const auto client = OpTree()
                            .op("scene", "generate", scene(5200))
                            .op("copies",
                                "duplicate",
                                Args().set("source", "/root/c1").set("copies", 1000),
                                {"scene"})
                            .open();
    const RuntimeCounts after(*client);
    EXPECT_EQ(0, after.cooks("generate") - before.cooks("generate"));
    EXPECT_EQ(0, after.cooks("duplicate") - before.cooks("duplicate"));
}

TEST(OpLaziness, CooksOfADuplicateItsSourceAlone) {
    const auto client = OpTree()
                            .op("scene", "generate", scene(5300))
                            .op("copies",
                                "duplicate",
                                Args().set("source", "/root/c1/c1").set("copies", 1000),
                                {"scene"})
                            .open();
    const std::int64_t cooks = cooksDuring(*client, "generate", [&] {
        EXPECT_TRUE(client->cookLocation("/root/c1/c1_700/c2").doesLocationExist());
    });
    EXPECT_EQ(5, cooks);  // What is above, /root, /root/c1, /root/c1/c1 and its c2.
}
