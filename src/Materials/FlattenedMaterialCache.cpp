// SPDX-License-Identifier: Apache-2.0
#include "Materials/FlattenedMaterialCache.h"

#include "Platform/Support/OnceBuilt.h"

#include <utility>

namespace SYLVAR {

class OV_SCOPED_CAPABILITY FlattenedMaterialCache::Lock {
public:
    explicit Lock(CheckedMutex& mutex) OV_ACQUIRE(mutex) : mutex_(mutex) { mutex_.lock(); }
    ~Lock() OV_RELEASE() { mutex_.unlock(); }
    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;

private:
    CheckedMutex& mutex_;
};

std::optional<FlattenedMaterialCache::GroupAttribute> FlattenedMaterialCache::find(
    const std::string& path) {
    const Lock lock(mutex_);
    const auto found = materials_.find(path);
    return found == materials_.end() ? std::nullopt : std::optional(found->second);
}

void FlattenedMaterialCache::remember(std::string path, const GroupAttribute& material) {
    const Lock lock(mutex_);
    materials_.insert_or_assign(std::move(path), material);
}

void FlattenedMaterialCache::empty() {
    const Lock lock(mutex_);
    materials_.clear();
}

FlattenedMaterialCache& flattenedMaterialCache() {
    static Sylvar3::internal::Support::OnceBuilt<FlattenedMaterialCache> built;
    return built.get();
}

}  // namespace SYLVAR
