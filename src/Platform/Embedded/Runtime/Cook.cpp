// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Runtime/Cook.h"

#include "Platform/Embedded/Runtime/ErrorLocation.h"
#include "Platform/Embedded/Runtime/WaitingRoom.h"

#include <algorithm>
#include <chrono>
#include <exception>
#include <limits>
#include <new>
#include <utility>

namespace Sylvar3::internal::OvSylvar::Embedded {

namespace {

using Clock = std::chrono::steady_clock;

/// Cooks of inputs within cooks, at most: each takes some of the stack.
constexpr std::uint32_t kDeepest = 400;

/// What the outermost cook is told when more are within it. Nothing that the others could remember:
/// asked for by themselves they might well be cooked.
class TooDeep : public OpError {
public:
    TooDeep()
        : OpError("ops read one another more than " + std::to_string(kDeepest) + " levels deep") {}
};

bool canBePath(std::string_view path) {
    return path.empty() ||
           (path.front() == '/' && path.size() < std::numeric_limits<std::int32_t>::max());
}

/// Keeps a node and its slots where they are while nobody looks.
class Pin {
public:
    Pin() = default;
    explicit Pin(StorePage* page) : page_(page) {
        if (page_) {
            page_->retain();
        }
    }
    Pin(Pin&& other) noexcept : page_(std::exchange(other.page_, nullptr)) {}
    Pin& operator=(Pin&& other) noexcept {
        std::swap(page_, other.page_);
        return *this;
    }
    ~Pin() {
        if (page_) {
            page_->release();
        }
    }

private:
    StorePage* page_ = nullptr;
};

/// What a look for a location came to.
struct Finding {
    enum class State {
        There,
        Absent,
        Claimed,   ///< It, or one above it, is to be cooked now: the slot is this session's.
        InFlight,  ///< Another session cooks it, or one above it.
        Unknown    ///< It is not known, or was dropped while this looked.
    };

    State state = State::Absent;
    Location location{};
    Slot* slot = nullptr;
    std::uintptr_t value = 0;
    std::size_t pathLength = 0;
    Pin pin{};  ///< What the slot is in.
};

/// Looks for a location, and claims what is to be cooked first when `claims`.
Finding find(Session& session, InternedOp& op, std::string_view path, bool claims) {
    using State = Finding::State;
    Cursor& cursor = session.cursorOf(op);
    const std::uint64_t age = session.look(session.store.age());
    const Cursor::Place place = cursor.walk(op, age, path);
    Finding finding;
    if (place.node) {
        finding.state = State::There;
        finding.location = Location(place.node->location, place.node->names);
        if (session.store.hasBudget()) {
            place.node->page->touch();
        }
    } else if (place.slot && place.value != SlotValue::kAbsent) {
        finding.slot = place.slot;
        finding.value = place.value;
        finding.pathLength = place.pathLength;
        finding.pin = Pin(place.parent ? place.parent->page : nullptr);
        finding.state = SlotValue::isCooking(place.value) ? State::InFlight : State::Unknown;
        if (claims && place.value == SlotValue::kUnknown &&
            place.slot->compare_exchange_strong(
                finding.value, SlotValue::cookedBy(session), std::memory_order_acq_rel)) {
            finding.state = State::Claimed;
            cursor.touch();
        }
    }
    session.lookAway();
    return finding;
}

/// The claim on a slot while its location is cooked: given up, unless it is settled.
class Claim {
public:
    Claim(Session& session, Slot& slot) : session_(session), slot_(slot) {}
    Claim(const Claim&) = delete;
    Claim& operator=(const Claim&) = delete;
    ~Claim() {
        if (!isSettled_) {
            put(SlotValue::kUnknown);
            WaitingRoom::instance().end(slot_, session_, nullptr);
        }
    }

    /// Puts the node in its slot, unless the location was dropped meanwhile, and delivers the
    /// location to those who wait. A null node is an absent location.
    void settle(Node* node, const Location& location) {
        if (!node) {
            put(SlotValue::kAbsent);
        } else {
            node->slot = &slot_;
            node->page->live.fetch_add(1, std::memory_order_relaxed);
            if (!put(SlotValue::of(*node))) {
                node->slot = nullptr;
                node->page->live.fetch_sub(1, std::memory_order_relaxed);
            }
        }
        isSettled_ = true;
        WaitingRoom::instance().end(slot_, session_, &location);
    }

private:
    bool put(std::uintptr_t value) {
        std::uintptr_t expected = SlotValue::cookedBy(session_);
        return slot_.compare_exchange_strong(expected, value, std::memory_order_seq_cst);
    }

    Session& session_;
    Slot& slot_;
    bool isSettled_ = false;
};

/// Counts a cook and the time that it takes for itself, and how deep cooks are in one another.
class CookCount {
public:
    CookCount(Session& session, const InternedOp& op)
        : session_(session), counts_(session.counts[op.typeIndex()]) {
        if (session_.depth >= kDeepest) {
            throw TooDeep();
        }
        if (session_.depth++ == 0) {
            session_.cookingThread.store(std::this_thread::get_id(), std::memory_order_release);
        }
        session_.inputNanoseconds = 0;
    }
    CookCount(const CookCount&) = delete;
    CookCount& operator=(const CookCount&) = delete;
    ~CookCount() {
        const auto taken =
            static_cast<std::uint64_t>(std::chrono::nanoseconds(Clock::now() - begin_).count());
        const std::uint64_t ofInputs = std::min(session_.inputNanoseconds, taken);
        Session::Counts::raise(counts_.nanoseconds, taken - ofInputs);
        session_.inputNanoseconds = inputsBefore_ + taken;
        if (--session_.depth == 0) {
            Session::Counts::raise(session_.finishedCooks, 1);
            session_.cookingThread.store(std::thread::id(), std::memory_order_release);
        }
    }

    void finish() { Session::Counts::raise(counts_.cooks, 1); }

private:
    Session& session_;
    Session::Counts& counts_;
    const std::uint64_t inputsBefore_ = session_.inputNanoseconds;
    const Clock::time_point begin_ = Clock::now();
};

/// Cooks a location into the page; null when it is absent.
Node* cookInto(LocationPage& page,
               Session& session,
               InternedOp& op,
               std::string_view path,
               Readings* readings) {
    Cook cook(session, op, path, page, readings);
    std::string fault;
    try {
        LocationWriter out(page);
        op.body().cook(cook, out);
        return out.finish(op.typeIndex(), cook.foreignReads());
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const TooDeep& error) {
        if (session.depth > 1) {
            throw;
        }
        fault = op.report(path, error.what());
    } catch (const std::exception& error) {
        fault = op.report(path, error.what());
    } catch (...) {
        fault = op.report(path, "threw something that is no std::exception");
    }
    LocationWriter out(page);
    writeErrorLocation(cook, out, fault, op.placeOfErrors());
    return out.finish(op.typeIndex(), cook.foreignReads());
}

/// Cooks the inputs of a long chain from its far end, so that no cook finds more than some of them
/// uncooked.
void cookChainOf(Session& session, const InternedOp& op, std::string_view path) {
    std::vector<InternedOp*> stations;
    Location known;
    for (InternedOp* input = op.tallestInput(); input; input = input->tallestInput()) {
        if (input->height() % InternedOp::kStation == 0) {
            if (findCooked(session, *input, path, known)) {
                break;
            }
            stations.push_back(input);
        }
    }
    try {
        for (; !stations.empty(); stations.pop_back()) {
            cookLocation(session, *stations.back(), path);
        }
    } catch (const OpError&) {
        // The op that reads there meets it again, and tells.
    }
}

Location cookClaimed(Session& session,
                     InternedOp& op,
                     Slot& slot,
                     std::string_view path,
                     Readings* readings = nullptr) {
    Claim claim(session, slot);
    if (op.height() > InternedOp::kStation) {
        cookChainOf(session, op, path);
    }
    CookCount count(session, op);
    LocationPage page(session);
    Node* const node = cookInto(page, session, op, path, readings);
    Location location = node ? Location(node->location, node->names) : Location();
    count.finish();
    claim.settle(node, location);
    return location;
}

/// Cooks a location and those above it for the caller alone: nothing is kept, and so nothing can be
/// dropped before the location is reached.
Location cookAside(Session& session, InternedOp& op, std::string_view path) {
    Slot gone{SlotValue::kGone};
    for (std::size_t end = 0;;) {
        Location location = cookClaimed(session, op, gone, path.substr(0, end));
        if (!location.exists() || end == path.size()) {
            return location;
        }
        const std::size_t begin = end + 1;
        end = std::min(path.find('/', begin), path.size());
        if (location.names().find(path.substr(begin, end - begin), 0) < 0) {
            return {};
        }
    }
}

/// How far the way down to a location has come. It begins anew when what is above was dropped
/// meanwhile: now and then by others, and each time when the budget has no room for all of it.
class Progress {
public:
    void reach(std::size_t pathLength) {
        setbacks_ += pathLength < next_ ? 1 : 0;
        next_ = pathLength + 1;
    }
    bool isHopeless() const { return setbacks_ == kMostSetbacks; }

private:
    static constexpr int kMostSetbacks = 3;

    int setbacks_ = 0;
    std::size_t next_ = 0;
};

}  // namespace

Location Cook::input(std::size_t index, std::string_view path) {
    if (index >= op_.inputs().size()) {
        return {};
    }
    return read(*op_.inputs()[index], path);
}

Location Cook::read(InternedOp& op, std::string_view path) {
    // What is read at this path is dropped with it in any case.
    if (path != path_) {
        const std::string& kept = readPaths_.emplace_back(path);
        reads_.push_back({&op, kept.data(), kept.size()});
    }
    Location location = cookLocation(session_, op, path);
    page_.follow(location);
    if (readings_ && location.exists()) {
        readings_->push_back({op.shared_from_this(), std::string(path), location});
    }
    return location;
}

Location cookLocation(Session& session, InternedOp& op, std::string_view path) {
    if (!canBePath(path)) {
        return {};
    }
    Progress progress;
    while (!progress.isHopeless()) {
        Finding finding = find(session, op, path, true);
        const bool isLast = finding.pathLength == path.size();
        Location location;
        switch (finding.state) {
            case Finding::State::There:
                Session::Counts::raise(session.counts[op.typeIndex()].hits, 1);
                return std::move(finding.location);
            case Finding::State::Absent:
                return {};
            case Finding::State::Unknown:
                std::this_thread::yield();
                continue;
            case Finding::State::Claimed:
                location =
                    cookClaimed(session, op, *finding.slot, path.substr(0, finding.pathLength));
                break;
            case Finding::State::InFlight:
                switch (
                    WaitingRoom::instance().wait(*finding.slot, finding.value, session, location)) {
                    case WaitingRoom::End::TryAgain:
                        continue;
                    case WaitingRoom::End::Cycle:
                        throw OpError("cycle: its cook needs " + std::string(path) +
                                      ", which needs this one");
                    case WaitingRoom::End::Delivered:
                        break;
                }
        }
        if (isLast || !location.exists()) {
            return location;
        }
        progress.reach(finding.pathLength);
    }
    return cookAside(session, op, path);
}

Location cookOnceMore(Session& session, InternedOp& op, std::string_view path, Readings& readings) {
    Slot gone{SlotValue::kGone};
    return cookClaimed(session, op, gone, path, &readings);
}

bool findCooked(Session& session, InternedOp& op, std::string_view path, Location& location) {
    Finding finding;
    if (canBePath(path)) {
        finding = find(session, op, path, false);
    }
    if (finding.state != Finding::State::There && finding.state != Finding::State::Absent) {
        return false;
    }
    Session::Counts::raise(session.counts[op.typeIndex()].hits, 1);
    location = std::move(finding.location);
    return true;
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
