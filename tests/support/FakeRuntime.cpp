// SPDX-License-Identifier: Apache-2.0
#include "support/FakeRuntime.h"

#include <SylvarPlatform/GroupBuilder.h>
#include <SylvarPlatform/PluginManager.h>

#include <algorithm>
#include <stdexcept>

namespace ovtest {

using namespace Sylvar3::internal::OvAttribute;
using Sylvar3::internal::OvPluginManager::PluginManager;

/// Whatever stands behind a handle of the table.
struct FakeRuntime::Handle {
    std::string name;
    Handle* runtime;  ///< Null for a runtime.
    std::int32_t id = 0;
    std::set<std::string> cooked;  ///< Of a runtime.
};

namespace {

FakeRuntime& fake() {
    static auto* const one = new FakeRuntime();
    return *one;
}

std::string text(const char* begin, std::int64_t length) {
    return {begin, static_cast<std::size_t>(length)};
}

GroupAttribute locationOf(const StringAttribute& children, const Attribute& attrs) {
    return GroupBuilder(GroupBuilder::Mode::Flat)
        .set("exists", IntAttribute(1))
        .set("pc", children)
        .set("attrs", attrs)
        .build();
}

}  // namespace

/// The entries of the table.
struct FakeEntries {
    using Handle = FakeRuntime::Handle;

    template <class T>
    static Handle* in(T* handle) {
        return reinterpret_cast<Handle*>(handle);
    }
    template <class T>
    static T* out(Handle* handle) {
        return reinterpret_cast<T*>(handle);
    }
    static std::string nameOf(Handle* handle) { return handle ? handle->name : "null"; }

    template <class T>
    static T* made(const char* operation, const char* kind, Handle* above) {
        fake().note(operation, above ? above->name : "");
        if (fake().refuses(operation)) {
            return nullptr;
        }
        Handle* const runtime = above && above->runtime ? above->runtime : above;
        return out<T>(fake().make(kind, runtime));
    }

    static OvRuntimeStruct* createRuntime() {
        return made<OvRuntimeStruct>("createRuntime", "r", nullptr);
    }
    static OvRuntimeTransactionStruct* createTransaction(OvRuntimeStruct* runtime) {
        return made<OvRuntimeTransactionStruct>("createTransaction", "t", in(runtime));
    }
    static OvRuntimeOpStruct* createOp(OvRuntimeTransactionStruct* transaction) {
        return made<OvRuntimeOpStruct>("createOp", "o", in(transaction));
    }
    static OvRuntimeClientStruct* createClient(OvRuntimeTransactionStruct* transaction) {
        return made<OvRuntimeClientStruct>("createClient", "c", in(transaction));
    }

    template <class T>
    static void release(T* handle) {
        fake().giveBack(handle);
    }

    static void commit(OvRuntimeStruct* runtime, OvRuntimeTransactionStruct* transaction) {
        fake().note("commit", nameOf(in(runtime)) + " " + nameOf(in(transaction)));
    }

    static void evict(OvRuntimeStruct* runtime, const char* path, std::int64_t length) {
        fake().note("evict", nameOf(in(runtime)) + " " + text(path, length));
        const std::lock_guard<std::mutex> lock(fake().mutex_);
        in(runtime)->cooked.erase(text(path, length));
    }

    static void finalize(OvRuntimeStruct* runtime) { fake().note("finalize", nameOf(in(runtime))); }

    static void query(OvRuntimeStruct* runtime,
                      const char* name,
                      std::uint64_t length,
                      void* context,
                      OvRuntimeCompletion completion) {
        const std::string query = text(name, static_cast<std::int64_t>(length));
        fake().note("queryRuntimeInfo", nameOf(in(runtime)) + " " + query);
        answer(query, context, completion);
    }

    static void trace(OvRuntimeClientStruct* client,
                      const char* path,
                      std::int64_t length,
                      const char* name,
                      std::int64_t nameLength,
                      void* context,
                      OvRuntimeCompletion completion) {
        fake().note(
            "traceAttribute",
            nameOf(in(client)) + " " + text(path, length) + " '" + text(name, nameLength) + "'");
        answer("traceAttribute", context, completion);
    }

    static void answer(const std::string& query, void* context, OvRuntimeCompletion completion) {
        const auto found = fake().answers_.find(query);
        const auto told = found == fake().answers_.end()
                              ? std::pair<std::int32_t, const char*>(1, nullptr)
                              : found->second;
        const auto complete = [=] {
            fake().runHook("answer");
            const std::string copy = told.second ? told.second : "";
            completion(told.first, told.second ? copy.data() : nullptr, copy.size(), context);
        };
        if (fake().answersElsewhere_) {
            fake().threads_.emplace_back(complete);
        } else {
            complete();
        }
    }

    static std::int32_t getOpId(OvRuntimeOpStruct* op) { return in(op)->id; }

    static void setOpArgs(OvRuntimeTransactionStruct* transaction,
                          OvRuntimeOpStruct* op,
                          const char* type,
                          std::int64_t length,
                          OvAttributeStruct* args) {
        fake().note("setOpArgs",
                    nameOf(in(transaction)) + " " + nameOf(in(op)) + " '" + text(type, length) +
                        (args ? "' with arguments" : "' null"));
        fake().arguments_[nameOf(in(op))] = Attribute::share(args);
    }

    static void setOpInputs(OvRuntimeTransactionStruct* transaction,
                            OvRuntimeOpStruct* op,
                            OvRuntimeOpStruct* const* inputs,
                            std::int64_t count) {
        std::string call = nameOf(in(transaction)) + " " + nameOf(in(op)) + " <-";
        for (std::int64_t i = 0; i < count; ++i) {
            call += " " + nameOf(in(inputs[i]));
        }
        fake().note("setOpInputs", call);
    }

    /// Reads in pieces of seven bytes.
    static OvRuntimeOpStruct* deserializeOps(OvRuntimeTransactionStruct* transaction,
                                             void* stream,
                                             OvReadFunction read) {
        fake().readContext_ = stream;
        auto* const op = made<OvRuntimeOpStruct>("deserializeOps", "o", in(transaction));
        char piece[7];
        std::string bytes;
        long count = 0;
        fake().pieces_.clear();
        do {
            count = read(stream, piece, sizeof piece);
            fake().pieces_.push_back(text(piece, count));
            bytes += fake().pieces_.back();
        } while (count == sizeof piece);
        if (op && bytes.rfind("ops", 0) != 0) {
            in(op)->id = -1;
        }
        return op;
    }

    static void setClientOp(OvRuntimeTransactionStruct* transaction,
                            OvRuntimeClientStruct* client,
                            OvRuntimeOpStruct* op) {
        fake().note("setClientOp",
                    nameOf(in(transaction)) + " " + nameOf(in(client)) + " " + nameOf(in(op)));
    }

    static OvAttributeStruct* cookLocation(OvRuntimeClientStruct* client,
                                           const char* path,
                                           std::int64_t length) {
        if (!fake().isQuiet_) {
            fake().note("cookLocation", nameOf(in(client)) + " " + text(path, length));
            const std::lock_guard<std::mutex> lock(fake().mutex_);
            in(client)->runtime->cooked.insert(text(path, length));
        }
        return fake().locationAt({path, static_cast<std::size_t>(length)});
    }

    static std::uint8_t getCachedLocation(OvRuntimeClientStruct* client,
                                          const char* path,
                                          std::int64_t length,
                                          OvAttributeStruct** location) {
        fake().note("getCachedLocation", nameOf(in(client)) + " " + text(path, length));
        const std::lock_guard<std::mutex> lock(fake().mutex_);
        if (in(client)->runtime->cooked.count(text(path, length)) == 0) {
            return 0;
        }
        *location = fake().locationAt(text(path, length));
        return 1;
    }

    static const OvRuntimeSuite& table() {
        static const OvRuntimeSuite suite = {createRuntime,
                                             release<OvRuntimeStruct>,
                                             createTransaction,
                                             release<OvRuntimeTransactionStruct>,
                                             commit,
                                             evict,
                                             finalize,
                                             query,
                                             createOp,
                                             release<OvRuntimeOpStruct>,
                                             getOpId,
                                             setOpArgs,
                                             setOpInputs,
                                             deserializeOps,
                                             createClient,
                                             release<OvRuntimeClientStruct>,
                                             setClientOp,
                                             cookLocation,
                                             getCachedLocation,
                                             trace};
        return suite;
    }
};

FakeRuntime& FakeRuntime::fresh() {
    static OvPluginStruct plugin = {sizeof(OvPluginStruct),
                                    OV_PLUGIN_VERSION,
                                    "AFakeRuntime",
                                    OV_RUNTIME_API_NAME,
                                    OV_RUNTIME_API_VERSION,
                                    0,
                                    nullptr,
                                    [] { return static_cast<const void*>(&FakeEntries::table()); },
                                    nullptr};
    static const std::string rejected = PluginManager::registerPlugin(&plugin);
    if (!rejected.empty()) {
        throw std::runtime_error(rejected);
    }
    FakeRuntime& one = fake();
    one.faults();
    one.behave();
    one.scene_.clear();
    one.hooks_.clear();
    one.answers_.clear();
    one.arguments_.clear();
    one.counters_.clear();
    one.live_.clear();
    one.calls_.clear();
    one.faults_.clear();
    one.readContext_ = nullptr;
    one.answersElsewhere_ = false;
    one.isQuiet_ = false;
    return one;
}

FakeRuntime& FakeRuntime::at(const std::string& path, const Names& children) {
    return put(path, locationOf(StringAttribute(children), GroupAttribute({}, false)));
}

FakeRuntime& FakeRuntime::atTimes(const std::string& path, const NameSamples& children) {
    return put(path, locationOf(StringAttribute(children), GroupAttribute({}, false)));
}

FakeRuntime& FakeRuntime::set(const std::string& path,
                              const std::string& name,
                              const Attribute& value) {
    const GroupAttribute location = scene_[path];
    const GroupAttribute attrs =
        GroupBuilder().update(location.getChild<GroupAttribute>("attrs")).set(name, value).build();
    return put(path, locationOf(location.getChild<StringAttribute>("pc"), attrs));
}

FakeRuntime& FakeRuntime::put(const std::string& path, const GroupAttribute& location) {
    scene_[path] = location;
    return *this;
}

void FakeRuntime::behave() {
    throwing_.clear();
    refusing_.clear();
    givesBadOps_ = false;
}

void FakeRuntime::onCall(const std::string& operation, std::function<void()> hook) {
    hooks_[operation] = std::move(hook);
}

void FakeRuntime::answer(const std::string& query, std::int32_t status, const char* itsText) {
    answers_[query] = {status, itsText};
}

FakeRuntime::Names FakeRuntime::take() {
    const std::lock_guard<std::mutex> lock(mutex_);
    return std::exchange(calls_, {});
}

FakeRuntime::Names FakeRuntime::take(const std::string& operation) {
    Names all = take();
    all.erase(std::remove_if(
                  all.begin(),
                  all.end(),
                  [&](const std::string& call) { return call.rfind(operation + " ", 0) != 0; }),
              all.end());
    return all;
}

Attribute FakeRuntime::argumentsOf(const std::string& op) {
    return arguments_[op];
}

FakeRuntime::Names FakeRuntime::pieces() {
    return pieces_;
}

FakeRuntime::Names FakeRuntime::live() {
    const std::lock_guard<std::mutex> lock(mutex_);
    Names names;
    for (const Handle* const handle : live_) {
        names.push_back(handle->name);
    }
    std::sort(names.begin(), names.end());
    return names;
}

FakeRuntime::Names FakeRuntime::faults() {
    for (std::thread& thread : threads_) {
        thread.join();
    }
    threads_.clear();
    const std::lock_guard<std::mutex> lock(mutex_);
    return faults_;
}

void FakeRuntime::note(const std::string& operation, const std::string& rest) {
    if (isQuiet_) {
        return;
    }
    {
        const std::lock_guard<std::mutex> lock(mutex_);
        calls_.push_back(operation + " " + rest);
    }
    runHook(operation);
    if (throwing_.count(operation) != 0) {
        throw std::runtime_error("fault of " + operation);
    }
}

void FakeRuntime::runHook(const std::string& operation) {
    const auto hook = hooks_.find(operation);
    if (hook != hooks_.end()) {
        hook->second();
    }
}

FakeRuntime::Handle* FakeRuntime::make(const char* kind, Handle* runtime) {
    const std::lock_guard<std::mutex> lock(mutex_);
    auto* const handle = new Handle{kind + std::to_string(++counters_[kind]), runtime, 0, {}};
    handle->id = givesBadOps_ ? -1 : 7;
    live_.insert(handle);
    return handle;
}

/// One that was made before `fresh` is not known, and simply goes.
void FakeRuntime::giveBack(void* itsHandle) {
    auto* const handle = static_cast<Handle*>(itsHandle);
    const std::lock_guard<std::mutex> lock(mutex_);
    if (live_.erase(handle) != 0) {
        calls_.push_back("release " + handle->name);
        for (const Handle* const other : live_) {
            if (other->runtime == handle) {
                fault(handle->name + " ended before " + other->name);
            }
        }
    }
    delete handle;
}

OvAttributeStruct* FakeRuntime::locationAt(std::string_view path) const {
    const auto found = scene_.find(path);
    return found == scene_.end() ? nullptr : Attribute(found->second).detach();
}

}  // namespace ovtest
