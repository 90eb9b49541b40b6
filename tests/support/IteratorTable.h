// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/suites/Initialize.h>
#include <OvSylvarProducers/suites/ScenegraphIteratorSuite.h>

#include <cstdint>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace ovtest {

/// The scene tables, found as a plug-in finds them: by name and version, with a host that the
/// library was started for.
inline const OvScenegraphIteratorSuite& iteratorTable() {
    static const int result = OvSylvarProducersInitialize(OvGetHostTable());
    static const void* const table =
        result == OV_HOST_SUITE_REGISTERED
            ? OvGetHostTable()->findSuite(OV_SCENEGRAPH_ITERATOR_SUITE_NAME,
                                          OV_SCENEGRAPH_ITERATOR_SUITE_VERSION)
            : nullptr;
    return *static_cast<const OvScenegraphIteratorSuite*>(table);
}

inline const OvScenegraphIteratorSuite2& iteratorTable2() {
    iteratorTable();
    return *static_cast<const OvScenegraphIteratorSuite2*>(OvGetHostTable()->findSuite(
        OV_SCENEGRAPH_ITERATOR_SUITE_NAME, OV_SCENEGRAPH_ITERATOR_SUITE_VERSION_2));
}

/// An iterator's record begins with its count of references.
inline std::int32_t countOf(const OvSgIteratorStruct* iterator) {
    return *reinterpret_cast<const std::int32_t*>(iterator);
}

/// The iterators of a test, given back at its end. One thread at a time.
class Iterators {
public:
    using Handle = OvSgIteratorStruct*;

    Iterators() = default;
    ~Iterators() {
        for (Handle handle : held_) {
            table_.sgRelease(handle);
        }
    }
    Iterators(const Iterators&) = delete;
    Iterators& operator=(const Iterators&) = delete;

    /// One that comes with a reference.
    Handle root(Handle handle) {
        held_.push_back(handle);
        return handle;
    }

    /// One that comes with none.
    Handle step(Handle handle) {
        table_.sgRetain(handle);
        return root(handle);
    }

private:
    const OvScenegraphIteratorSuite& table_ = iteratorTable();
    std::vector<Handle> held_;
};

/// The strings of an attribute that the caller owns, which is given back; "(null)" for none.
inline std::vector<std::string> takeStrings(OvAttributeStruct* attribute) {
    const OvAttributeSuite& suite = *OvGetAttributeSuite();
    std::vector<std::string> all;
    if (!attribute) {
        return {"(null)"};
    }
    const char* value = nullptr;
    for (std::int64_t i = 0; suite.getNearestString(&attribute, i, 0.0F, &value) != 0; ++i) {
        all.emplace_back(value);
    }
    suite.release(attribute);
    return all;
}

/// The first of them.
inline std::string takeString(OvAttributeStruct* attribute) {
    const std::vector<std::string> all = takeStrings(attribute);
    return all.empty() ? "(none)" : all.front();
}

}  // namespace ovtest
