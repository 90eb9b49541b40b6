// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/PluginManager.h>

#include "support/HeardLogs.h"
#include "support/OpTree.h"
#include "support/RuntimeWalk.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace ovtest {

/// The arguments of an op that does this.
class Action : public Args {
public:
    explicit Action(const char* action) { set("action", action); }
};

/// A test of the op type "test.op", which a plug-in file in plain C adds.
class TestOp : public testing::Test {
protected:
    using Client = std::shared_ptr<SylvarRuntime::Client>;
    using GroupAttribute = Sylvar3::internal::OvAttribute::GroupAttribute;
    using StringAttribute = Sylvar3::internal::OvAttribute::StringAttribute;
    using IntAttribute = Sylvar3::internal::OvAttribute::IntAttribute;

    TestOp() {
        Sylvar3::internal::OvPluginManager::PluginManager::setSearchDirectories(
            {OV_TEST_FIXTURE_DIR});
    }

    static Client open(const GroupAttribute& arguments) {
        return OpTree().op("t", "test.op", arguments).open();
    }

    /// With a small scene as its only input: /root with c0 and c1.
    static Client openOverScene(const GroupAttribute& arguments) {
        return sceneBelow("t", arguments).open();
    }

    static OpTree sceneBelow(const char* name, const GroupAttribute& arguments) {
        return OpTree()
            .op("s", "generate", Args().set("breadth", 2).set("depth", 1).set("seed", 99))
            .op(name, "test.op", arguments, {"s"});
    }

    static std::string errorAt(const Client& client, const char* path = "/root") {
        return client->cookLocation(path)
            .getAttrs()
            .getChild<StringAttribute>("errorMessage")
            .getValue("");
    }

    static int intAt(const Client& client, const char* name) {
        return client->cookLocation("/root").getAttrs().getChild<IntAttribute>(name).getValue(-1);
    }

    static bool isThere(const Client& client, const char* path) {
        return client->cookLocation(path).doesLocationExist();
    }

    static GroupAttribute values() { return GroupAttribute({{"mark", IntAttribute(7)}}, false); }

    HeardLogs logs;
};

}  // namespace ovtest
