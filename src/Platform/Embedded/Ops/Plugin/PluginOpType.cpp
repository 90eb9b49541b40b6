// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Ops/Plugin/PluginOpType.h"

#include "Platform/Embedded/Ops/Arguments.h"
#include "Platform/Embedded/Ops/Plugin/PluginCook.h"
#include "Platform/Embedded/Ops/Plugin/PluginOpSchema.h"
#include "Platform/Support/Mutex.h"

#include <algorithm>
#include <array>
#include <exception>
#include <memory>
#include <new>
#include <utility>
#include <vector>

namespace Sylvar3::internal::OvSylvar::Embedded {

using OvAttribute::GroupAttribute;
using Support::Mutex;
using Support::MutexLock;

namespace {

constexpr std::size_t kMessageSize = 1024;
constexpr std::size_t kLongestIdentity = std::size_t{1024} * 1024;

/// Calls a function of a plug-in. What it throws becomes an `OpError`, but for `std::bad_alloc`.
template <class Call>
auto callPlugin(const char* function, Call call) -> decltype(call()) {
    try {
        return call();
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& error) {
        throw OpError(std::string(function) + " throws: " + error.what());
    } catch (...) {
        throw OpError(std::string(function) + " throws");
    }
}

/// An instance of a plug-in's op; ends with the last one that cooks with it.
using Instance = std::shared_ptr<void>;

/// Throws `OpError` with the plug-in's message.
Instance createInstance(const OvOpType& table,
                        const GroupAttribute& arguments,
                        std::size_t inputCount) {
    std::array<char, kMessageSize> message{};
    void* const created = callPlugin("create", [&] {
        return table.create(arguments.handle(),
                            static_cast<std::int32_t>(inputCount),
                            message.data(),
                            message.size());
    });
    if (!created) {
        message.back() = '\0';
        throw OpError(message.front() != '\0' ? message.data() : "create gives no reason");
    }
    return Instance(created, [&table](void* instance) {
        try {
            if (table.destroy) {
                table.destroy(instance);
            }
        } catch (...) {
            // Nobody is left who could be told.
        }
    });
}

/// What the plug-in tells, cut where it is absurdly long. Throws `OpError`.
std::string identityOf(const OvOpType& table, const GroupAttribute& arguments) {
    std::string text;
    std::size_t length = kMessageSize;
    while (length > text.size()) {
        text.resize(length);
        const std::int64_t told = callPlugin("getIdentity", [&] {
            return table.getIdentity(arguments.handle(), text.data(), text.size() + 1);
        });
        length =
            std::min(static_cast<std::size_t>(std::max<std::int64_t>(told, 0)), kLongestIdentity);
    }
    text.resize(length);
    return text;
}

/// The op of an instance, which another takes the place of when what it has read has changed.
class PluginOp final : public OpBody {
public:
    PluginOp(const OvOpType& table, GroupAttribute arguments, std::size_t inputCount)
        : table_(table),
          arguments_(std::move(arguments)),
          inputCount_(inputCount),
          instance_(createInstance(table_, arguments_, inputCount_)) {}

    void cook(Cook& cook, LocationWriter& out) const override {
        const Instance instance = get();
        OvOpCookStruct handle{PluginCook(cook)};
        try {
            callPlugin("cook", [&] { table_.cook(instance.get(), &handle); });
        } catch (...) {
            handle.cook.fail(std::current_exception());
        }
        handle.cook.finish(out);
    }

    /// As long as there is no instance, nobody knows what the next one sees.
    bool hasChanged() const override {
        if (!table_.hasChanged) {
            return false;
        }
        const Instance instance = find();
        try {
            return !instance ||
                   callPlugin("hasChanged", [&] { return table_.hasChanged(instance.get()) != 0; });
        } catch (const OpError&) {
            return false;
        }
    }

    std::shared_ptr<const void> forget() const override {
        const MutexLock lock(mutex_);
        ++age_;
        return std::exchange(instance_, nullptr);
    }

private:
    Instance find() const OV_EXCLUDES(mutex_) {
        const MutexLock lock(mutex_);
        return instance_;
    }

    std::uint64_t age() const OV_EXCLUDES(mutex_) {
        const MutexLock lock(mutex_);
        return age_;
    }

    /// Makes an instance when there is none. One that was made while it was forgotten is for the
    /// caller alone.
    Instance get() const OV_EXCLUDES(mutex_) {
        if (Instance known = find()) {
            return known;
        }
        const std::uint64_t before = age();
        Instance made = createInstance(table_, arguments_, inputCount_);
        const MutexLock lock(mutex_);
        if (age_ != before) {
            return made;
        }
        if (!instance_) {
            instance_ = std::move(made);
        }
        return instance_;
    }

    const OvOpType& table_;
    const GroupAttribute arguments_;
    const std::size_t inputCount_;
    mutable Mutex mutex_;  ///< Innermost.
    mutable Instance instance_ OV_GUARDED_BY(mutex_);
    mutable std::uint64_t age_ OV_GUARDED_BY(mutex_) = 0;  ///< How often it was forgotten.
};

}  // namespace

PluginOpType::PluginOpType(std::string name, const OvOpType& table)
    : name_(std::move(name)), table_(table), schema_(schemaOf(table, name_.c_str())) {}

GroupAttribute PluginOpType::checked(const GroupAttribute& group) const {
    const Arguments arguments(schema_, group);
    return group ? group : GroupAttribute({}, false);
}

std::unique_ptr<const OpBody> PluginOpType::make(const GroupAttribute& group,
                                                 std::size_t inputCount,
                                                 const std::string& /*place*/) const {
    return std::make_unique<PluginOp>(table_, checked(group), inputCount);
}

std::string PluginOpType::identity(const GroupAttribute& group) const {
    if (!table_.getIdentity) {
        return {};
    }
    try {
        return identityOf(table_, checked(group));
    } catch (const OpError&) {
        return {};
    }
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
