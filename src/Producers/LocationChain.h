// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/GeometryProducer.h>

#include <cstddef>
#include <string>

namespace SYLVAR {

/// Whether a path can be that of a location: it begins with "/".
inline bool isLocationPath(const std::string& path) {
    return !path.empty() && path.front() == '/';
}

/// Makes the producer of a location path and, before it, those of all levels above, from the top
/// down: `make(levelPath, levelParent)` gives one, or null, which ends it. A loop, since a path can
/// have more levels than a stack has room for.
template <class Make>
GeometryProducerPtr makeChain(const std::string& path, Make make) {
    GeometryProducerPtr last;
    std::size_t end = 0;
    do {
        end = path.find('/', end + 1);
        last = make(path.substr(0, end), last);
    } while (last && end != std::string::npos);
    return last;
}

}  // namespace SYLVAR
