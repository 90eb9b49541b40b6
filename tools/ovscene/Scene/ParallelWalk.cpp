// SPDX-License-Identifier: Apache-2.0
#include "Scene/ParallelWalk.h"

#include "ExitStatus.h"
#include "Print/NumberText.h"
#include "Scene/WorkList.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <thread>
#include <utility>

namespace ovscene {
namespace {

/// Shorter lists of children are never divided among threads.
constexpr std::int64_t kShortestPart = 256;
constexpr std::int64_t kPartsOfThread = 8;

/// How many locations a thread visits before it counts them for all.
constexpr std::int64_t kCountedAtOnce = 1024;

void addError(ThreadShare& share, std::int64_t count, const std::string& error) {
    const bool isFirst = share.errors == 0 || error < share.error;
    share.error = count > 0 && isFirst ? error : share.error;
    share.errors += count;
}

/// What the threads of a walk share.
struct Walk {
    Walk(std::size_t threadCount, std::int64_t mostLocations, std::string itsFilename)
        : work(threadCount),
          threads(static_cast<std::int64_t>(threadCount)),
          most(mostLocations),
          filename(std::move(itsFilename)) {}

    WorkList work;
    const std::int64_t threads;
    const std::int64_t most;
    const std::string filename;
    std::atomic<std::int64_t> visited{0};
};

/// One thread of a walk.
class Walker {
public:
    explicit Walker(Walk& walk) : walk_(walk) {}

    /// Works until there is nothing left for any thread. The first walker begins with `top`.
    void run(const SceneLocationPtr& top) {
        if (top) {
            visit(top);
        }
        for (Work work; walk_.work.take(own_, work);) {
            visitChildren(std::move(work));
        }
    }

    const ThreadShare& share() const { return share_; }

private:
    void visitChildren(Work work) {
        divide(work);
        const bool isLastPart = work.end == work.location->childCount();  // else it ends at a place
        SceneLocationPtr child = work.location->childFrom(work.begin);
        while (child && (isLastPart || child->place() < work.end)) {
            visit(child);
            walk_.work.shareWith(own_);
            child = child->nextSibling();
        }
    }

    /// Leaves the front part of a long list, and lays the rest by.
    void divide(Work& work) {
        const std::int64_t parts = walk_.threads * kPartsOfThread;
        const std::int64_t part = std::max(kShortestPart, work.location->childCount() / parts);
        while (walk_.threads > 1 && work.end - work.begin > part) {
            const std::int64_t middle = work.begin + (work.end - work.begin) / 2;
            own_.push_back({work.location, middle, work.end});
            work.end = middle;
        }
    }

    void visit(const SceneLocationPtr& location) {
        read(*location);
        if (const std::int64_t count = location->childCount(); count > 0) {
            own_.push_back({location, 0, count});
        }
        if (++share_.locations % kCountedAtOnce == 0) {
            countForAll();
        }
    }

    void read(const SceneLocation& location) {
        type_ = location.type();
        share_.attributes += location.attributes().getNumberOfChildren();
        if (const std::string error = location.errorMessage(); !error.empty()) {
            addError(share_, 1, error);
        }
    }

    void countForAll() {
        if (walk_.visited.fetch_add(kCountedAtOnce) > walk_.most - kCountedAtOnce) {
            throw CommandError(
                ExitStatus::InputMalformed,
                walk_.filename + ": expands to more than " + numberText(walk_.most) + " locations");
        }
    }

    Walk& walk_;
    std::deque<Work> own_;
    std::string type_;
    ThreadShare share_;
};

ThreadShare runWalker(Walk& walk, const SceneLocationPtr& top) {
    Walker walker(walk);
    try {
        walker.run(top);
    } catch (...) {
        walk.work.stop(std::current_exception());
    }
    return walker.share();
}

}  // namespace

ThreadShare WalkResult::sum() const {
    ThreadShare sum;
    for (const ThreadShare& share : shares) {
        sum.locations += share.locations;
        sum.attributes += share.attributes;
        addError(sum, share.errors, share.error);
    }
    return sum;
}

WalkResult walkInParallel(const SceneLocationPtr& top,
                          std::size_t threads,
                          std::int64_t mostLocations,
                          const std::string& filename) {
    const auto start = std::chrono::steady_clock::now();
    Walk walk(threads, mostLocations, filename);
    WalkResult result;
    result.shares.resize(threads);
    std::vector<std::thread> running;
    running.reserve(threads);
    try {
        for (ThreadShare& share : result.shares) {
            const SceneLocationPtr first = running.empty() ? top : nullptr;
            running.emplace_back([&walk, &share, first] { share = runWalker(walk, first); });
        }
    } catch (...) {
        walk.work.stop(std::current_exception());
    }
    for (std::thread& thread : running) {
        thread.join();
    }
    walk.work.rethrowFailure();
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
    result.seconds = taken.count();
    return result;
}

}  // namespace ovscene
