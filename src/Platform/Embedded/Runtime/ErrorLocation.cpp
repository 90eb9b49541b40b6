// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Runtime/ErrorLocation.h"

#include "Platform/Embedded/Runtime/AttributeEdit.h"
#include "Platform/Embedded/Runtime/Cook.h"

namespace Sylvar3::internal::OvSylvar::Embedded {

namespace {

Location firstInputOf(Cook& cook) {
    try {
        return cook.input(0);
    } catch (const OpError&) {
        return {};
    }
}

}  // namespace

void writeErrorLocation(Cook& cook,
                        LocationWriter& out,
                        const std::string& text,
                        const std::string& at) {
    const Location input = firstInputOf(cook);
    if (cook.path().empty()) {
        if (input.exists() && input.names().count != 0) {
            return out.pass(input);
        }
        const std::string_view first = std::string_view(at).substr(1);
        return out.setChildren({first.substr(0, first.find('/'))});
    }
    AttributeEdit attributes(input);
    attributes.set("errorMessage", out.addString(text));
    out.setAttributes(attributes.write(out));
    if (input.exists()) {
        out.setChildrenOf(input);
    }
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
