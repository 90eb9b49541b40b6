// SPDX-License-Identifier: Apache-2.0
#include "BenchScene.h"

#include <OvSylvarProducers/ThreadAwareGeometryProducer.h>
#include <SylvarPlatform/AttributeFile.h>

#include "support/OpTree.h"
#include "support/RuntimeWalk.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>

namespace ovbench {

using namespace Sylvar3::internal::OvAttribute;
using ovtest::Args;
using ovtest::OpTree;

GroupAttribute generated(std::int64_t locations, int seed) {
    return Args()
        .set("breadth", 32)
        .set("depth", 32)
        .set("count", static_cast<int>(locations))
        .set("seed", seed);
}

GroupAttribute generatedTree(std::int64_t locations, int seed) {
    return OpTree().op("g", "generate", generated(locations, seed)).group();
}

GroupAttribute chainOfOps(int count) {
    OpTree tree;
    tree.op("op0", "generate", Args().set("depth", 2));
    for (int i = 1; i < count; ++i) {
        tree.op("op" + std::to_string(i),
                "setAttributes",
                Args()
                    .set("paths", std::vector<std::string>{"/root/c" + std::to_string(i % 32)})
                    .set("values", GroupBuilder().set("value", IntAttribute(i)).build()),
                {"op" + std::to_string(i - 1)});
    }
    return tree.group();
}

double bytesPerLocation(GeometryProducer& location, std::int64_t locations) {
    const std::string answer = ovtest::query(*location.getClient()->getRuntime(), "getStatistics");
    const std::string key = "\"bytes\":";
    return std::strtod(answer.c_str() + answer.find(key) + key.size(), nullptr) /
           static_cast<double>(locations);
}

namespace {

GroupAttribute storedLocation(GeometryProducer& location) {
    GroupBuilder children(GroupBuilder::Mode::Flat);
    for (auto child = location.getFirstChild(false); child; child = child->getNextSibling(false)) {
        children.set(child->getName(), storedLocation(*child));
    }
    return GroupBuilder(GroupBuilder::Mode::Flat)
        .set("a", location.getAttribute(nullptr))
        .set("c", children.build())
        .build();
}

}  // namespace

StoredScene::StoredScene(std::int64_t locations)
    : filename_((std::filesystem::temp_directory_path() /
                 ("ovbench-" + std::to_string(std::rand()) + ".optree"))
                    .string()) {
    const auto root =
        SYLVAR::CreateThreadAwareGeometryProducer(generatedTree(locations, 5), "/root");
    const std::string fault = writeAttributeFile(
        storedLocation(*root), AttributeContent::StaticScene, AttributeForm::Binary, filename_);
    root->getClient()->getRuntime()->finalize();
    if (!fault.empty()) {
        throw std::runtime_error(fault);
    }
}

StoredScene::~StoredScene() {
    std::remove(filename_.c_str());
}

void StoredScene::touch() const {
    std::filesystem::last_write_time(filename_, std::filesystem::file_time_type::clock::now());
}

GroupAttribute StoredScene::opTree() const {
    return OpTree().op("load", "load", Args().set("file", filename_)).group();
}

void tellPerLocation(benchmark::State& state, std::int64_t locations) {
    state.SetItemsProcessed(state.iterations() * locations);
    state.counters["s/location"] = benchmark::Counter(
        static_cast<double>(locations),
        benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

}  // namespace ovbench
