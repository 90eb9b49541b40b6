// SPDX-License-Identifier: Apache-2.0
#include "Platform/Support/ReplacementFile.h"

#include <atomic>
#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

#include <sys/stat.h>

namespace Sylvar3::internal::Support {

namespace {

std::string nameBeside(const std::string& filename) {
    static std::atomic<unsigned> serial{0};
    return filename + ".part-" + std::to_string(getpid()) + "-" + std::to_string(serial++);
}

}  // namespace

ReplacementFile::ReplacementFile(const std::string& filename) : filename_(filename) {
    struct stat old {};
    const bool isThere = stat(filename.c_str(), &old) == 0;
    if (isThere && !S_ISREG(old.st_mode)) {
        file_.reset(std::fopen(filename.c_str(), "wb"));
        return;
    }
    temporary_ = nameBeside(filename);
    const int descriptor = open(temporary_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (descriptor < 0) {
        temporary_.clear();
        return;
    }
    if (isThere) {
        static_cast<void>(fchmod(descriptor, old.st_mode & 07777));
    }
    file_.reset(fdopen(descriptor, "wb"));
}

ReplacementFile::~ReplacementFile() {
    if (!temporary_.empty()) {
        std::remove(temporary_.c_str());
    }
}

bool ReplacementFile::commit() {
    const bool hadError = std::ferror(file_.get()) != 0;
    const int earlier = errno;
    if (std::fclose(file_.release()) != 0) {
        return false;
    }
    if (hadError) {
        errno = earlier;
        return false;
    }
    if (!temporary_.empty() && std::rename(temporary_.c_str(), filename_.c_str()) != 0) {
        return false;
    }
    temporary_.clear();
    return true;
}

}  // namespace Sylvar3::internal::Support
