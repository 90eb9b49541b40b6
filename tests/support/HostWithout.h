// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/suites/HostTable.h>

#include <string>

namespace ovtest {

/// The platform's host without the suite of that name. There is one such host, so it lacks what it
/// was last asked for without.
inline const OvHostTable& hostWithout(const std::string& suite) {
    static std::string missing;
    static OvHostTable table;
    missing = suite;
    table = *OvGetHostTable();
    table.findSuite = [](const char* name, std::uint32_t version) -> const void* {
        return name == missing ? nullptr : OvGetHostTable()->findSuite(name, version);
    };
    return table;
}

}  // namespace ovtest
