// SPDX-License-Identifier: Apache-2.0
#include "Scene/OpTypes.h"

#include <SylvarPlatform/SylvarServices.h>

#include "Scene/RuntimeAnswer.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace ovscene {
namespace {

OpArgument argumentOf(const rapidjson::Value& argument) {
    return {textOf(argument, "name"),
            textOf(argument, "kind"),
            flagOf(argument, "isNeeded"),
            textOf(argument, "default"),
            textOf(argument, "about")};
}

OpTypeDescription opTypeOf(const rapidjson::Value& value) {
    OpTypeDescription type;
    type.name = textOf(value, "type");
    type.about = textOf(value, "about");
    type.remarks = textOf(value, "remarks");
    type.fewestInputs = countOf(value, "fewestInputs");
    type.mostInputs = countOf(value, "mostInputs");
    forEachOf(value, "arguments", [&type](const rapidjson::Value& argument) {
        type.arguments.push_back(argumentOf(argument));
    });
    return type;
}

}  // namespace

std::optional<std::vector<OpTypeDescription>> opTypes() {
    const auto runtime = Sylvar3::OvSylvarServicesHost::v1::Sylvar().createRuntime();
    const auto answer = runtime ? askRuntime(*runtime, "getAnonymousOpRegistry") : nullptr;
    if (!answer) {
        return std::nullopt;
    }
    std::vector<OpTypeDescription> types;
    forEachOf(*answer, "opTypes", [&types](const rapidjson::Value& type) {
        types.push_back(opTypeOf(type));
    });
    std::sort(
        types.begin(), types.end(), [](const auto& a, const auto& b) { return a.name < b.name; });
    return types;
}

}  // namespace ovscene
