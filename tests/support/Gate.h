// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <condition_variable>
#include <mutex>

namespace ovtest {

/// Something that happens once, and those who wait for it.
class Gate {
public:
    void open() {
        const std::lock_guard<std::mutex> lock(mutex_);
        isOpen_ = true;
        opened_.notify_all();
    }

    void wait() {
        std::unique_lock<std::mutex> lock(mutex_);
        opened_.wait(lock, [this] { return isOpen_; });
    }

    bool isOpen() {
        const std::lock_guard<std::mutex> lock(mutex_);
        return isOpen_;
    }

private:
    std::mutex mutex_;
    std::condition_variable opened_;
    bool isOpen_ = false;
};

}  // namespace ovtest
