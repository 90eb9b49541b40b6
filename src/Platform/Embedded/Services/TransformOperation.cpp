// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Services/TransformOperation.h"

namespace Sylvar3::internal::OvSylvarServices::Embedded {

namespace {

constexpr TransformOperation kOperations[] = {
    {"translate", 3, translationOf},
    {"rotate", 4, rotationOf},
    {"scale", 3, scalingOf},
    {"matrix", 16, matrixOf},
    {"origin", 0, nullptr},
};

}  // namespace

const TransformOperation* TransformOperation::find(std::string_view name) {
    for (const TransformOperation& operation : kOperations) {
        if (name.substr(0, operation.prefix.size()) == operation.prefix) {
            return &operation;
        }
    }
    return nullptr;
}

}  // namespace Sylvar3::internal::OvSylvarServices::Embedded
