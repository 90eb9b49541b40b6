// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <exception>
#include <string>
#include <string_view>

namespace ovscene {

/// Thrown when nobody reads the output any more: a quiet end, no failure.
class OutputClosed : public std::exception {
public:
    const char* what() const noexcept override { return "the output is closed"; }
};

/// The standard output, buffered. Belongs to one thread.
///
/// Throws `OutputClosed` when the reader has gone, and a `CommandError` when the bytes cannot be
/// written for any other reason.
class Output {
public:
    void write(std::string_view text);
    void put(char c);

    /// Writes what is buffered; called once at the end, since a destructor could not report.
    void flush();

private:
    void flushWhenFull();

    std::string buffer_;
};

/// While it lives, what plug-ins write to the standard output goes to the error stream, so that it
/// does not get between what the program itself writes. For the whole process; one at a time.
class ForeignOutputAside {
public:
    ForeignOutputAside();
    ~ForeignOutputAside();
    ForeignOutputAside(const ForeignOutputAside&) = delete;
    ForeignOutputAside& operator=(const ForeignOutputAside&) = delete;

private:
    int output_;  ///< The standard output; -1 when it could not be put aside.
};

/// Writes what plug-ins left in the C library's buffer of the standard output. Throws as `Output`
/// does, also for what it could not write before.
void flushForeignOutput();

}  // namespace ovscene
