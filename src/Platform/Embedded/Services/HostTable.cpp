// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Services/HostTable.h"

#include <SylvarPlatform/Configuration.h>
#include <SylvarPlatform/Export.h>
#include <SylvarPlatform/suites/AttributeSuite.h>

#include "Platform/Embedded/Ops/Plugin/OpHost.h"
#include "Platform/Embedded/Services/LoggerRecord.h"
#include "Platform/Support/OnceBuilt.h"

#include <algorithm>
#include <cstddef>
#include <optional>

namespace Sylvar3::internal::Embedded {

static_assert(offsetof(OvHostTable, size) == 0 * sizeof(void*));
static_assert(offsetof(OvHostTable, version) == 1 * sizeof(void*));
static_assert(offsetof(OvHostTable, findSuite) == 2 * sizeof(void*));
static_assert(offsetof(OvHostTable, isLogEnabled) == 3 * sizeof(void*));
static_assert(offsetof(OvHostTable, log) == 4 * sizeof(void*));
static_assert(offsetof(OvHostTable, getConfiguration) == 5 * sizeof(void*));
static_assert(offsetof(OvHostTable, reserved6) == 6 * sizeof(void*));
static_assert(offsetof(OvHostTable, registerHostSuite) == 10 * sizeof(void*));
static_assert(sizeof(OvHostTable) == 11 * sizeof(void*));

using OvConfiguration::v1::Config;
using OvLoggingHost::LogLevel;
using OvLoggingHost::Embedded::isEnabledByName;
using OvLoggingHost::Embedded::logByName;
using Support::MutexLock;

HostSuites::HostSuites() {
    add(OvGetAttributeSuite(), OV_ATTRIBUTE_SUITE_NAME, OV_ATTRIBUTE_SUITE_VERSION);
    add(OvSylvar::Embedded::opHost(), OV_OP_HOST_SUITE_NAME, OV_OP_HOST_SUITE_VERSION);
}

const void* HostSuites::find(const char* name, std::uint32_t version) const {
    if (!name) {
        return nullptr;
    }
    MutexLock lock(mutex_);
    const auto found = suites_.find({name, version});
    return found == suites_.end() ? nullptr : found->second;
}

int HostSuites::add(const void* suite, const char* name, std::uint32_t version) {
    if (!suite || !name || !*name) {
        return OV_HOST_SUITE_INVALID;
    }
    MutexLock lock(mutex_);
    const auto place = suites_.emplace(std::make_pair(std::string(name), version), suite).first;
    return place->second == suite ? OV_HOST_SUITE_REGISTERED : OV_HOST_SUITE_TAKEN;
}

namespace {

HostSuites& suites() {
    static Support::OnceBuilt<HostSuites> state;
    return state.get();
}

const void* findSuite(const char* name, std::uint32_t version) {
    return suites().find(name, version);
}

static_assert(static_cast<int>(LogLevel::Debug) == OV_LOG_DEBUG);
static_assert(static_cast<int>(LogLevel::Info) == OV_LOG_INFO);
static_assert(static_cast<int>(LogLevel::Warn) == OV_LOG_WARN);
static_assert(static_cast<int>(LogLevel::Error) == OV_LOG_ERROR);

LogLevel nearestLevel(std::int32_t level) {
    return static_cast<LogLevel>(std::clamp<std::int32_t>(level, OV_LOG_DEBUG, OV_LOG_ERROR));
}

std::int32_t isLogEnabled(const char* logger, std::int32_t level) {
    return logger && isEnabledByName(logger, nearestLevel(level)) ? 1 : 0;
}

void log(const char* logger,
         std::int32_t level,
         const char* message,
         const char* file,
         std::int32_t line) {
    if (logger && message) {
        logByName(logger, nearestLevel(level), message, file, line);
    }
}

std::int64_t getConfiguration(const char* key, char* buffer, std::size_t bufferSize) {
    const std::optional<std::string> value = key ? Config()->find(key) : std::nullopt;
    if (!value) {
        return -1;
    }
    if (buffer && bufferSize > 0) {
        buffer[value->copy(buffer, bufferSize - 1)] = '\0';
    }
    return static_cast<std::int64_t>(value->size());
}

int registerHostSuite(const void* suite, const char* name, std::uint32_t version) {
    return suites().add(suite, name, version);
}

constexpr OvHostTable kTable = {sizeof(OvHostTable),
                                OV_HOST_TABLE_VERSION,
                                findSuite,
                                isLogEnabled,
                                log,
                                getConfiguration,
                                nullptr,
                                nullptr,
                                nullptr,
                                nullptr,
                                registerHostSuite};

}  // namespace
}  // namespace Sylvar3::internal::Embedded

extern "C" SYLVAR_PLATFORM_API const OvHostTable* OvGetHostTable() {
    return &Sylvar3::internal::Embedded::kTable;
}
