// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "plugins/ImportOp/ImportingHost.h"
#include "support/HeardLogs.h"
#include "support/OpTree.h"
#include "support/OpTreeFile.h"
#include "support/RuntimeWalk.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace ovtest {

/// A test of the op type "import".
class ImportOp : public testing::Test {
protected:
    using Client = std::shared_ptr<SylvarRuntime::Client>;
    using GroupAttribute = Sylvar3::internal::OvAttribute::GroupAttribute;
    using StringAttribute = Sylvar3::internal::OvAttribute::StringAttribute;

    /// An OBJ file of one triangle.
    static std::string triangle(const char* name = "part", const char* height = "1") {
        return std::string("o ") + name + "\nv 0 0 0\nv 1 0 0\nv 0 " + height + " 0\nf 1 2 3\n";
    }

    static Client open(const std::string& file, const char* at = "/root") {
        return OpTree().op("i", "import", Args().set("file", file).set("at", at)).open();
    }

    static Client open(const GroupAttribute& arguments) {
        return OpTree().op("i", "import", arguments).open();
    }

    static std::string errorAt(const Client& client, const std::string& path) {
        return client->cookLocation(path)
            .getAttrs()
            .getChild<StringAttribute>("errorMessage")
            .getValue("");
    }

    static bool isThere(const Client& client, const std::string& path) {
        return client->cookLocation(path).doesLocationExist();
    }

    /// The path of the first location of that type; "" when there is none.
    static std::string findType(const Client& client, const std::string& top, const char* type) {
        std::string found;
        walkFrom(*client, top, [&](const std::string& path, const auto& location) {
            if (found.empty() &&
                location.getAttrs().template getChild<StringAttribute>("type").getValue("") ==
                    type) {
                found = path;
            }
        });
        return found;
    }

    ImportingHost& host = ImportingHost::instance();
    HeardLogs logs;
};

}  // namespace ovtest
