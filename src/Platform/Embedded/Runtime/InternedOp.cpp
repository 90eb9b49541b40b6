// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Runtime/InternedOp.h"

#include "Platform/Embedded/Runtime/Interner.h"
#include "Platform/Embedded/Runtime/RuntimeLog.h"
#include "Platform/Embedded/Runtime/Store.h"

#include <new>
#include <unordered_map>
#include <utility>

namespace Sylvar3::internal::OvSylvar::Embedded {

std::string OpPlace::text() const {
    if (number == 0) {
        return file;
    }
    std::string text = "op " + std::to_string(number) + " of " + std::to_string(count);
    if (!name.empty()) {
        text += " \"" + name + "\"";
    }
    return file.empty() ? text : text + " in " + file;
}

InternedOp::InternedOp(Parts parts) : parts_(std::move(parts)) {
    for (const std::shared_ptr<InternedOp>& input : parts_.inputs) {
        if (input->height_ >= height_) {
            height_ = input->height_ + 1;
            tallestInput_ = input.get();
        }
    }
}

InternedOp::~InternedOp() {
    Interner::instance().forget(*this);
    Store::instance().drop(top);
    letInputsGo();
}

void InternedOp::letInputsGo() noexcept {
    // The inputs of ops that end while another one's inputs go on this thread.
    static thread_local Inputs* later = nullptr;
    if (later) {
        try {
            later->insert(later->end(), parts_.inputs.begin(), parts_.inputs.end());
        } catch (const std::bad_alloc&) {
            // They end within this one.
        }
        return;
    }
    Inputs going = std::move(parts_.inputs);
    later = &going;
    while (!going.empty()) {
        const std::shared_ptr<InternedOp> op = std::move(going.back());
        going.pop_back();
    }
    later = nullptr;
}

std::string InternedOp::report(std::string_view path, const char* reason) {
    std::string text = parts_.typeName + " (" + parts_.place.text() + "), ";
    text.append(path.empty() ? std::string_view(parts_.at) : path).append(": ").append(reason);
    if (!hasLogged_.exchange(true)) {
        OV_LOG(runtimeLogger(), error, text);
    }
    return text;
}

std::vector<std::shared_ptr<InternedOp>> reachableOps(
    std::vector<std::shared_ptr<InternedOp>> from) {
    enum class Phase { Entered, Left };
    std::unordered_map<const InternedOp*, Phase> phases;
    std::vector<std::shared_ptr<InternedOp>> found;
    while (!from.empty()) {
        const std::shared_ptr<InternedOp> op = from.back();
        const auto [phase, isNew] = phases.emplace(op.get(), Phase::Entered);
        if (op && isNew) {
            // Comes again, behind all that it reads from.
            from.insert(from.end(), op->inputs().begin(), op->inputs().end());
            op->body().collectOwnOps(from);
            continue;
        }
        from.pop_back();
        if (op && phase->second == Phase::Entered) {
            phase->second = Phase::Left;
            found.push_back(op);
        }
    }
    return found;
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
