// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace SYLVAR {

/// The components of a path, one after the other, without its leading slashes. There is always a
/// first one, if only the empty one; two slashes in a row have an empty one between them.
class PathParts {
public:
    explicit PathParts(std::string_view path)
        : rest_(path.substr(std::min(path.find_first_not_of('/'), path.size()))) {}

    /// The next component, which must be there; borrowed until the next call.
    const std::string& next() {
        const auto slash = rest_.find('/');
        part_ = rest_.substr(0, slash);
        atEnd_ = slash == std::string_view::npos;
        rest_.remove_prefix(atEnd_ ? rest_.size() : slash + 1);
        return part_;
    }

    bool atEnd() const { return atEnd_; }

private:
    std::string_view rest_;
    std::string part_;
    bool atEnd_ = false;
};

/// The text behind the last "/"; empty when there is none.
inline std::string lastPathPart(const std::string& path) {
    const auto slash = path.rfind('/');
    return slash == std::string::npos ? std::string() : path.substr(slash + 1);
}

}  // namespace SYLVAR
