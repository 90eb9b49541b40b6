// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/OpTreeSource.h>

namespace SYLVAR {

/// A group with one child for each op. The child's name is the op's name within the group; the last
/// child is the op that a client looks at. Each child is a group:
///
/// - "opType" (string): the op's type; empty when missing;
/// - "opArgs" (group): its arguments; null when missing;
/// - "opInputs" (strings): the names of the ops that feed it, in order, from the sample nearest
///   time 0. A name that no child has stands for an input that is not there.
///
/// A wrong kind under any of these reads as a missing one. The hash is the first word of the
/// group's. Valid when the group is not null; otherwise "Invalid GroupAttribute provided.".
class OV_SYLVAR_PRODUCERS_API OpTreeAttributeSource final : public AbstractOpTreeSource {
public:
    const GroupAttribute attribute;

    explicit OpTreeAttributeSource(const GroupAttribute& itsAttribute);
    ~OpTreeAttributeSource() override;

    bool isValid(std::string* errorMessage) const override;

    /// Empty when the group is null or has no children, and when a child is no group; the ops of
    /// the children before that one stay in the transaction.
    std::shared_ptr<SylvarRuntime::Op> getOp(
        const std::shared_ptr<SylvarRuntime::Transaction>& transaction) const override;

    /// "GroupAttribute".
    std::string describe() const override;
};

}  // namespace SYLVAR
