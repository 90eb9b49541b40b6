// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Print/Output.h"
#include "Scene/SceneWalk.h"

#include <cstdint>
#include <string>

namespace ovscene {

/// The locations of a scene that have an "errorMessage", counted.
class SceneErrors {
public:
    /// Counts the location when it has one; gives what it says, otherwise an empty text.
    std::string look(const SceneWalk& walk);

    /// Counts so many errors, of which the first is told; its path may be empty, when it is not
    /// known. A `count` of 0 does nothing.
    void add(std::int64_t count, const std::string& path, const std::string& message);

    std::int64_t count() const { return count_; }

    /// Says so on the standard error stream when there are any, behind the output so far.
    void tell(const std::string& filename, Output& output) const;

private:
    std::int64_t count_ = 0;
    std::string firstPath_;
    std::string firstMessage_;
};

}  // namespace ovscene
