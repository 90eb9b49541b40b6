// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/OpTreeDescription.h>

#include "Filters/FileStream.h"

#include <iostream>

namespace SYLVAR {
namespace {

using Sylvar3::internal::OvAttribute::Attribute;
using Sylvar3::internal::OvAttribute::castAttribute;
using Sylvar3::internal::OvAttribute::GroupAttribute;

/// One piece, so that lines of several threads stay whole.
void tell(const std::string& text) {
    std::cerr << "LoadOpTreeDescriptionFromFile(): " + text + "\n" << std::flush;
}

}  // namespace

GroupAttribute LoadOpTreeDescriptionFromFile(const std::string& filename, bool /*flag*/) {
    if (!fileExists(filename)) {
        tell("Op tree file \"" + filename + "\" does not exist.");
        return {};
    }
    if (!Attribute::_attrSuite) {
        tell("OvAttribute suite is null!");
        return {};
    }
    std::ifstream file = openFile(filename);
    return castAttribute<GroupAttribute>(Attribute::readAttributeStream(&file, readFromFile, 0));
}

}  // namespace SYLVAR
