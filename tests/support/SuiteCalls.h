// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "support/SuiteScope.h"

#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace ovtest {

/// One call that reached the table, and the handle (of a sample table: its address) it was for.
struct SuiteCall {
    std::string operation;
    const void* subject;

    friend bool operator==(const SuiteCall& a, const SuiteCall& b) {
        return a.operation == b.operation && a.subject == b.subject;
    }
    friend std::ostream& operator<<(std::ostream& out, const SuiteCall& call) {
        return out << call.operation << " " << call.subject;
    }
};

/// Notes the calls of the operations below, and passes them on to the real table. One at a time.
class SuiteCalls {
public:
    SuiteCalls() : scope_(table()) { noted().clear(); }

    /// What was noted since the last time.
    std::vector<SuiteCall> take() { return std::exchange(noted(), {}); }

private:
    static std::vector<SuiteCall>& noted() {
        static std::vector<SuiteCall> calls;
        return calls;
    }

    static void note(const char* operation, const void* subject) {
        noted().push_back({operation, subject});
    }

    static const OvAttributeSuite& real() { return *OvGetAttributeSuite(); }

    static const OvAttributeSuite& table() {
        static const OvAttributeSuite listening = made();
        return listening;
    }

    static OvAttributeSuite made() {
        OvAttributeSuite suite = real();
        suite.getType = [](OvAttributeStruct* handle) {
            note("getType", handle);
            return real().getType(handle);
        };
        suite.retain = [](OvAttributeStruct* handle) {
            note("retain", handle);
            real().retain(handle);
        };
        suite.release = [](OvAttributeStruct* handle) {
            note("release", handle);
            real().release(handle);
        };
        suite.acquireSamples = [](OvAttributeStruct* handle,
                                  std::int32_t wanted,
                                  std::int32_t isInline,
                                  OvSampleTableBuffer* buffer) {
            note("acquireSamples", handle);
            return real().acquireSamples(handle, wanted, isInline, buffer);
        };
        suite.disposeSamples = [](OvSampleTable* samples) {
            note("disposeSamples", samples);
            real().disposeSamples(samples);
        };
        return suite;
    }

    SuiteScope scope_;
};

}  // namespace ovtest
