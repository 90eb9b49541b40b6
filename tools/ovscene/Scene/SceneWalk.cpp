// SPDX-License-Identifier: Apache-2.0
#include "Scene/SceneWalk.h"

#include <SylvarPlatform/DelimiterCodec.h>

#include "ExitStatus.h"
#include "Print/NumberText.h"

#include <utility>

namespace ovscene {
namespace {

std::string pathComponent(const std::string& name) {
    const bool ambiguous = name.find('/') != std::string::npos;
    return "/" + (ambiguous ? Sylvar3::internal::OvAttribute::DelimiterEncode(name) : name);
}

std::vector<std::string> splitPath(const std::string& path) {
    std::size_t end = path.size();
    if (end > 1 && path.back() == '/') {
        --end;
    }
    std::vector<std::string> parts;
    std::size_t start = path.empty() || path.front() != '/' ? 0 : 1;
    while (start <= end) {
        const std::size_t slash = std::min(path.find('/', start), end);
        parts.push_back(path.substr(start, slash - start));
        start = slash + 1;
    }
    return parts;
}

[[noreturn]] void throwNotFound(const std::string& filename,
                                const std::string& path,
                                const std::string& reason) {
    throw CommandError(ExitStatus::NotFound, filename + ": no location " + path + "; " + reason);
}

std::string missingChild(const FoundLocation& nearest, const std::string& name) {
    const std::int64_t count = nearest.location->childCount();
    return nearest.parentPath + pathComponent(nearest.location->name()) + " has " +
           (count == 0 ? "no children"
                       : numberText(count) + (count == 1 ? " child, not '" : " children, none '") +
                             name + "'");
}

}  // namespace

FoundLocation findLocation(const SceneLocationPtr& top,
                           const std::string& path,
                           const std::string& filename) {
    const std::vector<std::string> parts = splitPath(path);
    if (parts.empty() || parts.front() != top->name()) {
        throwNotFound(filename, path, "the top location is /" + top->name());
    }
    FoundLocation found{top, ""};
    for (std::size_t i = 1; i < parts.size(); ++i) {
        SceneLocationPtr child = found.location->childNamed(parts[i]);
        if (!child) {
            throwNotFound(filename, path, missingChild(found, parts[i]));
        }
        found.parentPath += pathComponent(found.location->name());
        found.location = std::move(child);
    }
    return found;
}

SceneWalk::SceneWalk(SceneLocationPtr first,
                     std::string parentPath,
                     VisitLimit& limit,
                     std::size_t deepest)
    : parentPath_(std::move(parentPath)), limit_(limit), deepest_(deepest) {
    limit_.count();
    stack_.push_back({std::move(first), nullptr});
}

void SceneWalk::next() {
    SceneLocationPtr next = depth() < deepest_ ? location().childFrom(0) : nullptr;
    while (!next && !stack_.empty()) {
        next = std::move(stack_.back().next);
        stack_.pop_back();
    }
    if (next) {
        limit_.count();
        SceneLocationPtr after = next->nextSibling();
        stack_.push_back({std::move(next), std::move(after)});
    }
}

std::string SceneWalk::path() const {
    std::string path = parentPath_;
    for (const Level& level : stack_) {
        path += pathComponent(level.location->name());
    }
    return path;
}

}  // namespace ovscene
