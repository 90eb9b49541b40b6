// SPDX-License-Identifier: Apache-2.0
#include "plugins/ImportOp/ImportOp.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

using namespace ovtest;
using namespace Sylvar3::internal::OvAttribute;
using testing::HasSubstr;
using testing::SizeIs;

TEST_F(ImportOp, TellsWhatIsWrongWithAFileOnceAndTheRestStands) {
    struct Row {
        const char* name;
        const char* bytes;  // Null: there is no file.
        const char* reason;
    };
    for (const Row& row : {Row{"import_missing.obj", nullptr, "there is no such file"},
                           {"import_empty.obj", "", "it is empty"},
                           {"import_kind.txt", "o part\n", "its extension is none of "},
                           {"import_wrong.glb", "garbage", "its content is not of the format"},
                           {"import_wrong.gltf", "{\"asset\"", "its content is not of the format"},
                           {"import_wrong.dae", "<COLLADA", "malformed XML"},
                           {"import_nothing.obj",
                            "# nothing to see\n",
                            "it holds no polygons, no cameras and no lights"}}) {
        TestFile file(row.name);
        if (row.bytes) {
            file.writeBytes(row.bytes);
        }
        const auto client =
            OpTree()
                .op("i", "import", Args().set("file", file.path()).set("at", "/root/a/asset"))
                .op("g", "generate", Args().set("breadth", 2).set("depth", 1).set("seed", 71))
                .op("m", "merge", {}, {"i", "g"})
                .open();
        EXPECT_EQ(5, countFrom(*client, "/root")) << row.name;
        const std::string start = "import (op 1 of 3), /root/a/asset: " + file.path() + ": ";
        const std::string error = errorAt(client, "/root/a/asset");
        EXPECT_EQ(start, error.substr(0, start.size()));
        EXPECT_LT(start.size(), error.size());
        EXPECT_THAT(error, HasSubstr(row.reason));
        EXPECT_THAT(logs.take(), SizeIs(1)) << row.name;
    }
    EXPECT_THAT(errorAt(open(OV_TEST_OUTPUT_DIR ".obj/"), "/root"), HasSubstr("its extension"));
}

TEST_F(ImportOp, TellsThatAFileIsBeyondALimit) {
    TestFile file("import_limits.obj");
    file.writeBytes(triangle());
    EXPECT_THAT(errorAt(open(Args().set("file", file.path()).set("maxFileBytes", 10)), "/root"),
                HasSubstr("more than the limit of 10"));
    EXPECT_THAT(errorAt(open(Args().set("file", file.path()).set("maxLocations", 2)), "/root"),
                HasSubstr("locations"));
    EXPECT_EQ("",
              errorAt(open(Args()
                               .set("file", file.path())
                               .set("maxLocations", DoubleAttribute(1e15))
                               .set("maxFileBytes", DoubleAttribute(1e15))),
                      "/root"));
}

TEST_F(ImportOp, RefusesAHugeFileByItsSizeAlone) {
    constexpr std::uintmax_t kSize = 5'000'000'000;
    for (const char* const name : {"import_huge.obj", "import_huge.glb", "import_huge.stl"}) {
        TestFile file(name);
        std::filesystem::resize_file(file.writeBytes(triangle()).path(), kSize);
        const int made = host.floatsMade();
        EXPECT_EQ("import (op 1 of 1), /root: " + file.path() +
                      ": it holds 5000000000 bytes, more than the limit of 1000000000",
                  errorAt(open(Args().set("file", file.path()).set("maxFileBytes", 1'000'000'000)),
                          "/root"));
        EXPECT_EQ(made, host.floatsMade());
        EXPECT_THAT(logs.take(), SizeIs(1)) << name;
    }
}

TEST_F(ImportOp, TellsWhatIsWrongWithAnArgument) {
    const auto fault = [](Args& arguments) { return errorAt(open(arguments), "/root"); };
    EXPECT_THAT(fault(Args().set("lights", 0)), HasSubstr("argument \"file\" is missing"));
    EXPECT_THAT(fault(Args().set("file", "")),
                HasSubstr("argument \"file\": expected a file's name, found \"\""));
    EXPECT_THAT(fault(Args().set("file", "x.obj").set("unitscale", 1)),
                HasSubstr("there is no argument \"unitscale\"; did you mean \"unitScale\"?"));
    EXPECT_THAT(fault(Args().set("file", "x.obj").set("at", "world")),
                HasSubstr("argument \"at\": expected a location's path such as /root/world, found "
                          "\"world\""));
    EXPECT_THAT(fault(Args().set("file", "x.obj").set("upAxis", "xy")),
                HasSubstr("argument \"upAxis\": expected one of \"\" \"x\" \"y\" \"z\", found "
                          "\"xy\""));
    EXPECT_THAT(fault(Args().set("file", "x.obj").set("lights", 2)),
                HasSubstr("argument \"lights\": expected 0 or 1, found 2"));
    for (const double wrong : {-1.0, static_cast<double>(NAN), static_cast<double>(INFINITY)}) {
        EXPECT_THAT(fault(Args().set("file", "x.obj").set("unitScale", DoubleAttribute(wrong))),
                    HasSubstr("argument \"unitScale\": expected a positive number, or 0"));
        EXPECT_THAT(fault(Args().set("file", "x.obj").set("maxFileBytes", DoubleAttribute(wrong))),
                    HasSubstr("argument \"maxFileBytes\": expected a whole number, or 0 for no "
                              "limit"));
    }
    EXPECT_THAT(fault(Args().set("file", "x.obj").set("maxLocations", DoubleAttribute(0.5))),
                HasSubstr("argument \"maxLocations\": expected a whole number"));
}
