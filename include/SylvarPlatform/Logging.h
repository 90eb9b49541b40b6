// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/Export.h>

#include <functional>
#include <string>

/// Messages for people, each of a named logger and a level. Any thread may call anything here.
namespace OvLoggingHost {

enum class LogLevel {
    Debug,  ///< counts and the like
    Info,   ///< an event that the user may want to know about
    Warn,   ///< a setting that cannot be fully applied
    Error,  ///< what ends an operation
    Off     ///< for `setLevel` alone: nothing
};

/// A logger: its name, and nothing else. Loggers of one name are one and the same. What is behind a
/// name lives as long as the process, so a logger may be kept, copied or made again at will; making
/// one takes a lock, asking and copying one does not.
class SYLVAR_PLATFORM_API OvLoggerGlue {
public:
    /// The name is copied; null is "".
    explicit OvLoggerGlue(const char* name);

    const char* name() const { return name_; }

    /// Whether a message of that level would go anywhere: one read of an atomic number.
    bool errorEnabled() const;
    bool warnEnabled() const;
    bool infoEnabled() const;
    bool debugEnabled() const;

    /// Logs a message with the place of the call; null strings are "". Nothing happens when the
    /// level is not enabled. Never throws: what cannot be told is lost.
    void error(const char* message, const char* file, int line) const;
    void warn(const char* message, const char* file, int line) const;
    void info(const char* message, const char* file, int line) const;
    void debug(const char* message, const char* file, int line) const;

private:
    const char* name_;
};

/// From which level on the logger of that name tells; "" sets all loggers, those of later names
/// too, and forgets what was set for single names. Until then: `LogLevel::Info`.
SYLVAR_PLATFORM_API void setLevel(const std::string& name, LogLevel level);

/// One message; everything is borrowed for the call.
struct LogMessage {
    const char* logger;
    LogLevel level;
    const char* message;
    const char* file;
    int line;
};

using LogSink = std::function<void(const LogMessage&)>;

/// Sends messages to the sink instead of the standard error stream; an empty one brings the stream
/// back. The stream has one line for each message: control characters and bytes that are no UTF-8
/// are written there as \xHH, and a backslash that would read as such an escape as \x5C. A sink is
/// given the texts as they are.
///
/// The sink is called by the thread that logs, by several at once; it may log itself. What it
/// throws is dropped. A call of the sink before may still be running when this returns.
SYLVAR_PLATFORM_API void setLogSink(LogSink sink);

}  // namespace OvLoggingHost
