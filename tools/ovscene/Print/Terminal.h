// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <cstddef>
#include <string>
#include <string_view>

namespace ovscene {

/// Colours for the standard output. They are used on a terminal alone, and never when NO_COLOR is
/// set or the terminal is a dumb one.
class Palette {
public:
    Palette();

    std::string dim(std::string_view text) const { return colored("2", text); }
    std::string bold(std::string_view text) const { return colored("1", text); }
    std::string type(std::string_view text) const { return colored("36", text); }

private:
    std::string colored(const char* code, std::string_view text) const;

    bool on_;
};

/// The columns of the terminal that the standard output is; 100 when it is none.
std::size_t outputColumns();

/// Opens /dev/null in the place of each standard stream that is closed, so that no file that is
/// opened later takes its number.
void occupyStandardStreams();

/// One line on the standard error stream, with the program's name in front.
void tellUser(const std::string& text);

/// One line on the standard error stream, written over itself, that tells how far long work has
/// come. Silent when that stream is no terminal, and for the first half second.
class Progress {
public:
    explicit Progress(std::string work);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// Whether it is time to show something; cheap enough for every step.
    bool isDue() const;

    /// Shows the work and what came of it so far.
    void show(const std::string& state);

    /// The same for a known share of the work, 0 to 1, when it is due.
    void showFraction(double fraction);

private:
    using Clock = std::chrono::steady_clock;

    std::string work_;
    bool on_;
    bool shown_ = false;
    Clock::time_point next_;
};

}  // namespace ovscene
