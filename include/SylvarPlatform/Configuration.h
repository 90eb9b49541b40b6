// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/Export.h>

#include <memory>
#include <optional>
#include <string>

/// The settings of the process, by key. Keys are names like "VARLIN_TILE_FILENAME", values texts.
namespace Sylvar3::OvConfiguration::v1 {

/// A store of texts by key. Any thread may call anything at any time; each call sees the settings
/// as they stood at one moment.
class SYLVAR_PLATFORM_API Configuration {
public:
    Configuration();
    ~Configuration();
    Configuration(const Configuration&) = delete;
    Configuration& operator=(const Configuration&) = delete;

    /// Whether the key is set; a key that is set to "" is.
    bool has(const std::string& key) const;

    /// The value; "" when the key is not set.
    std::string get(const std::string& key) const;

    /// Both at once: the value, or nothing when the key is not set.
    std::optional<std::string> find(const std::string& key) const;

    /// Sets a value, over one that is there.
    void set(const std::string& key, const std::string& value);

    /// Takes a key out; nothing happens when it is not set.
    void unset(const std::string& key);

    /// Sets everything that a JSON file holds: one object, whose strings are values as they are;
    /// numbers are the text that the file shows, truth values "true" and "false". Keys of an object
    /// within an object are joined by dots: {"tiles": {"size": 64}} sets "tiles.size" to "64".
    /// Comments are allowed; null, arrays, empty names and a key that is there twice are not.
    ///
    /// Empty on success, otherwise what is wrong, with file, line and column, and then nothing of
    /// the file is set.
    std::string loadFile(const std::string& filename);

    /// Sets a value from a text NAME=VALUE, as a command line has it; the first "=" divides, and
    /// VALUE may be empty. Empty on success, otherwise what is wrong, and then nothing is set.
    std::string setFromArgument(const std::string& argument);

private:
    struct Settings;
    std::unique_ptr<Settings> settings_;
};

/// The store of the process; never null, and never destroyed. Any thread.
SYLVAR_PLATFORM_API Configuration* Config();

}  // namespace Sylvar3::OvConfiguration::v1
