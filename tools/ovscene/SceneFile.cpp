// SPDX-License-Identifier: Apache-2.0
#include "SceneFile.h"

#include <cerrno>
#include <chrono>
#include <cstring>
#include <filesystem>
#include <utility>

#include "ExitStatus.h"
#include "Terminal.h"
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace ovscene {
namespace {

namespace OvAttribute = Sylvar3::internal::OvAttribute;

[[noreturn]] void throwUnreadable(const std::string& filename, int error) {
    throw CommandError(ExitStatus::InputUnreadable, filename + ": " + std::strerror(error));
}

class FileDescriptor {
public:
    explicit FileDescriptor(int file) : file_(file) {}
    ~FileDescriptor() { ::close(file_); }
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;

    int get() const { return file_; }

private:
    int file_;
};

int openForReading(const std::string& filename) {
    const int file = ::open(filename.c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0) {
        throwUnreadable(filename, errno);
    }
    return file;
}

class InputFile {
public:
    explicit InputFile(const std::string& filename)
        : file_(openForReading(filename)), progress_("reading " + filename) {
        struct stat status {};
        const bool known = ::fstat(file_.get(), &status) == 0;
        if (known && S_ISDIR(status.st_mode)) {
            throwUnreadable(filename, EISDIR);
        }
        expected_ = known ? status.st_size : 0;
    }

    static long read(void* self, void* buffer, long size) {
        return static_cast<InputFile*>(self)->readSome(static_cast<char*>(buffer), size);
    }

    int error() const { return error_; }
    std::int64_t bytes() const { return bytes_; }

private:
    long readSome(char* buffer, long size) {
        long done = 0;
        while (done < size) {
            const ssize_t count =
                ::read(file_.get(), buffer + done, static_cast<std::size_t>(size - done));
            if (count == 0 || (count < 0 && errno != EINTR)) {
                error_ = count < 0 ? errno : error_;
                break;
            }
            done += count > 0 ? count : 0;
        }
        bytes_ += done;
        progress_.showFraction(static_cast<double>(bytes_) / static_cast<double>(expected_ + 1));
        return done;
    }

    FileDescriptor file_;
    int error_ = 0;
    std::int64_t bytes_ = 0;
    std::int64_t expected_ = 0;
    Progress progress_;
};

std::string withFileName(const std::string& filename, const std::string& reason) {
    return reason.find(filename) == std::string::npos ? filename + ": " + reason : reason;
}

std::filesystem::path folderOf(const std::string& filename) {
    const std::filesystem::path folder = std::filesystem::path(filename).parent_path();
    return folder.empty() ? std::filesystem::path(".") : folder;
}

std::string reasonAgainstWalking(AttributeContent content) {
    if (content == AttributeContent::OpTree) {
        return "holds an op tree; its locations appear only when it is cooked, and only a file of "
               "a static scene can be walked";
    }
    return "holds a plain attribute, and no static scene that could be walked; 'ovscene attrs' "
           "without a path shows it";
}

}  // namespace

SceneFile readSceneFile(const std::string& filename) {
    const auto start = std::chrono::steady_clock::now();
    InputFile input(filename);
    OvAttribute::AttributeReadResult result = OvAttribute::readAttribute(&input, InputFile::read);
    if (input.error() != 0) {
        throwUnreadable(filename, input.error());
    }
    if (!result.attribute) {
        throw CommandError(ExitStatus::InputMalformed, filename + ": " + result.error);
    }
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
    return {filename,
            std::move(result.attribute),
            result.content,
            result.form,
            input.bytes(),
            taken.count()};
}

void requireReadableFile(const std::string& filename) {
    InputFile readable(filename);
}

SceneLocation topLocation(const SceneFile& file) {
    if (file.content != AttributeContent::StaticScene) {
        throw CommandError(ExitStatus::InputMalformed,
                           file.name + ": " + reasonAgainstWalking(file.content));
    }
    const auto group = OvAttribute::castAttribute<GroupAttribute>(file.attribute);
    if (!group) {
        throw CommandError(ExitStatus::InputMalformed, file.name + ": the scene is no group");
    }
    return SceneLocation("root", group);
}

std::int64_t writeSceneFile(const Attribute& attribute,
                            AttributeContent content,
                            const std::string& filename) {
    const std::string reason = OvAttribute::writeAttributeFile(
        attribute, content, OvAttribute::attributeFormOf(filename), filename);
    if (!reason.empty()) {
        throw CommandError(ExitStatus::OutputUnwritable, withFileName(filename, reason));
    }
    std::error_code unknown;
    const auto size = std::filesystem::file_size(filename, unknown);
    return unknown ? 0 : static_cast<std::int64_t>(size);
}

bool isOrdinaryFile(const std::string& filename) {
    std::error_code ignored;
    return std::filesystem::is_regular_file(filename, ignored);
}

void requireWritablePlace(const std::string& filename) {
    struct stat status {};
    const bool isThere = ::stat(filename.c_str(), &status) == 0;
    const bool isFolder = isThere && S_ISDIR(status.st_mode);
    const bool isReplaced = !isThere || S_ISREG(status.st_mode);
    const int allowed = isReplaced ? ::access(folderOf(filename).c_str(), W_OK | X_OK)
                                   : ::access(filename.c_str(), W_OK);
    if (isFolder || allowed != 0) {
        throw CommandError(ExitStatus::OutputUnwritable,
                           filename + ": " + std::strerror(isFolder ? EISDIR : errno));
    }
}

const char* contentName(AttributeContent content) {
    switch (content) {
        case AttributeContent::OpTree:
            return "op tree";
        case AttributeContent::StaticScene:
            return "static scene";
        case AttributeContent::Attribute:
            break;
    }
    return "attribute";
}

const char* formName(AttributeForm form) {
    return form == AttributeForm::Text ? "text" : "binary";
}

}  // namespace ovscene
