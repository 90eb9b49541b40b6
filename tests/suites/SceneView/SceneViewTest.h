// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/suites/Initialize.h>
#include <OvSylvarProducers/suites/Scene.hpp>
#include <SylvarPlatform/suites/HostTable.h>

#include "suites/SceneView/CountedTables.h"
#include "support/RuntimeTest.h"

#include <cstdint>
#include <string>

namespace ovtest {

/// A scene of the fake runtime, seen through the view alone. In the end every handle was given back
/// exactly once.
class SceneViewTest : public RuntimeTest {
protected:
    using Error = SYLVAR::Suites::Error;
    using Evict = SYLVAR::Suites::Evict;
    using Kind = SYLVAR::Suites::Kind;
    using Location = SYLVAR::Suites::Location;
    using Scene = SYLVAR::Suites::Scene;
    using Value = SYLVAR::Suites::Attribute;
    template <class T>
    using Expected = SYLVAR::Suites::Expected<T>;

    ~SceneViewTest() override {
        EXPECT_EQ(0U, CountedTables::locations().open());
        EXPECT_EQ(0U, CountedTables::values().open());
        EXPECT_EQ(0, CountedTables::locations().excess());
        EXPECT_EQ(0, CountedTables::values().excess());
    }

    static const OvHostTable& host() {
        static const OvHostTable* const table = [] {
            const OvHostTable* const hosts = OvGetHostTable();
            EXPECT_EQ(0, OvSylvarProducersInitialize(hosts));
            return hosts;
        }();
        return *table;
    }

    static const OvScenegraphIteratorSuite& hostScene() {
        return *static_cast<const OvScenegraphIteratorSuite*>(host().findSuite(
            OV_SCENEGRAPH_ITERATOR_SUITE_NAME, OV_SCENEGRAPH_ITERATOR_SUITE_VERSION));
    }

    /// The root of what was told to the fake runtime.
    Location open() const {
        Expected<Location> root = scene.openOpTree(freshTree().handle());
        EXPECT_TRUE(root);
        return root ? *std::move(root) : Location();
    }

    /// The references of a handle, which stand first in it.
    static std::int32_t countOf(const OvSgIteratorStruct* handle) {
        return *reinterpret_cast<const std::int32_t*>(handle);
    }
    static std::int32_t countOf(const Location& location) { return countOf(location.handle()); }

    /// Where a step led: the path, "absent" or "error: " and what it says.
    static std::string told(const Expected<Location>& step) {
        if (!step) {
            return "error: " + step.error().message();
        }
        return *step ? step->fullName() : "absent";
    }

    CountedTables tables{hostScene(), *OvGetAttributeSuite()};
    const Scene scene{tables.scene, tables.attributes};
};

}  // namespace ovtest
