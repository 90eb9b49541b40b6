// SPDX-License-Identifier: Apache-2.0
#include "Materials/MaterialStyle.h"

#include <SylvarPlatform/PyString.h>

namespace SYLVAR {

bool isNetworkMaterial(const GroupAttribute& material) {
    return textOf(material.getChild<StringAttribute>("style")) == "network";
}

std::string textOf(const StringAttribute& attribute) {
    return Sylvar3::internal::OvAttribute::getStringValue(attribute, "", false);
}

bool splitInTwo(const std::string& text, const std::string& separator, TextPair& parts) {
    std::vector<std::string> pieces;
    Sylvar3::internal::pystring_v1::split(text, pieces, separator, -1);
    if (pieces.size() != 2) {
        return false;
    }
    parts = {std::move(pieces[0]), std::move(pieces[1])};
    return true;
}

}  // namespace SYLVAR
