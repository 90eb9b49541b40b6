// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/ArchPath.h>
#include <SylvarPlatform/PyString.h>

namespace SYLVAR {

std::string GetArchString() {
    return "kelnix1";
}

std::string ExpandArchPath(const std::string& path) {
    return Sylvar3::internal::pystring_v1::replace(path, "%ARCH", GetArchString(), -1);
}

}  // namespace SYLVAR
