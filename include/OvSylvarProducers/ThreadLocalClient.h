// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/OpTreeSource.h>

#include <boost/smart_ptr/shared_ptr.hpp>

#include <memory>

namespace boost {
template <class T>
class thread_specific_ptr;
}

namespace SYLVAR {

/// Gives each thread a client of its own for one source. All objects on equivalent sources give a
/// thread the same client, also when the first of them is long gone. When a thread ends, its client
/// is handed back, for the next thread to have.
///
/// Any number of threads may use one object at once.
class OV_SYLVAR_PRODUCERS_API ThreadLocalClient {
public:
    /// A source that is not valid is told to the log once, here, and then there are no clients.
    explicit ThreadLocalClient(const OpTreeSource& source);
    virtual ~ThreadLocalClient();
    ThreadLocalClient(const ThreadLocalClient&) = delete;
    ThreadLocalClient& operator=(const ThreadLocalClient&) = delete;

    /// The calling thread's client, made at its first call. Empty when the source was not valid, or
    /// when none could be made: that is remembered until the thread ends. What making one throws
    /// travels, and the next call tries again.
    virtual std::shared_ptr<SylvarRuntime::Client> getClient();

    /// @name For those who share one at every step
    /// A count that several threads touch is slow. So each thread takes a replica: another object
    /// that behaves as this one in every way, with counts of its own.
    /// @{

    /// Whether the calling thread made this object. A later thread may be taken for one that has
    /// ended: then the counts are still touched by one living thread alone.
    bool isOfThisThread() const noexcept;

    /// A replica that the calling thread makes. Reads the source no more and takes no lock.
    boost::shared_ptr<ThreadLocalClient> replicate() const;

    /// @}

private:
    using Slot = boost::thread_specific_ptr<std::shared_ptr<SylvarRuntime::Client>>;

    struct Replica {};
    ThreadLocalClient(Replica tag, const ThreadLocalClient& original);

    std::shared_ptr<SylvarRuntime::Client> makeClient();

    const OpTreeSource source_;
    const boost::shared_ptr<Slot> threadClients_;  ///< Empty when the source was not valid.
    const void* const thread_;
};

}  // namespace SYLVAR
