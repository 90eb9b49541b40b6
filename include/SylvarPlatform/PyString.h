// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/Export.h>

#include <string>
#include <vector>

/// String functions with the meaning of Python's of the same names. Negative indices count from the
/// end, and results that would run past the end are cut. White space is that of the C locale,
/// whatever locale the process has set. All are pure and may run on any thread.
namespace Sylvar3::internal::pystring_v1 {

/// Whether `text`, cut to `start` .. `end`, begins with `prefix`.
SYLVAR_PLATFORM_API bool startswith(const std::string& text,
                                    const std::string& prefix,
                                    int start = 0,
                                    int end = 0x7fffffff);

/// The last position of `wanted` that lies wholly in `start` .. `end`, or -1.
SYLVAR_PLATFORM_API int rfind(const std::string& text,
                              const std::string& wanted,
                              int start = 0,
                              int end = 0x7fffffff);

SYLVAR_PLATFORM_API std::string slice(const std::string& text, int start = 0, int end = 0x7fffffff);

/// Replaces `result` by the pieces of `text` between the separators, after at most `maxSplits`
/// splits (-1: all); the last piece is the rest. An empty separator splits at white space, and
/// then no piece is empty.
SYLVAR_PLATFORM_API void split(const std::string& text,
                               std::vector<std::string>& result,
                               const std::string& separator = std::string(),
                               int maxSplits = -1);

/// `text` without the leading (and, for `strip`, trailing) bytes that are in `characters`. Empty
/// `characters` mean white space.
SYLVAR_PLATFORM_API std::string strip(const std::string& text,
                                      const std::string& characters = std::string());
SYLVAR_PLATFORM_API std::string lstrip(const std::string& text,
                                       const std::string& characters = std::string());

/// `text` with the first `count` occurrences of `oldText` replaced (-1: all).
SYLVAR_PLATFORM_API std::string replace(const std::string& text,
                                        const std::string& oldText,
                                        const std::string& newText,
                                        int count = -1);

/// Where `expandvars` looks variables up.
class SYLVAR_PLATFORM_API EnvironmentInterface {
public:
    EnvironmentInterface() = default;
    virtual ~EnvironmentInterface();
    EnvironmentInterface(const EnvironmentInterface&) = delete;
    EnvironmentInterface& operator=(const EnvironmentInterface&) = delete;

    /// Fills `value` and returns true when the variable is set.
    virtual bool get(const std::string& name, std::string& value) const = 0;
};

namespace os::path {

/// Expands a leading `~` or `~user`, by HOME and by the user database. With an unset HOME or an
/// unknown user the path stands as it is.
SYLVAR_PLATFORM_API std::string expanduser(const std::string& path);

/// Expands `$name` and `${name}`; an unknown variable stands as it is. A null environment means
/// the process's own.
SYLVAR_PLATFORM_API std::string expandvars(const std::string& path,
                                           const EnvironmentInterface* environment = nullptr);

}  // namespace os::path

}  // namespace Sylvar3::internal::pystring_v1
