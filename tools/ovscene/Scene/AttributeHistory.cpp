// SPDX-License-Identifier: Apache-2.0
#include "Scene/AttributeHistory.h"

#include "ExitStatus.h"
#include "Scene/RuntimeAnswer.h"

#include <optional>

namespace ovscene {
namespace {

namespace OvAttribute = Sylvar3::internal::OvAttribute;

[[noreturn]] void fail(const SceneFile& file, const std::string& reason) {
    throw CommandError(ExitStatus::Unexpected, file.name + ": " + reason);
}

/// What the file calls its op of that number. A pipe is opened as a group, whose ops have no names.
std::string nameIn(const SceneFile& file, std::int64_t number) {
    const auto opTree = OvAttribute::castAttribute<GroupAttribute>(file.attribute);
    const bool isThere = number > 0 && number <= opTree.getNumberOfChildren();
    return isThere ? opTree.getChildName(number - 1) : "";
}

/// Ops that were loaded from no file are those of the file that is shown.
HistoryStep stepOf(const SceneFile& file, const rapidjson::Value& value) {
    HistoryStep step;
    step.gives = flagOf(value, "gives");
    step.name = textOf(value, "name");
    step.type = textOf(value, "type");
    step.number = countOf(value, "number");
    step.count = countOf(value, "count");
    step.file = textOf(value, "file");
    step.path = textOf(value, "path");
    if (step.file.empty()) {
        step.file = file.name;
        step.name = step.name.empty() ? nameIn(file, step.number) : step.name;
    }
    return step;
}

}  // namespace

AttributeHistory attributeHistory(const SceneFile& file,
                                  const SceneLocation& location,
                                  const std::string& path,
                                  const std::string& name) {
    const auto trace = location.client()->traceAttribute(path, name);
    if (!trace.error.empty()) {
        fail(file, trace.error);
    }
    AttributeHistory history;
    const auto answer = jsonObject(trace.json);
    if (answer) {
        history.hasAttribute = flagOf(*answer, "hasAttribute");
        history.isDropped = flagOf(*answer, "isDropped");
        forEachOf(*answer, "steps", [&](const rapidjson::Value& step) {
            history.steps.push_back(stepOf(file, step));
        });
    }
    if (history.steps.empty()) {
        fail(file, "the runtime does not tell where " + path + " comes from");
    }
    return history;
}

}  // namespace ovscene
