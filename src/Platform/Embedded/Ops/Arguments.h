// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/DataAttribute.h>
#include <SylvarPlatform/GroupAttribute.h>

#include "Platform/Embedded/Ops/NumberList.h"
#include "Platform/Embedded/Runtime/Op.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Sylvar3::internal::OvSylvar::Embedded {

/// The arguments of an op, checked against its type's schema and read by name. Everything throws
/// `OpError` with a text that names the argument and what was expected. Of several time samples the
/// one nearest time 0 counts, unless an operation says otherwise. Immutable; any thread.
class Arguments {
public:
    /// Throws for an argument that the type does not have, with the nearest one that it has, for
    /// one of another kind than it is to be, and for one that must be given and is not. A null
    /// group has no arguments.
    Arguments(const OpSchema& schema, OvAttribute::GroupAttribute group);

    bool has(const char* name) const { return group_.getChildByName(name).isValid(); }

    /// An int between two bounds, both of which it may be.
    std::int32_t getInt(const char* name,
                        std::int32_t otherwise,
                        std::int32_t least,
                        std::int32_t most) const;

    std::string getString(const char* name, const std::string& otherwise) const;

    /// The values of the sample nearest time 0; none when the argument is not there.
    std::vector<std::string> getStrings(const char* name) const;

    /// The place of the string in the list; 0 when the argument is not there.
    std::size_t getChoice(const char* name, const std::vector<const char*>& choices) const;

    /// A string that is the path of a location, such as /root/world.
    std::string getPath(const char* name, const std::string& otherwise) const;

    /// A string that can be part of a location's name.
    std::string getName(const char* name, const std::string& otherwise) const;

    OvAttribute::GroupAttribute getGroup(const char* name) const;

    /// As many numbers in each sample as `count` says, or a multiple of that when `isList`, which
    /// none is, too; none when the argument is not there.
    NumberList getNumbers(const char* name, std::size_t count, bool isList) const;

    /// For a text that has to be the path of a location.
    static void checkPath(const char* name, const std::string& path);

    [[noreturn]] static void fail(const char* name, const std::string& expected);

private:
    static void check(const ArgumentSchema& argument, const OvAttribute::Attribute& value);

    OvAttribute::GroupAttribute group_;
};

}  // namespace Sylvar3::internal::OvSylvar::Embedded
