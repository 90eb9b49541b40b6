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

/// A client of the file's ops; empty when the runtime has no transaction or no client to give.
std::shared_ptr<SylvarRuntime::Client> clientOf(SylvarRuntime& runtime,
                                                const std::string& filename) {
    const auto transaction = runtime.createTransaction();
    if (!transaction) {
        return {};
    }
    std::ifstream file(filename, std::ios::in | std::ios::binary);
    FileContext context{&file, filename.c_str()};
    const auto op = transaction->deserializeOps(&context, readFromContext);
    auto client = transaction->createClient();
    if (client) {
        transaction->setClientOp(client, op);
        runtime.commit(transaction);
    }
    return client;
}

}  // namespace

std::shared_ptr<SylvarRuntime> publishRenderRuntime() {
    using namespace Sylvar3::OvSylvarServicesHost::v1;
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
    return CreateSyncGeometryProducer(clientOf(runtime, filename), path);
}

}  // namespace SYLVAR
