// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/suites/AttributeSuite.h>

#include <utility>

namespace AssimpImport {

/// One reference to an attribute of a suite; null for the null attribute.
class SuiteHandle {
public:
    SuiteHandle() noexcept = default;

    /// Takes over the caller's reference.
    SuiteHandle(const OvAttributeSuite& suite, OvAttributeStruct* owned) noexcept
        : suite_(&suite), attribute_(owned) {}

    SuiteHandle(const SuiteHandle& other) : suite_(other.suite_), attribute_(other.attribute_) {
        if (attribute_) {
            suite_->retain(attribute_);
        }
    }

    SuiteHandle(SuiteHandle&& other) noexcept : suite_(other.suite_), attribute_(other.detach()) {}

    ~SuiteHandle() {
        if (attribute_) {
            suite_->release(attribute_);
        }
    }

    SuiteHandle& operator=(SuiteHandle other) noexcept {
        std::swap(suite_, other.suite_);
        std::swap(attribute_, other.attribute_);
        return *this;
    }

    explicit operator bool() const noexcept { return attribute_ != nullptr; }

    /// Borrowed.
    OvAttributeStruct* get() const noexcept { return attribute_; }

    /// Hands the reference over to the caller; this is null afterwards.
    OvAttributeStruct* detach() noexcept { return std::exchange(attribute_, nullptr); }

private:
    const OvAttributeSuite* suite_ = nullptr;
    OvAttributeStruct* attribute_ = nullptr;
};

}  // namespace AssimpImport
