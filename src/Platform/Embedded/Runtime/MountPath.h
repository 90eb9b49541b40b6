// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

namespace Sylvar3::internal::OvSylvar::Embedded {

/// Whether a text is the path of a location: "/" and a name, once or more often.
inline bool isLocationPath(std::string_view path) {
    return path.size() > 1 && path.front() == '/' && path.back() != '/' &&
           path.find("//") == std::string_view::npos;
}

/// The location at which an op's scene begins, and how a path lies to it.
class MountPath {
public:
    /// The path of a location (`isLocationPath`).
    explicit MountPath(std::string path) : path_(std::move(path)) {}

    enum class Place {
        Above,   ///< On the way to it.
        Inside,  ///< It, or below it.
        Beside
    };

    Place placeOf(std::string_view path) const {
        const std::string_view own = path_;
        if (path.size() >= own.size()) {
            const bool isInside = path.substr(0, own.size()) == own &&
                                  (path.size() == own.size() || path[own.size()] == '/');
            return isInside ? Place::Inside : Place::Beside;
        }
        const bool isAbove = own.substr(0, path.size()) == path && own[path.size()] == '/';
        return isAbove ? Place::Above : Place::Beside;
    }

    /// The name by which the way goes on from a path above.
    std::string_view nextName(std::string_view above) const {
        const std::string_view rest = std::string_view(path_).substr(above.size() + 1);
        return rest.substr(0, rest.find('/'));
    }

    /// What is left of a path inside: "" or "/name/name".
    std::string_view rest(std::string_view inside) const { return inside.substr(path_.size()); }

    const std::string& path() const { return path_; }

private:
    std::string path_;
};

}  // namespace Sylvar3::internal::OvSylvar::Embedded
