// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Sylvar3::internal::Support {

/// One value of a small JSON text that a person may have written, with the place where it stands.
struct JsonNode {
    enum class Kind { Null, False, True, Number, String, Array, Object };

    Kind kind = Kind::Null;
    std::string name;     ///< As a member of an object.
    std::string text;     ///< Of a string its value, of a number its digits as they are written.
    std::size_t end = 0;  ///< Offset behind its last byte; of an array or object, behind its first.
    std::vector<JsonNode> children;

    /// The member of that name; null when there is none.
    const JsonNode* member(std::string_view wanted) const;
};

/// What was read, or why nothing was: "line 3, column 7: " and a sentence.
struct JsonRead {
    JsonNode root;
    std::string error;
};

/// Reads a text of at most 64 levels. Members of one name in an object are an error; comments are
/// allowed. Any thread.
JsonRead readJson(std::string_view text);

/// "line 3, column 7: " and `what`; the place is that of `node`'s first byte, the column counts
/// characters from 1.
std::string placedInJson(std::string_view text, const JsonNode& node, const std::string& what);

/// The content of a file, or the reason why there is none, which names the file.
struct FileText {
    std::string text;
    std::string error;
};
FileText readTextFile(const std::string& filename);

}  // namespace Sylvar3::internal::Support
