// SPDX-License-Identifier: Apache-2.0
#include "Print/Terminal.h"

#include "Print/NumberText.h"
#include "Print/SafeText.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

#include <sys/ioctl.h>

namespace ovscene {
namespace {

constexpr std::size_t kColumnsWithoutTerminal = 100;
constexpr std::size_t kFewestColumns = 40;
constexpr auto kBeforeFirstLine = std::chrono::milliseconds(500);
constexpr auto kBetweenLines = std::chrono::milliseconds(100);
constexpr char kWipeLine[] = "\r\033[K";

bool isDumbTerminal() {
    const char* term = std::getenv("TERM");
    return term && std::strcmp(term, "dumb") == 0;
}

std::size_t terminalColumns(int file, std::size_t otherwise) {
    winsize size{};
    const bool known = ::ioctl(file, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
    return known ? std::max(kFewestColumns, std::size_t{size.ws_col}) : otherwise;
}

}  // namespace

Palette::Palette()
    : on_(::isatty(STDOUT_FILENO) == 1 && !std::getenv("NO_COLOR") && !isDumbTerminal()) {}

std::string Palette::colored(const char* code, std::string_view text) const {
    if (!on_ || text.empty()) {
        return std::string(text);
    }
    return std::string("\033[").append(code).append("m").append(text).append("\033[0m");
}

std::size_t outputColumns() {
    return terminalColumns(STDOUT_FILENO, kColumnsWithoutTerminal);
}

void occupyStandardStreams() {
    for (const int file : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (::fcntl(file, F_GETFD) == -1) {
            static_cast<void>(::open("/dev/null", O_RDWR));
        }
    }
}

void tellUser(const std::string& text) {
    std::fprintf(stderr, "ovscene: %s\n", safeText(text).c_str());
}

Progress::Progress(std::string work)
    : work_(std::move(work)),
      on_(::isatty(STDERR_FILENO) == 1 && !isDumbTerminal()),
      next_(Clock::now() + kBeforeFirstLine) {}

Progress::~Progress() {
    if (shown_) {
        std::fputs(kWipeLine, stderr);
    }
}

bool Progress::isDue() const {
    return on_ && Clock::now() >= next_;
}

void Progress::show(const std::string& state) {
    const std::size_t columns = terminalColumns(STDERR_FILENO, kColumnsWithoutTerminal);
    const std::string line = safeText(work_ + "  " + state, columns - 1);
    std::fprintf(stderr, "%s%s", kWipeLine, line.c_str());
    std::fflush(stderr);
    shown_ = true;
    next_ = Clock::now() + kBetweenLines;
}

void Progress::showFraction(double fraction) {
    if (isDue()) {
        const double shown = std::clamp(fraction, 0.0, 1.0);
        show(numberText(static_cast<std::int64_t>(shown * 100)) + "%");
    }
}

}  // namespace ovscene
