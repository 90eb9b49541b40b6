// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Ops/Locations/MountTable.h"

#include <algorithm>

namespace Sylvar3::internal::OvSylvar::Embedded {

void MountTable::mount(std::string_view path) {
    const std::size_t scene = points_.front().last + 1;
    std::uint32_t point = 0;
    for (std::size_t begin = 1; begin <= path.size();) {
        points_[point].last = scene;
        const std::size_t end = std::min(path.find('/', begin), path.size());
        const auto [next, isNew] =
            points_[point].next.try_emplace(std::string(path.substr(begin, end - begin)),
                                            static_cast<std::uint32_t>(points_.size()));
        point = next->second;
        if (isNew) {
            points_.emplace_back();
        }
        begin = end + 1;
    }
    points_[point].last = scene;
    points_[point].scene = scene;
}

MountTable::Finding MountTable::find(std::string_view path) const {
    Finding finding;
    const Point* point = &points_.front();
    for (std::size_t begin = 1; point && begin <= path.size();) {
        const std::size_t end = std::min(path.find('/', begin), path.size());
        const auto next = point->next.find(path.substr(begin, end - begin));
        point = next == point->next.end() ? nullptr : &points_[next->second];
        if (point && point->scene > finding.scene) {
            finding.scene = point->scene;
            finding.rest = path.substr(end);
        }
        begin = end + 1;
    }
    if (point) {
        for (const auto& [name, next] : point->next) {
            if (points_[next].last > finding.scene) {
                finding.names.emplace_back(name);
            }
        }
    }
    return finding;
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
