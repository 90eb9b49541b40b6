// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/DataAttribute.h>
#include <SylvarPlatform/Export.h>
#include <SylvarPlatform/GroupAttribute.h>

namespace Sylvar3::internal::OvSylvarServices {

/// What the transforms of a chain of locations come to.
struct TransformMatrix {
    /// Tuples of 16, one a sample, the times ascending. Null when there is nothing to compute: no
    /// child of the chain takes part.
    OvAttribute::DoubleAttribute attribute;

    /// An "origin" took part: the matrix does not depend on anything above, not even above the top
    /// of the chain. Who nests the transforms of parents must not nest this one.
    bool isAbsolute = false;
};

/// The transforms of a chain of locations as one matrix, for row vectors: a point is a row on the
/// left, the 16 values are row after row, the translation stands in row 3.
///
/// `transforms` is a group with the children "i0", "i1", ..., as `getGlobalXFormGroup` makes it:
/// by their numbers, whatever their order and the gaps, they are the "xform" groups of the
/// locations from the top down. Each child of an "xform" group transforms by the prefix of its
/// name:
///
///     translate   3 values
///     rotate      4: an angle in degrees and the axis it turns about, counter-clockwise for who
///                 looks against the axis; of any length, and of length 0 nothing turns
///     scale       3
///     matrix      16, as above
///     origin      any number, never looked at: what stands before, here and above, is forgotten
///
/// Of two children the later one acts on the point first, and all children of a location act
/// before those of the locations above it. A child takes part when it is of integers, floats or
/// doubles and has as many values, or more, at a time that is a number. Anything else is passed
/// over: other names, groups, texts, null, too few values, and what is no "xform" group. Values
/// that are not finite go into the matrix as they are.
///
/// Between two samples all values are interpolated linearly, those of axes and matrices too;
/// outside the nearest one holds. Of samples at one time the first counts. All in double.
///
/// Any thread.
class SYLVAR_PLATFORM_API OvXFormUtil {
public:
    OvXFormUtil() = delete;

    // NOLINTBEGIN(readability-identifier-naming): the names that callers know.

    /// The matrix at each time at which a child that is not forgotten has a sample; at time 0 when
    /// an "origin" alone is left. A time -0 is 0.
    static TransformMatrix CalcTransformMatrixAtExistingTimes(
        const OvAttribute::GroupAttribute& transforms);

    /// The matrix as one sample at `time`. For a time that is not a number the samples count that
    /// are first in time.
    static TransformMatrix CalcTransformMatrixAtTime(const OvAttribute::GroupAttribute& transforms,
                                                     float time);

    // NOLINTEND(readability-identifier-naming)
};

}  // namespace Sylvar3::internal::OvSylvarServices
