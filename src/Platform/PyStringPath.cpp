// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/PyString.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <optional>
#include <pwd.h>

namespace Sylvar3::internal::pystring_v1 {
namespace {

constexpr auto kNone = std::string::npos;

class ProcessEnvironment final : public EnvironmentInterface {
public:
    bool get(const std::string& name, std::string& value) const override {
        if (name.find('=') != kNone || name.find('\0') != kNone) {
            return false;
        }
        const char* found = std::getenv(name.c_str());
        if (found) {
            value = found;
        }
        return found != nullptr;
    }
};

std::optional<std::string> homeOfUser(const std::string& user) {
    std::vector<char> room(1024);
    passwd entry{};
    passwd* found = nullptr;
    while (::getpwnam_r(user.c_str(), &entry, room.data(), room.size(), &found) == ERANGE) {
        room.resize(room.size() * 2);
    }
    return found && entry.pw_dir ? std::optional<std::string>(entry.pw_dir) : std::nullopt;
}

/// The home folder that `~` and a user's name stand for; the empty name is the process's own user.
std::optional<std::string> homeOf(const std::string& user) {
    if (!user.empty()) {
        return user.find('\0') == kNone ? homeOfUser(user) : std::nullopt;
    }
    const char* home = std::getenv("HOME");
    return home ? std::optional<std::string>(home) : std::nullopt;
}

bool isNameByte(char c) {
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_';
}

/// The end of the variable that begins at the dollar `at`; `at` itself when none does. `lastBrace`
/// is the place of the text's last "}", behind which none is looked for again and again.
std::size_t endOfVariable(const std::string& text, std::size_t at, std::size_t lastBrace) {
    if (text.compare(at + 1, 1, "{") == 0) {
        const bool isClosed = lastBrace != kNone && at < lastBrace;
        return isClosed ? text.find('}', at) + 1 : at;
    }
    std::size_t end = at + 1;
    while (end < text.size() && isNameByte(text[end])) {
        ++end;
    }
    return end == at + 1 ? at : end;
}

std::string nameOfVariable(const std::string& variable) {
    const bool braced = variable[1] == '{';
    return variable.substr(braced ? 2 : 1, variable.size() - (braced ? 3 : 1));
}

void appendValue(std::string& result,
                 const std::string& variable,
                 const EnvironmentInterface& environment) {
    std::string value;
    result += environment.get(nameOfVariable(variable), value) ? value : variable;
}

}  // namespace

EnvironmentInterface::~EnvironmentInterface() = default;

namespace os::path {

std::string expanduser(const std::string& path) {
    if (path.compare(0, 1, "~") != 0) {
        return path;
    }
    const std::size_t end = std::min(path.find('/'), path.size());
    const std::optional<std::string> home = homeOf(path.substr(1, end - 1));
    if (!home) {
        return path;
    }
    const std::size_t lastOfHome = home->find_last_not_of('/');
    const std::string expanded = home->substr(0, lastOfHome + 1) + path.substr(end);
    return expanded.empty() ? "/" : expanded;
}

std::string expandvars(const std::string& path, const EnvironmentInterface* environment) {
    const ProcessEnvironment ownEnvironment;
    const EnvironmentInterface& variables = environment ? *environment : ownEnvironment;
    const std::size_t lastBrace = path.rfind('}');
    std::string result;
    std::size_t done = 0;
    for (std::size_t at = path.find('$'); at != kNone; at = path.find('$', at)) {
        const std::size_t end = endOfVariable(path, at, lastBrace);
        if (end == at) {
            ++at;
            continue;
        }
        result.append(path, done, at - done);
        appendValue(result, path.substr(at, end - at), variables);
        done = at = end;
    }
    return result.append(path, done, kNone);
}

}  // namespace os::path

}  // namespace Sylvar3::internal::pystring_v1
