// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/GroupAttribute.h>
#include <SylvarPlatform/Hash.h>

#include "Platform/Embedded/Runtime/Op.h"
#include "Platform/Embedded/Runtime/Slot.h"

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace Sylvar3::internal::OvSylvar::Embedded {

/// Where an op stands, for people.
struct OpPlace {
    std::string name;        ///< As its op tree calls it; can be empty.
    std::size_t number = 0;  ///< Counted from 1; 0 for an op that another one made for itself.
    std::size_t count = 0;   ///< The ops of its tree.
    std::string file;        ///< Empty for a transaction.

    /// `op 3 of 7 "lamps" in room.optree.json`
    std::string text() const;
};

/// An op that all runtimes of the process share when type, arguments and inputs are equal, and what
/// was cooked of it. Ends with the last runtime that has it; what it cooked goes with it. Immutable
/// but for what it cooks. Any thread.
class InternedOp : public std::enable_shared_from_this<InternedOp> {
public:
    using Inputs = std::vector<std::shared_ptr<InternedOp>>;

    /// What one is made of.
    struct Parts {
        std::string typeName;
        std::uint32_t typeIndex = 0;
        OpPlace place;
        std::string at;                          ///< Where errors of the whole op show.
        std::vector<std::string> argumentKinds;  ///< "int" and so on, without names.
        std::unique_ptr<const OpBody> body;
        Inputs inputs;
        OvAttribute::Hash hash;
    };

    explicit InternedOp(Parts parts);
    ~InternedOp();
    InternedOp(const InternedOp&) = delete;
    InternedOp& operator=(const InternedOp&) = delete;

    const OpBody& body() const { return *parts_.body; }
    const Inputs& inputs() const { return parts_.inputs; }
    const std::string& typeName() const { return parts_.typeName; }
    std::uint32_t typeIndex() const { return parts_.typeIndex; }
    const OvAttribute::Hash& hash() const { return parts_.hash; }

    const std::vector<std::string>& argumentKinds() const { return parts_.argumentKinds; }

    /// Of equal ops, where the first one stands.
    const OpPlace& place() const { return parts_.place; }

    /// Where errors of the whole op show: an absolute path.
    const std::string& placeOfErrors() const { return parts_.at; }

    /// How many ops stand above one another from here, this one included, and by which input.
    std::uint32_t height() const { return height_; }
    InternedOp* tallestInput() const { return tallestInput_; }

    /// Ops at heights that this divides are cooked ahead in long chains.
    static constexpr std::uint32_t kStation = 64;

    /// The text for a fault at a path, which it logs when it is this op's first one.
    std::string report(std::string_view path, const char* reason);

    /// The location above the top ones.
    Slot top{SlotValue::kUnknown};

private:
    /// A long chain of inputs ends one after the other, and not one within the other. Takes nothing
    /// from an op that has not ended: another thread may find it meanwhile.
    void letInputsGo() noexcept;

    Parts parts_;
    std::uint32_t height_ = 1;
    InternedOp* tallestInput_ = nullptr;
    std::atomic<bool> hasLogged_{false};
};

/// The ops that these reach by their inputs and by what they made for themselves, each once, with
/// themselves; what an op reads from comes before it.
std::vector<std::shared_ptr<InternedOp>> reachableOps(
    std::vector<std::shared_ptr<InternedOp>> from);

}  // namespace Sylvar3::internal::OvSylvar::Embedded
