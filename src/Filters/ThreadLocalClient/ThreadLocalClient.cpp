// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/ClientFactory.h>
#include <OvSylvarProducers/ThreadLocalClient.h>

#include "Platform/Support/Log.h"
#include "Platform/Support/Mutex.h"
#include "Platform/Support/OnceBuilt.h"
#include "Platform/Support/ThisThread.h"

#include <boost/thread/tss.hpp>

#include <atomic>
#include <map>

namespace SYLVAR {
namespace {

namespace Support = Sylvar3::internal::Support;
using ClientPtr = std::shared_ptr<SylvarRuntime::Client>;
using Slot = boost::thread_specific_ptr<ClientPtr>;
using SlotPtr = boost::shared_ptr<Slot>;

struct SlotTable {
    Support::Mutex mutex;
    std::map<OpTreeSource, SlotPtr> threadClientsBySource OV_GUARDED_BY(mutex);
};

SlotTable& table() {
    static Support::OnceBuilt<SlotTable> built;
    return built.get();
}

const OvLoggingHost::OvLoggerGlue& logger() {
    static Support::OnceBuilt<OvLoggingHost::OvLoggerGlue> built;
    return built.get([] { return OvLoggingHost::OvLoggerGlue("ThreadLocalClient"); });
}

/// What a thread's value of a slot lies in. It is never freed: a thread that ends hands back, and
/// no more. The list of all keeps it in sight of leak checkers.
struct Holder {
    ClientPtr client;
    Holder* next;
};

std::atomic<Holder*> allHolders{nullptr};

ClientPtr* hold(ClientPtr client) {
    auto* const holder = new Holder{std::move(client), allHolders.load(std::memory_order_relaxed)};
    while (!allHolders.compare_exchange_weak(
        holder->next, holder, std::memory_order_release, std::memory_order_relaxed)) {
    }
    return &holder->client;
}

/// Runs when a thread that has a value ends: hands back, and does nothing else.
void atThreadExit(ClientPtr* client) {
    ClientInvalidate(*client);
}

/// Empty, and why, when the source is not valid; a later call then tries again.
SlotPtr slotOf(const OpTreeSource& source, std::string* message) {
    SlotTable& slots = table();
    const Support::MutexLock lock(slots.mutex);
    const auto found = slots.threadClientsBySource.find(source);
    if (found != slots.threadClientsBySource.end()) {
        return found->second;
    }
    if (!source.source()->isValid(message)) {
        return {};
    }
    const SlotPtr slot(new Slot(&atThreadExit));
    return slots.threadClientsBySource.emplace(source, slot).first->second;
}

SlotPtr validSlotOf(const OpTreeSource& source) {
    std::string message;
    SlotPtr slot = slotOf(source, &message);
    if (!slot) {
        OV_LOG(logger(), error, "Invalid Op tree source: " << message);
    }
    return slot;
}

/// The same slot behind a count of its own.
SlotPtr countedAnew(const SlotPtr& slot) {
    return slot ? SlotPtr(slot.get(), [slot](Slot*) {}) : SlotPtr();
}

}  // namespace

ThreadLocalClient::ThreadLocalClient(const OpTreeSource& source)
    : source_(source), threadClients_(validSlotOf(source)), thread_(Support::thisThread()) {}

ThreadLocalClient::ThreadLocalClient(Replica /*tag*/, const ThreadLocalClient& original)
    : source_(original.source_),
      threadClients_(countedAnew(original.threadClients_)),
      thread_(Support::thisThread()) {}

ThreadLocalClient::~ThreadLocalClient() = default;

std::shared_ptr<SylvarRuntime::Client> ThreadLocalClient::getClient() {
    if (!threadClients_) {
        return {};
    }
    const ClientPtr* const value = threadClients_->get();
    return value ? *value : makeClient();
}

std::shared_ptr<SylvarRuntime::Client> ThreadLocalClient::makeClient() {
    // Making one takes its time, in which this object may go.
    const SlotPtr slot = threadClients_;
    ClientPtr* const value = hold(ClientCreateWithOpTree(source_));
    slot->reset(value);
    return *value;
}

bool ThreadLocalClient::isOfThisThread() const noexcept {
    return thread_ == Support::thisThread();
}

boost::shared_ptr<ThreadLocalClient> ThreadLocalClient::replicate() const {
    return boost::shared_ptr<ThreadLocalClient>(new ThreadLocalClient(Replica(), *this));
}

}  // namespace SYLVAR
