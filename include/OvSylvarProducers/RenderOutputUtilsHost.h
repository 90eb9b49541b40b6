// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/CameraInfo.h>
#include <OvSylvarProducers/suites/RenderOutputUtilsSuite.h>

#include <memory>
#include <string>
#include <vector>

/// What hosts and this library's own tools need beside the plain table.
namespace SYLVAR::RenderOutputUtilsHost {

/// The handle's camera; empty for the null handle. The handle's count stays as it is.
OV_SYLVAR_PRODUCERS_API std::shared_ptr<CameraInfo> OvHandleToCameraInfo(CameraInfoStruct* camera);

/// A new handle with one reference, which is given back with `releaseCameraInfo`; null for an empty
/// pointer. Handles of cameras are counted without a lock: callers keep making and releasing them
/// apart.
OV_SYLVAR_PRODUCERS_API CameraInfoStruct* OvCameraInfoToHandle(std::shared_ptr<CameraInfo> camera);

/// The path of one tile from that of the whole picture. `tile` has the tile's column and row, and
/// may have the numbers of columns and rows behind them, which count together alone:
///
///     ProcessTilePath("/a/beauty.0001.exr", {1, 2})    /a/tile_1_2.beauty.0001.exr
///
/// The configuration key "VARLIN_TILE_FILENAME" replaces the form of the file name by a template
/// of the tokens @DEFAULT@, @COLUMN@, @ROW@, @COLUMNS@, @ROWS@, @STEM@ and @EXT@ (the dot
/// included). It must hold @DEFAULT@, or @COLUMN@, @ROW@, @STEM@ and @EXT@. A template with a root
/// directory replaces the directory too. Tokens are replaced one after the other, those that came
/// in with the file's name too.
///
/// Never fails: less than a column and a row give the path as it is and an error in the log; a
/// template that lacks tokens, the usual form and a warning; a template that wants numbers that are
/// not known, "UnknownColumns" and "UnknownRows" and a warning. The logger is "RenderOutputUtils".
/// Paths divide as those of Boost.Filesystem version 3 do; one of slashes alone has no file name.
/// Any thread.
OV_SYLVAR_PRODUCERS_API std::string ProcessTilePath(const std::string& path,
                                                    const std::vector<int>& tile);

}  // namespace SYLVAR::RenderOutputUtilsHost
