// SPDX-License-Identifier: Apache-2.0
#include "AssetScene.h"

#include "Guard/AssetFiles.h"
#include "ImportError.h"

#include <assimp/BaseImporter.h>
#include <assimp/ProgressHandler.hpp>
#include <assimp/config.h>

#include <set>

namespace AssimpImport {
namespace {

class ReadingProgress : public Assimp::ProgressHandler {
public:
    explicit ReadingProgress(ImportProgress& progress) noexcept : progress_(progress) {}

    bool Update(float fraction) override { return progress_.reach(fraction * kReadingShare); }

private:
    ImportProgress& progress_;
};

bool readsExtension(Assimp::BaseImporter& reader, const char* extension) {
    std::set<std::string> extensions;
    reader.GetExtensionList(extensions);
    return extensions.count(extension) != 0;
}

std::string reasonOf(const char* text) {
    std::string reason = text;
    if (reason.rfind("No suitable reader", 0) == 0) {
        return "its content is not of the format that its extension names";
    }
    while (!reason.empty() && (reason.back() == '.' || reason.back() == '\n')) {
        reason.pop_back();
    }
    return reason.empty() ? "the file cannot be understood" : reason;
}

}  // namespace

AssetScene::AssetScene(const ImportRequest& request,
                       const AssetFormat& format,
                       ImportProgress& progress) {
    keepReadersOf(format);
    setProperties(request.options);
    importer_.SetIOHandler(new AssetFiles(request.options.maxFileBytes));
    importer_.SetProgressHandler(new ReadingProgress(progress));
    scene_ = importer_.ReadFile(request.filename, 0);
    progress.pass(kReadingShare);
    if (!scene_) {
        throw ImportError(reasonOf(importer_.GetErrorString()));
    }
    if (!scene_->mRootNode) {
        throw ImportError("it holds no nodes");
    }
}

void AssetScene::keepReadersOf(const AssetFormat& format) {
    for (std::size_t i = importer_.GetImporterCount(); i > 0; --i) {
        Assimp::BaseImporter* reader = importer_.GetImporter(i - 1);
        if (!readsExtension(*reader, format.extension)) {
            importer_.UnregisterLoader(reader);
            delete reader;
        }
    }
}

void AssetScene::setProperties(const OvAssetImportOptions& options) {
    importer_.SetPropertyBool(AI_CONFIG_IMPORT_FBX_READ_ANIMATIONS, false);
    importer_.SetPropertyBool(AI_CONFIG_IMPORT_FBX_PRESERVE_PIVOTS, false);
    importer_.SetPropertyBool(AI_CONFIG_IMPORT_COLLADA_USE_COLLADA_NAMES, true);
    importer_.SetPropertyBool(AI_CONFIG_IMPORT_COLLADA_IGNORE_UP_DIRECTION, options.upAxis != 0);
}

}  // namespace AssimpImport
