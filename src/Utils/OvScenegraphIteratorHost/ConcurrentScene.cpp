// SPDX-License-Identifier: Apache-2.0
#include "Utils/OvScenegraphIteratorHost/ConcurrentScene.h"

#include <OvSylvarProducers/SyncGeometryProducer.h>
#include <SylvarPlatform/SylvarServices.h>

#include <fstream>

namespace SYLVAR {
namespace {

/// What a runtime's reader is handed: the stream first, and the name of what it reads.
struct FileContext {
    std::istream* stream;
    const char* filename;
};

long readFromContext(void* context, void* buffer, long size) {
    std::istream& stream = *static_cast<FileContext*>(context)->stream;
    stream.read(static_cast<char*>(buffer), size);
    return static_cast<long>(stream.gcount());
}

}  // namespace

std::shared_ptr<SylvarRuntime> publishRenderRuntime() {
    using Sylvar3::OvSylvarServicesHost::v1::RegisterRuntimeInstance;
    using Sylvar3::OvSylvarServicesHost::v1::Sylvar;
    constexpr char kName[] = "renderRuntime";
    RegisterRuntimeInstance({}, kName);
    Sylvar services;
    std::shared_ptr<SylvarRuntime> runtime = services.createRuntime();
    RegisterRuntimeInstance(runtime, kName);
    return runtime;
}

GeometryProducerPtr openConcurrentScene(SylvarRuntime& runtime,
                                        const std::string& filename,
                                        const std::string& path) {
    const auto transaction = runtime.createTransaction();
    if (!transaction) {
        return nullptr;
    }
    std::ifstream file(filename, std::ios::in | std::ios::binary);
    FileContext context{&file, filename.c_str()};
    const auto op = transaction->deserializeOps(&context, readFromContext);
    const auto client = transaction->createClient();
    if (!client) {
        return nullptr;
    }
    transaction->setClientOp(client, op);
    runtime.commit(transaction);
    return CreateSyncGeometryProducer(client, path);
}

}  // namespace SYLVAR
