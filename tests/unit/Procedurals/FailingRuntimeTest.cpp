// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/CameraInfo.h>
#include <OvSylvarProducers/ProceduralArguments.h>
#include <OvSylvarProducers/ThreadAwareGeometryProducer.h>

#include "support/RuntimeTest.h"

#include <gtest/gtest.h>

#include <string>

using namespace ovtest;

class ProceduralOfAFailingRuntime : public RuntimeTest {
protected:
    using Build = std::string (*)(SYLVAR::GeometryProducerPtr,
                                  SYLVAR::ProceduralOutputContextInfo&,
                                  SYLVAR::GroupAttribute,
                                  SYLVAR::ProceduralErrorCallback);

    ProceduralOfAFailingRuntime() {
        fake.at("/root", {"world"}).at("/root/world");
        producer = SYLVAR::CreateThreadAwareGeometryProducer(freshTree(), "/root");
    }
    ~ProceduralOfAFailingRuntime() override { SYLVAR::ClearCameraInfoCache(); }

    std::string build(Build form, const char* includeCameraInfo) {
        SYLVAR::ClearCameraInfoCache();
        SYLVAR::ProceduralOutputContextInfo context;
        const GroupAttribute attrs(
            {{"includeCameraInfo", SYLVAR::StringAttribute(includeCameraInfo)}}, false);
        return form(producer, context, attrs, nullptr);
    }

    SYLVAR::GeometryProducerPtr producer;
};

TEST_F(ProceduralOfAFailingRuntime, ThrowsWhatTheSearchForTheCameraThrows) {
    ASSERT_TRUE(producer);
    fake.throwIn("cookLocation");
    for (const Build form : {&SYLVAR::BuildClassicProceduralArgumentsString,
                             &SYLVAR::BuildScenegraphAttrProceduralArgumentsString}) {
        EXPECT_ANY_THROW(build(form, "As Parameters"));
        EXPECT_NO_THROW(build(form, "As Attributes"));
        EXPECT_NO_THROW(build(form, "None"));
    }
}
