// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/CameraInfo.h>
#include <OvSylvarProducers/suites/RenderOutputUtilsSuite.h>

#include <memory>

/// What a camera of the plain table points to.
struct CameraInfoStruct {
    explicit CameraInfoStruct(std::shared_ptr<SYLVAR::CameraInfo> itsInfo);
    ~CameraInfoStruct();
    CameraInfoStruct(const CameraInfoStruct&) = delete;
    CameraInfoStruct& operator=(const CameraInfoStruct&) = delete;

    int refCount = 1;
    std::shared_ptr<SYLVAR::CameraInfo> info;
};

namespace SYLVAR {

/// Sets the entries of the table that give and read cameras.
void setCameraEntries(OvRenderOutputUtilsSuite& suite);

}  // namespace SYLVAR
