// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/StaticGeometryProducer.h>
#include <OvSylvarProducers/Version.h>
#include <ResolutionTableOv/ResolutionTable.h>
#include <SylvarPlatform/DataAttribute.h>
#include <SylvarPlatform/GroupBuilder.h>
#include <SylvarPlatform/Version.h>

#include <cstdio>

static_assert(OV_SYLVAR_PRODUCERS_VERSION_NUMBER == SYLVAR_PLATFORM_VERSION_NUMBER,
              "both libraries come from one installation");

using Sylvar3::internal::OvAttribute::GroupAttribute;
using Sylvar3::internal::OvAttribute::GroupBuilder;
using Sylvar3::internal::OvAttribute::StringAttribute;

int main() {
    const GroupAttribute scene =
        GroupBuilder().set("c.ball.a.type", StringAttribute("mesh")).build();
    const auto root = SYLVAR::CreateStaticGeometryProducer("/root", scene, nullptr);
    const auto ball = root ? root->getFirstChild(false) : nullptr;
    if (!ball || ball->getFullName() != "/root/ball" || ball->getType() != "mesh") {
        std::puts("the scene could not be walked");
        return 1;
    }
    const auto table = ORM_OV::ResolutionTable::v4::GetResolutionTable(nullptr);
    if (!table || table->getResolution("square_512").width != 512) {
        std::puts("the resolution table lacks its formats");
        return 1;
    }
    std::printf("OvSylvarProducers %s walked %s\n",
                OV_SYLVAR_PRODUCERS_VERSION,
                ball->getFullName().c_str());
    return 0;
}
