// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/SylvarRuntime.h>

#include "support/RuntimeWalk.h"

#include <rapidjson/document.h>

#include <cstdint>
#include <string>

namespace ovtest {

/// What all runtimes of the process have done up to now, as a query tells it.
class RuntimeCounts {
public:
    explicit RuntimeCounts(const SylvarRuntime& runtime) {
        json_.Parse(query(runtime, "getStatistics").c_str());
    }
    explicit RuntimeCounts(const SylvarRuntime::Client& client)
        : RuntimeCounts(*client.getRuntime()) {}

    std::int64_t cooks(const char* type) const { return ofType(type, "cooks"); }
    std::int64_t hits(const char* type) const { return ofType(type, "hits"); }
    std::int64_t evictions(const char* type) const { return ofType(type, "evictions"); }
    double seconds(const char* type) const { return json_["opTypes"][type]["seconds"].GetDouble(); }
    std::int64_t store(const char* what) const { return json_["store"][what].GetInt64(); }

private:
    std::int64_t ofType(const char* type, const char* what) const {
        return json_["opTypes"][type][what].GetInt64();
    }

    rapidjson::Document json_;
};

/// How often ops of that type cook while `work()` runs; "" is an op of no type.
template <class Work>
std::int64_t cooksDuring(const SylvarRuntime::Client& client, const char* type, Work work) {
    const std::int64_t before = RuntimeCounts(client).cooks(type);
    work();
    return RuntimeCounts(client).cooks(type) - before;
}

}  // namespace ovtest
