// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/Analytics.h>

#include "Platform/Support/FileHandle.h"
#include "Platform/Support/Mutex.h"

#include <rapidjson/document.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <cerrno>
#include <chrono>
#include <cstring>
#include <utility>

namespace Sylvar3::OvRenderServices::v1 {

namespace {

double secondsNow() {
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return static_cast<double>(std::chrono::duration_cast<std::chrono::milliseconds>(now).count()) /
           1000.0;
}

/// The line of a record; empty when JSON cannot tell it.
std::string lineOf(const std::string& key, const AnalyticsManager::Value& value) {
    rapidjson::StringBuffer text;
    rapidjson::Writer<rapidjson::StringBuffer> writer(text);
    writer.StartObject();
    writer.Key("time");
    writer.Double(secondsNow());
    writer.Key("key");
    writer.String(key);
    writer.Key("value");
    const bool isWhole = value.Accept(writer) && writer.EndObject();
    return isWhole ? std::string(text.GetString(), text.GetSize()) + '\n' : std::string();
}

class JsonLinesAnalytics : public AnalyticsManager {
public:
    explicit JsonLinesAnalytics(internal::Support::FileHandle file) : file_(std::move(file)) {}

    void addRecord(const std::string& key, const Value& value) override {
        const std::string line = lineOf(key, value);
        const internal::Support::MutexLock lock(mutex_);
        std::fwrite(line.data(), 1, line.size(), file_.get());
        std::fflush(file_.get());
    }

private:
    internal::Support::Mutex mutex_;
    const internal::Support::FileHandle file_ OV_PT_GUARDED_BY(mutex_);
};

}  // namespace

AnalyticsManager* AnalyticsManager::g_instance = nullptr;

AnalyticsManager::~AnalyticsManager() = default;

AnalyticsResult makeJsonLinesAnalytics(const std::string& filename) {
    internal::Support::FileHandle file(std::fopen(filename.c_str(), "ab"));
    if (!file) {
        return {nullptr, "Cannot write \"" + filename + "\": " + std::strerror(errno) + "."};
    }
    return {std::make_unique<JsonLinesAnalytics>(std::move(file)), {}};
}

}  // namespace Sylvar3::OvRenderServices::v1
