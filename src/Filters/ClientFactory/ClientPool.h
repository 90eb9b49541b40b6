// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/OpTreeSource.h>

#include <cstddef>
#include <cstdint>
#include <limits>
#include <list>
#include <map>
#include <memory>

namespace SYLVAR {

using ClientPtr = std::shared_ptr<SylvarRuntime::Client>;
using RuntimePtr = std::shared_ptr<SylvarRuntime>;

/// A client that was made. Destroyed from below: the client goes before its runtime.
struct ClientRecord {
    enum Status : std::int32_t { kHandedOut = 0, kIdle = 1 };
    using Position = std::list<ClientRecord*>::iterator;

    OpTreeSource source;
    RuntimePtr runtime;
    ClientPtr client;
    Status status = kHandedOut;
    Position idlePosition = {};    ///< In the list of all that are idle, while it is.
    Position sourcePosition = {};  ///< In the list of its source, likewise.
};

/// All clients that were made, and which of them are idle. Has no lock of its own.
class ClientPool {
public:
    /// How many clients there may be, those that are handed out included; only idle ones can go.
    std::size_t maxClients = std::numeric_limits<std::size_t>::max();

    ClientPool() = default;
    ClientPool(const ClientPool&) = delete;
    ClientPool& operator=(const ClientPool&) = delete;

    /// Makes a client idle, the first that `take` gives. One that is not here, or idle, is left
    /// alone.
    void handBack(const ClientPtr& client);

    /// Lets idle clients go, the one that was handed back first in front, while there are too many.
    void evict();

    /// The idle client of an equivalent source that was handed back last, now handed out; empty
    /// when there is none.
    ClientPtr take(const OpTreeSource& source);

    /// Adds a client that is handed out.
    void add(const OpTreeSource& source, const RuntimePtr& runtime, const ClientPtr& client);

    std::size_t size() const { return clients_.size(); }

private:
    void unlink(const ClientRecord& record);

    std::map<ClientPtr, ClientRecord> clients_;  ///< By address; records stay where they are.
    std::list<ClientRecord*> idleClients_;       ///< The one handed back last in front.
    std::map<OpTreeSource, std::list<ClientRecord*>> idleClientsBySource_;  ///< Likewise.
};

}  // namespace SYLVAR
