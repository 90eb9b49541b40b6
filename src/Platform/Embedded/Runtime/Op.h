// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/GroupAttribute.h>

#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace Sylvar3::internal::OvSylvar::Embedded {

class Cook;
class InternedOp;
class LocationWriter;

/// What is wrong with an op: with its arguments, or with one location that it was to cook. The text
/// is the reason alone; who catches it tells op and place.
class OpError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The function of one op with its arguments: from a path and the inputs' locations to a location.
/// Immutable but for what it looks up once; any thread may call it.
class OpBody {
public:
    OpBody() = default;
    virtual ~OpBody() = default;
    OpBody(const OpBody&) = delete;
    OpBody& operator=(const OpBody&) = delete;

    /// Cooks one location. What it throws, but for `std::bad_alloc`, becomes an error at this
    /// location. The path "" stands above the top locations: its children are their names.
    virtual void cook(Cook& cook, LocationWriter& out) const = 0;

    /// Adds the ops that it has made for itself and reads from.
    virtual void collectOwnOps(std::vector<std::shared_ptr<InternedOp>>& /*ops*/) const {}

    /// Whether what it has read from outside is another now.
    virtual bool hasChanged() const { return false; }

    /// Forgets what it has read from outside, to read it again when it is needed, and hands over
    /// what held it. Short, and calls nobody.
    virtual std::shared_ptr<const void> forget() const { return nullptr; }
};

/// One argument of an op type.
struct ArgumentSchema {
    const char* name;

    /// "int" and "ints"; "number" and "numbers", one or a list of ints, floats or doubles;
    /// "string" and "strings"; "group"; "group or string".
    const char* kind;

    const char* defaultText;  ///< Null: it must be given. "": nothing.
    const char* about;
};

/// What an op type says of itself, as the page on ops shows it.
struct OpSchema {
    const char* name;
    const char* about;    ///< One line.
    const char* remarks;  ///< Paragraphs of Markdown, with empty lines between them; can be "".
    std::int64_t fewestInputs;
    std::int64_t mostInputs;
    std::vector<ArgumentSchema> arguments;
};

/// An op takes any number of inputs.
constexpr std::int64_t kAnyNumberOfInputs = std::numeric_limits<std::int32_t>::max();

/// A type of op. Lives as long as the process; any thread.
class OpType {
public:
    OpType() = default;
    virtual ~OpType() = default;
    OpType(const OpType&) = delete;
    OpType& operator=(const OpType&) = delete;

    virtual const OpSchema& schema() const = 0;

    /// The body for these arguments, which can be null, and that many inputs. Throws `OpError` when
    /// they are wrong. `place` tells in messages where the op stands.
    virtual std::unique_ptr<const OpBody> make(const OvAttribute::GroupAttribute& arguments,
                                               std::size_t inputCount,
                                               const std::string& place) const = 0;

    /// What else than type, arguments and inputs tells two ops apart: the identity of a file.
    virtual std::string identity(const OvAttribute::GroupAttribute& /*arguments*/) const {
        return {};
    }
};

}  // namespace Sylvar3::internal::OvSylvar::Embedded
