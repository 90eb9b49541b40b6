// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/Export.h>

#include <string>

/// From identifiers of assets to paths of files.
namespace Sylvar3::OvAssetHost::v1 {

/// Finds what an asset identifier stands for. Called from any thread, by several at once.
class SYLVAR_PLATFORM_API AssetPlugin {
public:
    AssetPlugin() = default;
    virtual ~AssetPlugin();
    AssetPlugin(const AssetPlugin&) = delete;
    AssetPlugin& operator=(const AssetPlugin&) = delete;

    /// The path of the asset at that frame. May throw; the callers go on without. The flag is the
    /// plug-in's to interpret: true where the answer becomes a text for a procedural or a renderer,
    /// false where it replaces the value of an attribute.
    virtual std::string resolveAsset(const std::string& assetId, int frame, bool flag) = 0;
};

/// Which plug-in is asked. Any thread.
class SYLVAR_PLATFORM_API OvAssetPluginManager {
public:
    OvAssetPluginManager() = delete;

    /// The default plug-in; never null. Ours until another is set; it answers the same for either
    /// flag, and does two things.
    ///
    /// It fills in the frame: each run of two or more "#" becomes the frame with leading zeros, at
    /// least as wide as the run; "%d" becomes the frame, "%0Nd" (N from 1 to 99) the frame with
    /// leading zeros, N wide. A minus sign counts as one place. All else stays as it is: one "#",
    /// "%s", "%%".
    ///
    /// Then it looks for a relative identifier in the directories of the configuration key
    /// "SYLVAR_ASSET_PATH", which colons divide, in their order: the first directory in which it
    /// exists gives the answer, directory and identifier joined. Absolute ones, those that exist
    /// nowhere, and the empty one are the answer themselves.
    static AssetPlugin* getDefaultAssetPlugin();

    /// Makes another plug-in the default; null brings ours back. It is borrowed: since any thread
    /// may have just asked for it, it has to live as long as the process.
    static void setDefaultAssetPlugin(AssetPlugin* plugin);
};

}  // namespace Sylvar3::OvAssetHost::v1
