// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Runtime/OpTypeTable.h"

#include "Platform/Support/NearestName.h"
#include "Platform/Support/OnceBuilt.h"

#include <algorithm>
#include <cstddef>

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

OpTypeTable::Found OpTypeTable::find(std::string_view name) const {
    const std::uint32_t end = size();
    for (std::uint32_t place = 1; place < end; ++place) {
        if (types_[place]->schema().name == name) {
            return {types_[place], place};
        }
    }
    return {nullptr, kNoType};
}

OpTypeTable::Found OpTypeTable::findOrAdd(const std::string& name, std::string& fault) {
    const Found known = find(name);
    if (known.first) {
        return known;
    }
    const OpType* const foreign = findForeignOpType(name, fault);
    if (foreign) {
        fault = add(*foreign);
        // Another thread may have added it meanwhile.
        const Found added = find(name);
        if (added.first) {
            fault.clear();
            return added;
        }
    }
    fault = fault.empty() ? "there is no op type \"" + name + "\"" + nearestTo(name)
                          : "the op type \"" + name + "\" cannot be used: " + fault;
    return {nullptr, kNoType};
}

std::string OpTypeTable::nearestTo(std::string_view name) const {
    const std::vector<std::string> foreign = foreignOpTypeNames();
    std::vector<std::string_view> names(foreign.begin(), foreign.end());
    const std::uint32_t end = size();
    for (std::uint32_t place = 1; place < end; ++place) {
        names.emplace_back(types_[place]->schema().name);
    }
    return Support::didYouMean(name, names);
}

std::vector<const OpType*> OpTypeTable::all() const {
    std::vector<const OpType*> types(types_.begin() + 1, types_.begin() + size());
    const std::size_t count = types.size();
    for (const std::string& name : foreignOpTypeNames()) {
        const auto end = types.begin() + static_cast<std::ptrdiff_t>(count);
        std::string fault;
        const OpType* const foreign = findForeignOpType(name, fault);
        if (foreign && std::none_of(types.begin(), end, [&](const OpType* type) {
                return type->schema().name == name;
            })) {
            types.push_back(foreign);
        }
    }
    return types;
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
