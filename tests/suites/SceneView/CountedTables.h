// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/suites/ScenegraphIteratorSuite.h>
#include <SylvarPlatform/suites/AttributeSuite.h>

#include <cstddef>
#include <map>
#include <mutex>

namespace ovtest {

/// Who owes what for handles: each that was made has to be given back exactly once. Any thread.
class HandleLedger {
public:
    /// A handle came out of a table, with that many references for the caller. Null is nothing.
    void made(const void* handle, int references);
    void retained(const void* handle);
    void released(const void* handle);

    /// How many handles are owned or were dropped without a reference ever taken.
    std::size_t open();

    /// How often a handle was released that nobody owned.
    int excess();

    void clear();

private:
    std::mutex mutex_;
    std::map<const void*, int> owned_;
    int excess_ = 0;
};

/// The tables of the host with a ledger in front of each. Their entries may be replaced. One at a
/// time.
class CountedTables {
public:
    CountedTables(const OvScenegraphIteratorSuite& realScene, const OvAttributeSuite& realValues);

    static HandleLedger& locations();
    static HandleLedger& values();

    OvScenegraphIteratorSuite scene;
    OvAttributeSuite attributes;
};

}  // namespace ovtest
