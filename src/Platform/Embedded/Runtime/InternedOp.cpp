// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Runtime/InternedOp.h"

#include "Platform/Embedded/Runtime/Interner.h"
#include "Platform/Embedded/Runtime/RuntimeLog.h"
#include "Platform/Embedded/Runtime/Store.h"

#include <unordered_set>
#include <utility>

namespace Sylvar3::internal::OvSylvar::Embedded {

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
    Store::instance().drop({&top});
    // A long chain of inputs ends here, one after the other, and not one within the other.
    Inputs ending = std::move(parts_.inputs);
    while (!ending.empty()) {
        const std::shared_ptr<InternedOp> op = std::move(ending.back());
        ending.pop_back();
        if (op.use_count() == 1) {
            for (std::shared_ptr<InternedOp>& input : op->parts_.inputs) {
                ending.push_back(std::move(input));
            }
            op->parts_.inputs.clear();
        }
    }
}

std::string InternedOp::report(std::string_view path, const char* reason) {
    std::string text = parts_.typeName + " (" + parts_.place + "), ";
    text.append(path.empty() ? std::string_view(parts_.at) : path).append(": ").append(reason);
    if (!hasLogged_.exchange(true)) {
        OV_LOG(runtimeLogger(), error, text);
    }
    return text;
}

std::vector<std::shared_ptr<InternedOp>> reachableOps(
    std::vector<std::shared_ptr<InternedOp>> from) {
    std::unordered_set<const InternedOp*> known;
    std::vector<std::shared_ptr<InternedOp>> found;
    while (!from.empty()) {
        std::shared_ptr<InternedOp> op = std::move(from.back());
        from.pop_back();
        if (op && known.insert(op.get()).second) {
            from.insert(from.end(), op->inputs().begin(), op->inputs().end());
            op->body().collectOwnOps(from);
            found.push_back(std::move(op));
        }
    }
    return found;
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
