// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/Logging.h>

#include <mutex>
#include <string>
#include <utility>
#include <vector>

namespace ovtest {

/// Hears all messages for as long as it lives, as "logger level file: message". One at a time.
class HeardLogs {
public:
    HeardLogs() {
        OvLoggingHost::setLogSink([this](const OvLoggingHost::LogMessage& heard) {
            const std::lock_guard<std::mutex> lock(mutex_);
            heard_.push_back(std::string(heard.logger) + " " + nameOf(heard.level) + " " +
                             heard.file + ": " + heard.message);
            hasLines_ = hasLines_ && heard.line > 0;
        });
    }
    ~HeardLogs() {
        OvLoggingHost::setLogSink({});
        OvLoggingHost::setLevel("", OvLoggingHost::LogLevel::Info);
    }
    HeardLogs(const HeardLogs&) = delete;
    HeardLogs& operator=(const HeardLogs&) = delete;

    /// The messages since the last time.
    std::vector<std::string> take() {
        const std::lock_guard<std::mutex> lock(mutex_);
        return std::exchange(heard_, {});
    }

    /// Whether every message told its line.
    bool hasLines() const { return hasLines_; }

private:
    static const char* nameOf(OvLoggingHost::LogLevel level) {
        const char* const names[] = {"debug", "info", "warn", "error", "off"};
        return names[static_cast<int>(level)];
    }

    std::mutex mutex_;
    std::vector<std::string> heard_;
    bool hasLines_ = true;
};

}  // namespace ovtest
