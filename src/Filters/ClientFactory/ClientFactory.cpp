// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/ClientFactory.h>
#include <SylvarPlatform/SylvarServices.h>

#include "Filters/ClientFactory/ClientPool.h"
#include "Filters/ClientFactory/RuntimeAnalytics.h"
#include "Platform/Support/Log.h"
#include "Platform/Support/Mutex.h"
#include "Platform/Support/OnceBuilt.h"

namespace SYLVAR {
namespace {

namespace Support = Sylvar3::internal::Support;
using OvLoggingHost::OvLoggerGlue;
using Support::MutexLock;
using Sylvar3::OvSylvarServicesHost::v1::Sylvar;

using Handed = std::list<ClientPtr>;

/// Whoever takes both locks takes the factory's first. A thread that ends takes the other alone,
/// and so never waits for a creation.
struct FactoryState {
    Support::Mutex invalidationMutex;
    Handed pendingInvalidations OV_GUARDED_BY(invalidationMutex);
    Support::Mutex factoryMutex;
    ClientPool pool OV_GUARDED_BY(factoryMutex);
};

FactoryState& state() {
    static Support::OnceBuilt<FactoryState> built;
    return built.get();
}

const OvLoggerGlue& logger() {
    static Support::OnceBuilt<OvLoggerGlue> built;
    return built.get([] { return OvLoggerGlue("ClientFactory"); });
}

void drain(FactoryState& factory) OV_REQUIRES(factory.factoryMutex) {
    Handed handed;
    {
        const MutexLock lock(factory.invalidationMutex);
        handed.swap(factory.pendingInvalidations);
    }
    for (const ClientPtr& client : handed) {
        factory.pool.handBack(client);
    }
}

/// Empty when the source gives no op tree, which the log then tells.
std::shared_ptr<SylvarRuntime::Op> opOf(
    const AbstractOpTreeSource& source,
    const std::shared_ptr<SylvarRuntime::Transaction>& transaction) {
    std::shared_ptr<SylvarRuntime::Op> op = source.getOp(transaction);
    if (!op || op->id < 0) {
        OV_LOG(logger(), error, "Could not parse OpTree from '" << source.describe() << "'.");
        return {};
    }
    return op;
}

/// A committed client of that runtime. A runtime without a transaction or a client to give is as
/// good as none.
ClientPtr connect(const RuntimePtr& runtime, const AbstractOpTreeSource& source) {
    const auto transaction = runtime->createTransaction();
    if (!transaction) {
        OV_LOG(logger(), error, "Runtime could not be loaded.");
        return {};
    }
    const auto op = opOf(source, transaction);
    if (!op) {
        return {};
    }
    ClientPtr client = transaction->createClient();
    if (!client) {
        OV_LOG(logger(), error, "Runtime could not be loaded.");
        return {};
    }
    transaction->setClientOp(client, op);
    runtime->commit(transaction);
    return client;
}

ClientPtr createNew(FactoryState& factory, const OpTreeSource& source)
    OV_REQUIRES(factory.factoryMutex) {
    std::string message;
    if (!source.source()->isValid(&message)) {
        OV_LOG(logger(), error, "Invalid Op tree source: " << message);
        return {};
    }
    Sylvar services;
    const RuntimePtr runtime = services.createRuntime();
    if (!runtime) {
        OV_LOG(logger(), error, "Runtime could not be loaded.");
        return {};
    }
    ClientPtr client = connect(runtime, *source.source());
    if (client) {
        recordRuntime(*runtime);
        factory.pool.add(source, runtime, client);
    }
    return client;
}

}  // namespace

std::shared_ptr<SylvarRuntime::Client> ClientCreateWithOpTree(const OpTreeSource& source) {
    FactoryState& factory = state();
    const MutexLock lock(factory.factoryMutex);
    drain(factory);
    factory.pool.evict();
    ClientPtr idle = factory.pool.take(source);
    return idle ? idle : createNew(factory, source);
}

void ClientInvalidate(std::shared_ptr<SylvarRuntime::Client> client) {
    FactoryState& factory = state();
    Handed handed;
    handed.push_back(std::move(client));
    const MutexLock lock(factory.invalidationMutex);
    factory.pendingInvalidations.splice(factory.pendingInvalidations.end(), handed);
}

}  // namespace SYLVAR
