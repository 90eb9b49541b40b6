// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/suites/AttributeSuite.h>
#include <SylvarPlatform/suites/RuntimeSuite.h>

#include "Platform/Embedded/Runtime/Client.h"
#include "Platform/Embedded/Runtime/OpGraph.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// An op of a transaction, as its handle knows it.
struct OvRuntimeOpStruct {
    std::int32_t id;            ///< Negative: it could not be built.
    std::uint64_t transaction;  ///< The number of the transaction that it belongs to.
};

namespace Sylvar3::internal::OvSylvar::Embedded {

/// Ops and clients that are not committed yet. Belongs to one thread at a time.
class Transaction {
public:
    Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    /// The handle of a new op; owned by the caller.
    std::unique_ptr<OvRuntimeOpStruct> createOp();

    /// What an op of another transaction, or one that could not be built, is told has no effect.
    void setArguments(const OvRuntimeOpStruct& op,
                      std::string_view type,
                      const OvAttribute::GroupAttribute& arguments);

    /// Null inputs, and such ones, are inputs that are not there.
    void setInputs(const OvRuntimeOpStruct& op,
                   OvRuntimeOpStruct* const* inputs,
                   std::size_t count);

    /// Adds the ops of a stream; the last one's handle, or that of an op that could not be built,
    /// after the reason was logged.
    std::unique_ptr<OvRuntimeOpStruct> deserialize(void* stream, OvReadFunction read);

    /// Such an op, or null, is an empty scene.
    void setClientOp(std::shared_ptr<Client> client, const OvRuntimeOpStruct* op);

    /// Interns the ops and makes the clients see theirs.
    void commit();

private:
    std::size_t placeOf(const OvRuntimeOpStruct* op) const;
    std::unique_ptr<OvRuntimeOpStruct> handleOf(std::size_t place) const;

    const std::uint64_t number_;
    std::vector<OpSpec> ops_;
    std::vector<std::pair<std::shared_ptr<Client>, std::size_t>> clientOps_;
};

}  // namespace Sylvar3::internal::OvSylvar::Embedded
