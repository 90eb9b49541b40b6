// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

namespace ovscene {

/// The name that was probably meant: the one with the fewest letters to change, add or leave out,
/// up to a third of its length; empty when none is that near.
std::string nearName(const std::string& written, const std::vector<std::string>& names);

/// "there are a, b", "there is a".
std::string thereAre(const std::vector<std::string>& names);

/// What to tell of a name that is not among them: "no renderer 'Cencus'; did you mean 'Census'?",
/// or which ones there are when none is that near.
std::string unknownName(const std::string& kind,
                        const std::string& written,
                        const std::vector<std::string>& names);

}  // namespace ovscene
