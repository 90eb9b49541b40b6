// SPDX-License-Identifier: Apache-2.0
#include "Scene/HostTables.h"

#include <OvSylvarProducers/suites/Initialize.h>

#include "ExitStatus.h"

#include <string>

namespace ovscene {
namespace {

using SYLVAR::Suites::Scene;

Scene findScene() {
    publishHostTables();
    const auto scene = Scene::find(*OvGetHostTable());
    if (!scene) {
        throw CommandError(ExitStatus::Unexpected, scene.error().message());
    }
    return *scene;
}

}  // namespace

void publishHostTables() {
    static const int failure = OvSylvarProducersInitialize(OvGetHostTable());
    if (failure != 0) {
        throw CommandError(
            ExitStatus::Unexpected,
            "the tables of the library cannot be published: " + std::to_string(failure));
    }
}

const Scene& hostScene() {
    static const Scene scene = findScene();
    return scene;
}

}  // namespace ovscene
