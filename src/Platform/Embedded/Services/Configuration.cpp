// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/Configuration.h>

#include "Platform/Support/JsonTree.h"
#include "Platform/Support/Mutex.h"
#include "Platform/Support/OnceBuilt.h"

#include <map>
#include <utility>

namespace Sylvar3::OvConfiguration::v1 {

namespace {

using internal::Support::JsonNode;
using internal::Support::MutexLock;

using Texts = std::map<std::string, std::string>;

/// Collects what a file sets; stops at the first fault.
class FileSettings {
public:
    explicit FileSettings(std::string_view text) : text_(text) {}

    Texts values;
    std::string fault;

    void collect(const JsonNode& object, const std::string& prefix) {
        for (const JsonNode& member : object.children) {
            const std::string key = prefix + member.name;
            if (member.name.empty()) {
                return fail(member, "A setting needs a name.");
            }
            switch (member.kind) {
                case JsonNode::Kind::Object:
                    collect(member, key + ".");
                    break;
                case JsonNode::Kind::Array:
                case JsonNode::Kind::Null:
                    fail(member, "A setting is a string, a number, true or false.");
                    break;
                case JsonNode::Kind::True:
                    add(member, key, "true");
                    break;
                case JsonNode::Kind::False:
                    add(member, key, "false");
                    break;
                default:
                    add(member, key, member.text);
            }
            if (!fault.empty()) {
                return;
            }
        }
    }

private:
    void add(const JsonNode& node, const std::string& key, const std::string& value) {
        if (!values.emplace(key, value).second) {
            fail(node, "\"" + key + "\" is set a second time.");
        }
    }

    void fail(const JsonNode& node, const std::string& what) {
        fault = internal::Support::placedInJson(text_, node, what);
    }

    std::string_view text_;
};

}  // namespace

struct Configuration::Settings {
    mutable internal::Support::Mutex mutex;
    Texts values OV_GUARDED_BY(mutex);
};

Configuration::Configuration() : settings_(std::make_unique<Settings>()) {}

Configuration::~Configuration() = default;

bool Configuration::has(const std::string& key) const {
    const MutexLock lock(settings_->mutex);
    return settings_->values.count(key) != 0;
}

std::string Configuration::get(const std::string& key) const {
    return find(key).value_or("");
}

std::optional<std::string> Configuration::find(const std::string& key) const {
    const MutexLock lock(settings_->mutex);
    const auto found = settings_->values.find(key);
    if (found == settings_->values.end()) {
        return std::nullopt;
    }
    return found->second;
}

void Configuration::set(const std::string& key, const std::string& value) {
    const MutexLock lock(settings_->mutex);
    settings_->values[key] = value;
}

void Configuration::unset(const std::string& key) {
    const MutexLock lock(settings_->mutex);
    settings_->values.erase(key);
}

std::string Configuration::loadFile(const std::string& filename) {
    const internal::Support::FileText file = internal::Support::readTextFile(filename);
    if (!file.error.empty()) {
        return file.error;
    }
    const std::string inFile = "\"" + filename + "\": ";
    const internal::Support::JsonRead read = internal::Support::readJson(file.text);
    if (!read.error.empty()) {
        return inFile + read.error;
    }
    if (read.root.kind != JsonNode::Kind::Object) {
        return inFile + internal::Support::placedInJson(
                            file.text, read.root, "The settings are one object: {...}.");
    }
    FileSettings fromFile(file.text);
    fromFile.collect(read.root, {});
    if (!fromFile.fault.empty()) {
        return inFile + fromFile.fault;
    }
    const MutexLock lock(settings_->mutex);
    fromFile.values.merge(settings_->values);
    settings_->values.swap(fromFile.values);
    return {};
}

std::string Configuration::setFromArgument(const std::string& argument) {
    const std::size_t equals = argument.find('=');
    if (equals == std::string::npos || equals == 0) {
        return "\"" + argument + "\" is no setting; NAME=VALUE is expected.";
    }
    set(argument.substr(0, equals), argument.substr(equals + 1));
    return {};
}

Configuration* Config() {
    static internal::Support::OnceBuilt<std::unique_ptr<Configuration>> store;
    return store.get([] { return std::make_unique<Configuration>(); }).get();
}

}  // namespace Sylvar3::OvConfiguration::v1
