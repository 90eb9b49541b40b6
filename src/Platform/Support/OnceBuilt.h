// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <boost/thread/once.hpp>

#include <atomic>
#include <new>

namespace Sylvar3::internal::Support {

/// State of the process, built on first use and never destroyed: a thread that ends after the
/// static objects are gone may still use it. Itself constant-initialised, so that a static one adds
/// no work to loading.
///
///     FactoryState& state() { static OnceBuilt<FactoryState> s; return s.get(); }
///
/// Any thread may call `get`; the first one builds, the others wait for it. A build that throws
/// leaves nothing behind: its exception goes to that caller, and the next call builds again.
template <class T>
class OnceBuilt {
public:
    constexpr OnceBuilt() noexcept = default;
    OnceBuilt(const OnceBuilt&) = delete;
    OnceBuilt& operator=(const OnceBuilt&) = delete;

    T& get() {
        return get([] { return T(); });
    }

    /// The same, built from what `make` returns; `make` runs only when this call builds.
    template <class Make>
    T& get(Make make) {
        // Asked once more behind the once-flag: what another thread built is then seen to be built
        // here too, without a look into the flag's own workings.
        while (!built_.load(std::memory_order_acquire)) {
            build(make);
        }
        return *std::launder(reinterpret_cast<T*>(place_));
    }

    /// Whether it is built; never builds.
    bool isBuilt() const noexcept { return built_.load(std::memory_order_acquire); }

private:
    template <class Make>
    void build(Make& make) {
        boost::call_once(once_, [this, &make] {
            ::new (static_cast<void*>(place_)) T(make());
            built_.store(true, std::memory_order_release);
        });
    }

    boost::once_flag once_ = BOOST_ONCE_INIT;
    std::atomic<bool> built_{false};
    alignas(T) unsigned char place_[sizeof(T)] = {};
};

}  // namespace Sylvar3::internal::Support
