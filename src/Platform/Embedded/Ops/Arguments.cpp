// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Ops/Arguments.h"

#include <SylvarPlatform/SampleAccessor.h>

#include "Platform/Embedded/Attributes/Values/DataValue.h"
#include "Platform/Embedded/Runtime/KindName.h"
#include "Platform/Embedded/Runtime/MountPath.h"
#include "Platform/Support/NearestName.h"

#include <algorithm>
#include <utility>

namespace Sylvar3::internal::OvSylvar::Embedded {

using OvAttribute::GroupAttribute;
using OvAttribute::IntAttribute;
using OvAttribute::SampleAccessor;
using OvAttribute::StringAttribute;
using OvAttribute::Embedded::DataValue;
using OvAttribute::Embedded::isDataKind;

namespace {

bool isOfKind(std::int32_t type, std::string_view kind) {
    if (kind == "number" || kind == "numbers") {
        return isNumberKind(type);
    }
    if (kind == "strings") {
        return type == OV_ATTRIBUTE_STRING;
    }
    if (kind == "group or string") {
        return type == OV_ATTRIBUTE_GROUP || type == OV_ATTRIBUTE_STRING;
    }
    return kind == kindName(type) || (kind == "ints" && type == OV_ATTRIBUTE_INT);
}

/// Whether an argument of the kind is one value, unless it is a group.
bool isOne(std::string_view kind) {
    return kind == "int" || kind == "number" || kind == "string" || kind == "group or string";
}

std::string quoted(std::string_view text) {
    return "\"" + std::string(text) + "\"";
}

const ArgumentSchema* findSchema(const OpSchema& schema, std::string_view name) {
    const auto found = std::find_if(
        schema.arguments.begin(), schema.arguments.end(), [&](const ArgumentSchema& argument) {
            return argument.name == name;
        });
    return found == schema.arguments.end() ? nullptr : &*found;
}

[[noreturn]] void failAsUnknown(const OpSchema& schema, std::string_view name) {
    std::vector<std::string_view> names;
    for (const ArgumentSchema& argument : schema.arguments) {
        names.emplace_back(argument.name);
    }
    throw OpError("there is no argument " + quoted(name) + Support::didYouMean(name, names));
}

}  // namespace

void Arguments::check(const ArgumentSchema& argument, const OvAttribute::Attribute& value) {
    if (!isOfKind(value.getType(), argument.kind)) {
        fail(argument.name, std::string(argument.kind) + ", found " + kindName(value.getType()));
    }
    if (isOne(argument.kind) && isDataKind(value.getType())) {
        const auto& data = static_cast<const DataValue&>(*value.handle());
        if (data.valueCount != 1) {
            fail(argument.name,
                 std::string("one ") + kindName(data.kind) + ", found " +
                     std::to_string(data.valueCount));
        }
    }
}

Arguments::Arguments(const OpSchema& schema, GroupAttribute group) : group_(std::move(group)) {
    for (std::int64_t i = 0; i < group_.getNumberOfChildren(); ++i) {
        const std::string_view name = group_.getChildNameView(i);
        const ArgumentSchema* const argument = findSchema(schema, name);
        if (!argument) {
            failAsUnknown(schema, name);
        }
        const OvAttribute::Attribute value = group_.getChildByIndex(i);
        if (value) {
            check(*argument, value);
        }
    }
    for (const ArgumentSchema& argument : schema.arguments) {
        if (!argument.defaultText && !has(argument.name)) {
            throw OpError("argument " + quoted(argument.name) + " is missing");
        }
    }
}

void Arguments::fail(const char* name, const std::string& expected) {
    throw OpError("argument " + quoted(name) + ": expected " + expected);
}

std::int32_t Arguments::getInt(const char* name,
                               std::int32_t otherwise,
                               std::int32_t least,
                               std::int32_t most) const {
    const std::int32_t value = group_.getChild<IntAttribute>(name).getValue(otherwise);
    if (value < least || value > most) {
        fail(name,
             std::to_string(least) + " to " + std::to_string(most) + ", found " +
                 std::to_string(value));
    }
    return value;
}

std::string Arguments::getString(const char* name, const std::string& otherwise) const {
    return group_.getChild<StringAttribute>(name).getValue(otherwise);
}

std::vector<std::string> Arguments::getStrings(const char* name) const {
    const SampleAccessor<StringAttribute> values(group_.getChildByName(name), 0.0F);
    return {values.begin(), values.end()};
}

std::size_t Arguments::getChoice(const char* name, const std::vector<const char*>& choices) const {
    const std::string value = getString(name, choices.front());
    const auto found = std::find(choices.begin(), choices.end(), value);
    if (found == choices.end()) {
        std::string expected = "one of";
        for (const char* const choice : choices) {
            expected += " " + quoted(choice);
        }
        fail(name, expected + ", found " + quoted(value));
    }
    return static_cast<std::size_t>(found - choices.begin());
}

std::string Arguments::getPath(const char* name, const std::string& otherwise) const {
    std::string path = getString(name, otherwise);
    checkPath(name, path);
    return path;
}

void Arguments::checkPath(const char* name, const std::string& path) {
    if (!isLocationPath(path)) {
        fail(name, "a location's path such as /root/world, found " + quoted(path));
    }
}

std::string Arguments::getName(const char* name, const std::string& otherwise) const {
    std::string text = getString(name, otherwise);
    if (text.empty() || text.find('/') != std::string::npos) {
        fail(name, "a text that a location's name can hold, found " + quoted(text));
    }
    return text;
}

GroupAttribute Arguments::getGroup(const char* name) const {
    return group_.getChild<GroupAttribute>(name);
}

NumberList Arguments::getNumbers(const char* name, std::size_t count, bool isList) const {
    const OvAttribute::Attribute value = group_.getChildByName(name);
    NumberList numbers(value);
    const bool isRight = isList ? numbers.size() % count == 0 : numbers.size() == count;
    if (value && !isRight) {
        const std::string wanted = std::to_string(count);
        fail(name,
             (isList ? "a multiple of " + wanted : wanted) + " numbers, found " +
                 std::to_string(numbers.size()));
    }
    return numbers;
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
