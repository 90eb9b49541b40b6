// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Platform/Embedded/Runtime/Cook.h"
#include "Platform/Embedded/Runtime/OpTypeTable.h"
#include "support/OpTree.h"

#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <utility>

namespace ovtest {

namespace Runtime = Sylvar3::internal::OvSylvar::Embedded;

/// What an op of the type "test.hook" does: a function of the test's.
using CookHook = std::function<void(Runtime::Cook&, Runtime::LocationWriter&)>;

/// An op type for tests: argument "hook" is the number of a function that was registered. It takes
/// any number of inputs.
class HookedOpType final : public Runtime::OpType {
public:
    static HookedOpType& instance() {
        static HookedOpType& type = *registered();
        return type;
    }

    /// The arguments of an op that does this; another op each time.
    static Sylvar3::internal::OvAttribute::GroupAttribute hook(CookHook cook) {
        HookedOpType& type = instance();
        const std::lock_guard<std::mutex> lock(type.mutex_);
        const int number = static_cast<int>(type.hooks_.size());
        type.hooks_[number] = std::move(cook);
        return Args().set("hook", number);
    }

    const Runtime::OpSchema& schema() const override { return schema_; }

    std::unique_ptr<const Runtime::OpBody> make(
        const Sylvar3::internal::OvAttribute::GroupAttribute& arguments,
        std::size_t /*inputCount*/,
        const std::string& /*place*/) const override {
        const std::lock_guard<std::mutex> lock(mutex_);
        const int number =
            arguments.getChild<Sylvar3::internal::OvAttribute::IntAttribute>("hook").getValue(-1);
        return std::make_unique<Body>(hooks_.at(number));
    }

private:
    class Body final : public Runtime::OpBody {
    public:
        explicit Body(CookHook cook) : cook_(std::move(cook)) {}
        void cook(Runtime::Cook& cook, Runtime::LocationWriter& out) const override {
            cook_(cook, out);
        }

    private:
        CookHook cook_;
    };

    static HookedOpType* registered() {
        auto* const type = new HookedOpType;
        Runtime::OpTypeTable::instance().add(*type);
        return type;
    }

    const Runtime::OpSchema schema_ = {"test.hook",
                                       "Does what a test tells it.",
                                       "",
                                       0,
                                       1 << 20,
                                       {{"hook", "int", "", "The number of the function."}}};
    mutable std::mutex mutex_;
    std::map<int, CookHook> hooks_;
};

/// Writes what a small scene has at a path: /root with the children "a" and "b".
inline void writeSmallScene(Runtime::Cook& cook, Runtime::LocationWriter& out) {
    if (cook.path().empty()) {
        out.setChildren({"root"});
    } else if (cook.path() == "/root") {
        out.setChildren({"a", "b"});
    }
}

}  // namespace ovtest
