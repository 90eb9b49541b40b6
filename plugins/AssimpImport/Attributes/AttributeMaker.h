// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Attributes/SuiteHandle.h"

#include <cstdint>
#include <string>
#include <vector>

namespace AssimpImport {

/// The children of a group that is to be made, in order.
class GroupEntries {
public:
    /// A null value is left out.
    void add(std::string name, SuiteHandle value);

    bool empty() const noexcept { return names_.empty(); }
    std::size_t size() const noexcept { return names_.size(); }
    const std::vector<std::string>& names() const noexcept { return names_; }
    const std::vector<SuiteHandle>& values() const noexcept { return values_; }

private:
    std::vector<std::string> names_;
    std::vector<SuiteHandle> values_;
};

/// Makes attributes of one sample at time 0 through a suite, which must outlive what is made.
/// Throws `std::runtime_error` when the suite makes nothing.
class AttributeMaker {
public:
    explicit AttributeMaker(const OvAttributeSuite& suite) noexcept : suite_(&suite) {}

    SuiteHandle string(const std::string& value) const;
    SuiteHandle number(int value) const;
    SuiteHandle number(float value) const;
    SuiteHandle number(double value) const;
    SuiteHandle ints(const std::vector<std::int32_t>& values) const;
    SuiteHandle floats(const std::vector<float>& values, std::int64_t tupleSize) const;
    SuiteHandle doubles(const std::vector<double>& values, std::int64_t tupleSize) const;

    /// With group inherit off.
    SuiteHandle group(const GroupEntries& entries) const;

private:
    SuiteHandle made(OvAttributeStruct* owned) const;

    const OvAttributeSuite* suite_;
};

}  // namespace AssimpImport
