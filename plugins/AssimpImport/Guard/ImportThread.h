// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <condition_variable>
#include <cstdint>
#include <exception>
#include <functional>
#include <mutex>

namespace AssimpImport {

/// Runs work that recurses as deep as its data on a thread with a stack to match. The caller waits
/// for it, and answers its questions on the thread that it came from.
class ImportThread {
public:
    using Work = std::function<void()>;
    using Answer = std::function<bool(float)>;

    /// `levels`: how deep the work recurses at most.
    explicit ImportThread(std::int64_t levels) noexcept : levels_(levels) {}

    /// Returns when `work` has ended; what it or `answer` throws is thrown here. Throws
    /// `ImportError` when there is no room for the stack.
    void run(const Work& work, const Answer& answer);

    /// Asked from within the work: the answer to `fraction`, given by the thread that waits.
    bool ask(float fraction);

private:
    enum class State { Working, Asked, Answered, Done };

    static void* enter(void* self);
    void work();
    void answerQuestions(const Answer& answer);
    void enterState(State state);

    std::int64_t levels_;
    const Work* work_ = nullptr;
    std::exception_ptr failure_;
    std::mutex mutex_;
    std::condition_variable changed_;
    State state_ = State::Working;
    float question_ = 0.0F;
    bool answer_ = true;
};

}  // namespace AssimpImport
