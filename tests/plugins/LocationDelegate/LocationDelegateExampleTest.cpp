// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/ScenegraphIteratorHost.h>
#include <SylvarPlatform/DataAttribute.h>
#include <SylvarPlatform/PluginManager.h>

#include "location_delegate/ProceduralCall.h"
#include "support/HeardLogs.h"
#include "support/RenderOutputTable.h"
#include "support/StaticScene.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using Sylvar3::internal::OvAttribute::FloatAttribute;
using Sylvar3::internal::OvPluginManager::PluginManager;
using testing::ElementsAre;
using testing::IsEmpty;

/// A renderer that uses the sample delegate as its header tells.
class LocationDelegateExample : public testing::Test {
protected:
    LocationDelegateExample() { PluginManager::setSearchDirectories({OV_TEST_EXAMPLE_DIR}); }
    ~LocationDelegateExample() override { EXPECT_THAT(logs_.take(), IsEmpty()); }

    /// The call for the location /root; null when there is none.
    ProceduralCall* callFor(const ovtest::StaticScene& scene) {
        ProceduralFrame frame = {12, -0.25F, 0.25F, {0, 1, 0, 0.5F}, 1920, 1080};
        void* result = this;
        auto* const location =
            iterators_.step(SYLVAR::OvGeometryProducerToHandle(scene.open("/root")));
        EXPECT_TRUE(
            table.processLocationDelegate(location, "", SAMPLE_PROCEDURAL_TYPE, &frame, &result));
        return static_cast<ProceduralCall*>(result);
    }

    const OvRenderOutputUtilsSuite& table = ovtest::renderOutputTable();

private:
    ovtest::HeardLogs logs_;
    ovtest::Iterators iterators_;
};

TEST_F(LocationDelegateExample, IsForProceduralsOfAnyRenderer) {
    EXPECT_THAT(ovtest::takeStrings(table.getLocationTypesWithDelegates("")),
                ElementsAre(SAMPLE_PROCEDURAL_TYPE));
    EXPECT_THAT(ovtest::takeStrings(table.getLocationTypesWithDelegates("ray")), IsEmpty());
}

TEST_F(LocationDelegateExample, TellsWhatToLoadAndWhatToTellIt) {
    ProceduralCall* const call =
        callFor(ovtest::StaticScene()
                    .set("/root", "procedural.library", "fur.so")
                    .set("/root", "procedural.args.density", FloatAttribute(0.75F))
                    .set("/root", "procedural.args.label", "the cat"));
    ASSERT_NE(nullptr, call);
    EXPECT_STREQ("fur.so", call->library);
    EXPECT_STREQ(
        " -density 0.75 -label 'the cat' -frame 12 -shutter -0.25 0.25 -cropwindow 0 1 0 0.5",
        call->arguments);
    call->dispose(call);
}

TEST_F(LocationDelegateExample, TellsTheFrameWhereThereAreNoArguments) {
    ProceduralCall* const call =
        callFor(ovtest::StaticScene().set("/root", "procedural.library", "fur.so"));
    ASSERT_NE(nullptr, call);
    EXPECT_STREQ(" -frame 12 -shutter -0.25 0.25 -cropwindow 0 1 0 0.5", call->arguments);
    call->dispose(call);
}

TEST_F(LocationDelegateExample, HasNoCallForALocationWithoutALibrary) {
    for (const auto& scene : {ovtest::StaticScene().at("/root"),
                              ovtest::StaticScene().set("/root", "procedural.args.a", 1),
                              ovtest::StaticScene().set("/root", "procedural.library", 1),
                              ovtest::StaticScene().set("/root", "procedural", "fur.so")}) {
        EXPECT_EQ(nullptr, callFor(scene));
    }
}

}  // namespace
