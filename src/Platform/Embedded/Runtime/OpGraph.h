// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/GroupAttribute.h>

#include "Platform/Embedded/Runtime/InternedOp.h"

#include <cstddef>
#include <functional>
#include <limits>
#include <memory>
#include <string>
#include <vector>

namespace Sylvar3::internal::OvSylvar::Embedded {

/// An op as a transaction or a file has it.
struct OpSpec {
    /// An input that is not there.
    static constexpr std::size_t kNoInput = std::numeric_limits<std::size_t>::max();

    std::string name;  ///< As the op tree calls it; can be empty.
    std::string type;
    OvAttribute::GroupAttribute arguments;
    std::vector<std::size_t> inputs;  ///< Places in the list of ops, or `kNoInput`.
    std::string fault{};              ///< What is wrong with it as it stands; empty for nothing.
};

/// Interns the ops, and returns one for each spec. `origin` is the file that they come from, for
/// messages; empty for a transaction.
///
/// An op with an empty type, or that is not enabled, is its first input. An input that is not there
/// is an empty scene, with a warning. An op of an unknown type, with wrong arguments or a fault, or
/// that is an input of itself, passes its first input through, with an error at its place in the
/// scene.
std::vector<std::shared_ptr<InternedOp>> internOps(const std::vector<OpSpec>& specs,
                                                   const std::string& origin);

/// The op of an empty scene.
std::shared_ptr<InternedOp> emptyOp();

/// The op of a body that an op makes for itself, without inputs. It is known by an identity in
/// place of its arguments, so that these need not be hashed; `make` is called when there is none
/// yet. `origin` is the file that it comes from.
std::shared_ptr<InternedOp> internBody(const std::string& typeName,
                                       const std::string& identity,
                                       const std::string& origin,
                                       const std::function<std::unique_ptr<const OpBody>()>& make);

/// The ops of an op tree group, in its order; the last one is the terminal op. A child that is no
/// group is an op with a fault. None for a group without children, which is no op tree.
std::vector<OpSpec> readOpTree(const OvAttribute::GroupAttribute& tree);

/// Why a group without children is no op tree.
constexpr const char* kNoOps = "the op tree has no ops";

}  // namespace Sylvar3::internal::OvSylvar::Embedded
