// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/GroupAttribute.h>

#include "Platform/Support/ThreadAnnotations.h"

#include <boost/thread/mutex.hpp>

#include <map>
#include <optional>
#include <string>

namespace SYLVAR {

/// Materials by the paths of locations, as many as are asked for. Nothing runs while it is locked.
/// Throws `boost::lock_error` when it cannot be. Any thread.
class FlattenedMaterialCache {
public:
    using GroupAttribute = Sylvar3::internal::OvAttribute::GroupAttribute;

    /// What is remembered, which may be null; nothing when nothing is.
    std::optional<GroupAttribute> find(const std::string& path);

    /// In place of what is remembered already.
    void remember(std::string path, const GroupAttribute& material);

    void empty();

private:
    /// The compiler checks it as it does the mutex of the standard library.
    class OV_CAPABILITY("mutex") CheckedMutex : public boost::mutex {
    public:
        void lock() OV_ACQUIRE() { boost::mutex::lock(); }
        void unlock() OV_RELEASE() { boost::mutex::unlock(); }
    };
    class Lock;

    CheckedMutex mutex_;
    std::map<std::string, GroupAttribute> materials_ OV_GUARDED_BY(mutex_);
};

/// The cache of the process. Throws `boost::thread_resource_error` when it cannot be made, and
/// tries again at the next call.
FlattenedMaterialCache& flattenedMaterialCache();

}  // namespace SYLVAR
