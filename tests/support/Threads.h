// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <condition_variable>
#include <cstddef>
#include <exception>
#include <mutex>
#include <thread>
#include <vector>

namespace ovtest {

/// Holds every caller until `count` of them have come, then lets them go; usable again at once.
class Barrier {
public:
    explicit Barrier(int count) : count_(count), missing_(count) {}

    void wait() {
        std::unique_lock<std::mutex> lock(mutex_);
        const std::size_t round = round_;
        if (--missing_ == 0) {
            missing_ = count_;
            ++round_;
            everyoneCame_.notify_all();
            return;
        }
        everyoneCame_.wait(lock, [&] { return round_ != round; });
    }

private:
    std::mutex mutex_;
    std::condition_variable everyoneCame_;
    const int count_;
    int missing_;
    std::size_t round_ = 0;
};

/// Runs f(0) ... f(count - 1), each on a thread of its own, all starting together. Returns when all
/// have ended and rethrows the exception of the lowest index that threw.
template <class Function>
void onThreads(int count, Function f) {
    Barrier start(count);
    std::vector<std::exception_ptr> faults(static_cast<std::size_t>(count));
    std::vector<std::thread> threads;
    for (int i = 0; i < count; ++i) {
        threads.emplace_back([&, i] {
            start.wait();
            try {
                f(i);
            } catch (...) {
                faults[static_cast<std::size_t>(i)] = std::current_exception();
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    for (const std::exception_ptr& fault : faults) {
        if (fault) {
            std::rethrow_exception(fault);
        }
    }
}

}  // namespace ovtest
