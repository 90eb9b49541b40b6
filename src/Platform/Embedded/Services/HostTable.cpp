// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Services/HostTable.h"

#include <SylvarPlatform/Export.h>
#include <SylvarPlatform/PluginManager.h>
#include <SylvarPlatform/suites/AttributeSuite.h>

#include "Platform/Support/OnceBuilt.h"

#include <atomic>
#include <cstddef>

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

using OvPluginManager::HostServices;
using Support::MutexLock;

HostSuites::HostSuites() {
    add(OvGetAttributeSuite(), OV_ATTRIBUTE_SUITE_NAME, OV_ATTRIBUTE_SUITE_VERSION);
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

/// Each read by itself: a thread that calls while they are set may see some of the former ones.
std::atomic<decltype(HostServices::isLogEnabled)> isLogEnabledService{nullptr};
std::atomic<decltype(HostServices::log)> logService{nullptr};
std::atomic<decltype(HostServices::getConfiguration)> getConfigurationService{nullptr};

const void* findSuite(const char* name, std::uint32_t version) {
    return suites().find(name, version);
}

std::int32_t isLogEnabled(const char* logger, std::int32_t level) {
    const auto service = isLogEnabledService.load(std::memory_order_acquire);
    return logger && service ? service(logger, level) : 0;
}

void log(const char* logger,
         std::int32_t level,
         const char* message,
         const char* file,
         std::int32_t line) {
    const auto service = logService.load(std::memory_order_acquire);
    if (logger && message && service) {
        service(logger, level, message, file, line);
    }
}

std::int64_t getConfiguration(const char* key, char* buffer, std::size_t bufferSize) {
    const auto service = getConfigurationService.load(std::memory_order_acquire);
    return key && service ? service(key, buffer, bufferSize) : -1;
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

void Sylvar3::internal::OvPluginManager::setHostServices(const HostServices& services) {
    using namespace Sylvar3::internal::Embedded;  // NOLINT(google-build-using-namespace): its own.
    isLogEnabledService.store(services.isLogEnabled, std::memory_order_release);
    logService.store(services.log, std::memory_order_release);
    getConfigurationService.store(services.getConfiguration, std::memory_order_release);
}

extern "C" SYLVAR_PLATFORM_API const OvHostTable* OvGetHostTable() {
    return &Sylvar3::internal::Embedded::kTable;
}
