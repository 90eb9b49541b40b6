// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Runtime/OpTypeTable.h"

#include "Platform/Embedded/Ops/OpTypes.h"
#include "Platform/Support/OnceBuilt.h"

namespace Sylvar3::internal::OvSylvar::Embedded {

const OpTypeTable& OpTypeTable::instance() {
    static Support::OnceBuilt<OpTypeTable> table;
    return table.get();
}

OpTypeTable::OpTypeTable() {
    for (const OpType* const type : builtInOpTypes()) {
        add(*type);
    }
}

void OpTypeTable::add(const OpType& type) {
    types_[size_++] = &type;
}

std::pair<const OpType*, std::uint32_t> OpTypeTable::find(std::string_view name) const {
    for (std::uint32_t place = 1; place < size_; ++place) {
        if (types_[place]->schema().name == name) {
            return {types_[place], place};
        }
    }
    return {nullptr, kNoType};
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
