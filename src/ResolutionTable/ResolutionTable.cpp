// SPDX-License-Identifier: Apache-2.0
#include <ResolutionTableOv/ResolutionTable.h>

#include <stdexcept>
#include <utility>

namespace ORM_OV::ResolutionTable::v4 {

ResolutionTable::ResolutionTable(std::vector<Resolution> resolutions)
    : resolutions_(std::move(resolutions)) {
    for (std::size_t i = 0; i < resolutions_.size(); ++i) {
        places_.emplace(resolutions_[i].name, i);
    }
}

Resolution ResolutionTable::getResolution(const std::string& name) const {
    const auto found = places_.find(name);
    if (found == places_.end()) {
        throw std::out_of_range("The resolution table knows no \"" + name + "\".");
    }
    return resolutions_[found->second];
}

std::vector<std::string> ResolutionTable::getNames() const {
    std::vector<std::string> names;
    for (const Resolution& resolution : resolutions_) {
        names.push_back(resolution.name);
    }
    return names;
}

}  // namespace ORM_OV::ResolutionTable::v4
