// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Platform/Embedded/Runtime/InternedOp.h"
#include "Platform/Support/Mutex.h"

#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace Sylvar3::internal::OvSylvar::Embedded {

class Client;
class Session;

/// A runtime: its clients, and through them the ops whose cooked locations it may drop. What was
/// cooked is the store's. Any thread.
class Runtime {
public:
    Runtime() = default;
    Runtime(const Runtime&) = delete;
    Runtime& operator=(const Runtime&) = delete;

    void add(Client& client) OV_EXCLUDES(mutex_);
    void remove(Client& client) OV_EXCLUDES(mutex_);

    /// Drops a location and those below it for all ops of this runtime's tree, and what was read at
    /// other paths to make it. An op that reads a file checks it anew; when it is another, all that
    /// was cooked of it is dropped, by other runtimes' ops too.
    void evict(std::string_view path);

    /// Waits for the cooks of this runtime that are under way, but for those of the calling thread
    /// and those that wait for it, and drops all that its ops have cooked.
    void finalize();

    /// The ops of its clients and all that these read from, before them.
    std::vector<std::shared_ptr<InternedOp>> ops() const OV_EXCLUDES(mutex_);

    /// The ops that its clients look at.
    std::vector<std::shared_ptr<InternedOp>> clientOps() const OV_EXCLUDES(mutex_);

private:
    void waitForCooks() const;

    mutable Support::Mutex mutex_;
    std::set<Client*> clients_ OV_GUARDED_BY(mutex_);
};

}  // namespace Sylvar3::internal::OvSylvar::Embedded
