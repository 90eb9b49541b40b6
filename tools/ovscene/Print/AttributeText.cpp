// SPDX-License-Identifier: Apache-2.0
#include "Print/AttributeText.h"

#include <SylvarPlatform/GroupAttribute.h>

#include "Print/NumberText.h"
#include "Print/SafeText.h"
#include "Scene/DataValues.h"

#include <algorithm>
#include <cstdint>
#include <string_view>

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

/// Appends values until they are as wide as they may be.
class ValueList {
public:
    ValueList(std::int64_t count, std::int64_t tuple, std::size_t columns)
        : count_(count), tuple_(tuple), columns_(columns) {}

    /// False when the value did not fit any more.
    template <class Value>
    bool add(Value value) {
        const bool inTuple = tuple_ > 1;
        const bool last = index_ + 1 == count_;
        const bool closes = inTuple && (index_ % tuple_ == tuple_ - 1 || last);
        const std::string piece = std::string(index_ == 0 ? "" : " ") +
                                  (inTuple && index_ % tuple_ == 0 ? "(" : "") +
                                  valueText(value, columns_) + (closes ? ")" : "");
        width_ += displayWidth(piece);
        if (index_ > 0 && width_ + (last ? 0 : kMore.size()) > columns_) {
            list_.resize(whole_ > 0 ? whole_ : list_.size());
            list_.append(kMore);
            return false;
        }
        list_ += piece;
        whole_ = closes || !inTuple ? list_.size() : whole_;
        ++index_;
        return true;
    }

    const std::string& text() const { return list_; }

private:
    std::int64_t count_;
    std::int64_t tuple_;
    std::size_t columns_;
    std::int64_t index_ = 0;
    std::size_t width_ = 0;
    std::size_t whole_ = 0;  // the length up to the last whole tuple
    std::string list_;
};

template <class Samples>
std::string listText(const Samples& samples, std::int64_t tuple, std::size_t columns) {
    ValueList list(samples.getNumberOfValues(), tuple, columns);
    for (const auto value : samples) {
        if (!list.add(value)) {
            break;
        }
    }
    return list.text();
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
