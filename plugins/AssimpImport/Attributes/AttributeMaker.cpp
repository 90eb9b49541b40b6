// SPDX-License-Identifier: Apache-2.0
#include "Attributes/AttributeMaker.h"

#include <stdexcept>

namespace AssimpImport {
namespace {

const float kTimeZero = 0.0F;

std::int64_t countOf(std::size_t size) {
    return static_cast<std::int64_t>(size);
}

}  // namespace

void GroupEntries::add(std::string name, SuiteHandle value) {
    if (value) {
        names_.push_back(std::move(name));
        values_.push_back(std::move(value));
    }
}

SuiteHandle AttributeMaker::string(const std::string& value) const {
    return made(suite_->createString(value.c_str()));
}

SuiteHandle AttributeMaker::number(int value) const {
    return made(suite_->createInt(value));
}

SuiteHandle AttributeMaker::number(float value) const {
    return made(suite_->createFloat(value));
}

SuiteHandle AttributeMaker::number(double value) const {
    return made(suite_->createDouble(value));
}

SuiteHandle AttributeMaker::ints(const std::vector<std::int32_t>& values) const {
    const std::int32_t* sample = values.data();
    return made(suite_->createIntFromSamples(
        &kTimeZero, 1, &sample, countOf(values.size()), 1, nullptr, nullptr));
}

SuiteHandle AttributeMaker::floats(const std::vector<float>& values, std::int64_t tupleSize) const {
    const float* sample = values.data();
    return made(suite_->createFloatFromSamples(
        &kTimeZero, 1, &sample, countOf(values.size()), tupleSize, nullptr, nullptr));
}

SuiteHandle AttributeMaker::doubles(const std::vector<double>& values,
                                    std::int64_t tupleSize) const {
    const double* sample = values.data();
    return made(suite_->createDoubleFromSamples(
        &kTimeZero, 1, &sample, countOf(values.size()), tupleSize, nullptr, nullptr));
}

SuiteHandle AttributeMaker::group(const GroupEntries& entries) const {
    std::vector<const char*> names;
    std::vector<OvAttributeStruct*> children;
    names.reserve(entries.size());
    children.reserve(entries.size());
    for (std::size_t i = 0; i < entries.size(); ++i) {
        names.push_back(entries.names()[i].c_str());
        children.push_back(entries.values()[i].get());
    }
    return made(suite_->createGroup(names.data(), children.data(), countOf(names.size()), 0));
}

SuiteHandle AttributeMaker::made(OvAttributeStruct* owned) const {
    if (!owned) {
        throw std::runtime_error("the attribute suite made no attribute");
    }
    return SuiteHandle(*suite_, owned);
}

}  // namespace AssimpImport
