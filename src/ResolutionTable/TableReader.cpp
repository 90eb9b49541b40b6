// SPDX-License-Identifier: Apache-2.0
#include <ResolutionTableOv/ResolutionTable.h>

#include "Platform/Support/JsonTree.h"

#include <charconv>
#include <set>
#include <utility>

namespace ORM_OV::ResolutionTable::v4 {

namespace {

using Sylvar3::internal::Support::JsonNode;
using Kind = JsonNode::Kind;

constexpr int kLargestSide = 1000000;
constexpr double kLargestRatio = 1000.0;
constexpr double kSmallestRatio = 0.001;

/// What is wrong, and with which part of the text.
struct Fault {
    const JsonNode& node;
    std::string what;
};

template <class Number>
Number numberOf(const JsonNode& node, Number least, Number most, const char* expected) {
    Number value{};
    const char* const end = node.text.data() + node.text.size();
    const std::from_chars_result read = std::from_chars(node.text.data(), end, value);
    const bool isNumber = node.kind == Kind::Number && read.ec == std::errc() && read.ptr == end;
    if (!isNumber || !(value >= least && value <= most)) {
        throw Fault{node, "\"" + node.name + "\" is " + expected + "."};
    }
    return value;
}

int sideOf(const JsonNode& node) {
    return numberOf(node, 1, kLargestSide, "a whole number from 1 to 1000000");
}

std::string textOf(const JsonNode& node) {
    if (node.kind != Kind::String) {
        throw Fault{node, "\"" + node.name + "\" is a string."};
    }
    return node.text;
}

void readMember(const JsonNode& member, Resolution& resolution) {
    if (member.name == "name") {
        resolution.name = textOf(member);
    } else if (member.name == "width") {
        resolution.width = sideOf(member);
    } else if (member.name == "height") {
        resolution.height = sideOf(member);
    } else if (member.name == "pixelAspectRatio") {
        resolution.pixelAspectRatio =
            numberOf(member, kSmallestRatio, kLargestRatio, "a number from 0.001 to 1000");
    } else if (member.name == "group") {
        resolution.group = textOf(member);
    } else if (member.name == "label") {
        resolution.label = textOf(member);
    } else {
        throw Fault{member, "A resolution has no member \"" + member.name + "\"."};
    }
}

Resolution resolutionOf(const JsonNode& node) {
    if (node.kind != Kind::Object) {
        throw Fault{node, "A resolution is an object."};
    }
    Resolution resolution;
    for (const JsonNode& member : node.children) {
        readMember(member, resolution);
    }
    if (resolution.name.empty()) {
        throw Fault{node, "This resolution lacks a name."};
    }
    if (resolution.width == 0 || resolution.height == 0) {
        throw Fault{node, "\"" + resolution.name + "\" lacks its width or its height."};
    }
    return resolution;
}

std::vector<Resolution> resolutionsOf(const JsonNode& root) {
    const JsonNode* const list = root.kind == Kind::Object ? root.member("resolutions") : nullptr;
    if (!list || list->kind != Kind::Array || root.children.size() != 1) {
        throw Fault{root, "A table is an object with an array \"resolutions\" and nothing else."};
    }
    std::vector<Resolution> resolutions;
    std::set<std::string> names;
    for (const JsonNode& node : list->children) {
        resolutions.push_back(resolutionOf(node));
        if (!names.insert(resolutions.back().name).second) {
            throw Fault{node, "\"" + resolutions.back().name + "\" is there a second time."};
        }
    }
    return resolutions;
}

}  // namespace

ResolutionTableReadResult readResolutionTable(std::string_view json) {
    const auto read = Sylvar3::internal::Support::readJson(json);
    if (!read.error.empty()) {
        return {nullptr, read.error};
    }
    try {
        return {std::make_shared<ResolutionTable>(resolutionsOf(read.root)), {}};
    } catch (const Fault& fault) {
        return {nullptr, Sylvar3::internal::Support::placedInJson(json, fault.node, fault.what)};
    }
}

ResolutionTableReadResult readResolutionTableFile(const std::string& filename) {
    const auto file = Sylvar3::internal::Support::readTextFile(filename);
    if (!file.error.empty()) {
        return {nullptr, file.error};
    }
    ResolutionTableReadResult result = readResolutionTable(file.text);
    if (!result.table) {
        result.error = "\"" + filename + "\": " + result.error;
    }
    return result;
}

}  // namespace ORM_OV::ResolutionTable::v4
