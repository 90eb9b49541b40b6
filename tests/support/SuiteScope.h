// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/GroupBuilder.h>

namespace ovtest {

/// Puts another table behind the wrappers for as long as it lives; the old one comes back after.
class SuiteScope {
public:
    using Attribute = Sylvar3::internal::OvAttribute::Attribute;
    using GroupBuilder = Sylvar3::internal::OvAttribute::GroupBuilder;

    explicit SuiteScope(const OvAttributeSuite& table) {
        Attribute::_attrSuite = &table;
        GroupBuilder::_attrSuite = &table;
    }
    ~SuiteScope() {
        Attribute::_attrSuite = OvGetAttributeSuite();
        GroupBuilder::_attrSuite = OvGetAttributeSuite();
    }
    SuiteScope(const SuiteScope&) = delete;
    SuiteScope& operator=(const SuiteScope&) = delete;
};

}  // namespace ovtest
