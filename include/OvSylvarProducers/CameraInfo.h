// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/GeometryProducer.h>

#include <Imath/ImathMatrix.h>

#include <memory>
#include <string>

namespace SYLVAR {

using Sylvar3::internal::OvAttribute::FloatAttribute;

/// A camera of a scene. Immutable once `GetCameraInfo` has given it, so any thread may read it.
///
/// The screen rectangle of an orthographic camera is in units of half the `orthographicWidth`.
struct CameraInfo {
    float fov = 0;  ///< The horizontal field of view, in degrees.
    float near = 0;
    float far = 0;
    float left = 0;
    float right = 0;
    float top = 0;
    float bottom = 0;
    bool orthographic = false;

    /// From the camera to the world at the time sample nearest time 0, for row vectors: the
    /// translation stands in row 3.
    Imath::Matrix44<double> xform;

    /// The same at all time samples, in tuples of 16; null when the camera has no transform.
    FloatAttribute xformAttr;

    float orthographicWidth = 0;  ///< Of the whole view.
};

/// The lens of a camera at one time.
struct CameraGeometry {
    float fov = 0;
    float near = 0;
    float far = 0;
    float left = 0;
    float right = 0;
    float top = 0;
    float bottom = 0;
    bool orthographic = false;
};

/// The path of the render's camera: the root's string attribute "renderSettings.cameraName", and
/// "/root/world/cam/camera" when it is missing or anything else. "" for a null root, and for an
/// attribute without values. Any thread.
OV_SYLVAR_PRODUCERS_API std::string GetCameraPath(GeometryProducerPtr root);

/// The camera at that path below `root`, from a cache of the process, which keeps one for each path
/// and content hash of the root (`getHash`) until `ClearCameraInfoCache`. Over a runtime that hash
/// is of the root location alone: clear the cache when what is below it may be another scene's.
///
/// Empty for a null root. Empty also when there is no such location, when its "geometry" is no
/// group, or when one of "fov", "near", "far", "left", "right", "top" and "bottom" in it is no
/// double attribute; that failure is remembered as a camera would be, and nothing is cooked again.
/// Missing or mistyped: "projection", then the camera is perspective; "orthographicWidth", then it
/// is 0; a transform that can be computed, then `xform` is the identity.
///
/// Throws what the runtime throws while it cooks, and `std::runtime_error`, "Error building
/// attribute time samples are different sizes.", for a transform of which they are; the failure is
/// remembered in either case.
///
/// The cache has no lock: callers keep calls of this function and of `ClearCameraInfoCache`, and of
/// all that call them, apart.
OV_SYLVAR_PRODUCERS_API std::shared_ptr<CameraInfo> GetCameraInfo(GeometryProducerPtr root,
                                                                  const std::string& cameraPath);

/// Forgets all cameras, and all failures. What was handed out stays good. No lock: see
/// `GetCameraInfo`.
OV_SYLVAR_PRODUCERS_API void ClearCameraInfoCache();

/// The lens that a camera's "geometry" group tells of, linear between time samples and constant
/// outside them. What is missing or no double attribute is 0; the string attribute "projection" is
/// "orthographic", or else the camera is perspective. A null group gives all zeros. Any thread.
OV_SYLVAR_PRODUCERS_API CameraGeometry
GetInterpolatedCameraGeometryFromAttr(GroupAttribute geometry, float time);

}  // namespace SYLVAR
