// SPDX-License-Identifier: Apache-2.0
#include "plugins/AssimpImport/Importing.h"
#include "support/OrdinaryUser.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <string>
#include <unistd.h>

#include <sys/stat.h>

using namespace importing;

namespace {

void expectRefusal(const std::string& file, const std::string& reason) {
    const Import import = importFile(file);
    EXPECT_FALSE(import.scene);
    EXPECT_EQ("Cannot import \"" + file + "\": " + reason + ".", import.message);
}

constexpr char kNothing[] = "it holds no polygons, no cameras and no lights";

}  // namespace

TEST(RefusedAsset, IsMissing) {
    expectRefusal("/nowhere/to be found.obj", "there is no such file");
}

TEST(RefusedAsset, IsADirectory) {
    const std::string directory = OV_TEST_OUTPUT_DIR "/directory.obj";
    mkdir(directory.c_str(), 0700);
    expectRefusal(directory, "it is a directory");
}

TEST(RefusedAsset, IsAPipe) {
    const std::string pipe = OV_TEST_OUTPUT_DIR "/pipe.obj";
    mkfifo(pipe.c_str(), 0600);
    expectRefusal(pipe, "it is no plain file");
}

TEST(RefusedAsset, CannotBeRead) {
    // Where any user can get at the file, if not at what it holds.
    const std::string file = testing::TempDir() + "secret-" + std::to_string(getpid()) + ".obj";
    std::ofstream(file) << "v 0 0 0\n";
    chmod(file.c_str(), 0);
    {
        const ovtest::OrdinaryUser user;
        expectRefusal(file, "it cannot be read");
    }
    std::remove(file.c_str());
}

TEST(RefusedAsset, IsEmpty) {
    expectRefusal(writeFile("empty.obj", ""), "it is empty");
}

TEST(RefusedAsset, HasAnotherExtension) {
    for (const char* name : {"cube.mtl", "scene", "a.obj/scene", "a.blend"}) {
        expectRefusal(
            dataFile(name),
            "its extension is none of obj, gltf, glb, fbx, dae, ply, stl, 3ds, off, x3d, ifc");
    }
}

TEST(AcceptedAsset, HasItsExtensionInAnyCase) {
    const Import import =
        importFile(writeFile("loud.OFF", "OFF\n3 1 0\n0 0 0\n1 0 0\n0 1 0\n3 0 1 2\n"));
    EXPECT_TRUE(import.scene) << import.message;
}

TEST(RefusedAsset, IsOfAnotherFormatThanItsExtensionNames) {
    expectRefusal(writeFile("mesh.glb", "solid a\nfacet normal 0 0 1\nendfacet\nendsolid a\n"),
                  "its content is not of the format that its extension names");
}

TEST(RefusedAsset, HoldsNothingToSee) {
    expectRefusal(dataFile("lines.obj"), kNothing);
    expectRefusal(writeFile("group.gltf",
                            R"({"asset":{"version":"2.0"},"scene":0,)"
                            R"("scenes":[{"nodes":[0]}],"nodes":[{"name":"n"}]})"),
                  kNothing);
}

TEST(RefusedAsset, AnnouncesMoreThanItCanHold) {
    expectRefusal(dataFile("huge.off"),
                  "its header announces 2000000000 elements, more than it can hold");
    expectRefusal(dataFile("huge.ply"),
                  "its header announces 3000000000 elements, more than it can hold");
}

TEST(RefusedAsset, HasAHeaderThatMakesNoSense) {
    const std::string start = "ply\nformat ascii 1.0\nelement vertex 3\n";
    expectRefusal(writeFile("endless.ply", start + "property float x\n"), "its header has no end");
    for (const char* line : {"end_h",
                             "element vertex",
                             "element vertex -1",
                             "property",
                             "property float",
                             "property floaty x",
                             "property list uchar x"}) {
        expectRefusal(writeFile("astray.ply", start + line + "\nend_header\n0 0 0\n"),
                      std::string("its header makes no sense at \"") + line + "\"");
    }
}

TEST(RefusedAsset, HasMoreLinesThanItAnnounces) {
    expectRefusal(writeFile("long.off", "OFF\n3 1\n0 0 0\n1 0 0\n0 1 0\n0\n0\n0\n"),
                  "it has more lines than its header announces");
}

TEST(AcceptedAsset, MayHaveCommentsAndBlankLines) {
    const Import import = importFile(writeFile(
        "airy.off", "# one\n\nOFF # two\n\n3 1 0\r\n\r\n0 0 0\n1 0 0\n0 1 0\n3 0 1 2\n\n"));
    EXPECT_EQ("", import.message);
}

TEST(RefusedAsset, RefersToAPipe) {
    const std::string pipe = OV_TEST_OUTPUT_DIR "/pipe.bin";
    mkfifo(pipe.c_str(), 0600);
    const std::string file = writeFile("piped.gltf", gltfTriangle("pipe.bin", 3000));
    EXPECT_THAT(importFile(file).message, testing::HasSubstr("pipe.bin"));
}

TEST(RefusedAsset, IsMalformed) {
    for (const char* content : {"{", "{}", "[]", "\"", "{\"asset\":7}", "glTF"}) {
        const Import import = importFile(writeFile("malformed.gltf", content));
        EXPECT_FALSE(import.scene) << content;
        EXPECT_THAT(import.message, testing::StartsWith("Cannot import \"")) << content;
    }
}
