// SPDX-License-Identifier: Apache-2.0
#include "Utils/OvRenderOutputUtilsHost/TileTemplate.h"

#include <SylvarPlatform/PyString.h>

#include <utility>

namespace SYLVAR {
namespace {

/// The tokens in the order in which they are replaced.
constexpr std::pair<const char*, std::string TileName::*> kTokens[] = {
    {"@DEFAULT@", &TileName::usual},
    {"@COLUMNS@", &TileName::columns},
    {"@COLUMN@", &TileName::column},
    {"@ROWS@", &TileName::rows},
    {"@ROW@", &TileName::row},
    {"@STEM@", &TileName::stem},
    {"@EXT@", &TileName::extension},
};

std::string definition(const std::string& text) {
    return kTileTemplateKey + (" (defined as \"" + text + "\")");
}

}  // namespace

TileTemplate::TileTemplate(std::string text) : text_(std::move(text)) {}

bool TileTemplate::has(const char* token) const {
    return text_.find(token) != std::string::npos;
}

bool TileTemplate::isAcceptable() const {
    return (has("@COLUMN@") && has("@ROW@") && has("@STEM@") && has("@EXT@")) || has("@DEFAULT@");
}

bool TileTemplate::wantsCounts() const {
    return has("@COLUMNS@") || has("@ROWS@");
}

std::string TileTemplate::filledIn(const TileName& name) const {
    std::string result = text_;
    for (const auto& [token, value] : kTokens) {
        result = Sylvar3::internal::pystring_v1::replace(result, token, name.*value);
    }
    return result;
}

std::string TileTemplate::lackOfTokens() const {
    return definition(text_) + " should contain @COLUMN@, @ROW@, @STEM@ and @EXT@, or @DEFAULT@";
}

std::string TileTemplate::lackOfCounts() const {
    return definition(text_) + " is using @COLUMNS@ or @ROWS@, but tiles count is not available.";
}

}  // namespace SYLVAR
