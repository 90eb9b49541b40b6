// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/ProceduralArguments.h>
#include <SylvarPlatform/PyString.h>

#include "Procedurals/ArgumentWriters.h"
#include "Procedurals/CameraInfoRequest.h"
#include "Procedurals/NumberWriter.h"

#include <sstream>
#include <vector>

namespace SYLVAR {
namespace {

using Sylvar3::internal::OvAttribute::castAttribute;

/// The line while it is written.
class ArgumentLine {
public:
    ArgumentLine(const GeometryProducerPtr& producer,
                 int frame,
                 ProceduralErrorCallback errorCallback)
        : producer_(producer), frame_(frame), errorCallback_(errorCallback) {}

    void add(const std::string& name, const Attribute& value) {
        switch (value.getType()) {
            case FloatAttribute::kType:
                return WriteFloatArgument(stream_, name, castAttribute<FloatAttribute>(value));
            case DoubleAttribute::kType:
                return WriteDoubleArgument(stream_, name, castAttribute<DoubleAttribute>(value));
            case IntAttribute::kType:
                return WriteIntArgument(stream_, name, castAttribute<IntAttribute>(value));
            case StringAttribute::kType:
                return addString(name, castAttribute<StringAttribute>(value));
            default:
                return;
        }
    }

    void addCamera(const RequestedCamera& camera) {
        const CameraInfo& info = *camera.info;
        WriteStringArgument(
            stream_, "cameraInfo_path", StringAttribute(camera.path), producer_, frame_, nullptr);
        addFloat("cameraInfo_fov", info.fov);
        addFloat("cameraInfo_near", info.near);
        addFloat("cameraInfo_far", info.far);
        addFloat("cameraInfo_left", info.left);
        addFloat("cameraInfo_right", info.right);
        addFloat("cameraInfo_top", info.top);
        addFloat("cameraInfo_bottom", info.bottom);
        const double* const xform = info.xform.getValue();
        WriteFloatArgument(
            stream_, "cameraInfo_xform", FloatAttribute(std::vector<float>(xform, xform + 16), 16));
    }

    void addContext(const ProceduralOutputContextInfo& context) {
        stream_ << " -frame ";
        WriteNumber(stream_, context.frame);
        stream_ << " -shutter";
        addValue(context.shutterOpen);
        addValue(context.shutterClose);
        stream_ << " -cropwindow";
        for (const float edge : context.cropWindow) {
            addValue(edge);
        }
    }

    std::string text() const { return stream_.str(); }

private:
    void addString(const std::string& name, const StringAttribute& value) {
        const bool isExtra = Sylvar3::internal::pystring_v1::startswith(name, "extraArgs");
        const auto write = isExtra ? WriteExtraArguments : WriteStringArgument;
        write(stream_, name, value, producer_, frame_, errorCallback_);
    }

    void addFloat(const char* name, float value) {
        WriteFloatArgument(stream_, name, FloatAttribute(value));
    }

    void addValue(float value) {
        stream_ << ' ';
        WriteNumber(stream_, static_cast<double>(value));
    }

    std::ostringstream stream_;
    GeometryProducerPtr producer_;
    int frame_;
    ProceduralErrorCallback errorCallback_;
};

/// Those of "args", and behind them those of "systemArgs"; without "args" there are none.
std::vector<GroupAttribute::Child> argumentsOf(const GroupAttribute& attrs) {
    std::vector<GroupAttribute::Child> arguments;
    const auto args = attrs.getChild<GroupAttribute>("args");
    if (args) {
        args.fillChildVector(&arguments);
        attrs.getChild<GroupAttribute>("systemArgs").fillChildVector(&arguments);
    }
    return arguments;
}

}  // namespace

std::string BuildClassicProceduralArgumentsString(GeometryProducerPtr producer,
                                                  ProceduralOutputContextInfo& context,
                                                  GroupAttribute attrs,
                                                  ProceduralErrorCallback errorCallback) {
    ArgumentLine line(producer, context.frame, errorCallback);
    for (const auto& [name, value] : argumentsOf(attrs)) {
        line.add(name, value);
    }
    const RequestedCamera camera = requestedCamera(producer, attrs);
    if (camera.info) {
        line.addCamera(camera);
    }
    line.addContext(context);
    return line.text();
}

}  // namespace SYLVAR
