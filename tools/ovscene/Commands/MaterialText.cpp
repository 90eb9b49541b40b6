// SPDX-License-Identifier: Apache-2.0
#include "Commands/MaterialText.h"

#include "Print/AttributeText.h"
#include "Print/JoinedText.h"
#include "Print/LocationHeading.h"
#include "Print/NumberText.h"
#include "Print/SafeText.h"
#include "Print/Table.h"
#include "Print/Terminal.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace ovscene {
namespace {

constexpr std::size_t kLongestName = 60;
constexpr std::size_t kLongestValues = 48;
constexpr std::size_t kLongestList = 100;

Cell nameCell(const std::string& name) {
    return Cell::left(safeText(name, kLongestName));
}

std::string styleName(bool isNetwork) {
    return isNetwork ? "network" : "classic";
}

std::string numberOf(const MergedMaterial& material, std::size_t number) {
    const bool isSuffix = material.isNetwork && material.isMerged();
    return (isSuffix ? ":" : "") + numberText(static_cast<std::int64_t>(number));
}

void printSummary(const MergedMaterial& material, Output& output) {
    const auto count = static_cast<std::int64_t>(material.chain.size());
    output.write("style " + styleName(material.isNetwork) + ", " +
                 (material.isMerged() ? "merged of " + counted(count, "material")
                                      : std::string("one material as it stands")) +
                 "\n\n");
}

/// What a terminal's node is; nothing for a shader.
std::string driverType(const MaterialView& view, const std::string& driver) {
    if (!view.material.isNetwork) {
        return {};
    }
    const NetworkNode* const node = view.network.find(driver);
    return node ? node->description->getType() : "(no such node)";
}

void printTerminals(const MaterialView& view, Output& output) {
    const bool isNetwork = view.material.isNetwork;
    if (view.material.terminals.empty() && view.material.undriven.empty()) {
        output.write("no terminals\n");
        return;
    }
    Table table(output);
    const auto add = [&](const Cell& name, const Cell& driver, const Cell& type, const Cell& from) {
        table.add(isNetwork ? std::vector<Cell>{name, driver, type, from}
                            : std::vector<Cell>{name, driver, from});
    };
    add(Cell::left("terminal"),
        Cell::left(isNetwork ? "node" : "shader"),
        Cell::left("type"),
        Cell::left("from"));
    for (const DrivenTerminal& terminal : view.material.terminals) {
        add(nameCell(terminal.name),
            nameCell(terminal.driver),
            nameCell(driverType(view, terminal.driver)),
            Cell::left(safeText(view.pathOf(terminal.number))));
    }
    for (const std::string& name : view.material.undriven) {
        table.add({nameCell(name), Cell::left("(nothing drives it)")});
    }
    table.finish();
}

void printChildren(const MaterialView& view, Output& output) {
    const MergedMaterial& material = view.material;
    output.put('\n');
    Table table(output);
    table.add({Cell::left("child"), Cell::left("kind"), Cell::left("from")});
    for (std::size_t i = 0; i < material.childOrigins.size(); ++i) {
        const auto index = static_cast<std::int64_t>(i);
        table.add({nameCell(material.group.getChildName(index)),
                   Cell::left(kindText(material.group.getChildByIndex(index))),
                   Cell::left(safeText(view.pathOf(material.childOrigins[i])))});
    }
    table.finish();
}

std::string shareText(const MergedMaterial& material, const MaterialShare& share) {
    if (!share.whyDropped.empty()) {
        return "dropped: " + share.whyDropped;
    }
    if (!material.isMerged()) {
        return "all of it";
    }
    if (!material.isNetwork) {
        return counted(static_cast<std::int64_t>(share.gives.size()), "part");
    }
    return counted(share.nodes, "node") + ", for " + joined(share.gives);
}

void printChain(const MaterialView& view, Output& output) {
    const MergedMaterial& material = view.material;
    output.put('\n');
    Table table(output);
    table.add({Cell::left("number"),
               Cell::left("material of"),
               Cell::left("style"),
               Cell::left("what is used")});
    for (std::size_t i = 0; i < material.chain.size(); ++i) {
        const std::string share = shareText(material, material.shares[i]);
        table.add({Cell::left(numberOf(material, i)),
                   Cell::left(safeText(view.pathOf(i))),
                   Cell::left(styleName(isNetworkMaterial(material.chain[i].group))),
                   Cell::left(safeText(share, kLongestList))});
    }
    table.finish();
}

void addParameters(const NetworkNode& node, Table& table) {
    for (const std::string& name : node.description->getParameterNames()) {
        const Attribute value = node.description->getParameter(name);
        const auto overridden = node.overridden.find(name);
        table.add({Cell::left("  " + safeText(name, kLongestName)),
                   Cell::left(kindText(value)),
                   Cell::left(valuesText(value, kLongestValues)),
                   Cell::left(overridden == node.overridden.end()
                                  ? ""
                                  : "set by the interface, " +
                                        safeText(overridden->second, kLongestName))});
    }
}

void printConnections(const MaterialNetwork& network, const NetworkNode& node, Output& output) {
    for (const std::string& name : node.description->getConnectionNames()) {
        const auto connection = node.description->getConnection(name);
        const std::string& source = connection->getConnectedNodeName();
        output.write("  " + safeText(name, kLongestName) + " <- " + safeText(source, kLongestName) +
                     "." + safeText(connection->getConnectedPortName(), kLongestName) +
                     (network.find(source) ? "" : " (no such node)") + "\n");
    }
}

/// "  drives surface, displacement".
std::string drivenText(const MergedMaterial& material, const std::string& node) {
    std::string text;
    for (const DrivenTerminal& terminal : material.terminals) {
        if (terminal.driver == node) {
            text += (text.empty() ? "  drives " : ", ") + safeText(terminal.name, kLongestName);
        }
    }
    return text;
}

void printNode(const MaterialView& view, const NetworkNode& node, Output& output) {
    const Palette palette;
    const SYLVAR::ShadingNodeDescription& description = *node.description;
    output.write(palette.bold(safeText(description.getName(), kLongestName)) + "  " +
                 palette.type(safeText(description.getType(), kLongestName)) +
                 drivenText(view.material, description.getName()) + "\n");
    Table parameters(output);
    addParameters(node, parameters);
    parameters.finish();
    printConnections(view.network, node, output);
    output.put('\n');
}

void printLeftOut(const MaterialNetwork& network, Output& output) {
    for (const LeftOutNode& node : network.leftOut) {
        output.write("left out: " + safeText(node.key, kLongestName) + "; " +
                     safeText(node.reason, kLongestList) + "\n");
    }
}

}  // namespace

void printMaterial(const MaterialView& view, Output& output) {
    printLocationHeading(view.path, view.type, output);
    printSummary(view.material, output);
    printTerminals(view, output);
    if (!view.material.childOrigins.empty()) {
        printChildren(view, output);
    }
    printChain(view, output);
}

void printNetwork(const MaterialView& view, Output& output) {
    printLocationHeading(view.path, view.type, output);
    for (const NetworkNode& node : view.network.nodes) {
        printNode(view, node, output);
    }
    output.write(counted(static_cast<std::int64_t>(view.network.nodes.size()), "node") + "\n");
    printLeftOut(view.network, output);
}

}  // namespace ovscene
