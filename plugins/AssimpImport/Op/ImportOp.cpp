// SPDX-License-Identifier: Apache-2.0
#include "Op/ImportOp.h"

#include <SylvarPlatform/suites/OpType.h>

#include "ImportError.h"
#include "Op/ImportArguments.h"
#include "Op/ParsedAsset.h"

#include <cstddef>
#include <cstdio>
#include <memory>
#include <mutex>
#include <new>
#include <string>
#include <utility>

namespace AssimpImport {
namespace {

/// Written once, before there is an op.
const OvAttributeSuite* attributeSuite = nullptr;
const OvOpHost* opHost = nullptr;

constexpr std::size_t kUsualLength = 4096;

/// What an entry of the host writes into a buffer; it fails for want of memory alone.
template <class Entry>
std::string textOf(Entry entry, const std::string& name) {
    std::string text;
    std::size_t length = kUsualLength;
    while (length > text.size()) {
        text.resize(length);
        const std::int64_t told = entry(name.c_str(), text.data(), text.size() + 1);
        if (told < 0) {
            throw std::bad_alloc();
        }
        length = static_cast<std::size_t>(told);
    }
    text.resize(length);
    return text;
}

std::string pathOfAsset(const std::string& name) {
    return textOf(opHost->resolveAsset, name);
}

std::string identityOfFile(const std::string& path) {
    return textOf(opHost->getFileIdentity, path);
}

/// One op. Looks for its asset when a location inside is first asked for.
class ImportOp {
public:
    explicit ImportOp(OvAttributeStruct* group) {
        ImportArguments arguments(*attributeSuite, group);
        if (opHost->isLocationPath(arguments.at.c_str()) == 0) {
            throw ImportError(
                "argument \"at\": expected a location's path such as /root/world, "
                "found \"" +
                arguments.at + "\"");
        }
        path_ = pathOfAsset(arguments.file);
        at_ = std::move(arguments.at);
        options_ = arguments.options;
    }

    void cook(OvOpCookStruct* cook) {
        if (opHost->enterScene(cook, at_.c_str()) != 0) {
            opHost->setStaticScene(cook, asset()->scene(), at_.c_str());
        }
    }

    /// An op that has looked for nothing yet will see what is there then.
    bool hasChanged() {
        const std::shared_ptr<ParsedAsset> known = found();
        return known && known->hasChanged();
    }

private:
    std::shared_ptr<ParsedAsset> found() {
        const std::lock_guard<std::mutex> lock(mutex_);
        return asset_;
    }

    std::shared_ptr<ParsedAsset> asset() {
        const std::lock_guard<std::mutex> lock(mutex_);
        if (!asset_) {
            asset_ = ParsedAsset::find({*attributeSuite, path_, options_}, identityOfFile);
        }
        return asset_;
    }

    std::string path_;
    std::string at_;
    OvAssetImportOptions options_{};
    std::mutex mutex_;
    std::shared_ptr<ParsedAsset> asset_;
};

void* create(OvAttributeStruct* arguments,
             std::int32_t /*inputCount*/,
             char* message,
             std::size_t messageSize) {
    try {
        return std::make_unique<ImportOp>(arguments).release();
    } catch (const ImportError& error) {
        std::snprintf(message, messageSize, "%s", error.what());
        return nullptr;
    }
}

void destroy(void* instance) {
    delete static_cast<ImportOp*>(instance);
}

void cookLocation(void* instance, OvOpCookStruct* cook) {
    try {
        static_cast<ImportOp*>(instance)->cook(cook);
    } catch (const ImportError& error) {
        opHost->fail(cook, error.what());
    }
}

std::int64_t getIdentity(OvAttributeStruct* arguments, char* buffer, std::size_t bufferSize) {
    const std::string path = pathOfAsset(fileArgument(*attributeSuite, arguments));
    return opHost->getFileIdentity(path.c_str(), buffer, bufferSize);
}

std::int32_t hasChanged(void* instance) {
    return static_cast<ImportOp*>(instance)->hasChanged() ? 1 : 0;
}

const OvOpType kImportOpType = {OV_OP_TYPE_API_VERSION,
                                0,
                                &kImportSchema,
                                create,
                                destroy,
                                cookLocation,
                                getIdentity,
                                hasChanged};

}  // namespace

std::int32_t setImportOpHost(const OvHostTable* host) {
    attributeSuite = static_cast<const OvAttributeSuite*>(
        host->findSuite(OV_ATTRIBUTE_SUITE_NAME, OV_ATTRIBUTE_SUITE_VERSION));
    opHost = static_cast<const OvOpHost*>(
        host->findSuite(OV_OP_HOST_SUITE_NAME, OV_OP_HOST_SUITE_VERSION));
    return attributeSuite && opHost ? 0 : 1;
}

const void* importOpType() {
    return &kImportOpType;
}

}  // namespace AssimpImport
