// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/GeometryProducer.h>
#include <SylvarPlatform/GroupAttribute.h>

#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>

namespace ovbench {

using SYLVAR::GeometryProducer;
using SYLVAR::GeometryProducerPtr;
using SYLVAR::GroupAttribute;

/// The arguments of a generated scene of that many locations, each with 32 children.
GroupAttribute generated(std::int64_t locations, int seed);

/// An op tree of that one op.
GroupAttribute generatedTree(std::int64_t locations, int seed);

/// An op tree of that many ops, one on top of the other.
GroupAttribute chainOfOps(int count);

/// Tells the time for each location of a benchmark that walks so many of them.
void tellPerLocation(benchmark::State& state, std::int64_t locations);

/// What the runtime's store holds, divided by the locations.
double bytesPerLocation(GeometryProducer& location, std::int64_t locations);

/// A generated scene in a binary file of its own, as a static scene.
class StoredScene {
public:
    explicit StoredScene(std::int64_t locations);
    ~StoredScene();
    StoredScene(const StoredScene&) = delete;
    StoredScene& operator=(const StoredScene&) = delete;

    /// An op tree that loads the file.
    GroupAttribute opTree() const;

    /// Makes it another file, with the same content.
    void touch() const;

private:
    std::string filename_;
};

/// Walks all locations below one by the steps of producers, and calls `visit` for each of them.
/// Returns how many there are, with the first one.
template <class Visit>
std::int64_t walk(const GeometryProducerPtr& top, Visit visit) {
    std::int64_t count = 1;
    visit(*top);
    GeometryProducerPtr here = top;
    bool isDown = true;
    while (true) {
        GeometryProducerPtr next = isDown ? here->getFirstChild(false) : nullptr;
        while (!next) {
            if (here == top) {
                return count;
            }
            next = here->getNextSibling(false);
            if (!next) {
                here = here->parent;
            }
        }
        here = std::move(next);
        isDown = true;
        visit(*here);
        ++count;
    }
}

/// The same for every second child of the top, the first or the second one on.
template <class Visit>
std::int64_t walkHalf(const GeometryProducerPtr& top, int half, Visit visit) {
    std::int64_t count = 0;
    int place = 0;
    for (GeometryProducerPtr child = top->getFirstChild(false); child;
         child = child->getNextSibling(false)) {
        if (place++ % 2 == half) {
            count += walk(child, visit);
        }
    }
    return count;
}

}  // namespace ovbench
