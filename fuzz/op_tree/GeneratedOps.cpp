// SPDX-License-Identifier: Apache-2.0
#include "GeneratedOps.h"

#include <SylvarPlatform/DataAttribute.h>
#include <SylvarPlatform/GroupBuilder.h>

#include <iterator>
#include <string>
#include <vector>

namespace {

using namespace Sylvar3::internal::OvAttribute;

constexpr std::size_t kMostOps = 24;

constexpr const char* kTypes[] = {"scene",
                                  "load",
                                  "generate",
                                  "merge",
                                  "setAttributes",
                                  "camera",
                                  "light",
                                  "mount",
                                  "prune",
                                  "isolate",
                                  "deleteAttributes",
                                  "transform",
                                  "duplicate",
                                  "instance",
                                  "assignMaterial",
                                  "renderSettings",
                                  "",
                                  "unknown"};

constexpr const char* kArguments[] = {
    "tree",       "at",           "file",       "shape",         "breadth",      "depth",
    "count",      "seed",         "attributes", "motionSamples", "absentEvery",  "failEvery",
    "paths",      "values",       "mode",       "path",          "enabled",      "note",
    "names",      "source",       "copies",     "name",          "translate",    "matrix",
    "prototypes", "parent",       "unknown",    "rotate",        "scale",        "sampleTimes",
    "positions",  "orientations", "scales",     "matrices",      "protoIndices", "material",
    "transform",  "camera",       "outputs",    "tileRender",    "xform",        "type",
    "fov",        "color"};

constexpr const char* kTexts[] = {
    "/root",   "/root/c0", "/root/*", "/root/**",    "!/root/c1", "/**/c?",  "/root/{c0,c1}",
    "/root/[", "/",        "",        "/root/",      "/root/a/b", "tree",    "wide",
    "deep",    "grid",     "first",   "merge",       "ifMissing", "replace", "x",
    "a%2Fb",   "%41",      "A",       "/root/**/**", "/other/c0"};

/// Takes choices from bytes; 0 when they are used up.
class Bytes {
public:
    Bytes(const std::uint8_t* data, std::size_t size) : data_(data), end_(data + size) {}

    bool isEmpty() const { return data_ == end_; }
    std::size_t upTo(std::size_t most) { return isEmpty() ? 0 : *data_++ % (most + 1); }
    template <std::size_t Count>
    const char* oneOf(const char* const (&texts)[Count]) {
        return texts[upTo(Count - 1)];
    }

private:
    const std::uint8_t* data_;
    const std::uint8_t* end_;
};

GroupAttribute makeTree(Bytes& bytes, int depth);

Attribute makeValue(Bytes& bytes, int depth) {
    switch (bytes.upTo(7)) {
        case 0:
            return IntAttribute(static_cast<int>(bytes.upTo(255)) - 100);
        case 1:
            return StringAttribute(bytes.oneOf(kTexts));
        case 2: {
            std::vector<std::string> texts(bytes.upTo(4));
            for (std::string& text : texts) {
                text = bytes.oneOf(kTexts);
            }
            return StringAttribute(texts);
        }
        case 3:
            return makeTree(bytes, depth);
        case 4:
            return DoubleAttribute(static_cast<double>(bytes.upTo(255)));
        case 5:
            return FloatAttribute(std::vector<float>(bytes.upTo(16), 1.0F));
        case 6:
            return IntAttribute(std::vector<std::int32_t>());
        default:
            return Attribute();
    }
}

/// A location: attributes and children, as scenes have them.
GroupAttribute makeTree(Bytes& bytes, int depth) {
    GroupBuilder location(GroupBuilder::Mode::Flat);
    GroupBuilder attributes(GroupBuilder::Mode::Flat);
    GroupBuilder children(GroupBuilder::Mode::Flat);
    for (std::size_t i = bytes.upTo(3); i > 0 && depth > 0; --i) {
        attributes.set(bytes.oneOf(kTexts), makeValue(bytes, depth - 1));
    }
    for (std::size_t i = bytes.upTo(4); i > 0 && depth > 0; --i) {
        const std::string name =
            bytes.upTo(3) == 0 ? bytes.oneOf(kTexts) : "c" + std::to_string(bytes.upTo(3));
        children.set(name, bytes.upTo(7) == 0 ? makeValue(bytes, 0) : makeTree(bytes, depth - 1));
    }
    return location.set("a", attributes.build()).set("c", children.build()).build();
}

Attribute makeArguments(Bytes& bytes) {
    GroupBuilder arguments(GroupBuilder::Mode::Flat);
    for (std::size_t i = bytes.upTo(5); i > 0; --i) {
        arguments.set(bytes.oneOf(kArguments), makeValue(bytes, 4));
    }
    return arguments.build();
}

GroupAttribute makeOp(Bytes& bytes) {
    GroupBuilder op(GroupBuilder::Mode::Flat);
    op.set("opType", StringAttribute(bytes.oneOf(kTypes))).set("opArgs", makeArguments(bytes));
    std::vector<std::string> inputs(bytes.upTo(3));
    for (std::string& input : inputs) {
        // Some of these ops are not there, and some stand above.
        input = "op" + std::to_string(bytes.upTo(kMostOps));
    }
    return op.set("opInputs", StringAttribute(inputs)).build();
}

}  // namespace

GroupAttribute opTreeFromBytes(const std::uint8_t* data, std::size_t size) {
    Bytes bytes(data, size);
    GroupBuilder tree(GroupBuilder::Mode::Flat);
    std::size_t count = 0;
    do {
        tree.set("op" + std::to_string(count++), makeOp(bytes));
    } while (!bytes.isEmpty() && count < kMostOps);
    return tree.build();
}
