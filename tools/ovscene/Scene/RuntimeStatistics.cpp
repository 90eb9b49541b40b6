// SPDX-License-Identifier: Apache-2.0
#include "Scene/RuntimeStatistics.h"

#include "Scene/RuntimeAnswer.h"

namespace ovscene {
namespace {

OpTypeStatistics opTypeOf(const std::string& name, const rapidjson::Value& counts) {
    const rapidjson::Value& seconds = member(counts, "seconds");
    return {name,
            countOf(counts, "cooks"),
            countOf(counts, "hits"),
            countOf(counts, "evictions"),
            seconds.IsNumber() ? seconds.GetDouble() : 0};
}

RuntimeStatistics statisticsOf(const rapidjson::Document& document) {
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
    const auto answer = client ? askRuntime(*client->getRuntime(), "getStatistics") : nullptr;
    return answer ? std::optional(statisticsOf(*answer)) : std::nullopt;
}

}  // namespace ovscene
