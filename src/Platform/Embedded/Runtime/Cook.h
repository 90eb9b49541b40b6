// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Platform/Embedded/Runtime/InternedOp.h"
#include "Platform/Embedded/Runtime/Location.h"
#include "Platform/Embedded/Runtime/LocationPage.h"
#include "Platform/Embedded/Runtime/LocationWriter.h"
#include "Platform/Embedded/Runtime/Node.h"
#include "Platform/Embedded/Runtime/Session.h"

#include <cstddef>
#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace Sylvar3::internal::OvSylvar::Embedded {

/// A location that an op has read to make one.
struct Reading {
    std::shared_ptr<InternedOp> op;
    std::string path;
    Location location;
};
using Readings = std::vector<Reading>;

/// One location while its op cooks it: what the op may ask, and where it writes.
class Cook {
public:
    /// Adds what is read to `readings`, when it is not null.
    Cook(Session& session,
         InternedOp& op,
         std::string_view path,
         LocationPage& page,
         Readings* readings)
        : session_(session), op_(op), path_(path), page_(page), readings_(readings) {}
    Cook(const Cook&) = delete;
    Cook& operator=(const Cook&) = delete;

    /// "" for what is above the top locations.
    std::string_view path() const { return path_; }

    std::size_t inputCount() const { return op_.inputs().size(); }

    /// The location of an input at this path; absent when there is no such input.
    Location input(std::size_t index) { return input(index, path_); }

    /// The same at any path. Throws `OpError` when that location needs this one.
    Location input(std::size_t index, std::string_view path);

    /// The location of an op of the op's own.
    Location read(InternedOp& op, std::string_view path);

    /// What was read at other paths, or of other ops than the inputs. Borrowed.
    const std::vector<ForeignRead>& foreignReads() const { return reads_; }

private:
    Session& session_;
    InternedOp& op_;
    std::string_view path_;
    LocationPage& page_;
    Readings* readings_;
    std::vector<ForeignRead> reads_;
    std::deque<std::string> readPaths_;
};

/// The location of an op at a path, cooked if need be, and with it the locations above. Throws what
/// a cook throws that is no fault of the op (`std::bad_alloc`), and `OpError` where it would wait
/// for itself.
Location cookLocation(Session& session, InternedOp& op, std::string_view path);

/// Cooks a location for the caller alone, whether it was cooked before or not, and without those
/// above it; tells what of what the op reads for it is there, in that order. Throws as
/// `cookLocation` does.
Location cookOnceMore(Session& session, InternedOp& op, std::string_view path, Readings& readings);

/// The location when it was cooked before, its absence included; false when it was not. Neither
/// cooks nor waits.
bool findCooked(Session& session, InternedOp& op, std::string_view path, Location& location);

}  // namespace Sylvar3::internal::OvSylvar::Embedded
