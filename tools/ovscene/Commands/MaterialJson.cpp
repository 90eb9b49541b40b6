// SPDX-License-Identifier: Apache-2.0
#include "Commands/MaterialJson.h"

#include "Print/AttributeJson.h"
#include "Print/JsonOutput.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace ovscene {
namespace {

class MaterialJson {
public:
    MaterialJson(const MaterialView& view, JsonWriter& json)
        : view_(view), json_(json), limit_(view.file) {}

    void write() {
        const MergedMaterial& material = view_.material;
        json_.StartObject();
        writeJsonMember(json_, "file", view_.file);
        writeJsonMember(json_, "path", view_.path);
        writeJsonMember(json_, "type", view_.type);
        writeStyle(material.isNetwork);
        writeTerminals();
        writeChain();
        if (material.isNetwork) {
            writeArray("nodes", view_.network.nodes, &MaterialJson::writeNode);
            writeArray("leftOut", view_.network.leftOut, &MaterialJson::writeLeftOut);
        } else {
            writeChildren();
        }
        writeJsonKey(json_, "material");
        writeAttributeJson(json_, material.group, limit_);
        json_.EndObject();
    }

private:
    template <class Item>
    void writeArray(const char* name,
                    const std::vector<Item>& items,
                    void (MaterialJson::*writeItem)(const Item&)) {
        writeJsonKey(json_, name);
        json_.StartArray();
        for (const Item& item : items) {
            (this->*writeItem)(item);
        }
        json_.EndArray();
    }

    void writeName(const std::string& name) { writeJson(json_, name); }

    void writeStyle(bool isNetwork) {
        writeJsonMember(json_, "style", isNetwork ? "network" : "classic");
    }

    void writeOrigin(std::size_t number) {
        writeJsonMember(json_, "number", static_cast<std::int64_t>(number));
        writeJsonMember(json_, "from", view_.pathOf(number));
    }

    void writeTerminals() {
        writeArray("terminals", view_.material.terminals, &MaterialJson::writeTerminal);
        writeArray("undriven", view_.material.undriven, &MaterialJson::writeName);
    }

    void writeTerminal(const DrivenTerminal& terminal) {
        json_.StartObject();
        writeJsonMember(json_, "name", terminal.name);
        writeJsonMember(json_, view_.material.isNetwork ? "node" : "shader", terminal.driver);
        writeOrigin(terminal.number);
        json_.EndObject();
    }

    void writeChain() {
        writeJsonKey(json_, "chain");
        json_.StartArray();
        for (std::size_t i = 0; i < view_.material.chain.size(); ++i) {
            writeShare(i, view_.material.shares[i]);
        }
        json_.EndArray();
    }

    void writeShare(std::size_t number, const MaterialShare& share) {
        json_.StartObject();
        writeOrigin(number);
        writeStyle(isNetworkMaterial(view_.material.chain[number].group));
        writeArray("gives", share.gives, &MaterialJson::writeName);
        writeJsonMember(json_, "nodes", share.nodes);
        writeJsonKey(json_, "dropped");
        json_.Bool(!share.whyDropped.empty());
        writeJsonMember(json_, "whyDropped", share.whyDropped);
        json_.EndObject();
    }

    void writeChildren() {
        const MergedMaterial& material = view_.material;
        writeJsonKey(json_, "children");
        json_.StartArray();
        for (std::size_t i = 0; i < material.childOrigins.size(); ++i) {
            json_.StartObject();
            writeJsonMember(
                json_, "name", material.group.getChildNameView(static_cast<std::int64_t>(i)));
            writeOrigin(material.childOrigins[i]);
            json_.EndObject();
        }
        json_.EndArray();
    }

    void writeNode(const NetworkNode& node) {
        json_.StartObject();
        writeJsonMember(json_, "name", node.description->getName());
        writeJsonMember(json_, "type", node.description->getType());
        writeParameters(node);
        writeConnections(*node.description);
        json_.EndObject();
    }

    void writeParameters(const NetworkNode& node) {
        writeJsonKey(json_, "parameters");
        json_.StartArray();
        for (const std::string& name : node.description->getParameterNames()) {
            const auto overridden = node.overridden.find(name);
            json_.StartObject();
            writeJsonMember(json_, "name", name);
            if (overridden != node.overridden.end()) {
                writeJsonMember(json_, "setBy", overridden->second);
            }
            writeJsonKey(json_, "value");
            writeAttributeJson(json_, node.description->getParameter(name), limit_);
            json_.EndObject();
        }
        json_.EndArray();
    }

    void writeConnections(const SYLVAR::ShadingNodeDescription& node) {
        writeJsonKey(json_, "connections");
        json_.StartArray();
        for (const std::string& name : node.getConnectionNames()) {
            const auto connection = node.getConnection(name);
            json_.StartObject();
            writeJsonMember(json_, "name", name);
            writeJsonMember(json_, "input", connection->getName());
            writeJsonMember(json_, "node", connection->getConnectedNodeName());
            writeJsonMember(json_, "port", connection->getConnectedPortName());
            json_.EndObject();
        }
        json_.EndArray();
    }

    void writeLeftOut(const LeftOutNode& node) {
        json_.StartObject();
        writeJsonMember(json_, "key", node.key);
        writeJsonMember(json_, "reason", node.reason);
        json_.EndObject();
    }

    const MaterialView& view_;
    JsonWriter& json_;
    VisitLimit limit_;
};

}  // namespace

void printMaterialJson(const MaterialView& view, Output& output) {
    JsonStream stream(output);
    JsonWriter json(stream);
    MaterialJson(view, json).write();
    output.put('\n');
}

}  // namespace ovscene
