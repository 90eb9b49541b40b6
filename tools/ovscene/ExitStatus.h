// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <stdexcept>
#include <string>

namespace ovscene {

/// What the program returns to the shell. `ovscene --help` and `docs/ovscene.md` list them.
enum class ExitStatus {
    Success = 0,
    Unexpected = 1,
    Usage = 2,
    InputUnreadable = 3,
    InputMalformed = 4,
    NotFound = 5,
    OutputUnwritable = 6,
    PluginUnusable = 7,
    ImportFailed = 8,
    RenderFailed = 9
};

/// Ends a command with a status and one line for people: what happened, and where. The text may
/// hold anything that a file or an argument held; it is made safe when it is printed.
class CommandError : public std::runtime_error {
public:
    CommandError(ExitStatus status, const std::string& message)
        : std::runtime_error(message), status_(status) {}

    ExitStatus status() const noexcept { return status_; }

private:
    ExitStatus status_;
};

}  // namespace ovscene
