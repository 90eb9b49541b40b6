// SPDX-License-Identifier: Apache-2.0
#include "Scene/RuntimeAnswer.h"

#include <future>
#include <optional>
#include <utility>

namespace ovscene {
namespace {

using Answer = std::optional<std::string>;

/// An `OvRuntimeCompletion` over a promise of an `Answer`.
void complete(std::int32_t status, const char* data, std::uint64_t length, void* context) {
    const bool isAnswered = status == 0 && data;
    static_cast<std::promise<Answer>*>(context)->set_value(
        isAnswered ? Answer(std::string(data, length)) : std::nullopt);
}

}  // namespace

JsonDocument jsonObject(std::string_view text) {
    auto document = std::make_unique<rapidjson::Document>();
    document->Parse<rapidjson::kParseIterativeFlag>(text.data(), text.size());
    const bool isObject = !document->HasParseError() && document->IsObject();
    return isObject ? std::move(document) : nullptr;
}

JsonDocument askRuntime(const SylvarRuntime& runtime, std::string_view query) {
    std::promise<Answer> promise;
    runtime.suite->queryRuntimeInfo(
        runtime.handle, query.data(), query.size(), &promise, &complete);
    const Answer answer = promise.get_future().get();
    return answer ? jsonObject(*answer) : nullptr;
}

const rapidjson::Value& member(const rapidjson::Value& object, const char* name) {
    static const rapidjson::Value none;
    if (!object.IsObject()) {
        return none;
    }
    const auto found = object.FindMember(name);
    return found == object.MemberEnd() ? none : found->value;
}

std::string textOf(const rapidjson::Value& object, const char* name) {
    const rapidjson::Value& value = member(object, name);
    return value.IsString() ? std::string(value.GetString(), value.GetStringLength()) : "";
}

std::int64_t countOf(const rapidjson::Value& object, const char* name) {
    const rapidjson::Value& value = member(object, name);
    return value.IsInt64() ? value.GetInt64() : 0;
}

bool flagOf(const rapidjson::Value& object, const char* name) {
    const rapidjson::Value& value = member(object, name);
    return value.IsBool() && value.GetBool();
}

void forEachOf(const rapidjson::Value& object,
               const char* name,
               const std::function<void(const rapidjson::Value&)>& use) {
    const rapidjson::Value& list = member(object, name);
    if (list.IsArray()) {
        for (const rapidjson::Value& element : list.GetArray()) {
            use(element);
        }
    }
}

}  // namespace ovscene
