// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <unordered_set>

namespace AssimpImport {

/// `original` with "_" for each byte that a location's name cannot hold: '/', '.', '%', control
/// characters, and what is no UTF-8. `otherwise` when it is empty.
std::string safeName(const std::string& original, const std::string& otherwise = "unnamed");

/// The names of one location's children.
class SiblingNames {
public:
    /// `name`, or `name` with the first suffix "_2", "_3", ... that is free. All names together
    /// take linear time.
    std::string take(const std::string& name);

private:
    std::unordered_set<std::string> taken_;
    std::unordered_map<std::string, std::uint64_t> suffixes_;
};

}  // namespace AssimpImport
