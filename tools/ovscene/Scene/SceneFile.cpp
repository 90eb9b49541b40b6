// SPDX-License-Identifier: Apache-2.0
#include "Scene/SceneFile.h"

#include <OvSylvarProducers/ThreadLocalClient.h>

#include "ExitStatus.h"
#include "Scene/HostTables.h"
#include "Scene/InputFile.h"
#include "Scene/PluginFolders.h"

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

constexpr char kTopPath[] = "/root";

[[noreturn]] void throwMalformed(const SceneFile& file, const std::string& reason) {
    throw CommandError(ExitStatus::InputMalformed, file.name + ": " + reason);
}

SceneLocationPtr openStaticScene(const SceneFile& file) {
    const auto group = OvAttribute::castAttribute<GroupAttribute>(file.attribute);
    if (!group) {
        throwMalformed(file, "the scene is no group");
    }
    return staticTopLocation(group);
}

/// Why no ops can be built from it.
std::string faultOf(const GroupAttribute& opTree) {
    for (std::int64_t i = 0; i < opTree.getNumberOfChildren(); ++i) {
        if (opTree.getChildByIndex(i).getType() != OV_ATTRIBUTE_GROUP) {
            return "the op '" + opTree.getChildName(i) + "' is no group";
        }
    }
    return opTree.getNumberOfChildren() == 0 ? "it has no ops" : "the log tells why";
}

/// Throws what is wrong with an op tree of which no root can be made: who makes one tells less of
/// that, and in lines of its own. Asks the calling thread's client, which locations will use too.
void requireRoot(const SceneFile& file,
                 const SYLVAR::OpTreeSource& source,
                 const GroupAttribute& opTree) {
    const auto client = SYLVAR::ThreadLocalClient(source).getClient();
    if (!client) {
        throwMalformed(file, "the op tree cannot be opened; " + faultOf(opTree));
    }
    if (!client->cookLocation(kTopPath).doesLocationExist()) {
        throwMalformed(file, std::string("the op tree makes no location ") + kTopPath);
    }
}

/// A pipe can't be read again, so what it held is opened.
SceneLocationPtr openOpTree(const SceneFile& file) {
    const bool isReadAgain = isOrdinaryFile(file.name);
    const auto group = OvAttribute::castAttribute<GroupAttribute>(file.attribute);
    searchPlugins();  // they add op types
    logUnusablePlugins();
    requireRoot(file,
                isReadAgain ? SYLVAR::OpTreeSource::createFromFile(file.name)
                            : SYLVAR::OpTreeSource::createFromGroupAttribute(group),
                group);
    return cookedTopLocation(valueOf(isReadAgain ? hostScene().openFile(file.name)
                                                 : hostScene().openOpTree(group.handle())));
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

SceneLocationPtr topLocation(const SceneFile& file) {
    switch (file.content) {
        case AttributeContent::StaticScene:
            return openStaticScene(file);
        case AttributeContent::OpTree:
            return openOpTree(file);
        case AttributeContent::Attribute:
            break;
    }
    throwMalformed(file,
                   "holds a plain attribute, and no scene that could be walked; 'ovscene attrs' "
                   "without a path shows it");
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
