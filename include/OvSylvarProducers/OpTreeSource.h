// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/Export.h>
#include <SylvarPlatform/GroupAttribute.h>
#include <SylvarPlatform/SylvarRuntime.h>

#include <boost/smart_ptr/shared_ptr.hpp>

#include <cstdint>
#include <memory>
#include <string>
#include <utility>

namespace SYLVAR {

using Sylvar3::internal::OvAttribute::GroupAttribute;
using Sylvar3::internal::OvSylvar::SylvarRuntime;

/// Where an op tree comes from. Immutable, so any thread may call it without a lock.
class OV_SYLVAR_PRODUCERS_API AbstractOpTreeSource {
public:
    /// What sources are told apart by.
    const std::uint64_t hash;

    virtual ~AbstractOpTreeSource();
    AbstractOpTreeSource(const AbstractOpTreeSource&) = delete;
    AbstractOpTreeSource& operator=(const AbstractOpTreeSource&) = delete;

    /// Whether the source can be used at all. When it can't, the reason replaces what the string
    /// held; otherwise the string is left alone. It may be null.
    virtual bool isValid(std::string* errorMessage) const = 0;

    /// Builds the ops in the transaction, new ones each time, and gives the last one; commits
    /// nothing. Empty, or an op with a negative id, when there is no op tree to build.
    virtual std::shared_ptr<SylvarRuntime::Op> getOp(
        const std::shared_ptr<SylvarRuntime::Transaction>& transaction) const = 0;

    /// A few words for messages.
    virtual std::string describe() const = 0;

protected:
    explicit AbstractOpTreeSource(std::uint64_t itsHash) : hash(itsHash) {}
};

/// A handle on a source of an op tree, which copies of it share. Nothing is built, opened or tested
/// before a client is wanted.
///
/// Sources have an order, and those that are equivalent in it share clients: files of the same
/// name, and groups of the same content. A file that was edited is the same source still. Any
/// thread may use one; a handle, like a pointer, belongs to one thread at a time.
class OV_SYLVAR_PRODUCERS_API OpTreeSource {
public:
    /// Copied where others are moved, so that none is ever empty.
    OpTreeSource(const OpTreeSource&) = default;
    OpTreeSource& operator=(const OpTreeSource&) = default;
    ~OpTreeSource() = default;

    /// A file of serialised ops. The name is taken as it is.
    static OpTreeSource createFromFile(const std::string& filename);

    /// A group that spells the ops out, as `OpTreeAttributeSource` tells.
    static OpTreeSource createFromGroupAttribute(const GroupAttribute& attribute);

    /// By the hash alone: a file and a group whose hashes happen to be equal are equivalent.
    bool operator<(const OpTreeSource& other) const { return source_->hash < other.source_->hash; }

    /// The source behind the handle; never null.
    const boost::shared_ptr<const AbstractOpTreeSource>& source() const noexcept { return source_; }

private:
    explicit OpTreeSource(boost::shared_ptr<const AbstractOpTreeSource> source) noexcept
        : source_(std::move(source)) {}

    boost::shared_ptr<const AbstractOpTreeSource> source_;
};

}  // namespace SYLVAR
