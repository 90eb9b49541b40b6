// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/suites/OpType.h>

#include "ImportRequest.h"

#include <string>

namespace AssimpImport {

/// What an import op can be told.
extern const OvOpSchema kImportSchema;

/// The arguments of an import op that fit the schema.
struct ImportArguments {
    /// Throws `ImportError` with a text that names the argument and what was expected.
    ImportArguments(const OvAttributeSuite& suite, OvAttributeStruct* arguments);

    std::string file;  ///< As it is written; not "".
    std::string at;    ///< Any text.
    OvAssetImportOptions options = kDefaultOptions;
};

/// The argument "file"; "" when there is none.
std::string fileArgument(const OvAttributeSuite& suite, OvAttributeStruct* arguments);

}  // namespace AssimpImport
