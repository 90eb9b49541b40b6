// SPDX-License-Identifier: Apache-2.0
#include "suites/RenderOutput/TempLocation.h"

using ovtest::StaticScene;
using ovtest::written;
using testing::ElementsAre;

namespace {

/// Where an output without a fixed location goes.
class TempLocation : public ovtest::TempLocationTest {
protected:
    static StaticScene sceneOf(const char* directory, const char* id) {
        return StaticScene().set("/root", kDirectory, directory).set("/root", kId, id);
    }
};

}  // namespace

TEST_F(TempLocation, IsTheDirectoryAndANameOfPrefixIdDotAndSuffix) {
    EXPECT_EQ("/tmp/pre_17.exr", tempLocation(at(sceneOf("/tmp", "17"))));
}

TEST_F(TempLocation, IsOneStringInASampleAtTimeZero) {
    for (const char* const location : {"", "/fixed.exr"}) {
        StaticScene scene = sceneOf("/tmp", "17");
        scene.set("/root", kFixed, location);
        const Attribute path =
            take(table.getRenderOutputTempLocation(at(scene), "beauty", "", "exr", 1));
        EXPECT_EQ(StringAttribute(*location ? location : "/tmp/17.exr").getHash(), path.getHash());
    }
}

TEST_F(TempLocation, IsTheBareNameWhereTheSceneHasNoDirectory) {
    EXPECT_EQ("pre_17.exr", tempLocation(at(StaticScene().set("/root", kId, "17"))));
    EXPECT_EQ("pre_.exr", tempLocation(at(StaticScene().at("/root"))));
}

TEST_F(TempLocation, HasAnEmptyIdWhereTheOutputHasNone) {
    EXPECT_EQ("/tmp/pre_.exr", tempLocation(at(StaticScene().set("/root", kDirectory, "/tmp"))));
    EXPECT_EQ("/tmp/.", tempLocation(at(StaticScene().set("/root", kDirectory, "/tmp")), "", ""));
}

TEST_F(TempLocation, IsTheDirectoryAloneForANullPrefix) {
    EXPECT_EQ("/tmp", tempLocation(at(sceneOf("/tmp", "17")), nullptr));
    EXPECT_EQ("/tmp/", tempLocation(at(sceneOf("/tmp/", "17")), nullptr));
    EXPECT_EQ("/tmp", tempLocation(at(sceneOf("/tmp", "17")), nullptr, nullptr));
    EXPECT_EQ("", tempLocation(at(sceneOf("", "17")), nullptr));
}

TEST_F(TempLocation, EndsAtTheDotForANullSuffix) {
    EXPECT_EQ("/tmp/pre_17.", tempLocation(at(sceneOf("/tmp", "17")), "pre_", nullptr));
}

TEST_F(TempLocation, HasASeparatorOnlyWhereOneIsNeeded) {
    struct Row {
        const char* directory;
        const char* prefix;
        const char* path;
    };
    for (const Row& row : {Row{"/tmp", "x", "/tmp/x17.exr"},
                           Row{"/tmp/", "x", "/tmp/x17.exr"},
                           Row{"/tmp//", "x", "/tmp//x17.exr"},
                           Row{"/", "x", "/x17.exr"},
                           Row{"tmp", "x", "tmp/x17.exr"},
                           Row{".", "x", "./x17.exr"},
                           Row{"", "x", "x17.exr"},
                           Row{"", "/x", "/x17.exr"},
                           Row{"/tmp", "/x", "/tmp/x17.exr"},
                           Row{"/tmp/", "/x", "/tmp//x17.exr"},
                           Row{"/tmp", "a/x", "/tmp/a/x17.exr"},
                           Row{"/tmp", "../x", "/tmp/../x17.exr"}}) {
        EXPECT_EQ(row.path, tempLocation(at(sceneOf(row.directory, "17")), row.prefix))
            << row.directory << " and " << row.prefix;
    }
}

TEST_F(TempLocation, TakesNoNoticeOfTheFrameAndExpandsNothing) {
    EXPECT_EQ("~/$HOME.#/##pre_##.#",
              tempLocation(at(sceneOf("~/$HOME.#", "##")), "##pre_", "#", 7.0F));
}

TEST_F(TempLocation, IsOfTheOutputOfThatName) {
    StaticScene scene;
    scene.set("/root", kDirectory, "/tmp")
        .set("/root", "renderSettings.outputs.beauty.tempRenderId", "b")
        .set("/root", "renderSettings.outputs.depth.tempRenderId", "d")
        .set("/root", "renderSettings.outputs.depth.rendererSettings.tempRenderLocation", "/d.exr")
        .set("/root", "renderSettings.outputs.left.eye.tempRenderId", "l");
    const auto of = [&](const char* output) {
        return ovtest::takeString(
            table.getRenderOutputTempLocation(at(scene), output, "", "exr", 1));
    };
    EXPECT_EQ("/tmp/b.exr", of("beauty"));
    EXPECT_EQ("/d.exr", of("depth"));
    EXPECT_EQ("/tmp/l.exr", of("left.eye"));
    EXPECT_EQ("/tmp/.exr", of("none"));
}

TEST_F(TempLocation, IsReadOnTheVeryLocation) {
    StaticScene scene = sceneOf("/tmp", "17");
    scene.at("/root/a").set("/root/b", kFixed, "/b.exr").at("/root/b/c");
    EXPECT_EQ("pre_.exr", tempLocation(at(scene, "/root/a")));
    EXPECT_EQ("/b.exr", tempLocation(at(scene, "/root/b")));
    EXPECT_EQ("pre_.exr", tempLocation(at(scene, "/root/b/c")));
}

TEST_F(TempLocation, TakesAttributesThatAreNoStringsAsMissing) {
    for (const char* const value : {"3", "2.5", R"({"a": "b"})", R"({"$string": []})"}) {
        StaticScene scene;
        scene.set("/root", kDirectory, written(value))
            .set("/root", kId, written(value))
            .set("/root", kFixed, written(value));
        EXPECT_EQ("pre_.exr", tempLocation(at(scene))) << value;
    }
}

TEST_F(TempLocation, TakesTheFirstValuesOfTheSamplesNearestTimeZero) {
    StaticScene scene;
    scene
        .set("/root",
             kDirectory,
             written(R"({"$string": [["/far"], ["/near"]], "$times": [-2, 1]})"))
        .set("/root", kId, written(R"({"$string": [["a", "b"], ["c", "d"]], "$times": [-1, 1]})"));
    EXPECT_EQ("/near/pre_a.exr", tempLocation(at(scene)));
    scene.set("/root", kFixed, written(R"(["/fixed.exr", "/other.exr"])"));
    EXPECT_EQ("/fixed.exr", tempLocation(at(scene)));
}

TEST_F(TempLocation, IsEmptyForTheNullIterator) {
    EXPECT_THAT(
        ovtest::takeStrings(table.getRenderOutputTempLocation(nullptr, "beauty", "pre_", "exr", 1)),
        ElementsAre(""));
    EXPECT_THAT(ovtest::takeStrings(
                    table.getRenderOutputTempLocation(nullptr, "beauty", nullptr, nullptr, 1)),
                ElementsAre(""));
}

TEST_F(TempLocation, IsLookedForWithoutAWord) {
    tempLocation(nullptr);
    tempLocation(at(StaticScene().at("/root")), nullptr, nullptr);
    EXPECT_THAT(logs.take(), ElementsAre());
}
