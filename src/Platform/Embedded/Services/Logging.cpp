// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/Logging.h>

#include "Platform/Embedded/Attributes/Forms/TextEscape.h"
#include "Platform/Embedded/Services/LoggerRecord.h"
#include "Platform/Support/Mutex.h"
#include "Platform/Support/OnceBuilt.h"

#include <memory>
#include <string>
#include <utility>

namespace OvLoggingHost {

namespace {

namespace Support = Sylvar3::internal::Support;
using Embedded::LoggerRecord;
using SinkPtr = std::shared_ptr<const LogSink>;

/// Where messages go; empty for the standard error stream.
struct SinkPlace {
    Support::Mutex mutex;
    SinkPtr sink OV_GUARDED_BY(mutex);
};

SinkPlace& sinkPlace() {
    static Support::OnceBuilt<std::unique_ptr<SinkPlace>> place;
    return *place.get([] { return std::make_unique<SinkPlace>(); });
}

SinkPtr currentSink() {
    SinkPlace& place = sinkPlace();
    const Support::MutexLock lock(place.mutex);
    return place.sink;
}

bool isEnabled(const char* name, LogLevel level) {
    return LoggerRecord::behind(name).level.load(std::memory_order_relaxed) <= level;
}

spdlog::level::level_enum levelBelow(LogLevel level) {
    switch (level) {
        case LogLevel::Debug:
            return spdlog::level::debug;
        case LogLevel::Info:
            return spdlog::level::info;
        case LogLevel::Warn:
            return spdlog::level::warn;
        default:
            return spdlog::level::err;
    }
}

/// On one line, whatever is in the texts: what a file or an asset is named must neither look like a
/// line of its own nor drive a terminal.
void tellErrorStream(const LogMessage& message) {
    using Sylvar3::internal::OvAttribute::Embedded::TextEscape::escaped;
    const std::string file = escaped(message.file);
    LoggerRecord::behind(message.logger)
        .logger.log(spdlog::source_loc(file.c_str(), message.line, ""),
                    levelBelow(message.level),
                    spdlog::string_view_t(escaped(message.message)));
}

void tell(const LogMessage& message) {
    if (const SinkPtr sink = currentSink()) {
        (*sink)(message);
    } else {
        tellErrorStream(message);
    }
}

void log(const char* name, LogLevel level, const char* message, const char* file, int line) {
    if (!isEnabled(name, level)) {
        return;
    }
    try {
        tell({name, level, message ? message : "", file ? file : "", line});
    } catch (...) {  // NOLINT(bugprone-empty-catch): a lost message ends nothing
    }
}

}  // namespace

void Embedded::logByName(const char* name,
                         LogLevel level,
                         const char* message,
                         const char* file,
                         int line) {
    if (isEnabledByName(name, level)) {
        log(recordOf(name).name(), level, message, file, line);
    }
}

OvLoggerGlue::OvLoggerGlue(const char* name) : name_(Embedded::recordOf(name ? name : "").name()) {}

bool OvLoggerGlue::errorEnabled() const {
    return isEnabled(name_, LogLevel::Error);
}

bool OvLoggerGlue::warnEnabled() const {
    return isEnabled(name_, LogLevel::Warn);
}

bool OvLoggerGlue::infoEnabled() const {
    return isEnabled(name_, LogLevel::Info);
}

bool OvLoggerGlue::debugEnabled() const {
    return isEnabled(name_, LogLevel::Debug);
}

void OvLoggerGlue::error(const char* message, const char* file, int line) const {
    log(name_, LogLevel::Error, message, file, line);
}

void OvLoggerGlue::warn(const char* message, const char* file, int line) const {
    log(name_, LogLevel::Warn, message, file, line);
}

void OvLoggerGlue::info(const char* message, const char* file, int line) const {
    log(name_, LogLevel::Info, message, file, line);
}

void OvLoggerGlue::debug(const char* message, const char* file, int line) const {
    log(name_, LogLevel::Debug, message, file, line);
}

void setLogSink(LogSink sink) {
    SinkPtr next = sink ? std::make_shared<const LogSink>(std::move(sink)) : nullptr;
    SinkPlace& place = sinkPlace();
    const Support::MutexLock lock(place.mutex);
    place.sink.swap(next);
}

}  // namespace OvLoggingHost
