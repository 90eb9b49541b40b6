// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/Export.h>

#include <rapidjson/fwd.h>

#include <memory>
#include <string>

/// Records about what the process does, for those who run it. Needs the headers of RapidJSON.
namespace Sylvar3::OvRenderServices::v1 {

/// Takes records. Analytics are off until the host installs a manager.
class SYLVAR_PLATFORM_API AnalyticsManager {
public:
    using Value = rapidjson::GenericValue<rapidjson::UTF8<char>,
                                          rapidjson::MemoryPoolAllocator<rapidjson::CrtAllocator>>;

    AnalyticsManager() = default;
    virtual ~AnalyticsManager();
    AnalyticsManager(const AnalyticsManager&) = delete;
    AnalyticsManager& operator=(const AnalyticsManager&) = delete;

    /// Stores a record. The value, which may be a JSON null, is borrowed for the call: copy what
    /// you keep. Called from any thread, by several at once, and with locks of the caller held: it
    /// must neither throw nor make, or hand back, clients of the runtime.
    virtual void addRecord(const std::string& key, const Value& value) = 0;

    /// The manager of the process, borrowed; null when analytics are off. It is set before the
    /// first use of the library, by one thread, and what it points to lives as long as the process.
    static AnalyticsManager* g_instance;
};

/// What was made, or why nothing was.
struct AnalyticsResult {
    std::unique_ptr<AnalyticsManager> manager;  ///< Null when `error` is set.
    std::string error;                          ///< Names the file; empty on success.
};

/// A manager that adds a line {"time":...,"key":...,"value":...} to the end of a file for each
/// record, and has it written when `addRecord` returns. The time is in seconds since 1970, UTC. A
/// record that cannot be written, or that JSON cannot tell (a number that is not finite), is lost.
SYLVAR_PLATFORM_API AnalyticsResult makeJsonLinesAnalytics(const std::string& filename);

}  // namespace Sylvar3::OvRenderServices::v1
