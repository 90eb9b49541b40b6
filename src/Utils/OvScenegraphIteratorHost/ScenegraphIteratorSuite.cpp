// SPDX-License-Identifier: Apache-2.0
#include "Utils/OvScenegraphIteratorHost/ScenegraphIteratorSuite.h"

#include <OvSylvarProducers/OpTreeDescription.h>
#include <OvSylvarProducers/ScenegraphIteratorHost.h>

#include "Platform/Support/OnceBuilt.h"
#include "Utils/OvScenegraphIteratorHost/FinalizeScene.h"
#include "Utils/OvScenegraphIteratorHost/IteratorHandle.h"
#include "Utils/OvScenegraphIteratorHost/RootCreation.h"
#include "Utils/OwnedString.h"

#include <set>
#include <string>
#include <vector>

namespace SYLVAR {
namespace {

using Sylvar3::internal::Support::OnceBuilt;

/// What `ask` gets of the iterator's producer, which is held meanwhile; null for the null iterator.
template <class Ask>
auto answerOf(OvSgIteratorStruct* iterator, Ask ask) -> decltype(ask(*iterator->producer)) {
    const GeometryProducerPtr producer = OvHandleToGeometryProducer(iterator);
    return producer ? ask(*producer) : nullptr;
}

OvAttributeStruct* sgLoadOpTreeDescription(const char* filename) {
    return LoadOpTreeDescriptionFromFile(filename, false).detach();
}

OvSgIteratorStruct* sgGetFirstChild(OvSgIteratorStruct* iterator, std::uint8_t evict) {
    return answerOf(iterator, [evict](GeometryProducer& producer) {
        return OvGeometryProducerToHandle(producer.getFirstChild(evict != 0));
    });
}

OvSgIteratorStruct* sgGetNextSibling(OvSgIteratorStruct* iterator, std::uint8_t evict) {
    return answerOf(iterator, [evict](GeometryProducer& producer) {
        return OvGeometryProducerToHandle(producer.getNextSibling(evict != 0));
    });
}

OvSgIteratorStruct* sgGetParent(OvSgIteratorStruct* iterator) {
    return answerOf(iterator, [](GeometryProducer& producer) {
        return OvGeometryProducerToHandle(producer.parent);
    });
}

OvSgIteratorStruct* sgGetRoot(OvSgIteratorStruct* iterator) {
    return answerOf(iterator, [](GeometryProducer& producer) {
        return OvGeometryProducerToHandle(producer.getRootProducer());
    });
}

OvSgIteratorStruct* sgGetChildByName(OvSgIteratorStruct* iterator,
                                     const char* name,
                                     std::uint8_t evict) {
    return answerOf(iterator, [name, evict](GeometryProducer& producer) {
        return OvGeometryProducerToHandle(producer.getChildByName(name, evict != 0));
    });
}

OvSgIteratorStruct* sgGetByPath(OvSgIteratorStruct* iterator,
                                const char* path,
                                std::uint8_t evict) {
    return answerOf(iterator, [path, evict](GeometryProducer& producer) {
        return OvGeometryProducerToHandle(producer.getProducerByPath(path, evict != 0));
    });
}

OvAttributeStruct* sgGetName(OvSgIteratorStruct* iterator) {
    return answerOf(iterator,
                    [](GeometryProducer& producer) { return ownedString(producer.getName()); });
}

OvAttributeStruct* sgGetFullName(OvSgIteratorStruct* iterator) {
    return answerOf(iterator,
                    [](GeometryProducer& producer) { return ownedString(producer.getFullName()); });
}

OvAttributeStruct* sgGetAttribute(OvSgIteratorStruct* iterator, const char* name) {
    return answerOf(iterator, [name](GeometryProducer& producer) {
        return producer.getAttribute(name).detach();
    });
}

OvAttributeStruct* sgGetGlobalAttribute(OvSgIteratorStruct* iterator, const char* name) {
    return answerOf(iterator, [name](GeometryProducer& producer) {
        return producer.getGlobalAttribute(name).detach();
    });
}

OvAttributeStruct* sgGetAttributeNames(OvSgIteratorStruct* iterator) {
    return answerOf(iterator, [](GeometryProducer& producer) {
        std::set<std::string> names;
        producer.getAttributeNames(&names);
        return StringAttribute(std::vector<std::string>(names.begin(), names.end()), 1).detach();
    });
}

OvAttributeStruct* sgGetGlobalXFormGroup(OvSgIteratorStruct* iterator) {
    return answerOf(iterator, [](GeometryProducer& producer) {
        return producer.getGlobalXFormGroup().detach();
    });
}

OvAttributeStruct* sgGetPotentialChildren(OvSgIteratorStruct* iterator) {
    return answerOf(iterator, [](GeometryProducer& producer) {
        return producer.getPotentialChildren().detach();
    });
}

/// The entries that both versions have.
template <class Suite>
Suite commonEntries() {
    Suite suite{};
    suite.sgRetain = retainIterator;
    suite.sgRelease = releaseIterator;
    suite.sgCreateRootFromFile = createRootFromFile;
    suite.sgGetFirstChild = sgGetFirstChild;
    suite.sgGetNextSibling = sgGetNextSibling;
    suite.sgGetParent = sgGetParent;
    suite.sgGetRoot = sgGetRoot;
    suite.sgGetChildByName = sgGetChildByName;
    suite.sgGetByPath = sgGetByPath;
    suite.sgGetName = sgGetName;
    suite.sgGetFullName = sgGetFullName;
    suite.sgGetAttribute = sgGetAttribute;
    suite.sgGetGlobalAttribute = sgGetGlobalAttribute;
    suite.sgGetAttributeNames = sgGetAttributeNames;
    suite.sgGetGlobalXFormGroup = sgGetGlobalXFormGroup;
    suite.sgGetPotentialChildren = sgGetPotentialChildren;
    return suite;
}

OvScenegraphIteratorSuite allEntries() {
    auto suite = commonEntries<OvScenegraphIteratorSuite>();
    suite.sgLoadOpTreeDescription = sgLoadOpTreeDescription;
    suite.sgCreateRootFromAttr = createRootFromAttr;
    suite.sgFinalize = finalizeScene;
    return suite;
}

}  // namespace

const OvScenegraphIteratorSuite* scenegraphIteratorSuite() {
    static OnceBuilt<OvScenegraphIteratorSuite> built;
    return &built.get(allEntries);
}

const OvScenegraphIteratorSuite2* scenegraphIteratorSuite2() {
    static OnceBuilt<OvScenegraphIteratorSuite2> built;
    return &built.get(commonEntries<OvScenegraphIteratorSuite2>);
}

}  // namespace SYLVAR
