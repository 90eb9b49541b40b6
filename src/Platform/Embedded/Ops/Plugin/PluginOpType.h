// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/suites/OpType.h>

#include "Platform/Embedded/Runtime/Op.h"

#include <memory>
#include <string>

namespace Sylvar3::internal::OvSylvar::Embedded {

/// An op type that a plug-in gives as a plain table. Its arguments are checked against its schema
/// before the plug-in sees them. What the plug-in throws becomes an `OpError`.
class PluginOpType final : public OpType {
public:
    /// `table` has no faults (`faultOfOpType`) and lives as long as the process.
    PluginOpType(std::string name, const OvOpType& table);

    const OpSchema& schema() const override { return schema_; }

    std::unique_ptr<const OpBody> make(const OvAttribute::GroupAttribute& group,
                                       std::size_t inputCount,
                                       const std::string& place) const override;

    std::string identity(const OvAttribute::GroupAttribute& group) const override;

private:
    OvAttribute::GroupAttribute checked(const OvAttribute::GroupAttribute& group) const;

    const std::string name_;
    const OvOpType& table_;
    const OpSchema schema_;
};

}  // namespace Sylvar3::internal::OvSylvar::Embedded
