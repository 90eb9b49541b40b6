// SPDX-License-Identifier: Apache-2.0
#include "AttributeText.h"

#include <algorithm>
#include <cstdint>
#include <string_view>

#include "DataValues.h"
#include "NumberText.h"
#include "SafeText.h"
#include <SylvarPlatform/GroupAttribute.h>

namespace ovscene {
namespace {

namespace OvAttribute = Sylvar3::internal::OvAttribute;

constexpr std::int64_t kTimesShown = 3;
constexpr std::string_view kMore = " ...";

std::string groupText(const Attribute& attribute) {
    const auto group = OvAttribute::castAttribute<OvAttribute::GroupAttribute>(attribute);
    return "group (" + numberText(group.getNumberOfChildren()) +
           (group.getGroupInherit() ? ", inherit)" : ")");
}

std::string extentText(std::int64_t values, std::int64_t tuple) {
    if (values == 1 && tuple == 1) {
        return {};
    }
    const std::int64_t rest = values % tuple;
    return (tuple == 1 ? "" : "[" + numberText(tuple) + "]") + " x " + numberText(values / tuple) +
           (rest == 0 ? "" : " + " + counted(rest, "value"));
}

template <class Samples>
std::string timesText(const Samples& samples) {
    const std::int64_t count = samples.getNumberOfTimeSamples();
    if (count == 0 || (count == 1 && samples.getSampleTime(0) == 0.0F)) {
        return numberText(count);
    }
    std::string times;
    for (std::int64_t i = 0; i < std::min(count, kTimesShown); ++i) {
        times += (i == 0 ? "" : " ") + numberText(samples.getSampleTime(i));
    }
    return numberText(count) + " (" + times + (count > kTimesShown ? " ...)" : ")");
}

std::string valueText(const char* value, std::size_t columns) {
    std::string quoted = "\"";
    for (const char c : safeText(value ? value : "", std::max<std::size_t>(columns, 8) - 2)) {
        quoted.append(c == '"' ? "\\" : "").push_back(c);
    }
    return quoted.append("\"");
}

template <class Number>
std::string valueText(Number value, std::size_t) {
    return numberText(value);
}

template <class Samples>
std::string listText(const Samples& samples, std::int64_t tuple, std::size_t columns) {
    std::string list;
    std::size_t width = 0;
    const std::int64_t count = samples.getNumberOfValues();
    for (std::int64_t i = 0; i < count; ++i) {
        const bool opens = tuple > 1 && i % tuple == 0;
        const bool closes = tuple > 1 && (i % tuple == tuple - 1 || i == count - 1);
        const std::string piece = (i == 0 ? "" : " ") + std::string(opens ? "(" : "") +
                                  valueText(samples.getNearest()[i], columns) + (closes ? ")" : "");
        const std::size_t room = i == count - 1 ? 0 : kMore.size();
        width += displayWidth(piece);
        if (i > 0 && width + room > columns) {
            return list.append(kMore);
        }
        list += piece;
    }
    return list;
}

}  // namespace

const char* kindName(const Attribute& attribute) {
    static constexpr const char* kNames[] = {"null", "int", "float", "double", "string", "group"};
    return kNames[attribute.getType()];
}

std::string kindText(const Attribute& attribute) {
    std::string text = kindName(attribute);
    if (attribute.getType() == OV_ATTRIBUTE_GROUP) {
        text = groupText(attribute);
    }
    withSamples(attribute, [&](const auto& samples) {
        text += extentText(samples.getNumberOfValues(), tupleSize(attribute));
    });
    return text;
}

std::string samplesText(const Attribute& attribute) {
    std::string text;
    withSamples(attribute, [&](const auto& samples) { text = timesText(samples); });
    return text;
}

std::string valuesText(const Attribute& attribute, std::size_t columns) {
    std::string text;
    withSamples(attribute, [&](const auto& samples) {
        if (samples.getNearest()) {
            text = listText(samples, tupleSize(attribute), columns);
        }
    });
    return text;
}

}  // namespace ovscene
