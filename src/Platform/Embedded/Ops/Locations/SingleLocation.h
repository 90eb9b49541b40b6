// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/GroupBuilder.h>

#include "Platform/Embedded/Ops/Arguments.h"
#include "Platform/Embedded/Runtime/Op.h"

#include <memory>

namespace Sylvar3::internal::OvSylvar::Embedded {

/// A number that a location of some kind always has.
struct NumberSchema {
    const char* name;
    double otherwise;
    double least;
    double most;
    std::size_t count = 1;  ///< More than one: so many numbers of that kind.
};

/// Sets the number as doubles, with all samples of the argument. Throws `OpError` when it is none,
/// or beyond its bounds.
void setNumber(const Arguments& arguments,
               const NumberSchema& schema,
               OvAttribute::GroupBuilder& values);

/// The op of one location: at "path", with "type", the transform that the arguments have, and
/// `values` under `name`.
std::unique_ptr<const OpBody> makeSingleLocation(const Arguments& arguments,
                                                 const char* type,
                                                 const char* name,
                                                 const OvAttribute::GroupAttribute& values);

/// @name Schemas of the arguments that such an op has besides its numbers
/// @{
ArgumentSchema pathSchema();
ArgumentSchema transformSchema();
/// @}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
