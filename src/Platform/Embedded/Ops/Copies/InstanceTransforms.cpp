// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Ops/Copies/InstanceTransforms.h"

#include "Platform/Embedded/Ops/Copies/MatrixValue.h"

#include <Imath/ImathQuat.h>

#include <algorithm>
#include <cmath>
#include <string>

namespace Sylvar3::internal::OvSylvar::Embedded {

namespace {

/// A list that has one sample has it at all times.
std::size_t sampleIn(const NumberList& numbers, std::size_t sample) {
    return numbers.sampleCount() == 1 ? 0 : sample;
}

Imath::V3d vectorAt(const NumberList& numbers, std::size_t sample, std::size_t place) {
    const std::size_t begin = place * 3;
    return {
        numbers.at(sample, begin), numbers.at(sample, begin + 1), numbers.at(sample, begin + 2)};
}

/// A quaternion stands as x, y, z, w.
Imath::M44d rotationAt(const NumberList& numbers, std::size_t sample, std::size_t place) {
    const std::size_t begin = place * 4;
    Imath::Quatd rotation(numbers.at(sample, begin + 3),
                          numbers.at(sample, begin),
                          numbers.at(sample, begin + 1),
                          numbers.at(sample, begin + 2));
    double largest = 0;
    for (int i = 0; i < 4; ++i) {
        largest = std::max(largest, std::abs(rotation[i]));
    }
    if (largest > 0) {
        rotation /= largest;  // The square of a very large or small number is none.
    }
    return rotation.normalized().toMatrix44();
}

bool haveSameTimes(const NumberList& a, const NumberList& b) {
    return a.sampleCount() == b.sampleCount() &&
           std::equal(a.times(), a.times() + a.sampleCount(), b.times());
}

}  // namespace

InstanceTransforms::InstanceTransforms(const Arguments& arguments) {
    if (arguments.has("matrices") == arguments.has("positions")) {
        throw OpError("exactly one of \"matrices\" and \"positions\" is to be given");
    }
    if (arguments.has("matrices")) {
        readMatrices(arguments);
    } else {
        readParts(arguments);
    }
}

void InstanceTransforms::readMatrices(const Arguments& arguments) {
    for (const char* const name : {"orientations", "scales"}) {
        if (arguments.has(name)) {
            Arguments::fail(name, "nothing, since \"matrices\" is given");
        }
    }
    matrices_ = arguments.getNumbers("matrices", kMatrixSize, true);
    times_ = matrices_;
    count_ = matrices_.size() / kMatrixSize;
}

void InstanceTransforms::readParts(const Arguments& arguments) {
    positions_ = arguments.getNumbers("positions", 3, true);
    times_ = positions_;
    count_ = positions_.size() / 3;
    orientations_ = readPart(arguments, "orientations", 4, count_);
    const std::size_t scaleCount = arguments.getNumbers("scales", 1, true).size();
    const bool isUniform = scaleCount == 1 || scaleCount == count_;
    scales_ = readPart(arguments, "scales", isUniform ? 1 : 3, isUniform ? scaleCount : count_);
}

NumberList InstanceTransforms::readPart(const Arguments& arguments,
                                        const char* name,
                                        std::size_t size,
                                        std::size_t count) {
    NumberList numbers = arguments.getNumbers(name, 1, true);
    if (arguments.has(name) && numbers.size() != size * count) {
        Arguments::fail(name,
                        std::to_string(size) + " numbers for each of the " + std::to_string(count) +
                            " positions, found " + std::to_string(numbers.size()));
    }
    if (numbers.sampleCount() > 1 && times_.sampleCount() > 1 && !haveSameTimes(numbers, times_)) {
        Arguments::fail(name, "one sample, or samples at the times of the others");
    }
    if (numbers.sampleCount() > 1) {
        times_ = numbers;
    }
    return numbers;
}

LocationWriter::Value* InstanceTransforms::write(std::size_t instance, LocationWriter& out) const {
    return addMatrix(times_, out, [&](std::size_t sample) { return matrixOf(instance, sample); });
}

Imath::M44d InstanceTransforms::matrixOf(std::size_t instance, std::size_t sample) const {
    if (!matrices_.isEmpty()) {
        return matrixAt(matrices_, sample, instance);
    }
    Imath::M44d matrix;
    matrix.setTranslation(vectorAt(positions_, sampleIn(positions_, sample), instance));
    if (!orientations_.isEmpty()) {
        matrix = rotationAt(orientations_, sampleIn(orientations_, sample), instance) * matrix;
    }
    if (!scales_.isEmpty()) {
        matrix.scale(scaleAt(sampleIn(scales_, sample), instance));
    }
    return matrix;
}

Imath::V3d InstanceTransforms::scaleAt(std::size_t sample, std::size_t instance) const {
    if (scales_.size() == 1) {
        return Imath::V3d(scales_.at(sample, 0));
    }
    return scales_.size() == count_ ? Imath::V3d(scales_.at(sample, instance))
                                    : vectorAt(scales_, sample, instance);
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
