// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Runtime/OpTypeTable.h"

#include "Platform/Support/OnceBuilt.h"

namespace Sylvar3::internal::OvSylvar::Embedded {

OpTypeTable& OpTypeTable::instance() {
    static Support::OnceBuilt<OpTypeTable> table;
    return table.get();
}

OpTypeTable::OpTypeTable() {
    for (const OpType* const type : builtInOpTypes()) {
        add(*type);
    }
}

std::string OpTypeTable::add(const OpType& type) {
    const Support::MutexLock lock(mutex_);
    const std::uint32_t place = size();
    if (find(type.schema().name).first) {
        return "there is an op type of this name already";
    }
    if (place == kMostOpTypes) {
        return "there are " + std::to_string(kMostOpTypes) + " op types already";
    }
    types_[place] = &type;
    size_.store(place + 1, std::memory_order_release);
    return {};
}

std::pair<const OpType*, std::uint32_t> OpTypeTable::find(std::string_view name) const {
    const std::uint32_t end = size();
    for (std::uint32_t place = 1; place < end; ++place) {
        if (types_[place]->schema().name == name) {
            return {types_[place], place};
        }
    }
    return {nullptr, kNoType};
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
