// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace Sylvar3::internal::OvSylvar::Embedded {

/// Scenes that are mounted in a scene, each at a path; where their paths meet, a later one lies
/// over an earlier one. Immutable once it is complete; any thread.
class MountTable {
public:
    /// The scene mounted first.
    static constexpr std::size_t kNone = 0;

    /// Mounts one more scene at the path of a location. They are counted from 1.
    void mount(std::string_view path);

    /// What the table says of one path.
    struct Finding {
        /// The last scene that has the path, and the path in it: "" or "/name/name" below its top.
        std::size_t scene = kNone;
        std::string_view rest{};

        /// Names on the way to scenes that lie over that one.
        std::vector<std::string_view> names{};
    };

    Finding find(std::string_view path) const;

private:
    /// A name on the way to a scene.
    struct Point {
        std::map<std::string, std::uint32_t, std::less<>> next;
        std::size_t scene = kNone;  ///< The last one that is mounted here.
        std::size_t last = kNone;   ///< The last one that is mounted here or below.
    };

    std::vector<Point> points_{1};
};

}  // namespace Sylvar3::internal::OvSylvar::Embedded
