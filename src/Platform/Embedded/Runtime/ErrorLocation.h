// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>

namespace Sylvar3::internal::OvSylvar::Embedded {

class Cook;
class LocationWriter;

/// Writes the location of an op that could not cook it: what its first input has there, if that can
/// be had, with the text as "errorMessage". Above the top locations it has the one that leads to
/// `at`.
void writeErrorLocation(Cook& cook,
                        LocationWriter& out,
                        const std::string& text,
                        const std::string& at);

}  // namespace Sylvar3::internal::OvSylvar::Embedded
