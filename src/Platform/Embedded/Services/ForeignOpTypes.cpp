// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/PluginManager.h>
#include <SylvarPlatform/suites/OpType.h>

#include "Platform/Embedded/Ops/Plugin/PluginOpSchema.h"
#include "Platform/Embedded/Ops/Plugin/PluginOpType.h"
#include "Platform/Embedded/Runtime/OpTypeTable.h"
#include "Platform/Support/Mutex.h"
#include "Platform/Support/OnceBuilt.h"

#include <map>
#include <memory>
#include <utility>
#include <vector>

namespace Sylvar3::internal::OvSylvar::Embedded {

using OvPluginManager::PluginManager;
using OvPluginManager::RejectedPlugin;
using Support::Mutex;
using Support::MutexLock;

namespace {

/// The op types of plug-ins that were asked for; those of one table under several names too.
struct ForeignOpTypes {
    Mutex mutex;
    std::map<std::pair<std::string, const OvOpType*>, std::unique_ptr<PluginOpType>> byName
        OV_GUARDED_BY(mutex);
};

const OpType& typeOf(const std::string& name, const OvOpType& table) {
    static Support::OnceBuilt<ForeignOpTypes> built;
    ForeignOpTypes& types = built.get();
    auto made = std::make_unique<PluginOpType>(name, table);
    const MutexLock lock(types.mutex);
    return *types.byName.try_emplace({name, &table}, std::move(made)).first->second;
}

/// Why a plug-in has no function table: what was told of it last.
std::string reasonForNoTable(const std::string& name) {
    std::string reason = "its plug-in has no function table";
    for (const RejectedPlugin& rejected : PluginManager::getRejectedPlugins()) {
        if (rejected.plugin == name) {
            reason = "its plug-in has no function table: " + rejected.reason;
        }
    }
    return reason;
}

}  // namespace

const OpType* findForeignOpType(const std::string& name, std::string& fault) {
    OvPluginStruct* const plugin =
        PluginManager::getPlugin(name, OV_OP_TYPE_API_NAME, OV_OP_TYPE_API_VERSION);
    if (!plugin) {
        return nullptr;
    }
    const auto* const table = static_cast<const OvOpType*>(PluginManager::getPluginSuite(plugin));
    if (!table) {
        fault = reasonForNoTable(name);
        return nullptr;
    }
    fault = faultOfOpType(*table);
    return fault.empty() ? &typeOf(name, *table) : nullptr;
}

std::vector<std::string> foreignOpTypeNames() {
    std::vector<std::string> names;
    PluginManager::getPluginNames(OV_OP_TYPE_API_NAME, names, OV_OP_TYPE_API_VERSION);
    return names;
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
