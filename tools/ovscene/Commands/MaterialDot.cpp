// SPDX-License-Identifier: Apache-2.0
#include "Commands/MaterialDot.h"

#include "Print/SafeText.h"

#include <cstddef>
#include <map>
#include <string>

namespace ovscene {
namespace {

/// Within quotes; labels know backslashes and, as HTML does, entities.
std::string labelText(const std::string& text) {
    std::string label;
    for (const char c : safeText(text)) {
        if (c == '&') {
            label += "&amp;";
            continue;
        }
        label.append(c == '"' || c == '\\' ? "\\" : "").push_back(c);
    }
    return label;
}

class DotGraph {
public:
    DotGraph(const MaterialView& view, Output& output) : view_(view), output_(output) {}

    void print() {
        output_.write("digraph material {\n  rankdir=LR;\n  node [shape=box];\n");
        output_.write("  label=\"" + labelText(view_.path) + "\";\n");
        for (const NetworkNode& node : view_.network.nodes) {
            addNode(node);
        }
        for (const NetworkNode& node : view_.network.nodes) {
            addConnections(node);
        }
        addTerminals();
        output_.write("}\n");
    }

private:
    void addNode(const NetworkNode& node) {
        const SYLVAR::ShadingNodeDescription& description = *node.description;
        output_.write("  " + idOf(description.getName()) + " [label=\"" +
                      labelText(description.getName()) + "\\n" + labelText(description.getType()) +
                      "\"];\n");
    }

    void addConnections(const NetworkNode& node) {
        for (const std::string& name : node.description->getConnectionNames()) {
            const auto connection = node.description->getConnection(name);
            output_.write("  " + sourceId(connection->getConnectedNodeName()) + " -> " +
                          idOf(node.description->getName()) + " [label=\"" +
                          labelText(connection->getConnectedPortName() + " -> " + name) + "\"];\n");
        }
    }

    void addTerminals() {
        std::size_t number = 0;
        for (const DrivenTerminal& terminal : view_.material.terminals) {
            const std::string id = "t" + std::to_string(number++);
            output_.write("  " + id + " [label=\"" + labelText(terminal.name) +
                          "\", shape=ellipse];\n");
            output_.write("  " + sourceId(terminal.driver) + " -> " + id + ";\n");
        }
    }

    std::string idOf(const std::string& node) const {
        return "n" + std::to_string(view_.network.places.at(node));
    }

    /// One that the network lacks is drawn as well, when it is first needed.
    std::string sourceId(const std::string& node) {
        if (view_.network.find(node)) {
            return idOf(node);
        }
        const auto [missing, isNew] = missing_.emplace(node, missing_.size());
        std::string id = "m" + std::to_string(missing->second);
        if (isNew) {
            output_.write("  " + id + " [label=\"" + labelText(node) +
                          "\\n(no such node)\", style=dashed];\n");
        }
        return id;
    }

    const MaterialView& view_;
    Output& output_;
    std::map<std::string, std::size_t> missing_;
};

}  // namespace

void printDot(const MaterialView& view, Output& output) {
    DotGraph(view, output).print();
}

}  // namespace ovscene
