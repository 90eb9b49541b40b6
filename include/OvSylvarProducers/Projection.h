// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/CameraInfo.h>

#include <Imath/ImathVec.h>

#include <set>
#include <string>
#include <vector>

/// From places in a scene to places in the picture. Matrices are for row vectors.
///
/// The order and the precision of the arithmetic, floats among doubles, are part of what these
/// functions promise. They divide without looking: a picture or a screen rectangle without extent
/// gives infinities and what is no number, and nothing is thrown.
///
/// Those that look for a camera use the cache of `GetCameraInfo` and have its rule for threads; the
/// others may run on any thread. What the runtime throws while it cooks travels.
namespace SYLVAR {

/// From camera space to clip space: a point is divided by its fourth coordinate afterwards. For an
/// orthographic camera `fov` and `aspect`, the picture's width by its height, mean nothing, and the
/// middle of the screen rectangle is added: the matrix is right for one about the axis alone.
OV_SYLVAR_PRODUCERS_API Imath::Matrix44<double> GetProjectionMatrix(float near,
                                                                    float far,
                                                                    float left,
                                                                    float right,
                                                                    float bottom,
                                                                    float top,
                                                                    bool orthographic,
                                                                    float fov,
                                                                    float aspect);

/// The same of a camera. The screen rectangle of an orthographic one is scaled by half its width.
OV_SYLVAR_PRODUCERS_API Imath::Matrix44<double> GetProjectionMatrix(const CameraInfo& info,
                                                                    float aspect);

/// From the target's space to pixels of the render's picture at time 0: a point is divided by its
/// fourth coordinate afterwards. y grows upward from 0 at the bottom of the picture, and z from 0
/// at the near to 1 at the far distance.
///
/// Throws `std::runtime_error`: "Invalid target producer provided." for a null target, "Could not
/// get root producer from target producer.", "Could not get camera info." when the render has no
/// camera, and what `GetRenderResolution` throws.
OV_SYLVAR_PRODUCERS_API Imath::Matrix44<double> GetLocalToScreenMatrix(GeometryProducerPtr target);

/// Takes points from the producer's space to normalised device coordinates, in place: (0, 0) and
/// (1, 1) are the lower left and the upper right corner of the screen rectangle, z is 0 at the near
/// and 1 at the far distance, along the camera's axis. Nothing is clipped. At time 0.
///
/// Does nothing when there is no such camera. The producer must not be null.
OV_SYLVAR_PRODUCERS_API void ConvertPointListToNDC(GeometryProducerPtr producer,
                                                   const std::string& cameraPath,
                                                   std::vector<Imath::Vec3<double>>& points);

/// How many pixels the rectangle has that the corners of the producer's "bound" (xmin, xmax, ymin,
/// ymax, zmin, zmax) take up in a picture of the named resolution. Nothing is clipped, and corners
/// behind the camera count like others. Width and height lose their fractions; one that no int
/// holds is the nearest that one does, and 0 when it is no number. At time 0.
///
/// 0 for a null producer, and when there is no such camera, no resolution table, or no such name in
/// it. Throws `std::runtime_error`, "Cannot get bounds attribute on " and the producer's path, when
/// "bound" is no double attribute of 6 values.
OV_SYLVAR_PRODUCERS_API int GetPixelAreaThroughCamera(GeometryProducerPtr producer,
                                                      const std::string& cameraPath,
                                                      const std::string& resolutionName);

/// Replaces `result` by the times among `samples` that matter from `shutterOpen` to `shutterClose`:
/// those within, and on either side the nearest one outside when none lies on the border. A single
/// one always matters, but for a `shutterClose` of -9999 or less that it is later than. Any thread.
OV_SYLVAR_PRODUCERS_API void FindSampleTimesRelevantToShutterRange(const std::set<float>& samples,
                                                                   float shutterOpen,
                                                                   float shutterClose,
                                                                   std::vector<float>& result);

}  // namespace SYLVAR
