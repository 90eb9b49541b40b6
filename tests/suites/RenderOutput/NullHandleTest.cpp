// SPDX-License-Identifier: Apache-2.0
// What every entry makes of the null handle.
#include "support/RenderOutputTest.h"

using testing::ElementsAre;

namespace {

class NullHandle : public ovtest::RenderOutputTest {
protected:
    static std::string told(const char* text) {
        return text ? "'" + std::string(text) + "'" : "null";
    }
    static std::string told(bool answer) { return answer ? "true" : "false"; }
    static std::string told(int number) { return std::to_string(number); }
    static std::string told(unsigned number) { return std::to_string(number); }
    static std::string told(float number) { return number == 0.0F ? "0" : "not 0"; }
    static std::string told(const void* handle) { return handle ? "not null" : "null"; }

    /// The text of a string attribute.
    static std::string told(OvAttributeStruct* owned) {
        return owned ? "attribute '" + ovtest::takeString(owned) + "'" : "null";
    }

    static constexpr CameraInfoStruct* kCameraHandle = nullptr;
    static constexpr OvShadingNetworkNodesStruct* kNetworkHandle = nullptr;
    static constexpr ShadingNodeDescriptionStruct* kNode = nullptr;
    static constexpr ShadingNodeConnectionDescriptionStruct* kConnection = nullptr;
};

struct Row {
    const char* entry;
    std::string answer;
    const char* expected;
};

}  // namespace

TEST_F(NullHandle, IsAnsweredByEveryEntryAsThatEntrySays) {
    const OvRenderOutputUtilsSuite& t = table;
    const Handle root = at(ovtest::StaticScene().at("/root"));
    for (const Row& row :
         {Row{"getPixelAreaThroughCamera",
              told(t.getPixelAreaThroughCamera(nullptr, "/root/cam", "square_512")),
              "0"},
          Row{"getRenderResolution",
              told(t.getRenderResolution(nullptr, nullptr, nullptr)),
              "attribute 'square_512'"},
          Row{"getCameraPath", told(t.getCameraPath(nullptr)), "attribute ''"},
          Row{"convertTexturesToArbitraryAttr",
              told(t.convertTexturesToArbitraryAttr(nullptr)),
              "null"},
          Row{"getFlattenedMaterialAttr", told(t.getFlattenedMaterialAttr(root, nullptr)), "null"},
          Row{"getShadingNetworkNodesFromAttr",
              told(t.getShadingNetworkNodesFromAttr(nullptr)),
              "null"},
          Row{"getShadingNetworkNode", told(t.getShadingNetworkNode(kNetworkHandle, "a")), "null"},
          Row{"getShadingNodeName", told(t.getShadingNodeName(kNode)), "''"},
          Row{"getShadingNodeType", told(t.getShadingNodeType(kNode)), "''"},
          Row{"getShadingNodeParameterCount", told(t.getShadingNodeParameterCount(kNode)), "0"},
          Row{"getShadingNodeParameterName", told(t.getShadingNodeParameterName(kNode, 3)), "''"},
          Row{"getShadingNodeParameter", told(t.getShadingNodeParameter(kNode, "a")), "null"},
          Row{"getShadingNodeConnectionCount", told(t.getShadingNodeConnectionCount(kNode)), "0"},
          Row{"getShadingNodeConnectionName", told(t.getShadingNodeConnectionName(kNode, 3)), "''"},
          Row{"getShadingNodeConnection", told(t.getShadingNodeConnection(kNode, "a")), "null"},
          Row{"isShadingNodeValid", told(t.isShadingNodeValid(kNode)), "false"},
          Row{"getConnectionName", told(t.getConnectionName(kConnection)), "''"},
          Row{"getConnectionNodeName", told(t.getConnectionNodeName(kConnection)), "''"},
          Row{"getConnectionPortName", told(t.getConnectionPortName(kConnection)), "''"},
          Row{"isConnectionValid", told(t.isConnectionValid(kConnection)), "true"},
          Row{"getCameraInfo", told(t.getCameraInfo(nullptr, "/root/cam")), "null"},
          Row{"getCameraFov", told(t.getCameraFov(kCameraHandle)), "0"},
          Row{"getCameraNear", told(t.getCameraNear(kCameraHandle)), "0"},
          Row{"getCameraFar", told(t.getCameraFar(kCameraHandle)), "0"},
          Row{"getCameraLeft", told(t.getCameraLeft(kCameraHandle)), "0"},
          Row{"getCameraRight", told(t.getCameraRight(kCameraHandle)), "0"},
          Row{"getCameraTop", told(t.getCameraTop(kCameraHandle)), "0"},
          Row{"getCameraBottom", told(t.getCameraBottom(kCameraHandle)), "0"},
          Row{"isCameraOrthographic", told(t.isCameraOrthographic(kCameraHandle)), "false"},
          Row{"getCameraOrthographicWidth", told(t.getCameraOrthographicWidth(kCameraHandle)), "0"},
          Row{"getCameraXform", told(t.getCameraXform(kCameraHandle)), "null"},
          Row{"processLocationDelegate",
              told(t.processLocationDelegate(nullptr, "any", "type", nullptr, nullptr)),
              "false"},
          Row{"getRenderOutputTempLocation",
              told(t.getRenderOutputTempLocation(nullptr, "beauty", "pre_", "exr", 1.0F)),
              "attribute ''"},
          Row{"processTilePath",
              told(t.processTilePath(nullptr, "/a/b.exr")),
              "attribute '/a/b.exr'"}}) {
        EXPECT_EQ(row.expected, row.answer) << row.entry;
    }
}

// An oddity: a connection that is not there is valid, a node is not.
TEST_F(NullHandle, IsAValidConnectionButNoValidNode) {
    EXPECT_TRUE(table.isConnectionValid(nullptr));
    EXPECT_FALSE(table.isShadingNodeValid(nullptr));
}

TEST_F(NullHandle, IsRetainedReleasedAndFreedWithoutEffect) {
    table.freeShadingNetworkNodes(nullptr);
    table.retainShadingNode(nullptr);
    table.releaseShadingNode(nullptr);
    table.retainShadingNodeConnection(nullptr);
    table.releaseShadingNodeConnection(nullptr);
    table.retainCameraInfo(nullptr);
    table.releaseCameraInfo(nullptr);
    EXPECT_THAT(logs.take(), ElementsAre());
}

TEST_F(NullHandle, HasTheSameEmptyTextWheneverItIsAsked) {
    const char* const name = table.getShadingNodeName(nullptr);
    const char* const port = table.getConnectionPortName(nullptr);
    EXPECT_EQ(name, table.getShadingNodeName(nullptr));
    EXPECT_EQ(port, table.getConnectionPortName(nullptr));
}
