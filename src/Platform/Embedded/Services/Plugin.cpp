// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Services/Plugin.h"

#include "Platform/Embedded/Services/ForeignCall.h"

#include <cstddef>
#include <cstring>
#include <utility>

namespace Sylvar3::internal::Embedded {

static_assert(offsetof(OvPluginStruct, size) == 0 && offsetof(OvPluginStruct, version) == 4);
static_assert(offsetof(OvPluginStruct, name) == 8);
static_assert(offsetof(OvPluginStruct, apiVersion) == 8 + 2 * sizeof(void*));
static_assert(offsetof(OvPluginStruct, setHost) == 16 + 2 * sizeof(void*));
static_assert(sizeof(OvPluginStruct) == 16 + 5 * sizeof(void*));

namespace {

/// What is wrong with a name; empty when it is usable.
std::string faultOfName(const char* name, const char* what) {
    if (!name) {
        return std::string("has no ") + what;
    }
    const std::size_t length = strnlen(name, OV_PLUGIN_MAX_NAME + 1);
    if (length == 0) {
        return std::string("has an empty ") + what;
    }
    return length > OV_PLUGIN_MAX_NAME ? std::string("has a too long ") + what : std::string();
}

std::string faultOfForm(const OvPluginStruct& source) {
    if (source.size != sizeof(OvPluginStruct)) {
        return "claims a size of " + std::to_string(source.size) + " bytes instead of " +
               std::to_string(sizeof(OvPluginStruct));
    }
    if (source.version != OV_PLUGIN_VERSION) {
        return "has version " + std::to_string(source.version) + " instead of " +
               std::to_string(OV_PLUGIN_VERSION);
    }
    return faultOfName(source.name, "name");
}

std::string faultOfContent(const OvPluginStruct& source) {
    std::string fault = faultOfName(source.apiName, "API name");
    if (fault.empty() && source.apiVersion < 1) {
        fault = "has the API version " + std::to_string(source.apiVersion);
    }
    if (fault.empty() && !source.getSuite) {
        fault = "has no getSuite";
    }
    return fault;
}

}  // namespace

Plugin::Plugin(OvPluginStruct* handle, std::string file, std::string name, std::string apiName)
    : handle_(handle),
      file_(std::move(file)),
      name_(std::move(name)),
      apiName_(std::move(apiName)),
      entries_(*handle) {}

std::unique_ptr<Plugin> Plugin::read(OvPluginStruct* source,
                                     const std::string& file,
                                     std::string& name,
                                     std::string& fault) {
    if (!source) {
        fault = "is null";
        return nullptr;
    }
    fault = faultOfForm(*source);
    if (!fault.empty()) {
        return nullptr;
    }
    name = source->name;
    fault = faultOfContent(*source);
    if (!fault.empty()) {
        return nullptr;
    }
    return std::unique_ptr<Plugin>(new Plugin(source, file, name, source->apiName));
}

const void* Plugin::suite(const OvHostTable* host) {
    const bool asked = asked_.run([&] {
        askForSuite(host);
        return true;
    });
    return asked ? suite_ : nullptr;
}

void Plugin::askForSuite(const OvHostTable* host) {
    std::int32_t refused = 0;
    if (entries_.setHost) {
        suiteFault_ = faultOfCall("setHost", [&] { refused = entries_.setHost(host); });
    }
    if (refused != 0) {
        suiteFault_ = "refuses the host: setHost returns " + std::to_string(refused);
    }
    if (suiteFault_.empty()) {
        suiteFault_ = faultOfCall("getSuite", [&] { suite_ = entries_.getSuite(); });
    }
    if (suiteFault_.empty() && !suite_) {
        suiteFault_ = "getSuite returns null";
    }
}

std::string Plugin::suiteFault() const {
    return asked_.isDone() ? suiteFault_ : std::string();
}

void Plugin::flush() const {
    if (entries_.flush) {
        faultOfCall("flush", entries_.flush);
    }
}

}  // namespace Sylvar3::internal::Embedded
