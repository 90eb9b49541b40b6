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

const OvRenderOutputUtilsSuite& findRenderOutputUtils() {
    publishHostTables();
    const void* const suite = OvGetHostTable()->findSuite(OV_RENDER_OUTPUT_UTILS_SUITE_NAME,
                                                          OV_RENDER_OUTPUT_UTILS_SUITE_VERSION);
    if (!suite) {
        throw CommandError(ExitStatus::Unexpected,
                           "the host has no suite \"" OV_RENDER_OUTPUT_UTILS_SUITE_NAME
                           "\", version " +
                               std::to_string(OV_RENDER_OUTPUT_UTILS_SUITE_VERSION));
    }
    return *static_cast<const OvRenderOutputUtilsSuite*>(suite);
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

const OvRenderOutputUtilsSuite& hostRenderOutputUtils() {
    static const OvRenderOutputUtilsSuite& suite = findRenderOutputUtils();
    return suite;
}

}  // namespace ovscene
