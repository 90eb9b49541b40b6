// SPDX-License-Identifier: Apache-2.0
#include "suites/RenderOutputView/RenderOutputViewTest.h"
#include "support/Threads.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace SYLVAR::Suites;

class RenderOutputThreads : public ovtest::RenderOutputViewTest {
protected:
    static constexpr int kThreads = 8;

    ShadingNetwork network() const {
        Expected<ShadingNetwork> nodes = output.shadingNetwork(valueOf(R"({
            "style": "network", "terminals": {"surface": "a"},
            "nodes": {
                "a": {"name": "a", "type": "mix", "parameters": {"weight": 5},
                      "connections": {"fg": "out@b", "bg": "out@b"}},
                "b": {"name": "b", "type": "image"}
            }})"));
        return nodes ? *std::move(nodes) : ShadingNetwork();
    }

    static std::string told(const ShadingNetwork& network, const ShadingNode& node) {
        std::string text = node.name() + " " + node.type();
        for (const auto& [name, value] : node.parameters()) {
            text += " " + std::string(name) + "=" + std::to_string(value.get(0));
        }
        for (const auto& [input, source] : node.connections()) {
            text += " " + std::string(input) + "<" + network.node(source.node).type();
        }
        return text;
    }
};

TEST_F(RenderOutputThreads, ReadOneNetworkAndOneNodeAtOnce) {
    const ShadingNetwork nodes = network();
    const auto shared = std::make_shared<const ShadingNode>(nodes.node("a"));
    std::vector<std::string> found(kThreads);
    ovtest::onThreads(kThreads, [&](int i) {
        found[static_cast<std::size_t>(i)] =
            told(nodes, *shared) + "; " + told(nodes, nodes.node("b"));
    });
    EXPECT_EQ(std::vector<std::string>(kThreads, "a mix weight=5 fg<image bg<image; b image"),
              found);
}

TEST_F(RenderOutputThreads, TakeOverNodesThatAnotherThreadMade) {
    const ShadingNetwork nodes = network();
    std::vector<ShadingNode> made(kThreads);
    for (ShadingNode& node : made) {
        node = nodes.node("a");
    }
    ovtest::onThreads(kThreads, [&](int i) {
        const ShadingNode mine = std::move(made[static_cast<std::size_t>(i)]);
        EXPECT_EQ("a", mine.name());
    });
    EXPECT_EQ(1U, ovtest::CountedRenderOutput::handles().open());
}

TEST_F(RenderOutputThreads, CopyACameraThatOneOfThemAskedFor) {
    fake.at("/root", {"cam"}).at("/root/cam");
    for (const char* const name : {"fov", "near", "far", "left", "right", "top", "bottom"}) {
        fake.set("/root/cam",
                 "geometry." + std::string(name),
                 Sylvar3::internal::OvAttribute::DoubleAttribute(2));
    }
    const Expected<Camera> camera = output.camera(open(), "/root/cam");
    ASSERT_TRUE(camera);
    ovtest::onThreads(kThreads, [&](int) {
        const Camera copy = *camera;
        EXPECT_EQ(2.0F, copy.fov);
    });
}

}  // namespace
