// SPDX-License-Identifier: Apache-2.0
#include "Filters/ClientFactory/RuntimeAnalytics.h"

#include <SylvarPlatform/Analytics.h>

#include <boost/interprocess/exceptions.hpp>
#include <boost/interprocess/sync/interprocess_semaphore.hpp>
#include <rapidjson/document.h>

#include <cerrno>
#include <cstring>
#include <exception>
#include <string>

namespace SYLVAR {
namespace {

using Sylvar3::internal::OvSylvar::SylvarRuntime;
using Sylvar3::OvRenderServices::v1::AnalyticsManager;

struct Query {
    const char* name;
    const char* key;
};

constexpr Query kQueries[] = {{"getAnonymousOpTree", "runtime.opTree"},
                              {"getAnonymousOpRegistry", "runtime.opRegistry"}};

/// What an answer comes to; it touches nothing else.
struct RuntimeQueryWait {
    boost::interprocess::interprocess_semaphore semaphore{0};
    std::string response;
};

/// Whoever waits is told in any case: an answer that finds no memory is an empty one.
void complete(std::int32_t status, const char* data, std::uint64_t length, void* context) {
    RuntimeQueryWait& wait = *static_cast<RuntimeQueryWait*>(context);
    if (status == 0 && data) {
        try {
            wait.response.assign(data, length);
        } catch (const std::exception&) {
            wait.response.clear();
        }
    }
    wait.semaphore.post();
}

/// Goes on after a signal: the answer is still to come, and needs its place.
void waitFor(boost::interprocess::interprocess_semaphore& semaphore) {
    while (true) {
        try {
            semaphore.wait();
            return;
        } catch (const boost::interprocess::interprocess_exception& fault) {
            if (fault.get_native_error() != EINTR) {
                throw;
            }
        }
    }
}

std::string answerOf(SylvarRuntime& runtime, const char* name) {
    RuntimeQueryWait wait;
    runtime.suite->queryRuntimeInfo(runtime.handle, name, std::strlen(name), &wait, &complete);
    waitFor(wait.semaphore);
    return std::move(wait.response);
}

}  // namespace

void recordRuntime(SylvarRuntime& runtime) {
    AnalyticsManager* const manager = AnalyticsManager::g_instance;
    if (!manager) {
        return;
    }
    for (const Query& query : kQueries) {
        const std::string response = answerOf(runtime, query.name);
        if (!response.empty()) {
            rapidjson::Document document;
            document.Parse(response);
            manager->addRecord(query.key, document);
        }
    }
}

}  // namespace SYLVAR
