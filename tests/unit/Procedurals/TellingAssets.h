// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/AssetPlugin.h>

#include <functional>
#include <map>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace ovtest {

/// The default asset plug-in of a test: notes what it is asked as "a.exr 7 true", answers what it
/// is told or the identifier itself, and throws as it is told. Lives as long as the process, and is
/// the default until `leave`. For one thread.
class TellingAssets final : public Sylvar3::OvAssetHost::v1::AssetPlugin {
public:
    using Manager = Sylvar3::OvAssetHost::v1::OvAssetPluginManager;

    static TellingAssets& fresh() {
        static TellingAssets only;
        only.answers_.clear();
        only.failures_.clear();
        only.asked_.clear();
        Manager::setDefaultAssetPlugin(&only);
        return only;
    }
    static void leave() { Manager::setDefaultAssetPlugin(nullptr); }

    TellingAssets& answer(const std::string& assetId, const std::string& path) {
        answers_[assetId] = path;
        return *this;
    }

    /// `fail` must throw.
    TellingAssets& failFor(const std::string& assetId, std::function<void()> fail) {
        failures_[assetId] = std::move(fail);
        return *this;
    }
    TellingAssets& failFor(const std::string& assetId) {
        return failFor(assetId, [] { throw std::runtime_error("no such asset"); });
    }

    /// What it was asked since the last time.
    std::vector<std::string> take() { return std::exchange(asked_, {}); }

    std::string resolveAsset(const std::string& assetId, int frame, bool flag) override {
        asked_.push_back(assetId + " " + std::to_string(frame) + (flag ? " true" : " false"));
        if (const auto found = failures_.find(assetId); found != failures_.end()) {
            found->second();
        }
        const auto found = answers_.find(assetId);
        return found == answers_.end() ? assetId : found->second;
    }

private:
    std::map<std::string, std::string> answers_;
    std::map<std::string, std::function<void()>> failures_;
    std::vector<std::string> asked_;
};

}  // namespace ovtest
