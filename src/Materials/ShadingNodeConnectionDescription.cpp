// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/ShadingNodeDescription.h>
#include <SylvarPlatform/PyString.h>

#include "Materials/MaterialStyle.h"

namespace SYLVAR {

ShadingNodeConnectionDescription::ShadingNodeConnectionDescription(const std::string& fullName,
                                                                   const StringAttribute& source)
    : name_(fullName.substr(0, fullName.rfind(':'))) {
    TextPair portAndNode;
    if (splitInTwo(textOf(source), "@", portAndNode)) {
        connectedPortName_ = Sylvar3::internal::pystring_v1::strip(portAndNode.first);
        connectedNodeName_ = Sylvar3::internal::pystring_v1::strip(portAndNode.second);
    }
}

bool ShadingNodeConnectionDescription::isValid() const {
    return !name_.empty() && !connectedNodeName_.empty() && !connectedPortName_.empty();
}

}  // namespace SYLVAR
