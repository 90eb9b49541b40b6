// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Services/LoggerRecord.h"

#include "Platform/Embedded/Attributes/Forms/TextEscape.h"
#include "Platform/Support/Mutex.h"
#include "Platform/Support/OnceBuilt.h"

#include <spdlog/sinks/stdout_color_sinks.h>

#include <cstring>
#include <functional>
#include <map>
#include <memory>
#include <new>
#include <string_view>

namespace OvLoggingHost {

namespace {

namespace Support = Sylvar3::internal::Support;
namespace TextEscape = Sylvar3::internal::OvAttribute::Embedded::TextEscape;
using Embedded::LoggerRecord;
using Support::MutexLock;

/// All loggers by name, and the level of those to come.
class Registry {
public:
    Registry() { errorStream_->set_pattern("%Y-%m-%d %H:%M:%S.%e %^%l%$ %n: %v (%g:%#)"); }

    LoggerRecord& recordOf(const std::string& name) {
        const MutexLock lock(mutex_);
        const auto found = records_.find(name);
        return found == records_.end() ? *records_.emplace(name, make(name)).first->second
                                       : *found->second;
    }

    bool isEnabled(std::string_view name, LogLevel level) {
        if (level < lowestLevel_.load(std::memory_order_relaxed)) {
            return false;
        }
        const MutexLock lock(mutex_);
        const auto found = records_.find(name);
        return level >= (found == records_.end()
                             ? firstLevel_
                             : found->second->level.load(std::memory_order_relaxed));
    }

    void setLevel(const std::string& name, LogLevel level) {
        LoggerRecord& record = recordOf(name);
        const MutexLock lock(mutex_);
        record.level.store(level, std::memory_order_relaxed);
        if (level < lowestLevel_.load(std::memory_order_relaxed)) {
            lowestLevel_.store(level, std::memory_order_relaxed);
        }
    }

    void setAllLevels(LogLevel level) {
        const MutexLock lock(mutex_);
        firstLevel_ = level;
        lowestLevel_.store(level, std::memory_order_relaxed);
        for (const auto& record : records_) {
            record.second->level.store(level, std::memory_order_relaxed);
        }
    }

private:
    LoggerRecord* make(const std::string& name) OV_REQUIRES(mutex_) {
        void* const place = ::operator new(sizeof(LoggerRecord) + name.size() + 1);
        auto* const record =
            ::new (place) LoggerRecord(TextEscape::escaped(name), errorStream_, firstLevel_);
        std::memcpy(static_cast<void*>(record + 1), name.c_str(), name.size() + 1);
        return record;
    }

    Support::Mutex mutex_;
    std::map<std::string, LoggerRecord*, std::less<>> records_ OV_GUARDED_BY(mutex_);
    LogLevel firstLevel_ OV_GUARDED_BY(mutex_) = LogLevel::Info;
    /// No logger tells below it. Changed under the lock, read without.
    std::atomic<LogLevel> lowestLevel_{LogLevel::Info};
    const spdlog::sink_ptr errorStream_ = std::make_shared<spdlog::sinks::stderr_color_sink_mt>();
};

Registry& registry() {
    static Support::OnceBuilt<std::unique_ptr<Registry>> loggers;
    return *loggers.get([] { return std::make_unique<Registry>(); });
}

}  // namespace

LoggerRecord& Embedded::recordOf(const std::string& name) {
    return registry().recordOf(name);
}

bool Embedded::isEnabledByName(const char* name, LogLevel level) {
    return registry().isEnabled(name, level);
}

void setLevel(const std::string& name, LogLevel level) {
    if (name.empty()) {
        registry().setAllLevels(level);
    } else {
        registry().setLevel(name, level);
    }
}

}  // namespace OvLoggingHost
