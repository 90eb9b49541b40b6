// SPDX-License-Identifier: Apache-2.0
#include "support/LocationReading.h"
#include "support/RuntimeCounts.h"

#include <gtest/gtest.h>

using namespace ovtest;
using namespace Sylvar3::internal::OvAttribute;

namespace {

constexpr int kCopies = 20'000;

/// What a copy has of its own: a group of one matrix, and its place among the attributes.
constexpr std::int64_t kTransformBytes = 8 + 32 + 8 + 24 + 16 * 8;

/// The path of a location is a name and a place for it, where the location above lies.
constexpr std::int64_t kPlaceOfChildBytes = 8;

constexpr std::int64_t kMostOtherBytes = 200;

/// A model as an importer makes it, of one location with two below it.
StaticScene model() {
    StaticScene scene;
    for (const char* const path : {"/root/model", "/root/model/body", "/root/model/body/wheel"}) {
        scene.set(path, "type", "mesh")
            .set(path, "source", GroupBuilder().set("file", StringAttribute("a.obj")).build())
            .set(path, "geometry", GroupBuilder().set("points", FloatAttribute(1.0F)).build())
            .set(path, "bound", DoubleAttribute(std::vector<double>(6, 0.5)))
            .set(path, "material", GroupBuilder().set("style", StringAttribute("network")).build());
    }
    return scene;
}

/// What the store takes for each copy, apart from its path, from its transform, and from the path
/// of its one child.
std::int64_t bytesOfACopy(const SylvarRuntime::Client& client, const std::string& parent) {
    client.cookLocation("/root/model/body/wheel");
    const std::vector<std::string> names = childrenOf(client.cookLocation(parent));
    const std::int64_t before = RuntimeCounts(client).store("bytes");
    std::int64_t copies = 0;
    for (const std::string& name : names) {
        if (name != "model") {
            EXPECT_TRUE(client.cookLocation(parent + "/" + name).doesLocationExist());
            ++copies;
        }
    }
    EXPECT_EQ(kCopies, copies);
    return (RuntimeCounts(client).store("bytes") - before) / copies - kTransformBytes -
           kPlaceOfChildBytes;
}

}  // namespace

TEST(CopyMemory, OfAnInstanceIsItsPathItsTransformAndLittleElse) {
    const auto client =
        openOver(model(),
                 "instance",
                 Args()
                     .set("prototypes", "/root/model")
                     .set("parent", "/root/instances")
                     .set("positions", DoubleAttribute(std::vector<double>(3 * kCopies, 0.5))));
    EXPECT_GE(kMostOtherBytes, bytesOfACopy(*client, "/root/instances"));
}

TEST(CopyMemory, OfADuplicateIsItsPathItsTransformAndLittleElse) {
    const auto client = openOver(model(),
                                 "duplicate",
                                 Args()
                                     .set("source", "/root/model")
                                     .set("copies", kCopies)
                                     .set("transform", DoubleAttribute(translation(1, 0, 0))));
    EXPECT_GE(kMostOtherBytes, bytesOfACopy(*client, "/root"));
}

TEST(CopyMemory, OfALocationBelowACopyIsLittleMoreThanANode) {
    const auto client =
        openOver(model(), "duplicate", Args().set("source", "/root/model").set("copies", kCopies));
    client->cookLocation("/root/model/body/wheel");
    for (int i = 1; i <= kCopies; ++i) {
        client->cookLocation("/root/model_" + std::to_string(i));
    }
    const std::int64_t before = RuntimeCounts(*client).store("bytes");
    for (int i = 1; i <= kCopies; ++i) {
        client->cookLocation("/root/model_" + std::to_string(i) + "/body/wheel");
    }
    EXPECT_GE(2 * 100, (RuntimeCounts(*client).store("bytes") - before) / kCopies);
}
