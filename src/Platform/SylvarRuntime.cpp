// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/SylvarRuntime.h>

#include <cstdint>
#include <exception>
#include <future>
#include <new>
#include <string_view>

namespace Sylvar3::internal::OvSylvar {

using OvAttribute::castAttribute;

namespace {

std::int64_t lengthOf(const std::string& text) {
    return static_cast<std::int64_t>(text.size());
}

OvRuntimeOpStruct* handleOf(const std::shared_ptr<SylvarRuntime::Op>& op) {
    return op ? op->handle() : nullptr;
}

using TracePromise = std::promise<SylvarRuntime::AttributeTrace>;

/// An `OvRuntimeCompletion` over a `TracePromise`. Throws nothing into the runtime.
void completeTrace(std::int32_t status,
                   const char* data,
                   std::uint64_t length,
                   void* context) noexcept {
    auto& promise = *static_cast<TracePromise*>(context);
    try {
        const std::string text = data ? std::string(data, length) : std::string();
        if (status == 0) {
            promise.set_value({text, ""});
        } else {
            promise.set_value({"", text.empty() ? "the runtime has no answer" : text});
        }
    } catch (const std::bad_alloc&) {
        promise.set_exception(std::current_exception());
    }
}

}  // namespace

std::shared_ptr<SylvarRuntime::Transaction> SylvarRuntime::createTransaction() {
    OvRuntimeTransactionStruct* const owned = suite->createTransaction(handle);
    return owned ? std::make_shared<Transaction>(owned, shared_from_this()) : nullptr;
}

void SylvarRuntime::commit(const std::shared_ptr<Transaction>& transaction) {
    if (transaction) {
        suite->commit(handle, transaction->handle());
    }
}

void SylvarRuntime::evict(const std::string& locationPath) {
    suite->evict(handle, locationPath.data(), lengthOf(locationPath));
}

void SylvarRuntime::finalize() {
    suite->finalize(handle);
}

SylvarRuntime::Op::Op(OvRuntimeOpStruct* owned, std::shared_ptr<SylvarRuntime> runtime)
    : id(runtime->suite->getOpId(owned)), handle_(owned), runtime_(std::move(runtime)) {}

SylvarRuntime::Op::~Op() {
    runtime_->suite->releaseOp(handle_);
}

std::shared_ptr<SylvarRuntime::Op> SylvarRuntime::Transaction::owning(OvRuntimeOpStruct* op) const {
    return op ? std::make_shared<Op>(op, runtime_) : nullptr;
}

std::shared_ptr<SylvarRuntime::Op> SylvarRuntime::Transaction::createOp() {
    return owning(runtime_->suite->createOp(handle_));
}

void SylvarRuntime::Transaction::setOpArgs(const std::shared_ptr<Op>& op,
                                           const std::string& opType,
                                           const Attribute& args) {
    runtime_->suite->setOpArgs(
        handle_, op->handle(), opType.data(), lengthOf(opType), args.handle());
}

void SylvarRuntime::Transaction::setOpInputs(const std::shared_ptr<Op>& op,
                                             const std::vector<std::shared_ptr<Op>>& inputs) {
    std::vector<OvRuntimeOpStruct*> handles;
    handles.reserve(inputs.size());
    for (const std::shared_ptr<Op>& input : inputs) {
        handles.push_back(handleOf(input));
    }
    runtime_->suite->setOpInputs(
        handle_, op->handle(), handles.data(), static_cast<std::int64_t>(handles.size()));
}

std::shared_ptr<SylvarRuntime::Op> SylvarRuntime::Transaction::deserializeOps(void* stream,
                                                                              OvReadFunction read) {
    return owning(runtime_->suite->deserializeOps(handle_, stream, read));
}

std::shared_ptr<SylvarRuntime::Client> SylvarRuntime::Transaction::createClient() {
    OvRuntimeClientStruct* const owned = runtime_->suite->createClient(handle_);
    return owned ? std::make_shared<Client>(owned, runtime_) : nullptr;
}

void SylvarRuntime::Transaction::setClientOp(const std::shared_ptr<Client>& client,
                                             const std::shared_ptr<Op>& op) {
    runtime_->suite->setClientOp(handle_, client->handle(), handleOf(op));
}

bool SylvarRuntime::LocationData::doesLocationExist() const {
    // Asked at every step of a walk: no reference is needed while the group is held.
    constexpr std::string_view kExists = "exists";
    const OvAttributeSuite& attributes = *Attribute::_attrSuite;
    OvAttributeStruct* const exists =
        attributes.borrowChildByName(group_.handle(), kExists.data(), kExists.size());
    std::int32_t value = 0;
    return attributes.getNearestInt(&exists, 0, 0.0F, &value) != 0 && value != 0;
}

StringAttribute SylvarRuntime::LocationData::getPotentialChildren() const {
    return group_.getChild<StringAttribute>("pc");
}

GroupAttribute SylvarRuntime::LocationData::getAttrs() const {
    return group_.getChild<GroupAttribute>("attrs");
}

SylvarRuntime::LocationData SylvarRuntime::Client::cookLocation(
    const std::string& locationPath) const {
    return LocationData(castAttribute<GroupAttribute>(
        runtime_->suite->cookLocation(handle_, locationPath.data(), lengthOf(locationPath))));
}

std::pair<SylvarRuntime::LocationData, bool> SylvarRuntime::Client::getCachedLocation(
    const std::string& locationPath) const {
    OvAttributeStruct* location = nullptr;
    const bool isCached = runtime_->suite->getCachedLocation(
                              handle_, locationPath.data(), lengthOf(locationPath), &location) != 0;
    return {LocationData(castAttribute<GroupAttribute>(location)), isCached};
}

SylvarRuntime::AttributeTrace SylvarRuntime::Client::traceAttribute(const std::string& locationPath,
                                                                    const std::string& name) const {
    if (!runtime_->suite->traceAttribute) {
        return {"", "the runtime cannot tell where attributes come from"};
    }
    TracePromise promise;
    runtime_->suite->traceAttribute(handle_,
                                    locationPath.data(),
                                    lengthOf(locationPath),
                                    name.data(),
                                    lengthOf(name),
                                    &promise,
                                    &completeTrace);
    return promise.get_future().get();
}

}  // namespace Sylvar3::internal::OvSylvar
