// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/LocationDelegateCache.h>
#include <SylvarPlatform/DataAttribute.h>
#include <SylvarPlatform/PluginManager.h>

#include "plugins/LocationDelegate/fixtures/ScriptedDelegate.h"
#include "support/HeardLogs.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace delegates {

using Cache = SYLVAR::OvScenegraphLocationDelegateCache;
using Sylvar3::internal::OvAttribute::Attribute;
using Sylvar3::internal::OvAttribute::IntAttribute;
using Sylvar3::internal::OvAttribute::StringAttribute;
using Sylvar3::internal::OvPluginManager::PluginManager;

/// Delegates are asked once in a process, so each of these tests needs one of its own. In none of
/// them is anything logged.
///
/// In the folder "first" there are the delegates Delta, Echo, Foxtrot and Golf, in "second" there
/// is Alpha: that is their order where both are searched.
class DelegateTest : public testing::Test {
protected:
    void SetUp() override {
        static bool isUsed = false;
        if (std::exchange(isUsed, true)) {
            GTEST_SKIP() << "needs a process of its own";
        }
        OvLoggingHost::setLevel("", OvLoggingHost::LogLevel::Debug);
    }

    void TearDown() override {
        PluginManager::setSearchDirectories({});
        EXPECT_THAT(logs_.take(), testing::IsEmpty());
    }

    static void search(const std::vector<std::string>& folders) {
        std::vector<std::string> directories;
        for (const std::string& folder : folders) {
            directories.push_back(OV_TEST_FIXTURE_DIR "/" + folder);
        }
        PluginManager::setSearchDirectories(directories);
    }

    static const void* suiteOf(const std::string& name,
                               unsigned int version = OV_LOCATION_DELEGATE_API_VERSION) {
        return PluginManager::getPluginSuite(
            PluginManager::getPlugin(name, OV_LOCATION_DELEGATE_API_NAME, version));
    }

    static ScriptedDelegate& delegate(const std::string& name,
                                      unsigned int version = OV_LOCATION_DELEGATE_API_VERSION) {
        const void* const suite = suiteOf(name, version);
        if (!suite) {
            throw std::logic_error("there is no delegate " + name);
        }
        return *static_cast<ScriptedDelegate*>(const_cast<void*>(suite));
    }

    /// What a delegate answers: the types that it handles, and for whom; "" is for any renderer.
    ScriptedDelegate& script(const std::string& name,
                             const std::vector<std::string>& types,
                             const std::string& renderer = "") {
        return script(name,
                      StringAttribute(types),
                      renderer.empty() ? Attribute() : StringAttribute(renderer));
    }
    ScriptedDelegate& script(const std::string& name,
                             const Attribute& types,
                             const Attribute& renderer) {
        answers_.push_back(types);
        answers_.push_back(renderer);
        ScriptedDelegate& scripted = delegate(name);
        scripted.types = types.handle();
        scripted.renderer = renderer.handle();
        return scripted;
    }

    /// The name of the delegate of which the table is found; "" where none is.
    static std::string delegateFor(const std::string& type, const std::string& renderer = "") {
        const void* const table = Cache::getPluginSuite(type, renderer);
        std::vector<std::string> names;
        PluginManager::getPluginNames(
            OV_LOCATION_DELEGATE_API_NAME, names, OV_LOCATION_DELEGATE_API_VERSION);
        for (const std::string& name : names) {
            if (table && suiteOf(name) == table) {
                return name;
            }
        }
        return table ? "a stranger" : "";
    }

    static std::vector<std::string> typesFor(const std::string& renderer = "") {
        std::vector<std::string> types = {"what was there"};
        Cache::getLocationTypesWithDelegates(types, renderer);
        return types;
    }

private:
    ovtest::HeardLogs logs_;
    std::vector<Attribute> answers_;
};

}  // namespace delegates
