// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/SylvarServices.h>

#include "support/IteratorTable.h"
#include "support/RuntimeTest.h"

#include <cstdlib>
#include <memory>
#include <string>

namespace ovtest {

/// A test of the scene table over the fake runtime.
class IteratorTest : public RuntimeTest {
protected:
    using Handle = OvSgIteratorStruct*;

    IteratorTest() {
        ::unsetenv(kConcurrent);
        fake.at("/root", {"a", "b", "gone", "c"})
            .at("/root/a", {"x"})
            .at("/root/a/x")
            .at("/root/b")
            .at("/root/c");
    }
    ~IteratorTest() override {
        ::unsetenv(kConcurrent);
        Sylvar3::OvSylvarServicesHost::v1::RegisterRuntimeInstance({}, "renderRuntime");
    }

    Handle openTree() { return iterators.root(table.sgCreateRootFromAttr(freshTree().handle())); }
    Handle openFile(const std::string& name) {
        return iterators.root(table.sgCreateRootFromFile(name.c_str()));
    }
    Handle step(Handle handle) { return iterators.step(handle); }
    std::string pathOf(Handle handle) const { return takeString(table.sgGetFullName(handle)); }

    /// What is published for renders with one client; null when nothing is.
    static std::shared_ptr<Sylvar3::internal::OvSylvar::SylvarRuntime> renderRuntime() {
        return Sylvar3::OvSylvarServicesHost::v1::GetRuntimeInstance("renderRuntime");
    }

    static constexpr const char* kConcurrent = "RUNTIME_USE_CONCURRENT";

    const OvScenegraphIteratorSuite& table = iteratorTable();
    Iterators iterators;
};

}  // namespace ovtest
