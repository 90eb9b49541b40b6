// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/DataAttribute.h>
#include <SylvarPlatform/Export.h>
#include <SylvarPlatform/GroupAttribute.h>
#include <SylvarPlatform/Hash.h>
#include <SylvarPlatform/suites/RuntimeSuite.h>

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace Sylvar3::internal::OvSylvar {

using OvAttribute::Attribute;
using OvAttribute::GroupAttribute;
using OvAttribute::Hash;
using OvAttribute::StringAttribute;

/// A scene runtime: cooks op trees into locations on demand. Made by `Sylvar::createRuntime`. Held
/// by `std::shared_ptr`, as are its transactions, clients and ops; an empty pointer means that
/// there is none. Ends with the last pointer to it; its clients and transactions hold one.
///
/// What the runtime behind the table throws travels. Any thread.
class SYLVAR_PLATFORM_API SylvarRuntime : public std::enable_shared_from_this<SylvarRuntime> {
public:
    class Op;
    class Transaction;
    class Client;
    class LocationData;
    struct AttributeTrace;

    /// The runtime's own handle, owned, and the table that it is for; for `queryRuntimeInfo` of the
    /// table.
    OvRuntimeStruct* const handle;
    const OvRuntimeSuite* const suite;

    SylvarRuntime(OvRuntimeStruct* owned, const OvRuntimeSuite* table) noexcept
        : handle(owned), suite(table) {}
    ~SylvarRuntime() { suite->releaseRuntime(handle); }
    SylvarRuntime(const SylvarRuntime&) = delete;
    SylvarRuntime& operator=(const SylvarRuntime&) = delete;

    /// A new, empty transaction of this runtime; empty when the runtime has none to give.
    std::shared_ptr<Transaction> createTransaction();

    /// Makes the transaction's clients see their ops, and uses it up. An empty pointer does
    /// nothing.
    void commit(const std::shared_ptr<Transaction>& transaction);

    /// Drops what was cooked of that location and of those below it: the caller's next cook is
    /// fresh.
    void evict(const std::string& locationPath);

    /// Waits for the cooks that are under way and drops what was cooked. The runtime stays usable.
    void finalize();
};

/// An op of a transaction: opaque, but for its `id`.
class SYLVAR_PLATFORM_API SylvarRuntime::Op {
public:
    /// Negative when the op could not be built from its input.
    const std::int32_t id;

    Op(OvRuntimeOpStruct* owned, std::shared_ptr<SylvarRuntime> runtime);
    ~Op();
    Op(const Op&) = delete;
    Op& operator=(const Op&) = delete;

    /// Borrowed.
    OvRuntimeOpStruct* handle() const noexcept { return handle_; }

private:
    OvRuntimeOpStruct* handle_;
    std::shared_ptr<SylvarRuntime> runtime_;
};

/// Changes to a runtime that are not committed yet. Belongs to one thread at a time.
class SYLVAR_PLATFORM_API SylvarRuntime::Transaction {
public:
    Transaction(OvRuntimeTransactionStruct* owned, std::shared_ptr<SylvarRuntime> runtime) noexcept
        : handle_(owned), runtime_(std::move(runtime)) {}
    ~Transaction() { runtime_->suite->releaseTransaction(handle_); }
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    /// A new op without type, arguments or inputs.
    std::shared_ptr<Op> createOp();

    /// Sets the op's type, which may be empty, and its arguments, which may be null.
    void setOpArgs(const std::shared_ptr<Op>& op, const std::string& opType, const Attribute& args);

    /// Sets the inputs in order. There may be none, and empty pointers among them; an input's own
    /// inputs may be set later.
    void setOpInputs(const std::shared_ptr<Op>& op, const std::vector<std::shared_ptr<Op>>& inputs);

    /// Reads a serialised op tree through `read`, until a short count, and returns its last op. A
    /// bad stream gives an op with a negative `id`.
    std::shared_ptr<Op> deserializeOps(void* stream, OvReadFunction read);

    /// A new client with no op set; empty when the runtime has none to give.
    std::shared_ptr<Client> createClient();

    /// Makes `op` the one that the client looks at, from the commit on.
    void setClientOp(const std::shared_ptr<Client>& client, const std::shared_ptr<Op>& op);

    /// Borrowed.
    OvRuntimeTransactionStruct* handle() const noexcept { return handle_; }

private:
    std::shared_ptr<Op> owning(OvRuntimeOpStruct* op) const;

    OvRuntimeTransactionStruct* handle_;
    std::shared_ptr<SylvarRuntime> runtime_;
};

/// One cooked location: a value, held like an attribute. It outlives its client and its runtime.
class SYLVAR_PLATFORM_API SylvarRuntime::LocationData {
public:
    /// An absent location.
    LocationData() noexcept = default;

    /// Wraps a location's group: "exists" (int), "pc" (strings) and "attrs" (group). The null group
    /// is an absent location.
    explicit LocationData(GroupAttribute group) noexcept : group_(std::move(group)) {}

    bool doesLocationExist() const;

    /// The names of the potential children; can be null.
    StringAttribute getPotentialChildren() const;

    /// The location's attributes; can be null.
    GroupAttribute getAttrs() const;

    /// The hash of the location's group.
    Hash getHash() const { return group_.getHash(); }

private:
    GroupAttribute group_;
};

/// Where an attribute comes from: the JSON that `traceAttribute` of the table describes, or why
/// there is none.
struct SylvarRuntime::AttributeTrace {
    std::string json;   ///< Empty when there is no answer.
    std::string error;  ///< Empty when there is one.
};

/// A view on a runtime's scene through one op. Holds its runtime. Any number of threads may cook
/// through one client at once.
class SYLVAR_PLATFORM_API SylvarRuntime::Client {
public:
    Client(OvRuntimeClientStruct* owned, std::shared_ptr<SylvarRuntime> runtime) noexcept
        : handle_(owned), runtime_(std::move(runtime)) {}
    ~Client() { runtime_->suite->releaseClient(handle_); }
    Client(const Client&) = delete;
    Client& operator=(const Client&) = delete;

    /// The location, cooked if need be; `doesLocationExist` tells whether it is there.
    LocationData cookLocation(const std::string& locationPath) const;

    /// The location and true when it was cooked before, its absence included. Neither cooks nor
    /// waits; with false the first member is an absent location.
    std::pair<LocationData, bool> getCachedLocation(const std::string& locationPath) const;

    /// Which op gave an attribute of the location, and which ones handed it on. A dot in the name
    /// steps into a group, and "" is the group of all attributes. Cooks what is not cooked yet, and
    /// waits for the answer.
    AttributeTrace traceAttribute(const std::string& locationPath, const std::string& name) const;

    /// The very runtime that this client was made by.
    std::shared_ptr<SylvarRuntime> getRuntime() const { return runtime_; }

    /// Borrowed.
    OvRuntimeClientStruct* handle() const noexcept { return handle_; }

private:
    OvRuntimeClientStruct* handle_;
    std::shared_ptr<SylvarRuntime> runtime_;
};

}  // namespace Sylvar3::internal::OvSylvar
