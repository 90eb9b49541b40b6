// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Utils/OvRenderOutputUtilsHost/TileName.h"

#include <string>

namespace SYLVAR {

/// The configuration key that a site sets to its own form of the names of tiles.
constexpr char kTileTemplateKey[] = "VARLIN_TILE_FILENAME";

/// A site's own form of the names of tiles: a text with tokens between two "@".
class TileTemplate {
public:
    explicit TileTemplate(std::string text);

    /// Whether its names tell tiles and images apart, so that no file is written over another.
    bool isAcceptable() const;

    /// Whether it has tokens for the numbers of columns and rows.
    bool wantsCounts() const;

    /// The text with one kind of token after the other replaced, those that came in with an earlier
    /// one too.
    std::string filledIn(const TileName& name) const;

    /// @name Warnings, to be logged
    /// @{
    std::string lackOfTokens() const;
    std::string lackOfCounts() const;
    /// @}

private:
    bool has(const char* token) const;

    std::string text_;
};

}  // namespace SYLVAR
