// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Platform/Embedded/Attributes/Values/Shape.h"
#include "Platform/Support/Mutex.h"

#include <array>
#include <unordered_map>

namespace Sylvar3::internal::OvAttribute::Embedded {

/// The shapes of the process that groups share, found by the digest of their names. Holds no
/// reference: a shape leaves the table with its last group. Any thread.
class ShapeTable {
public:
    static ShapeTable& instance();

    /// The shape of these names, made when there is none, with one reference for the caller.
    const Shape* find(const NameList& names, const OvAttributeHash& digest);

    /// Drops a reference on a shape of the table. Only the last one takes a lock, so that nobody
    /// can find a shape that is about to go.
    void release(const Shape& shape) noexcept;

private:
    struct DigestHash {
        std::size_t operator()(const OvAttributeHash& digest) const { return digest.words[0]; }
    };
    struct DigestEqual {
        bool operator()(const OvAttributeHash& a, const OvAttributeHash& b) const {
            return a.words[0] == b.words[0] && a.words[1] == b.words[1];
        }
    };
    struct alignas(64) Shard {
        Support::Mutex mutex;
        std::unordered_map<OvAttributeHash, const Shape*, DigestHash, DigestEqual> shapes
            OV_GUARDED_BY(mutex);
    };

    Shard& shardOf(const OvAttributeHash& digest) { return shards_[digest.words[1] % kShards]; }

    static constexpr std::size_t kShards = 16;
    std::array<Shard, kShards> shards_;
};

}  // namespace Sylvar3::internal::OvAttribute::Embedded
