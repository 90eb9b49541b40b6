// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Ops/Arguments.h"
#include "Platform/Embedded/Ops/Locations/AttributeMerge.h"
#include "Platform/Embedded/Ops/OpTypes.h"
#include "Platform/Embedded/Runtime/AttributeEdit.h"
#include "Platform/Embedded/Runtime/Cook.h"
#include "Platform/Support/OnceBuilt.h"

#include <unordered_set>
#include <utility>

namespace Sylvar3::internal::OvSylvar::Embedded {

using OvAttribute::GroupAttribute;

namespace {

constexpr std::string_view kErrorMessage = "errorMessage";

enum class Attributes { First, Deep };

class MergeOp final : public OpBody {
public:
    explicit MergeOp(Attributes attributes) : attributes_(attributes) {}

    void cook(Cook& cook, LocationWriter& out) const override {
        const std::vector<Location> present = presentInputs(cook);
        if (present.empty()) {
            return out.setAbsent();
        }
        if (present.size() == 1) {
            return out.pass(present.front());
        }
        out.setAttributes(mergedAttributes(present, out));
        out.setChildren(unionOfChildren(present));
    }

private:
    static std::vector<Location> presentInputs(Cook& cook) {
        std::vector<Location> present;
        for (std::size_t i = 0; i < cook.inputCount(); ++i) {
            Location location = cook.input(i);
            if (location.exists()) {
                present.push_back(std::move(location));
            }
        }
        return present;
    }

    static std::vector<std::string_view> unionOfChildren(const std::vector<Location>& present) {
        std::vector<std::string_view> names;
        std::unordered_set<std::string_view> known;
        for (const Location& location : present) {
            for (std::uint32_t i = 0; i < location.names().count; ++i) {
                if (known.insert(location.names()[i]).second) {
                    names.push_back(location.names()[i]);
                }
            }
        }
        return names;
    }

    static LocationWriter::GroupValue* attributesOfFirst(const std::vector<Location>& present,
                                                         LocationWriter& out) {
        AttributeEdit attributes(present.front());
        if (LocationWriter::Value* const error = nearestError(present)) {
            attributes.set(kErrorMessage, error);
        }
        return attributes.write(out);
    }

    /// Null when no input has one.
    static LocationWriter::Value* nearestError(const std::vector<Location>& present) {
        for (const Location& location : present) {
            if (LocationWriter::Value* const error = location.attributes()->find(kErrorMessage)) {
                return error;
            }
        }
        return nullptr;
    }

    LocationWriter::GroupValue* mergedAttributes(const std::vector<Location>& present,
                                                 LocationWriter& out) const {
        if (attributes_ == Attributes::First) {
            return attributesOfFirst(present, out);
        }
        GroupList groups;
        for (const Location& location : present) {
            groups.push_back(location.attributes());
        }
        return mergeGroups(groups, out);
    }

    Attributes attributes_;
};

class MergeOpType final : public OpType {
public:
    const OpSchema& schema() const override { return schema_; }

    std::unique_ptr<const OpBody> make(const GroupAttribute& group,
                                       std::size_t /*inputCount*/,
                                       const std::string& /*place*/) const override {
        const Arguments arguments(schema_, group);
        const bool isDeep = arguments.getChoice("attributes", {"first", "deep"}) == 1;
        return std::make_unique<MergeOp>(isDeep ? Attributes::Deep : Attributes::First);
    }

private:
    const OpSchema schema_ = {
        "merge",
        "The union of the inputs' scenes: a location is there when any input has it.",
        "Children come in the order of the inputs, each name once. A location that one "
        "input alone has is handed on as it is. The error of any input is kept: where the first "
        "has no \"errorMessage\", that of the nearest input which has one is there.",
        1,
        kAnyNumberOfInputs,
        {
            {"attributes",
             "string",
             "first",
             "\"first\": those of the first input that has the location; \"deep\": of all inputs, "
             "groups merged in turn, an earlier input's before a later one's."},
        },
    };
};

}  // namespace

const OpType& mergeOpType() {
    static Support::OnceBuilt<MergeOpType> type;
    return type.get();
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
