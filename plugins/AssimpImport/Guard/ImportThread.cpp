// SPDX-License-Identifier: Apache-2.0
#include "Guard/ImportThread.h"

#include "ImportError.h"

#include <pthread.h>

namespace AssimpImport {
namespace {

constexpr std::int64_t kBaseStack = 16 << 20;
constexpr std::int64_t kStackPerLevel = 8 << 10;

struct ThreadAttributes {
    explicit ThreadAttributes(std::int64_t stackSize) {
        pthread_attr_init(&value);
        pthread_attr_setstacksize(&value, static_cast<std::size_t>(stackSize));
    }
    ~ThreadAttributes() { pthread_attr_destroy(&value); }
    ThreadAttributes(const ThreadAttributes&) = delete;
    ThreadAttributes& operator=(const ThreadAttributes&) = delete;

    pthread_attr_t value = {};
};

}  // namespace

void ImportThread::run(const Work& work, const Answer& answer) {
    work_ = &work;
    const ThreadAttributes attributes(kBaseStack + levels_ * kStackPerLevel);
    pthread_t thread = {};
    if (pthread_create(&thread, &attributes.value, &ImportThread::enter, this) != 0) {
        throw ImportError("there is no room for a thread that can read " + std::to_string(levels_) +
                          " levels of nesting");
    }
    std::exception_ptr refusal;
    try {
        answerQuestions(answer);
    } catch (...) {
        refusal = std::current_exception();
        answerQuestions([](float) { return false; });
    }
    pthread_join(thread, nullptr);
    if (refusal || failure_) {
        std::rethrow_exception(refusal ? refusal : failure_);
    }
}

bool ImportThread::ask(float fraction) {
    std::unique_lock<std::mutex> lock(mutex_);
    question_ = fraction;
    state_ = State::Asked;
    changed_.notify_all();
    changed_.wait(lock, [this] { return state_ == State::Answered; });
    state_ = State::Working;
    return answer_;
}

void* ImportThread::enter(void* self) {
    static_cast<ImportThread*>(self)->work();
    return nullptr;
}

void ImportThread::work() {
    try {
        (*work_)();
    } catch (...) {
        failure_ = std::current_exception();
    }
    enterState(State::Done);
}

void ImportThread::answerQuestions(const Answer& answer) {
    for (;;) {
        std::unique_lock<std::mutex> lock(mutex_);
        changed_.wait(lock, [this] { return state_ == State::Asked || state_ == State::Done; });
        if (state_ == State::Done) {
            return;
        }
        lock.unlock();
        answer_ = answer(question_);
        enterState(State::Answered);
    }
}

void ImportThread::enterState(State state) {
    const std::lock_guard<std::mutex> lock(mutex_);
    state_ = state;
    changed_.notify_all();
}

}  // namespace AssimpImport
