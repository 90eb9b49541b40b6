// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/GeometryProducer.h>

#include <array>
#include <string>

/// What a procedural is told when it is called, from the arguments that its location has. Both
/// forms read the same group, of which all children are optional:
///
///     args                a group: the user's arguments
///     systemArgs          a group: further ones
///     includeCameraInfo   "None", "As Parameters" or "As Attributes"
///     cameraInfo          a group: "whichCamera", and "cameraPath" for "Other Camera"
///
/// The render camera, or another one, comes with them when it is asked for "As Parameters" and can
/// be read. Numbers are written in the classic locale, whatever the process has set.
///
/// Both look for cameras with `GetCameraInfo`, and have its rule for threads. What it throws
/// travels, and so does `std::runtime_error`, "No root producer given for determining render camera
/// path.". The producer must not be null.
namespace SYLVAR {

/// When and for which picture a procedural is called.
struct ProceduralOutputContextInfo {
    int frame = 0;
    float shutterOpen = 0;
    float shutterClose = 0;
    std::array<float, 4> cropWindow{};
    int xres = 0;
    int yres = 0;
};

/// Is told what could not be resolved; may be null.
using ProceduralErrorCallback = void (*)(const std::string& message, GeometryProducerPtr producer);

/// One line of command: " -name value -name value ...", and always " -frame", " -shutter" and
/// " -cropwindow" at the end.
///
/// - Numbers have 12 significant digits. Of a value with time samples the one nearest time 0
/// counts.
/// - Strings are assets, which the default asset plug-in resolves (flag true). One that is empty or
///   has a blank stands between single quotes, and so does a list as a whole; a quote within is not
///   escaped. The text of a string whose name begins with "extraArgs" stands there as it is.
/// - Groups, and arguments without values, are left out. "systemArgs" count only where there are
///   "args".
///
/// When the plug-in throws, the callback is told and the rest of that argument is missing, a
/// closing quote too: "asset resolve failed on  '<value>' when building an procedural call."; for
/// extra arguments "asset resolve failed on '<name>' when building an procedural.", and they stand
/// there unresolved.
OV_SYLVAR_PRODUCERS_API std::string BuildClassicProceduralArgumentsString(
    GeometryProducerPtr producer,
    ProceduralOutputContextInfo& context,
    GroupAttribute attrs,
    ProceduralErrorCallback errorCallback);

/// The XML (`Attribute::getXML`) of a group: "args" as they are nested, the children of
/// "systemArgs", "frame", "shutter", "cropwindow", the camera, and "varlinFullName", the producer's
/// path.
///
/// Strings in "args" are resolved (flag false), the sample nearest time 0 alone; what cannot be
/// stays as it is, and the callback is never called. Names in "args" that begin with "__" are left
/// out.
OV_SYLVAR_PRODUCERS_API std::string BuildScenegraphAttrProceduralArgumentsString(
    GeometryProducerPtr producer,
    ProceduralOutputContextInfo& context,
    GroupAttribute attrs,
    ProceduralErrorCallback errorCallback);

}  // namespace SYLVAR
