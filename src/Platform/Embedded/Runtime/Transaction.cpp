// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Runtime/Transaction.h"

#include <SylvarPlatform/AttributeFile.h>

#include "Platform/Embedded/Runtime/RuntimeLog.h"

#include <atomic>

namespace Sylvar3::internal::OvSylvar::Embedded {

using OvAttribute::castAttribute;
using OvAttribute::GroupAttribute;

namespace {

std::uint64_t nextNumber() {
    static std::atomic<std::uint64_t> last{0};
    return last.fetch_add(1, std::memory_order_relaxed) + 1;
}

/// Why a stream is no op tree; empty when it is one.
std::string faultOf(const OvAttribute::AttributeReadResult& result, std::vector<OpSpec>& ops) {
    if (!result.error.empty()) {
        return result.error;
    }
    if (result.content != OvAttribute::AttributeContent::OpTree) {
        return "it holds something else";
    }
    ops = readOpTree(castAttribute<GroupAttribute>(result.attribute));
    return ops.empty() ? kNoOps : "";
}

}  // namespace

Transaction::Transaction() : number_(nextNumber()) {}

std::unique_ptr<OvRuntimeOpStruct> Transaction::handleOf(std::size_t place) const {
    return std::make_unique<OvRuntimeOpStruct>(
        OvRuntimeOpStruct{static_cast<std::int32_t>(place), number_});
}

std::size_t Transaction::placeOf(const OvRuntimeOpStruct* op) const {
    return op && op->id >= 0 && op->transaction == number_ ? static_cast<std::size_t>(op->id)
                                                           : OpSpec::kNoInput;
}

std::unique_ptr<OvRuntimeOpStruct> Transaction::createOp() {
    ops_.emplace_back();
    return handleOf(ops_.size() - 1);
}

void Transaction::setArguments(const OvRuntimeOpStruct& op,
                               std::string_view type,
                               const GroupAttribute& arguments) {
    const std::size_t place = placeOf(&op);
    if (place != OpSpec::kNoInput) {
        ops_[place].type = type;
        ops_[place].arguments = arguments;
    }
}

void Transaction::setInputs(const OvRuntimeOpStruct& op,
                            OvRuntimeOpStruct* const* inputs,
                            std::size_t count) {
    const std::size_t place = placeOf(&op);
    if (place == OpSpec::kNoInput) {
        return;
    }
    std::vector<std::size_t> places;
    places.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        places.push_back(placeOf(inputs[i]));
    }
    ops_[place].inputs = std::move(places);
}

std::unique_ptr<OvRuntimeOpStruct> Transaction::deserialize(void* stream, OvReadFunction read) {
    std::vector<OpSpec> found;
    const std::string fault = faultOf(OvAttribute::readAttribute(stream, read), found);
    if (!fault.empty()) {
        OV_LOG(runtimeLogger(), error, "A stream is no op tree: " << fault);
        return std::make_unique<OvRuntimeOpStruct>(OvRuntimeOpStruct{-1, number_});
    }
    const std::size_t before = ops_.size();
    for (OpSpec& op : found) {
        for (std::size_t& input : op.inputs) {
            input += input == OpSpec::kNoInput ? 0 : before;
        }
        ops_.push_back(std::move(op));
    }
    return handleOf(ops_.size() - 1);
}

void Transaction::setClientOp(std::shared_ptr<Client> client, const OvRuntimeOpStruct* op) {
    clientOps_.emplace_back(std::move(client), placeOf(op));
}

void Transaction::commit() {
    const std::vector<std::shared_ptr<InternedOp>> interned = internOps(ops_, "");
    for (const auto& [client, place] : clientOps_) {
        client->setOp(place == OpSpec::kNoInput ? emptyOp() : interned[place]);
    }
    clientOps_.clear();
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
