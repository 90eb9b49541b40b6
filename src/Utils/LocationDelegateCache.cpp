// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/LocationDelegateCache.h>
#include <SylvarPlatform/PluginManager.h>
#include <SylvarPlatform/SampleAccessor.h>
#include <SylvarPlatform/suites/LocationDelegate.h>

#include "Platform/Support/OnceBuilt.h"

#include <atomic>
#include <map>
#include <mutex>
#include <new>

namespace SYLVAR {
namespace {

namespace OvAttribute = Sylvar3::internal::OvAttribute;
using OvAttribute::StringAttribute;
using Sylvar3::internal::OvPluginManager::PluginManager;

using DelegatesByType = std::map<std::string, const OvLocationDelegate*>;

/// Written by the walk over the plug-ins alone, and only read after it.
struct Delegates {
    DelegatesByType genericDelegates;
    std::map<std::string, DelegatesByType> rendererDelegates;

    const DelegatesByType* find(const std::string& rendererName) const {
        if (rendererName.empty()) {
            return &genericDelegates;
        }
        const auto found = rendererDelegates.find(rendererName);
        return found == rendererDelegates.end() ? nullptr : &found->second;
    }

    DelegatesByType& of(const std::string& rendererName) {
        return rendererName.empty() ? genericDelegates : rendererDelegates[rendererName];
    }
};

Delegates& delegates() {
    static Sylvar3::internal::Support::OnceBuilt<Delegates> built;
    return built.get();
}

std::once_flag populatedOnce;
std::atomic<bool> cacheInitialized{false};

/// What a delegate answers about itself.
struct Claim {
    std::string rendererName;
    std::vector<std::string> locationTypes;
};

StringAttribute stringsOf(OvAttributeStruct* owned) {
    return OvAttribute::castAttribute<StringAttribute>(owned);
}

/// Nothing that a plug-in throws here concerns who asks for another delegate.
Claim claimOf(const OvLocationDelegate& delegate) {
    try {
        void* const instance = delegate.create();
        const OvAttribute::SampleAccessor<StringAttribute> types(
            stringsOf(delegate.getLocationTypes(instance)), 0.0F);
        const StringAttribute renderer = stringsOf(delegate.getSupportedRenderer(instance));
        return {OvAttribute::getStringValue(renderer, "", false),
                std::vector<std::string>(types.begin(), types.end())};
    } catch (const std::bad_alloc&) {
        throw;
    } catch (...) {
        return {};
    }
}

bool isComplete(const OvLocationDelegate& delegate) {
    return delegate.create && delegate.process && delegate.getSupportedRenderer &&
           delegate.getLocationTypes;
}

void addDelegate(const OvLocationDelegate& delegate) {
    const Claim claim = claimOf(delegate);
    DelegatesByType& known = delegates().of(claim.rendererName);
    for (const std::string& type : claim.locationTypes) {
        known.emplace(type, &delegate);
    }
}

const OvLocationDelegate* delegateOf(const std::string& pluginName) {
    OvPluginStruct* const plugin = PluginManager::getPlugin(
        pluginName, OV_LOCATION_DELEGATE_API_NAME, OV_LOCATION_DELEGATE_API_VERSION);
    return static_cast<const OvLocationDelegate*>(PluginManager::getPluginSuite(plugin));
}

}  // namespace

void OvScenegraphLocationDelegateCache::initializeCache() {
    std::call_once(populatedOnce, populate);
}

bool OvScenegraphLocationDelegateCache::isCacheInitialized() {
    return cacheInitialized;
}

void OvScenegraphLocationDelegateCache::populate() {
    if (cacheInitialized) {
        return;
    }
    std::vector<std::string> names;
    PluginManager::getPluginNames(
        OV_LOCATION_DELEGATE_API_NAME, names, OV_LOCATION_DELEGATE_API_VERSION);
    for (const std::string& name : names) {
        const OvLocationDelegate* const delegate = delegateOf(name);
        if (delegate && isComplete(*delegate)) {
            addDelegate(*delegate);
        }
    }
    cacheInitialized = true;
}

const void* OvScenegraphLocationDelegateCache::getPluginSuite(const std::string& locationType,
                                                              const std::string& rendererName) {
    initializeCache();
    const DelegatesByType* const known = delegates().find(rendererName);
    if (!known) {
        return nullptr;
    }
    const auto found = known->find(locationType);
    return found == known->end() ? nullptr : found->second;
}

void OvScenegraphLocationDelegateCache::getLocationTypesWithDelegates(
    std::vector<std::string>& locationTypes,
    const std::string& rendererName) {
    std::vector<std::string> former;  // the name may be one of them
    former.swap(locationTypes);
    initializeCache();
    if (const DelegatesByType* const known = delegates().find(rendererName)) {
        for (const auto& [type, delegate] : *known) {
            locationTypes.push_back(type);
        }
    }
}

}  // namespace SYLVAR
