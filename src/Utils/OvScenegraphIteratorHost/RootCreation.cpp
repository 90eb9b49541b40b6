// SPDX-License-Identifier: Apache-2.0
#include "Utils/OvScenegraphIteratorHost/RootCreation.h"

#include <OvSylvarProducers/ScenegraphIteratorHost.h>
#include <OvSylvarProducers/ThreadAwareGeometryProducer.h>

#include "Platform/Support/Log.h"
#include "Utils/OvScenegraphIteratorHost/ConcurrentScene.h"
#include "Utils/OvScenegraphIteratorHost/IteratorHandle.h"
#include "Utils/OvScenegraphIteratorHost/IteratorLogger.h"

#include <cstdlib>
#include <exception>
#include <iostream>
#include <string>
#include <utility>

namespace SYLVAR {
namespace {

constexpr char kRootPath[] = "/root";

/// Whole lines, in one piece, so that those of several threads do not mix.
void tellUser(const std::string& lines) {
    std::cerr << lines << std::flush;
}

OvSgIteratorStruct* creationFailed() {
    tellUser("Sylvar3 producer create failed.\n");
    OV_LOG(iteratorLogger(), error, "Sylvar3 producer create failed.");
    return nullptr;
}

/// The producer's iterator with the caller's reference.
OvSgIteratorStruct* rootOf(GeometryProducerPtr producer) {
    OvSgIteratorStruct* const root = OvGeometryProducerToHandle(std::move(producer));
    retainIterator(root);
    return root ? root : creationFailed();
}

template <class Create>
OvSgIteratorStruct* catching(Create create) {
    try {
        return create();
    } catch (const std::exception& error) {
        // The misspelt name is what people search their logs for.
        tellUser("Error occurred creating ThreadAwareGeometyProducer.\nException message: '" +
                 std::string(error.what()) + "'\n");
    }
    return creationFailed();
}

bool isConcurrent() {
    const char* const wanted = std::getenv("RUNTIME_USE_CONCURRENT");
    return wanted && std::string(wanted) == "1";
}

OvSgIteratorStruct* createConcurrentRoot(const std::string& filename) {
    const std::shared_ptr<SylvarRuntime> runtime = publishRenderRuntime();
    if (!runtime) {
        OV_LOG(iteratorLogger(), error, "Runtime could not be loaded.");
        return nullptr;
    }
    return rootOf(openConcurrentScene(*runtime, filename, kRootPath));
}

}  // namespace

OvSgIteratorStruct* createRootFromFile(const char* filename) {
    return catching([filename] {
        const std::string name = filename;
        return isConcurrent() ? createConcurrentRoot(name)
                              : rootOf(CreateThreadAwareGeometryProducer(name, kRootPath));
    });
}

OvSgIteratorStruct* createRootFromAttr(OvAttributeStruct* opTree) {
    using Sylvar3::internal::OvAttribute::castAttribute;
    return catching([opTree] {
        const auto group = castAttribute<GroupAttribute>(Attribute::share(opTree));
        return rootOf(CreateThreadAwareGeometryProducer(group, kRootPath));
    });
}

}  // namespace SYLVAR
