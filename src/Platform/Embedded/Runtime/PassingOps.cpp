// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Runtime/PassingOps.h"

#include "Platform/Embedded/Runtime/Cook.h"
#include "Platform/Embedded/Runtime/MountPath.h"

#include <utility>

namespace Sylvar3::internal::OvSylvar::Embedded {

namespace {

class EmptyScene final : public OpBody {
public:
    void cook(Cook& cook, LocationWriter& out) const override {
        if (!cook.path().empty()) {
            out.setAbsent();
        }
    }
};

class FaultyOp final : public OpBody {
public:
    FaultyOp(std::string at, std::string reason)
        : mount_(std::move(at)), reason_(std::move(reason)) {}

    void cook(Cook& cook, LocationWriter& out) const override {
        if (cook.path() == mount_.path()) {
            throw OpError(reason_);
        }
        const Location input = cook.input(0);
        if (mount_.placeOf(cook.path()) == MountPath::Place::Above) {
            return cookAbove(cook, input, out);
        }
        out.pass(input);
    }

private:
    void cookAbove(Cook& cook, const Location& input, LocationWriter& out) const {
        const std::string_view next = mount_.nextName(cook.path());
        if (!input.exists()) {
            return out.setChildren({next});
        }
        if (input.names().find(next, 0) >= 0) {
            return out.pass(input);
        }
        std::vector<std::string_view> names;
        for (std::uint32_t i = 0; i < input.names().count; ++i) {
            names.push_back(input.names()[i]);
        }
        names.push_back(next);
        out.setAttributes(static_cast<LocationWriter::GroupValue*>(out.keep(*input.attributes())));
        out.setChildren(names);
    }

    MountPath mount_;
    std::string reason_;
};

}  // namespace

std::unique_ptr<const OpBody> makeEmptyScene() {
    return std::make_unique<EmptyScene>();
}

std::unique_ptr<const OpBody> makeFaultyOp(std::string at, std::string reason) {
    return std::make_unique<FaultyOp>(std::move(at), std::move(reason));
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
