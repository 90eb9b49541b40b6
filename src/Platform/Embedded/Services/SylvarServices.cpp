// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/PluginManager.h>
#include <SylvarPlatform/SylvarServices.h>

#include "Platform/Support/Mutex.h"
#include "Platform/Support/OnceBuilt.h"

#include <map>

namespace Sylvar3::OvSylvarServicesHost::v1 {

namespace {

using internal::OvPluginManager::PluginManager;
namespace Support = internal::Support;

struct PublishedRuntimes {
    Support::Mutex mutex;
    std::map<std::string, std::shared_ptr<SylvarRuntime>> byName OV_GUARDED_BY(mutex);
};

PublishedRuntimes& published() {
    static Support::OnceBuilt<PublishedRuntimes> runtimes;
    return runtimes.get();
}

/// The first one in the plug-in manager's order; null when there is none.
const OvRuntimeSuite* findRuntimeSuite() {
    std::vector<std::string> names;
    PluginManager::getPluginNames(OV_RUNTIME_API_NAME, names, OV_RUNTIME_API_VERSION);
    for (const std::string& name : names) {
        OvPluginStruct* const plugin =
            PluginManager::getPlugin(name, OV_RUNTIME_API_NAME, OV_RUNTIME_API_VERSION);
        if (const void* const suite = PluginManager::getPluginSuite(plugin)) {
            return static_cast<const OvRuntimeSuite*>(suite);
        }
    }
    return nullptr;
}

}  // namespace

std::shared_ptr<SylvarRuntime> Sylvar::createRuntime() {
    const OvRuntimeSuite* const suite = findRuntimeSuite();
    OvRuntimeStruct* const owned = suite ? suite->createRuntime() : nullptr;
    return owned ? std::make_shared<SylvarRuntime>(owned, suite) : nullptr;
}

void RegisterRuntimeInstance(const std::shared_ptr<SylvarRuntime>& runtime,
                             const std::string& name) {
    std::shared_ptr<SylvarRuntime> former = runtime;
    PublishedRuntimes& runtimes = published();
    const Support::MutexLock lock(runtimes.mutex);
    runtimes.byName[name].swap(former);
}

std::shared_ptr<SylvarRuntime> GetRuntimeInstance(const std::string& name) {
    PublishedRuntimes& runtimes = published();
    const Support::MutexLock lock(runtimes.mutex);
    const auto found = runtimes.byName.find(name);
    return found == runtimes.byName.end() ? nullptr : found->second;
}

}  // namespace Sylvar3::OvSylvarServicesHost::v1
