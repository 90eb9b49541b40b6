// SPDX-License-Identifier: Apache-2.0
// Writes the scenes of the tests of ovscene into the folder that it is given.
#include <SylvarPlatform/AttributeFile.h>
#include <SylvarPlatform/DataAttribute.h>
#include <SylvarPlatform/DelimiterCodec.h>
#include <SylvarPlatform/GroupBuilder.h>

#include <cstdio>
#include <cstdlib>
#include <limits>
#include <string>
#include <utility>
#include <vector>

namespace {

using Sylvar3::internal::OvAttribute::Attribute;
using Sylvar3::internal::OvAttribute::AttributeContent;
using Sylvar3::internal::OvAttribute::DelimiterEncode;
using Sylvar3::internal::OvAttribute::DoubleAttribute;
using Sylvar3::internal::OvAttribute::FloatAttribute;
using Sylvar3::internal::OvAttribute::GroupAttribute;
using Sylvar3::internal::OvAttribute::GroupBuilder;
using Sylvar3::internal::OvAttribute::IntAttribute;
using Sylvar3::internal::OvAttribute::StringAttribute;
using Sylvar3::internal::OvAttribute::TimedSamples;
using Children = std::vector<GroupAttribute::Child>;

std::string folder;

void write(const Attribute& attribute, AttributeContent content, const std::string& name) {
    const std::string file = folder + "/" + name;
    const std::string error = writeAttributeFile(
        attribute, content, Sylvar3::internal::OvAttribute::attributeFormOf(file), file);
    if (!error.empty()) {
        std::fprintf(stderr, "%s\n", error.c_str());
        std::exit(1);
    }
}

GroupAttribute location(const Children& attributes, const Children& children = {}) {
    GroupBuilder builder(GroupBuilder::Mode::Flat);
    if (!attributes.empty()) {
        builder.set("a", GroupAttribute(attributes, false));
    }
    if (!children.empty()) {
        builder.set("c", GroupAttribute(children, false));
    }
    return builder.build();
}

GroupAttribute typed(const std::string& type, const Children& children = {}) {
    return location({{"type", StringAttribute(type)}}, children);
}

GroupAttribute mesh() {
    const TimedSamples<float> points = {{-0.25F, {0, 0, 0, 1, 0, 0, 1, 1, 0, 0, 1, 0}},
                                        {0.25F, {0, 0, 1, 1, 0, 1, 1, 1, 1, 0, 1, 1}}};
    const GroupAttribute geometry = GroupBuilder()
                                        .set("points", FloatAttribute(points, 3))
                                        .set("faceVertexCounts", IntAttribute(4))
                                        .set("faceVertexIndices", IntAttribute({0, 1, 2, 3}))
                                        .set("nothing", Attribute())
                                        .setGroupInherit(true)
                                        .build();
    return location({{"type", StringAttribute("mesh")},
                     {"geometry", geometry},
                     {"bound", DoubleAttribute({0, 1, 0, 1, 0.1, 1}, 2)},
                     {"name", StringAttribute("a \"quoted\" name")}});
}

GroupAttribute smallScene() {
    const GroupAttribute camera =
        location({{"type", StringAttribute("camera")}, {"geometry", GroupAttribute({}, false)}});
    const GroupAttribute world =
        typed("group",
              {{"camera", camera},
               {"geo", typed("group", {{"quad", mesh()}, {"copy", mesh()}})},
               {"empty", location({})}});
    return typed("group", {{"world", world}});
}

GroupAttribute hostileScene() {
    const std::string bytes = "\x1b[31mred\xff\n\"<&>\xc2\x9b\xe2\x80\xae";
    const Children attributes = {{bytes, StringAttribute(bytes)},
                                 {"lookalike", StringAttribute("\\x1b")},
                                 {"numbers",
                                  FloatAttribute({std::numeric_limits<float>::quiet_NaN(),
                                                  std::numeric_limits<float>::infinity(),
                                                  -std::numeric_limits<float>::infinity(),
                                                  0.1F})},
                                 {"type", StringAttribute("\x1b]0;title\x07")}};
    return typed("group",
                 {{DelimiterEncode(bytes), location(attributes)},
                  {DelimiterEncode("a/b.c"), typed("slash")},
                  {"no.group", IntAttribute(1)}});
}

GroupAttribute deepScene(int levels) {
    GroupAttribute below = typed("bottom");
    for (int i = 1; i < levels; ++i) {
        below = typed("level", {{"d", below}});
    }
    return below;
}

Attribute deepAttribute(int levels) {
    Attribute nested = IntAttribute(7);
    for (int i = 0; i < levels; ++i) {
        nested = GroupAttribute({{"g", nested}}, false);
    }
    return nested;
}

GroupAttribute wideScene(int count) {
    const GroupAttribute child = typed("mesh");
    Children children;
    for (int i = 0; i < count; ++i) {
        children.emplace_back("child" + std::to_string(i), child);
    }
    return typed("group", children);
}

/// Every level holds the level below twice.
GroupAttribute sharedScene(int levels) {
    GroupAttribute below = typed("leaf");
    for (int i = 1; i < levels; ++i) {
        below = typed("pair", {{"left", below}, {"right", below}});
    }
    return below;
}

void writeAll() {
    write(smallScene(), AttributeContent::StaticScene, "small.optree");
    write(hostileScene(), AttributeContent::StaticScene, "hostile.optree");
    write(deepScene(10000), AttributeContent::StaticScene, "deep.optree");
    write(wideScene(100000), AttributeContent::StaticScene, "wide.optree");
    write(sharedScene(60), AttributeContent::StaticScene, "shared.optree");
    write(location({{"arguments", GroupAttribute({{"args", sharedScene(60)}}, false)}}),
          AttributeContent::StaticScene,
          "shared_args.optree");
    write(
        location({{"deep", deepAttribute(5000)}}), AttributeContent::StaticScene, "nested.optree");
    write(FloatAttribute({0, 1, 2, 3, 4, 5}, 3), AttributeContent::Attribute, "data.optree");
    const Attribute op = GroupAttribute({{"opType", StringAttribute("scene")}}, false);
    write(GroupAttribute({{"only", op}}, false), AttributeContent::OpTree, "op.optree");
    write(smallScene(), AttributeContent::StaticScene, "small.optree.json");
    write(deepAttribute(2), AttributeContent::Attribute, "plain.optree.json");
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        return 2;
    }
    folder = argv[1];
    writeAll();
    return 0;
}
