// SPDX-License-Identifier: Apache-2.0
#include "Scene/WorkList.h"

#include <utility>

namespace ovscene {

bool WorkList::take(std::deque<Work>& own, Work& work) {
    if (!own.empty() && !stopped_.load(std::memory_order_relaxed)) {
        work = std::move(own.back());
        own.pop_back();
        return true;
    }
    std::unique_lock<std::mutex> lock(mutex_);
    if (++waiting_ == threads_ && shared_.empty()) {
        changed_.notify_all();
    }
    changed_.wait(lock,
                  [this] { return !shared_.empty() || waiting_ == threads_ || stopped_.load(); });
    if (shared_.empty() || stopped_) {
        return false;  // still counted as waiting, so that the others see the end too
    }
    --waiting_;
    work = std::move(shared_.front());
    shared_.pop_front();
    return true;
}

void WorkList::share(std::deque<Work>& own) {
    const std::lock_guard<std::mutex> lock(mutex_);
    while (own.size() > 1 && shared_.size() < waiting_) {
        shared_.push_back(std::move(own.front()));
        own.pop_front();
        changed_.notify_one();
    }
}

void WorkList::stop(std::exception_ptr failure) {
    const std::lock_guard<std::mutex> lock(mutex_);
    if (!failure_) {
        failure_ = std::move(failure);
    }
    stopped_ = true;
    changed_.notify_all();
}

void WorkList::rethrowFailure() const {
    if (failure_) {
        std::rethrow_exception(failure_);
    }
}

}  // namespace ovscene
