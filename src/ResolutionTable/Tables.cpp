// SPDX-License-Identifier: Apache-2.0
#include <ResolutionTableOv/ResolutionTable.h>

#include "Platform/Support/Mutex.h"
#include "ResolutionTable/StandardFormats.h"

#include <map>
#include <stdexcept>
#include <utility>

namespace ORM_OV::ResolutionTable::v4 {

namespace {

using Sylvar3::internal::Support::Mutex;
using Sylvar3::internal::Support::MutexLock;
using TablePtr = std::shared_ptr<ResolutionTable>;

/// The tables by name, and the default one.
struct Tables {
    Mutex mutex;
    TablePtr byDefault OV_GUARDED_BY(mutex);
    std::map<std::string, TablePtr, std::less<>> byName OV_GUARDED_BY(mutex);
};

Tables* makeTables() {
    ResolutionTableReadResult standard = readResolutionTable(kStandardFormats);
    if (!standard.table) {
        throw std::logic_error("The standard formats: " + standard.error);
    }
    auto tables = std::make_unique<Tables>();
    const MutexLock lock(tables->mutex);
    tables->byDefault = standard.table;
    tables->byName.emplace("standard", std::move(standard.table));
    return tables.release();
}

/// Made on first use, never destroyed.
Tables& allTables() {
    static Tables* const tables = makeTables();
    return *tables;
}

}  // namespace

std::shared_ptr<ResolutionTable> GetResolutionTable(const char* name) {
    Tables& tables = allTables();
    const MutexLock lock(tables.mutex);
    if (!name) {
        return tables.byDefault;
    }
    const auto found = tables.byName.find(name);
    return found == tables.byName.end() ? nullptr : found->second;
}

void SetResolutionTable(const char* name, std::shared_ptr<ResolutionTable> table) {
    Tables& tables = allTables();
    const MutexLock lock(tables.mutex);
    if (!name) {
        tables.byDefault.swap(table);
    } else if (table) {
        tables.byName[name].swap(table);
    } else {
        tables.byName.erase(name);
    }
}

}  // namespace ORM_OV::ResolutionTable::v4
