// SPDX-License-Identifier: Apache-2.0
#include "Producers/NumberedGroup.h"

#include <SylvarPlatform/GroupBuilder.h>

#include <charconv>
#include <cstdint>
#include <iterator>
#include <memory>

namespace SYLVAR {
namespace {

using Sylvar3::internal::OvAttribute::Attribute;
using Sylvar3::internal::OvAttribute::castAttribute;
using Sylvar3::internal::OvAttribute::GroupAttribute;
using Sylvar3::internal::OvAttribute::GroupBuilder;

constexpr std::int32_t kNamesAsTheyStand = 1;

struct ReleaseBuilder {
    void operator()(OvGroupBuilderStruct* builder) const {
        GroupBuilder::_attrSuite->releaseBuilder(builder);
    }
};

using BuilderPtr = std::unique_ptr<OvGroupBuilderStruct, ReleaseBuilder>;

/// A platform may know no builder modes; no name here has a dot, so any builder will do.
BuilderPtr newBuilder() {
    const OvAttributeSuite& suite = *GroupBuilder::_attrSuite;
    OvGroupBuilderStruct* const wanted = suite.createBuilderWithMode(kNamesAsTheyStand);
    return BuilderPtr(wanted ? wanted : suite.createBuilder());
}

void setNumbered(OvGroupBuilderStruct* builder, std::size_t number, const Attribute& entry) {
    char name[24] = "i";
    const char* const end = std::to_chars(name + 1, std::end(name), number).ptr;
    const auto length = static_cast<std::int32_t>(end - name);
    GroupBuilder::_attrSuite->setInBuilder(builder, name, length, entry.handle(), 1);
}

}  // namespace

GroupAttribute numberedGroup(const ChainAttributes& entries) {
    const BuilderPtr builder = newBuilder();
    GroupBuilder::_attrSuite->setBuilderGroupInherit(builder.get(), 0);
    for (std::size_t i = 0; i < entries.size(); ++i) {
        if (entries[i]) {
            setNumbered(builder.get(), i, entries[i]);
        }
    }
    return castAttribute<GroupAttribute>(GroupBuilder::_attrSuite->buildBuilder(builder.get(), 0));
}

}  // namespace SYLVAR
