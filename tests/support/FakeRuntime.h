// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/DataAttribute.h>
#include <SylvarPlatform/GroupAttribute.h>
#include <SylvarPlatform/suites/RuntimeSuite.h>

#include <cstdint>
#include <functional>
#include <map>
#include <mutex>
#include <set>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

namespace ovtest {

/// A runtime behind the plain table, which `createRuntime` finds before all others. It cooks every
/// op tree into one scene, told path by path; it notes each call, and fails as it is told to.
///
/// Handles have names: r1, r2 are runtimes in the order in which they were made, t1 is a
/// transaction, o1 an op, c1 a client. Calls read "createOp t1", "cookLocation c1 /root". What a
/// file holds is a good op tree when it begins with "ops".
///
/// Any thread may use it through the table. What is told to it, is told before.
class FakeRuntime {
public:
    using Attribute = Sylvar3::internal::OvAttribute::Attribute;
    using GroupAttribute = Sylvar3::internal::OvAttribute::GroupAttribute;
    using Names = std::vector<std::string>;
    using NameSamples = Sylvar3::internal::OvAttribute::TimedSamples<std::string>;

    /// The one of the process, with nothing in it.
    static FakeRuntime& fresh();

    /// @name The scene
    /// @{
    FakeRuntime& at(const std::string& path, const Names& children = {});
    FakeRuntime& atTimes(const std::string& path, const NameSamples& children);
    FakeRuntime& set(const std::string& path, const std::string& name, const Attribute& value);

    /// Any group as a location; null takes it away.
    FakeRuntime& put(const std::string& path, const GroupAttribute& location);
    /// @}

    /// @name Faults, by the names of the table's entries
    /// @{
    void throwIn(const std::string& operation) { throwing_.insert(operation); }
    void giveNullFrom(const std::string& operation) { refusing_.insert(operation); }
    void giveBadOps() { givesBadOps_ = true; }
    void behave();  ///< Takes all of these back.

    /// Runs in every call of that entry, without a lock; for "answer", before each answer, on the
    /// thread that gives it.
    void onCall(const std::string& operation, std::function<void()> hook);
    /// @}

    /// How a query is answered: a status, and a text or null. Without this: status 1 and null. The
    /// query "traceAttribute" is the entry of that name.
    void answer(const std::string& query, std::int32_t status, const char* text);
    void answerOnAnotherThread() { answersElsewhere_ = true; }

    /// From now on a cook notes nothing, takes no lock, allocates nothing and is not cached: for
    /// many threads and for counts.
    void beQuiet() { isQuiet_ = true; }

    /// The calls since the last time: all, or those of one entry. Takes all of them.
    Names take();
    Names take(const std::string& operation);

    /// The arguments of an op, and what a file was read as, piece by piece.
    Attribute argumentsOf(const std::string& op);
    Names pieces();

    /// What the reader of the file is handed; for a hook of "deserializeOps".
    const void* readContext() const { return readContext_; }

    /// The handles since `fresh` that were not given back yet.
    Names live();

    /// What the library did wrong with handles; empty when all is well. Ends the threads that
    /// answered.
    Names faults();

private:
    friend struct FakeEntries;
    struct Handle;

    void note(const std::string& operation, const std::string& rest);
    void runHook(const std::string& operation);
    bool refuses(const std::string& operation) const { return refusing_.count(operation) != 0; }
    Handle* make(const char* kind, Handle* runtime);
    void giveBack(void* handle);
    OvAttributeStruct* locationAt(std::string_view path) const;
    void fault(const std::string& text) { faults_.push_back(text); }

    std::mutex mutex_;
    std::map<std::string, GroupAttribute, std::less<>> scene_;
    std::set<std::string> throwing_;
    std::set<std::string> refusing_;
    std::map<std::string, std::function<void()>> hooks_;
    std::map<std::string, std::pair<std::int32_t, const char*>> answers_;
    std::map<std::string, Attribute> arguments_;
    std::map<std::string, int> counters_;
    std::set<Handle*> live_;
    std::vector<std::thread> threads_;
    Names calls_;
    Names pieces_;
    Names faults_;
    const void* readContext_ = nullptr;
    bool givesBadOps_ = false;
    bool answersElsewhere_ = false;
    bool isQuiet_ = false;
};

}  // namespace ovtest
