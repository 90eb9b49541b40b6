// SPDX-License-Identifier: Apache-2.0
#include "Platform/Support/ReplacementFile.h"

#include <atomic>
#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <unistd.h>
#include <utility>

#include <sys/stat.h>

namespace Sylvar3::internal::Support {

namespace {

namespace fs = std::filesystem;

constexpr int kMostLinks = 40;

/// Where a chain of symbolic links leads, whether there is a file yet or not.
fs::path followed(fs::path path) {
    std::error_code ignored;
    for (int i = 0; i < kMostLinks && fs::is_symlink(path, ignored); ++i) {
        path = path.parent_path() / fs::read_symlink(path, ignored);
    }
    return path;
}

/// A name of its own in the same folder, however long the wanted one is.
std::string nameBeside(const fs::path& path) {
    static std::atomic<unsigned> serial{0};
    const std::string name = ".part-" + std::to_string(getpid()) + "-" + std::to_string(serial++);
    return (path.parent_path() / name).string();
}

}  // namespace

ReplacementFile::ReplacementFile(const std::string& filename) {
    struct stat old {};
    const bool isThere = stat(filename.c_str(), &old) == 0;
    if (isThere && !S_ISREG(old.st_mode)) {
        file_.reset(std::fopen(filename.c_str(), "wb"));
        return;
    }
    filename_ = followed(filename).string();
    std::string beside = nameBeside(filename_);
    const int descriptor = open(beside.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (descriptor < 0) {
        return;
    }
    temporary_ = std::move(beside);
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
