// SPDX-License-Identifier: Apache-2.0
#include "Filters/ClientFactory/ClientPool.h"

namespace SYLVAR {

void ClientPool::handBack(const ClientPtr& client) {
    const auto found = clients_.find(client);
    if (found == clients_.end() || found->second.status != ClientRecord::kHandedOut) {
        return;
    }
    ClientRecord& record = found->second;
    std::list<ClientRecord*>& ofSource = idleClientsBySource_[record.source];
    record.idlePosition = idleClients_.insert(idleClients_.begin(), &record);
    record.sourcePosition = ofSource.insert(ofSource.begin(), &record);
    record.status = ClientRecord::kIdle;
}

void ClientPool::evict() {
    while (clients_.size() > maxClients && !idleClients_.empty()) {
        const ClientRecord& oldest = *idleClients_.back();
        unlink(oldest);
        clients_.erase(clients_.find(oldest.client));
    }
}

ClientPtr ClientPool::take(const OpTreeSource& source) {
    const std::list<ClientRecord*>& idle = idleClientsBySource_[source];
    if (idle.empty()) {
        return {};
    }
    ClientRecord& record = *idle.front();
    record.status = ClientRecord::kHandedOut;
    unlink(record);
    return record.client;
}

void ClientPool::add(const OpTreeSource& source,
                     const RuntimePtr& runtime,
                     const ClientPtr& client) {
    clients_.emplace(client, ClientRecord{source, runtime, client});
}

void ClientPool::unlink(const ClientRecord& record) {
    idleClients_.erase(record.idlePosition);
    idleClientsBySource_[record.source].erase(record.sourcePosition);
}

}  // namespace SYLVAR
