// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Runtime/Client.h"

#include "Platform/Embedded/Runtime/Cook.h"
#include "Platform/Embedded/Runtime/Runtime.h"

#include <utility>

namespace Sylvar3::internal::OvSylvar::Embedded {

using Support::MutexLock;

/// A session for the length of one call.
class Client::Loan {
public:
    explicit Loan(Client& client) : session_(client.take()) {}
    Loan(const Loan&) = delete;
    Loan& operator=(const Loan&) = delete;
    ~Loan() { session_.giveBack(); }

    Session& operator*() const { return session_; }

private:
    Session& session_;
};

Client::Client(std::shared_ptr<Runtime> runtime) : runtime_(std::move(runtime)) {
    runtime_->add(*this);
}

Client::~Client() {
    runtime_->remove(*this);
}

void Client::setOp(std::shared_ptr<InternedOp> op) {
    const MutexLock lock(mutex_);
    ops_.push_back(std::move(op));
    current_.store(ops_.back().get(), std::memory_order_release);
}

std::shared_ptr<InternedOp> Client::op() const {
    const MutexLock lock(mutex_);
    return ops_.empty() ? nullptr : ops_.back();
}

Location Client::cook(std::string_view path) {
    InternedOp* const op = current_.load(std::memory_order_acquire);
    if (!op || path.empty()) {
        return {};
    }
    const Loan session(*this);
    return cookLocation(*session, *op, path);
}

Trace Client::trace(std::string_view path, std::string_view name) {
    const std::shared_ptr<InternedOp> seen = op();
    if (!seen || path.empty()) {
        return {};
    }
    const Loan session(*this);
    return traceAttribute(*session, seen, path, name);
}

bool Client::findCooked(std::string_view path, Location& location) {
    InternedOp* const op = current_.load(std::memory_order_acquire);
    if (!op || path.empty()) {
        return false;
    }
    const Loan session(*this);
    return Embedded::findCooked(*session, *op, path, location);
}

Session& Client::take() {
    const pthread_t thread = pthread_self();
    Session* session = takeOwn(thread);
    if (!session) {
        session = takeAny(thread);
    }
    return session ? *session : takeExtra();
}

Session* Client::takeOwn(pthread_t thread) {
    for (std::size_t place = 0; place < kSessions; ++place) {
        if (owners_[place].load(std::memory_order_relaxed) == thread) {
            Session* const session = sessions_[place].load(std::memory_order_acquire);
            if (session && session->tryTake(session->store.age())) {
                return session;
            }
        }
    }
    return nullptr;
}

Session* Client::takeAny(pthread_t thread) {
    for (std::size_t place = 0; place < kSessions; ++place) {
        Session* const session = sessionAt(place);
        if (session->tryTake(session->store.age())) {
            owners_[place].store(thread, std::memory_order_relaxed);
            return session;
        }
    }
    return nullptr;
}

Session* Client::sessionAt(std::size_t place) {
    if (Session* const session = sessions_[place].load(std::memory_order_acquire)) {
        return session;
    }
    const MutexLock lock(mutex_);
    Session* session = sessions_[place].load(std::memory_order_relaxed);
    if (!session) {
        made_.push_back(std::make_unique<Session>());
        session = made_.back().get();
        sessions_[place].store(session, std::memory_order_release);
    }
    return session;
}

Session& Client::takeExtra() {
    const MutexLock lock(mutex_);
    for (Session* const session : extra_) {
        if (session->tryTake(session->store.age())) {
            return *session;
        }
    }
    made_.push_back(std::make_unique<Session>());
    Session& session = *made_.back();
    extra_.push_back(&session);
    session.tryTake(session.store.age());
    return session;
}

std::vector<const Session*> Client::sessions() const {
    const MutexLock lock(mutex_);
    std::vector<const Session*> all;
    for (const std::unique_ptr<Session>& session : made_) {
        all.push_back(session.get());
    }
    return all;
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
