// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/Logging.h>

#include <locale>
#include <sstream>

/// Logs a stream expression with the place where this stands. The text is made only when the level
/// (error, warn, info or debug) is enabled; numbers in it are written in the classic locale.
///
///     OV_LOG(logger(), error, "Runtime '" << name << "' is empty.");
#define OV_LOG(logger, level, text)                                                  \
    do {                                                                             \
        const ::OvLoggingHost::OvLoggerGlue ovLogger = (logger);                     \
        if (ovLogger.level##Enabled()) {                                             \
            std::ostringstream ovText;                                               \
            ovText.imbue(std::locale::classic());                                    \
            ovText << text; /* a chain of << : NOLINT(bugprone-macro-parentheses) */ \
            ovLogger.level(ovText.str().c_str(), __FILE__, __LINE__);                \
        }                                                                            \
    } while (false)
