// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Attributes/Values/ShapeTable.h"

#include "Platform/Embedded/Attributes/Values/NameList.h"
#include "Platform/Support/OnceBuilt.h"

namespace Sylvar3::internal::OvAttribute::Embedded {

ShapeTable& ShapeTable::instance() {
    static Support::OnceBuilt<ShapeTable> table;
    return table.get();
}

const Shape* ShapeTable::find(const NameList& names, const OvAttributeHash& digest) {
    Shard& shard = shardOf(digest);
    const Support::MutexLock lock(shard.mutex);
    const auto [place, isNew] = shard.shapes.try_emplace(digest, nullptr);
    if (!isNew) {
        // Two lists with one digest are next to impossible, but for somebody who looks for them.
        return place->second->records() == names.records() ? place->second->retain()
                                                           : Shape::make(names, digest);
    }
    try {
        Shape* const shape = Shape::make(names, digest);
        shape->inTable_ = true;
        return place->second = shape;
    } catch (...) {
        shard.shapes.erase(place);
        throw;
    }
}

void ShapeTable::release(const Shape& shape) noexcept {
    std::int64_t count = shape.count_.load(std::memory_order_relaxed);
    while (count > 1) {
        if (shape.count_.compare_exchange_weak(count, count - 1, std::memory_order_acq_rel)) {
            return;
        }
    }
    Shard& shard = shardOf(shape.digest());
    const Support::MutexLock lock(shard.mutex);
    if (shape.count_.fetch_sub(1, std::memory_order_acq_rel) == 1) {
        shard.shapes.erase(shape.digest());
        shape.destroy();
    }
}

}  // namespace Sylvar3::internal::OvAttribute::Embedded
