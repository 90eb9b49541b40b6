// SPDX-License-Identifier: Apache-2.0
// The entries that many threads may call at once, each with iterators and handles of its own.
#include "suites/RenderOutput/ShadingNetwork.h"
#include "support/IteratorTable.h"
#include "support/OpTree.h"
#include "support/Threads.h"

#include <algorithm>

using ovtest::Args;
using ovtest::Camera;
using ovtest::Network;
using ovtest::Node;
using ovtest::OpTree;
using ovtest::StaticScene;
using ovtest::written;

namespace {

constexpr int kThreads = 4;
constexpr int kRounds = 25;

/// A scene of which one location has what every entry reads, below the settings of the render.
StaticScene fullScene() {
    return StaticScene()
        .set("/root", "renderSettings", written(R"({"cameraName": "/root/cam",
            "resolution": "pal", "tempDir": "/tmp", "tileRender": [1, 2]})"))
        .set("/root/cam", "geometry", written(ovtest::kLens))
        .set("/root/a", "material", written(ovtest::kNetwork))
        .set("/root/a", "procedural", written(R"({"args": {"a": 1}})"))
        .set("/root/a",
             "renderSettings.outputs.beauty.rendererSettings.tempRenderLocation",
             "out.##.exr")
        .set("/root/bad", "renderSettings.tileRender", 1);
}

class RenderOutputThreads : public ovtest::ShadingNetworkTest {
protected:
    Handle openRoot() {
        const auto tree = OpTree().op("scene", "scene", Args().set("tree", fullScene().group()));
        return iterators.root(ovtest::iteratorTable().sgCreateRootFromAttr(tree.group().handle()));
    }

    static std::string told(OvAttributeStruct* owned) {
        return owned ? take(owned).getXML() : "null";
    }

    std::string nodeOf(const Network& network) const {
        const Node node = nodeIn(network, "shader");
        const ovtest::Connection connection = connectionOf(node, "base:0");
        return std::string(table.getShadingNodeName(node.get())) + " " +
               table.getShadingNodeParameterName(node.get(), 1) + " " +
               told(table.getShadingNodeParameter(node.get(), "color")) + " " +
               table.getConnectionNodeName(connection.get());
    }

    std::string materialOf(Handle location) const {
        const StringAttribute terminals("surface");
        const std::string material =
            told(table.getFlattenedMaterialAttr(location, terminals.handle()));
        table.emptyFlattenedMaterialCache();
        return material + nodeOf(Network(table.getShadingNetworkNodesFromIterator(location)));
    }

    std::string pathsOf(Handle root, Handle location) const {
        int width = 0;
        int height = 0;
        return told(table.getRenderResolution(root, &width, &height)) + std::to_string(width) +
               told(table.getCameraPath(root)) +
               told(table.getRenderOutputTempLocation(location, "beauty", "", "", 7)) +
               told(table.getRenderOutputTempLocation(root, "beauty", "a", "b", 7)) +
               told(table.processTilePath(location, "/a/b.exr")) +
               told(table.expandArchPath("/%ARCH")) + told(table.getArchString());
    }

    std::string pureOf() const {
        const std::vector<float> samples = {2, 1, 2};
        table.flushPluginCaches("none");
        return told(table.findSampleTimesRelevantToShutterRange(samples.data(), 3, 0, 3)) +
               told(table.convertTexturesToArbitraryAttr(written(R"({"a": "b"})").handle())) +
               told(table.getLocationTypesWithDelegates("none")) +
               (table.processLocationDelegate(nullptr, "none", "none", nullptr, nullptr) ? "yes"
                                                                                         : "no");
    }

    /// What all of these entries answer.
    std::string answersOf(Handle root, Handle a) const {
        return pathsOf(root, a) + materialOf(a) + pureOf() +
               told(table.buildProceduralArgumentsString(
                   a, OV_PROCEDURAL_ARGUMENTS_CLASSIC, "procedural", 1, 0, 0, 0, 0, 0, 0, 1, 1));
    }

    /// The same through iterators of this call alone.
    std::string ownAnswersOf(Handle sharedRoot) const {
        const OvScenegraphIteratorSuite& scene = ovtest::iteratorTable();
        ovtest::Iterators own;
        const Handle a = own.step(scene.sgGetByPath(sharedRoot, "/root/a", 0));
        return answersOf(own.step(scene.sgGetRoot(a)), a);
    }

    /// Expects that threads that ask at once are all answered as one that asks alone.
    template <class Ask>
    static void expectOneAnswer(Ask ask) {
        std::vector<Strings> answers(kThreads);
        ovtest::onThreads(kThreads, [&](int i) {
            for (int round = 0; round < kRounds; ++round) {
                answers[static_cast<std::size_t>(i)].push_back(ask());
            }
        });
        const std::string expected = ask();
        EXPECT_THAT(expected, testing::HasSubstr("shader color"));
        for (const Strings& own : answers) {
            EXPECT_EQ(kRounds, std::count(own.begin(), own.end(), expected));
        }
    }
};

}  // namespace

TEST_F(RenderOutputThreads, AreAnsweredAsOneThreadIs) {
    const Handle root = openRoot();
    expectOneAnswer([&] { return ownAnswersOf(root); });
}

TEST_F(RenderOutputThreads, AreAnsweredAsOneThreadIsAlsoThroughIteratorsThatTheyShare) {
    const Handle root = openRoot();
    const Handle a = iterators.step(ovtest::iteratorTable().sgGetByPath(root, "/root/a", 0));
    expectOneAnswer([&] { return answersOf(root, a); });
}

TEST_F(RenderOutputThreads, ReadOneCameraTogether) {
    const Camera camera(table.getCameraInfo(openRoot(), "/root/cam"));
    std::vector<double> sums(kThreads);
    ovtest::onThreads(kThreads, [&](int i) {
        const double* const xform = table.getCameraXform(camera.get());
        sums[static_cast<std::size_t>(i)] =
            static_cast<double>(table.getCameraFov(camera.get())) + xform[15] +
            (table.isCameraOrthographic(camera.get()) ? 100.0 : 0.0);
    });
    EXPECT_THAT(sums, testing::Each(41.5));
}

TEST_F(RenderOutputThreads, TakeNodesFromOneNetworkEachWithHandlesOfItsOwn) {
    const Network network = networkOf(ovtest::kNetwork);
    const std::string expected = nodeOf(network);
    std::vector<int> same(kThreads);
    ovtest::onThreads(kThreads, [&](int i) {
        for (int round = 0; round < kRounds; ++round) {
            same[static_cast<std::size_t>(i)] += nodeOf(network) == expected;
        }
    });
    EXPECT_THAT(same, testing::Each(kRounds));
}

TEST_F(RenderOutputThreads, LogWhatIsWrongWithATileEach) {
    const Handle root = openRoot();
    ovtest::onThreads(kThreads, [&](int) {
        const OvScenegraphIteratorSuite& scene = ovtest::iteratorTable();
        ovtest::Iterators own;
        const Handle bad = own.step(scene.sgGetByPath(root, "/root/bad", 0));
        take(table.processTilePath(bad, "/a/b.exr"));
    });
    EXPECT_THAT(logs.take(), testing::SizeIs(kThreads));
}
