// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/RenderOutputUtilsHost.h>
#include <SylvarPlatform/Configuration.h>

#include "Platform/Support/Log.h"
#include "Utils/OvRenderOutputUtilsHost/ImagePath.h"
#include "Utils/OvRenderOutputUtilsHost/RenderOutputLogger.h"
#include "Utils/OvRenderOutputUtilsHost/TileName.h"
#include "Utils/OvRenderOutputUtilsHost/TileTemplate.h"

#include <optional>
#include <utility>

namespace SYLVAR::RenderOutputUtilsHost {
namespace {

/// The template of the site when it is set and of use.
std::optional<TileTemplate> siteTemplate() {
    using Sylvar3::OvConfiguration::v1::Config;
    std::optional<std::string> text = Config()->find(kTileTemplateKey);
    if (!text) {
        return std::nullopt;
    }
    TileTemplate site(*std::move(text));
    if (!site.isAcceptable()) {
        OV_LOG(renderOutputLogger(), warn, site.lackOfTokens());
        return std::nullopt;
    }
    return site;
}

std::string fileName(const TileName& name) {
    const std::optional<TileTemplate> site = siteTemplate();
    if (!site) {
        return name.usual;
    }
    if (!name.isCountKnown && site->wantsCounts()) {
        OV_LOG(renderOutputLogger(), warn, site->lackOfCounts());
    }
    return site->filledIn(name);
}

}  // namespace

std::string ProcessTilePath(const std::string& path, const std::vector<int>& tile) {
    if (tile.size() < 2) {
        OV_LOG(renderOutputLogger(),
               error,
               "Invalid tile data size. Expected at least two elements (column and row).");
        return path;
    }
    const ImagePath image = dividedPath(path);
    const boost::filesystem::path file = fileName(TileName(image, tile));
    return (file.has_root_directory() ? file : image.directory / file).string();
}

}  // namespace SYLVAR::RenderOutputUtilsHost
