// SPDX-License-Identifier: Apache-2.0
#include "Scene/SceneFile.h"

#include "ExitStatus.h"
#include "Scene/InputFile.h"

#include <cerrno>
#include <chrono>
#include <cstring>
#include <filesystem>
#include <unistd.h>
#include <utility>

#include <sys/stat.h>

namespace ovscene {
namespace {

namespace OvAttribute = Sylvar3::internal::OvAttribute;

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
    OvAttribute::AttributeReadResult result = OvAttribute::readAttribute(&input, &InputFile::read);
    input.requireNoError();
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
