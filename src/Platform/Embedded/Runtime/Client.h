// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Platform/Embedded/Runtime/InternedOp.h"
#include "Platform/Embedded/Runtime/Location.h"
#include "Platform/Embedded/Runtime/Session.h"
#include "Platform/Embedded/Runtime/Trace.h"
#include "Platform/Support/Mutex.h"

#include <array>
#include <atomic>
#include <cstddef>
#include <memory>
#include <pthread.h>
#include <string_view>
#include <vector>

namespace Sylvar3::internal::OvSylvar::Embedded {

class Runtime;

/// A view on a runtime's scene through one op; without an op nothing is there. Any number of
/// threads may cook at once: each is lent a session of its own.
class Client {
public:
    explicit Client(std::shared_ptr<Runtime> runtime);
    ~Client();
    Client(const Client&) = delete;
    Client& operator=(const Client&) = delete;

    /// The op is kept for the client's life, since others may be cooking it when a later one is
    /// set.
    void setOp(std::shared_ptr<InternedOp> op) OV_EXCLUDES(mutex_);

    Location cook(std::string_view path);

    /// Where an attribute comes from, as `traceAttribute` tells it.
    Trace trace(std::string_view path, std::string_view name) OV_EXCLUDES(mutex_);

    bool findCooked(std::string_view path, Location& location);

    /// The op that it looks at; null when there is none.
    std::shared_ptr<InternedOp> op() const OV_EXCLUDES(mutex_);

    /// The sessions that it has made so far; they live as long as the client.
    std::vector<const Session*> sessions() const OV_EXCLUDES(mutex_);

private:
    class Loan;
    static constexpr std::size_t kSessions = 16;

    /// A session that is free, the calling thread's last one if possible.
    Session& take();
    Session* takeOwn(pthread_t thread);
    Session* takeAny(pthread_t thread);
    Session& takeExtra() OV_EXCLUDES(mutex_);
    Session* sessionAt(std::size_t place) OV_EXCLUDES(mutex_);

    const std::shared_ptr<Runtime> runtime_;
    std::atomic<InternedOp*> current_{nullptr};
    std::array<std::atomic<pthread_t>, kSessions> owners_{};
    std::array<std::atomic<Session*>, kSessions> sessions_{};

    mutable Support::Mutex mutex_;
    std::vector<std::shared_ptr<InternedOp>> ops_ OV_GUARDED_BY(mutex_);
    std::vector<std::unique_ptr<Session>> made_ OV_GUARDED_BY(mutex_);
    std::vector<Session*> extra_ OV_GUARDED_BY(mutex_);
};

}  // namespace Sylvar3::internal::OvSylvar::Embedded
