// SPDX-License-Identifier: Apache-2.0
#include "Utils/OvRenderOutputUtilsHost/DelegateEntries.h"

#include <OvSylvarProducers/LocationDelegateCache.h>
#include <SylvarPlatform/DataAttribute.h>
#include <SylvarPlatform/suites/LocationDelegate.h>

#include <string>
#include <vector>

namespace SYLVAR {
namespace {

using Cache = OvScenegraphLocationDelegateCache;

std::string nameOrEmpty(const char* name) {
    return name ? name : "";
}

const OvLocationDelegate* findDelegate(const char* locationType, const char* rendererName) {
    return locationType ? static_cast<const OvLocationDelegate*>(
                              Cache::getPluginSuite(locationType, nameOrEmpty(rendererName)))
                        : nullptr;
}

}  // namespace

bool processLocationDelegate(OvSgIteratorStruct* iterator,
                             const char* rendererName,
                             const char* locationType,
                             void* input,
                             void** result) {
    const OvLocationDelegate* const delegate = findDelegate(locationType, rendererName);
    void* const instance = delegate ? delegate->create() : nullptr;
    if (!instance) {
        return false;
    }
    if (result) {
        *result = nullptr;
    }
    void* const answer = delegate->process(instance, iterator, input);
    if (result) {
        *result = answer;
    }
    return true;
}

OvAttributeStruct* getLocationTypesWithDelegates(const char* rendererName) {
    using Sylvar3::internal::OvAttribute::StringAttribute;
    std::vector<std::string> types;
    Cache::getLocationTypesWithDelegates(types, nameOrEmpty(rendererName));
    return StringAttribute(types, 1).detach();
}

}  // namespace SYLVAR
