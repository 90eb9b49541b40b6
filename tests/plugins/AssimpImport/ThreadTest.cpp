// SPDX-License-Identifier: Apache-2.0
#include "plugins/AssimpImport/Importing.h"

#include <gtest/gtest.h>

#include <thread>

using namespace importing;

TEST(ImportThreads, DoNotDisturbEachOther) {
    const std::vector<std::string> names = {
        "cube.obj", "shared.gltf", "zup.dae", "zup.fbx", "triangle.ply", "triangle.stl"};
    std::vector<std::string> expected;
    for (const std::string& name : names) {
        expected.push_back(importFile(dataFile(name)).scene.getHash().str());
    }
    std::vector<std::thread> threads;
    std::vector<std::vector<std::string>> hashes(4);
    for (std::vector<std::string>& mine : hashes) {
        threads.emplace_back([&names, &mine] {
            for (const std::string& name : names) {
                mine.push_back(importFile(dataFile(name)).scene.getHash().str());
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    for (const std::vector<std::string>& mine : hashes) {
        EXPECT_EQ(expected, mine);
    }
}
