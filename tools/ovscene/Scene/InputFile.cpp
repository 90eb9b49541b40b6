// SPDX-License-Identifier: Apache-2.0
#include "Scene/InputFile.h"

#include "ExitStatus.h"
#include "Print/NumberText.h"

#include <cerrno>
#include <cstddef>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

#include <sys/stat.h>

namespace ovscene {
namespace {

[[noreturn]] void throwUnreadable(const std::string& filename, int error) {
    throw CommandError(ExitStatus::InputUnreadable, filename + ": " + std::strerror(error));
}

int openForReading(const std::string& filename) {
    struct stat status {};
    if (::stat(filename.c_str(), &status) == 0 && S_ISDIR(status.st_mode)) {
        throwUnreadable(filename, EISDIR);
    }
    const int file = ::open(filename.c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0) {
        throwUnreadable(filename, errno);
    }
    return file;
}

std::int64_t sizeOf(int file) {
    struct stat status {};
    return ::fstat(file, &status) == 0 ? status.st_size : 0;
}

}  // namespace

InputFile::InputFile(const std::string& filename)
    : filename_(filename),
      file_(openForReading(filename)),
      expected_(sizeOf(file_)),
      progress_("reading " + filename) {}

InputFile::~InputFile() {
    ::close(file_);
}

void InputFile::requireNoError() const {
    if (error_ != 0) {
        throwUnreadable(filename_, error_);
    }
}

long InputFile::readSome(char* buffer, long size) {
    long done = 0;
    while (done < size) {
        const ssize_t count = ::read(file_, buffer + done, static_cast<std::size_t>(size - done));
        if (count == 0 || (count < 0 && errno != EINTR)) {
            error_ = count < 0 ? errno : error_;
            break;
        }
        done += count > 0 ? count : 0;
    }
    bytes_ += done;
    showProgress();
    return done;
}

void InputFile::showProgress() {
    if (expected_ > 0) {
        progress_.showFraction(static_cast<double>(bytes_) / static_cast<double>(expected_));
    } else if (progress_.isDue()) {
        progress_.show(counted(bytes_, "byte"));
    }
}

}  // namespace ovscene
