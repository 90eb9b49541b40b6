// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Ops/Plugin/PluginOpSchema.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <set>
#include <string_view>

namespace Sylvar3::internal::OvSylvar::Embedded {

static_assert(offsetof(OvOpType, version) == 0 && offsetof(OvOpType, schema) == 8);
static_assert(offsetof(OvOpType, create) == 8 + 1 * sizeof(void*));
static_assert(offsetof(OvOpType, cook) == 8 + 3 * sizeof(void*));
static_assert(offsetof(OvOpType, hasChanged) == 8 + 5 * sizeof(void*));
static_assert(sizeof(OvOpType) == 8 + 6 * sizeof(void*), "A table place is given for good.");
static_assert(sizeof(OvOpArgument) == 4 * sizeof(void*));
static_assert(sizeof(OvOpSchema) == 8 + 4 * sizeof(void*));
static_assert(kAnyNumberOfInputs == OV_OP_ANY_NUMBER_OF_INPUTS);

namespace {

constexpr std::array<std::string_view, 8> kKinds =
    {"int", "ints", "number", "numbers", "string", "strings", "group", "group or string"};

constexpr std::array<std::string_view, 2> kArgumentsOfEveryOp = {"enabled", "note"};

constexpr std::size_t kLongestText = std::size_t{64} * 1024;

template <class List>
bool contains(const List& list, std::string_view text) {
    return std::find(list.begin(), list.end(), text) != list.end();
}

bool isTooLong(const char* text) {
    return text && strnlen(text, kLongestText + 1) > kLongestText;
}

std::string faultOfEntries(const OvOpType& table) {
    if (table.version != OV_OP_TYPE_API_VERSION) {
        return "its table has version " + std::to_string(table.version) + " instead of " +
               std::to_string(OV_OP_TYPE_API_VERSION);
    }
    if (!table.schema) {
        return "it has no schema";
    }
    if (!table.create) {
        return "it has no create";
    }
    return table.cook ? "" : "it has no cook";
}

std::string faultOfCounts(const OvOpSchema& schema) {
    if (schema.fewestInputs < 0 || schema.mostInputs < schema.fewestInputs) {
        return "it claims to take " + std::to_string(schema.fewestInputs) + " to " +
               std::to_string(schema.mostInputs) + " inputs";
    }
    if (schema.argumentCount < 0 || schema.argumentCount > OV_OP_MAX_ARGUMENTS) {
        return "it claims to have " + std::to_string(schema.argumentCount) + " arguments";
    }
    return schema.argumentCount > 0 && !schema.arguments ? "it has no arguments where it has some"
                                                         : "";
}

std::string faultOfTexts(const OvOpSchema& schema) {
    if (!schema.about) {
        return "it does not tell what it is about";
    }
    return isTooLong(schema.about) || isTooLong(schema.remarks) ? "it has a too long text" : "";
}

std::string faultOfArgument(const OvOpArgument& argument, std::set<std::string_view>& names) {
    if (!argument.name || !*argument.name) {
        return "has no name";
    }
    if (isTooLong(argument.name) || isTooLong(argument.kind) || isTooLong(argument.defaultText) ||
        isTooLong(argument.about)) {
        return "has a too long text";
    }
    const std::string quoted = "\"" + std::string(argument.name) + "\"";
    if (contains(kArgumentsOfEveryOp, argument.name)) {
        return "has the name " + quoted + ", which every op has";
    }
    if (!names.insert(argument.name).second) {
        return "has the name of another one, " + quoted;
    }
    if (!argument.kind || !contains(kKinds, argument.kind)) {
        return quoted + " is of no known kind";
    }
    return argument.about ? "" : quoted + " does not tell what it is about";
}

std::string faultOfArguments(const OvOpSchema& schema) {
    std::set<std::string_view> names;
    for (std::int32_t i = 0; i < schema.argumentCount; ++i) {
        const std::string fault = faultOfArgument(schema.arguments[i], names);
        if (!fault.empty()) {
            return "its argument " + std::to_string(i) + " " + fault;
        }
    }
    return {};
}

}  // namespace

std::string faultOfOpType(const OvOpType& table) {
    std::string fault = faultOfEntries(table);
    for (const auto faultOf : {faultOfCounts, faultOfTexts, faultOfArguments}) {
        if (fault.empty()) {
            fault = faultOf(*table.schema);
        }
    }
    return fault;
}

OpSchema schemaOf(const OvOpType& table, const char* name) {
    const OvOpSchema& given = *table.schema;
    OpSchema schema = {name,
                       given.about,
                       given.remarks ? given.remarks : "",
                       given.fewestInputs,
                       given.mostInputs,
                       {}};
    for (std::int32_t i = 0; i < given.argumentCount; ++i) {
        const OvOpArgument& argument = given.arguments[i];
        schema.arguments.push_back(
            {argument.name, argument.kind, argument.defaultText, argument.about});
    }
    return schema;
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
