// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace ovscene {

/// One argument of an op type.
struct OpArgument {
    std::string name;
    std::string kind;
    bool isNeeded = false;
    std::string defaultText;  ///< "" for nothing, and for one that is needed.
    std::string about;
};

/// An op type as the runtime tells it. Texts may hold anything: plug-ins bring op types.
struct OpTypeDescription {
    /// `mostInputs` of a type that takes any number of inputs.
    static constexpr std::int64_t kAnyNumber = 2147483647;

    std::string name;
    std::string about;    ///< One line.
    std::string remarks;  ///< Paragraphs of Markdown, with empty lines between them; can be "".
    std::int64_t fewestInputs = 0;
    std::int64_t mostInputs = 0;
    std::vector<OpArgument> arguments;
};

/// All op types of a new runtime, by name; empty when the runtime does not tell them.
std::optional<std::vector<OpTypeDescription>> opTypes();

}  // namespace ovscene
