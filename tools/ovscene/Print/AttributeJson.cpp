// SPDX-License-Identifier: Apache-2.0
#include "Print/AttributeJson.h"

#include <SylvarPlatform/GroupAttribute.h>

#include "Print/AttributeText.h"
#include "Scene/AttributeWalk.h"
#include "Scene/DataValues.h"

#include <cstddef>
#include <cstdint>

namespace ovscene {
namespace {

template <class Samples>
void writeSamples(JsonWriter& json, const Samples& samples) {
    writeJsonKey(json, "samples");
    json.StartArray();
    for (std::int64_t i = 0; i < samples.getNumberOfTimeSamples(); ++i) {
        json.StartObject();
        writeJsonMember(json, "time", samples.getSampleTime(i));
        writeJsonKey(json, "values");
        json.StartArray();
        for (std::int64_t k = 0; k < samples.getNumberOfValues(); ++k) {
            writeJson(json, samples.getSample(i)[k]);
        }
        json.EndArray();
        json.EndObject();
    }
    json.EndArray();
}

void openGroup(JsonWriter& json, const Attribute& attribute) {
    const auto group = Sylvar3::internal::OvAttribute::castAttribute<GroupAttribute>(attribute);
    writeJsonKey(json, "inherit");
    json.Bool(group.getGroupInherit());
    writeJsonKey(json, "children");
    json.StartArray();
}

void closeGroup(JsonWriter& json) {
    json.EndArray();
    json.EndObject();
}

bool writeUpToChildren(JsonWriter& json, const AttributeWalk& walk) {
    const Attribute& attribute = walk.attribute();
    json.StartObject();
    if (walk.depth() > 0) {
        writeJsonMember(json, "name", walk.name());
    }
    writeJsonMember(json, "kind", kindName(attribute));
    if (attribute.getType() == OV_ATTRIBUTE_GROUP) {
        openGroup(json, attribute);
        return true;
    }
    withSamples(attribute, [&](const auto& samples) {
        writeJsonMember(json, "tupleSize", tupleSize(attribute));
        writeSamples(json, samples);
    });
    json.EndObject();
    return false;
}

}  // namespace

void writeAttributeJson(JsonWriter& json, const Attribute& attribute, VisitLimit& limit) {
    std::size_t open = 0;
    for (AttributeWalk walk(attribute, limit); !walk.atEnd(); walk.next()) {
        for (; open > walk.depth(); --open) {
            closeGroup(json);
        }
        open += writeUpToChildren(json, walk) ? 1 : 0;
    }
    for (; open > 0; --open) {
        closeGroup(json);
    }
}

}  // namespace ovscene
