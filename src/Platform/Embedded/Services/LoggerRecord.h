// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/Logging.h>

#include <spdlog/logger.h>

#include <atomic>
#include <string>

namespace OvLoggingHost::Embedded {

/// What is behind a logger's name. Its name stands directly behind it in memory, so that the name
/// leads here without a look-up.
struct LoggerRecord {
    /// `shownName` is what the standard error stream shows.
    LoggerRecord(std::string shownName, spdlog::sink_ptr sink, LogLevel firstLevel)
        : level(firstLevel), logger(std::move(shownName), std::move(sink)) {
        logger.set_level(spdlog::level::trace);  // the level is asked above
    }

    std::atomic<LogLevel> level;
    spdlog::logger logger;

    const char* name() const { return reinterpret_cast<const char*>(this + 1); }

    /// The record whose `name()` this is.
    static LoggerRecord& behind(const char* name) {
        char* const end = const_cast<char*>(name);
        return *reinterpret_cast<LoggerRecord*>(end - sizeof(LoggerRecord));
    }
};

/// The record of that name, made when there is none; never destroyed.
LoggerRecord& recordOf(const std::string& name);

/// What a logger of that name does, for callers that keep none. A level below all that are set
/// costs one read of an atomic number, any other a look-up under a lock; asking makes no record.
bool isEnabledByName(const char* name, LogLevel level);
void logByName(const char* name, LogLevel level, const char* message, const char* file, int line);

}  // namespace OvLoggingHost::Embedded
