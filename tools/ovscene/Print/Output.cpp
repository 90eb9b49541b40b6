// SPDX-License-Identifier: Apache-2.0
#include "Print/Output.h"

#include "ExitStatus.h"

#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace ovscene {
namespace {

constexpr std::size_t kBufferSize = std::size_t{1} << 16;

[[noreturn]] void throwWriteError(int error) {
    if (error == EPIPE) {
        throw OutputClosed();
    }
    throw CommandError(ExitStatus::OutputUnwritable,
                       std::string("standard output: ") + std::strerror(error));
}

bool hasReaderGone() {
    pollfd output{STDOUT_FILENO, POLLOUT, 0};
    return ::poll(&output, 1, 0) == 1 && (output.revents & POLLERR) != 0;
}

}  // namespace

void Output::write(std::string_view text) {
    buffer_.append(text);
    flushWhenFull();
}

void Output::put(char c) {
    buffer_.push_back(c);
    flushWhenFull();
}

void Output::flush() {
    const std::string bytes = std::move(buffer_);
    buffer_.clear();
    for (std::size_t done = 0; done < bytes.size();) {
        const ssize_t written = ::write(STDOUT_FILENO, bytes.data() + done, bytes.size() - done);
        if (written >= 0) {
            done += static_cast<std::size_t>(written);
        } else if (errno != EINTR) {
            throwWriteError(errno);
        }
    }
}

void Output::flushWhenFull() {
    if (buffer_.size() >= kBufferSize) {
        flush();
    }
}

ForeignOutputAside::ForeignOutputAside() : output_(::fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, 0)) {
    if (output_ != -1) {
        ::dup2(STDERR_FILENO, STDOUT_FILENO);
    }
}

ForeignOutputAside::~ForeignOutputAside() {
    if (output_ != -1) {
        std::fflush(stdout);  // while it still goes to the error stream
        ::dup2(output_, STDOUT_FILENO);
        ::close(output_);
    }
}

void flushForeignOutput() {
    if (std::fflush(stdout) != 0) {
        throwWriteError(errno);
    }
    if (std::ferror(stdout) != 0) {  // its number is gone
        throwWriteError(hasReaderGone() ? EPIPE : EIO);
    }
}

}  // namespace ovscene
