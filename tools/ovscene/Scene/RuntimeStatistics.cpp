// SPDX-License-Identifier: Apache-2.0
#include "Scene/RuntimeStatistics.h"

#include <rapidjson/document.h>

#include <future>
#include <string_view>
#include <utility>

namespace ovscene {
namespace {

using Sylvar3::internal::OvSylvar::SylvarRuntime;

using Answer = std::optional<std::string>;

/// An `OvRuntimeCompletion` over a promise of an `Answer`.
void complete(std::int32_t status, const char* data, std::uint64_t length, void* context) {
    const bool isAnswered = status == 0 && data;
    static_cast<std::promise<Answer>*>(context)->set_value(
        isAnswered ? Answer(std::string(data, length)) : std::nullopt);
}

Answer ask(const SylvarRuntime& runtime, std::string_view query) {
    std::promise<Answer> promise;
    runtime.suite->queryRuntimeInfo(
        runtime.handle, query.data(), query.size(), &promise, &complete);
    return promise.get_future().get();
}

const rapidjson::Value& member(const rapidjson::Value& object, const char* name) {
    static const rapidjson::Value none;
    if (!object.IsObject()) {
        return none;
    }
    const auto found = object.FindMember(name);
    return found == object.MemberEnd() ? none : found->value;
}

std::int64_t countOf(const rapidjson::Value& object, const char* name) {
    const rapidjson::Value& value = member(object, name);
    return value.IsInt64() ? value.GetInt64() : 0;
}

OpTypeStatistics opTypeOf(const std::string& name, const rapidjson::Value& counts) {
    const rapidjson::Value& seconds = member(counts, "seconds");
    return {name,
            countOf(counts, "cooks"),
            countOf(counts, "hits"),
            countOf(counts, "evictions"),
            seconds.IsNumber() ? seconds.GetDouble() : 0};
}

std::optional<RuntimeStatistics> parse(const std::string& text) {
    rapidjson::Document document;
    document.Parse<rapidjson::kParseIterativeFlag>(text.data(), text.size());
    if (document.HasParseError() || !document.IsObject()) {
        return std::nullopt;
    }
    RuntimeStatistics statistics;
    const rapidjson::Value& opTypes = member(document, "opTypes");
    if (opTypes.IsObject()) {
        for (const auto& [name, counts] : opTypes.GetObject()) {
            statistics.opTypes.push_back(
                opTypeOf(std::string(name.GetString(), name.GetStringLength()), counts));
        }
    }
    const rapidjson::Value& store = member(document, "store");
    statistics.entries = countOf(store, "entries");
    statistics.bytes = countOf(store, "bytes");
    statistics.pinnedBytes = countOf(store, "pinnedBytes");
    return statistics;
}

}  // namespace

std::optional<RuntimeStatistics> runtimeStatistics(const SceneLocation& location) {
    const std::shared_ptr<SylvarRuntime::Client> client = location.client();
    const Answer answer = client ? ask(*client->getRuntime(), "getStatistics") : std::nullopt;
    return answer ? parse(*answer) : std::nullopt;
}

}  // namespace ovscene
