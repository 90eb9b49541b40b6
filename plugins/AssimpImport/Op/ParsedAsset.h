// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Attributes/SuiteHandle.h"
#include "ImportRequest.h"

#include <atomic>
#include <memory>
#include <mutex>
#include <string>

namespace AssimpImport {

/// An asset as a scene: parsed when it is first needed and once, for all who want it of the same
/// file with the same options and hold it. Any thread.
class ParsedAsset {
public:
    /// The text of a file as it is just now, and of its path.
    using IdentityOf = std::string (*)(const std::string& path);

    /// The one of that request, of the file as it is just now.
    static std::shared_ptr<ParsedAsset> find(const ImportRequest& request, IdentityOf identityOf);

    ParsedAsset(ImportRequest request, IdentityOf identityOf, std::string identity);
    ~ParsedAsset();
    ParsedAsset(const ParsedAsset&) = delete;
    ParsedAsset& operator=(const ParsedAsset&) = delete;

    /// The scene, borrowed. Parses it when nobody has done so; waits while another thread does.
    /// Throws `ImportError` with the file's name and the reason.
    OvAttributeStruct* scene();

    /// Whether another file has taken the place of the one that this is.
    bool hasChanged() const { return identityOf_(request_.filename) != identity_; }

private:
    void parse();

    const ImportRequest request_;
    const IdentityOf identityOf_;
    const std::string identity_;
    std::mutex parsing_;
    std::atomic<bool> isParsed_{false};
    SuiteHandle scene_;
    std::string fault_;
};

}  // namespace AssimpImport
