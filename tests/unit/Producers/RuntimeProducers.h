// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/AsyncGeometryProducer.h>
#include <OvSylvarProducers/ClientFactory.h>
#include <OvSylvarProducers/SyncGeometryProducer.h>
#include <OvSylvarProducers/ThreadAwareGeometryProducer.h>

#include "support/RuntimeTest.h"

#include <memory>
#include <string>

namespace ovtest {

enum class Kind { ThreadAware, Sync, Async };

/// What holds for every producer over a runtime. For the asynchronous one all locations that a test
/// names are cooked before.
class RuntimeProducer : public RuntimeTest, public testing::WithParamInterface<Kind> {
public:
    /// A location that exists.
    RuntimeProducer& at(const std::string& path, const Names& children = {}) {
        fake.at(path, children);
        cooked.push_back(path);
        return *this;
    }

protected:
    SYLVAR::GeometryProducerPtr open(const std::string& path = "/root") {
        for (const std::string& name : cooked) {
            client->cookLocation(name);
        }
        fake.take();
        if (GetParam() == Kind::ThreadAware) {
            return SYLVAR::CreateThreadAwareGeometryProducer(tree, path);
        }
        return GetParam() == Kind::Sync ? SYLVAR::CreateSyncGeometryProducer(client, path)
                                        : SYLVAR::CreateAsyncGeometryProducer(client, path);
    }

    /// The paths that were asked for, in order.
    Names asked() {
        Names paths;
        for (const std::string& call : fake.take()) {
            if (call.find("Location ") != std::string::npos) {
                paths.push_back(call.substr(call.rfind(' ') + 1));
            }
        }
        return paths;
    }

    const GroupAttribute tree = freshTree();
    const std::shared_ptr<SYLVAR::SylvarRuntime::Client> client =
        SYLVAR::ClientCreateWithOpTree(freshSource());
    Names cooked;
};

inline std::string nameOf(const testing::TestParamInfo<Kind>& info) {
    const char* const names[] = {"ThreadAware", "Sync", "Async"};
    return names[static_cast<int>(info.param)];
}

inline std::string pathOf(const SYLVAR::GeometryProducerPtr& producer) {
    return producer ? producer->getFullName() : "null";
}

}  // namespace ovtest
