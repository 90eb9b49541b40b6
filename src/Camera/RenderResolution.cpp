// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/RenderResolution.h>
#include <ResolutionTableOv/ResolutionTable.h>

#include <stdexcept>

namespace SYLVAR {
namespace {

namespace OvAttribute = Sylvar3::internal::OvAttribute;
using ORM_OV::ResolutionTable::v4::GetResolutionTable;

struct RenderResolution {
    std::string name = "square_512";
    int width = 512;
    int height = 512;
};

RenderResolution named(const std::string& name) {
    const auto table = GetResolutionTable(nullptr);
    if (!table) {
        throw std::runtime_error("GetRenderResolution: Error getting resolution table");
    }
    try {
        const auto resolution = table->getResolution(name);
        return {name, resolution.width, resolution.height};
    } catch (...) {
        throw std::runtime_error("FileOut: Error querying resolution table for resolution: '" +
                                 name + "'.");
    }
}

RenderResolution resolutionOf(const GeometryProducerPtr& root) {
    if (!root) {
        return {};
    }
    const auto setting = OvAttribute::castAttribute<StringAttribute>(
        root->getAttribute("renderSettings.resolution"));
    return setting ? named(OvAttribute::getStringValue(setting, "", false)) : RenderResolution();
}

template <class T>
void store(T* place, const T& value) {
    if (place) {
        *place = value;
    }
}

}  // namespace

void GetRenderResolution(std::string* resolutionName,
                         int* xres,
                         int* yres,
                         GeometryProducerPtr root) {
    const RenderResolution resolution = resolutionOf(root);
    store(resolutionName, resolution.name);
    store(xres, resolution.width);
    store(yres, resolution.height);
}

}  // namespace SYLVAR
