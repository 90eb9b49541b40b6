// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdlib>
#include <optional>
#include <string>

namespace ovtest {

/// Sets or takes away a variable of the process for as long as it lives.
class EnvironmentVariable {
public:
    EnvironmentVariable(const char* name, const std::optional<std::string>& value) : name_(name) {
        const char* const before = std::getenv(name);
        before_ = before ? std::optional<std::string>(before) : std::nullopt;
        put(value);
    }
    ~EnvironmentVariable() { put(before_); }
    EnvironmentVariable(const EnvironmentVariable&) = delete;
    EnvironmentVariable& operator=(const EnvironmentVariable&) = delete;

private:
    void put(const std::optional<std::string>& value) {
        if (value) {
            ::setenv(name_, value->c_str(), 1);
        } else {
            ::unsetenv(name_);
        }
    }

    const char* const name_;
    std::optional<std::string> before_;
};

}  // namespace ovtest
