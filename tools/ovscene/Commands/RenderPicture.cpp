// SPDX-License-Identifier: Apache-2.0
#include "Commands/RenderPicture.h"

#include <OvSylvarProducers/ScenegraphIteratorHost.h>
#include <ResolutionTableOv/ResolutionTable.h>
#include <SylvarPlatform/DataAttribute.h>

#include "Commands/NearName.h"
#include "ExitStatus.h"
#include "Print/NumberText.h"
#include "Scene/HostTables.h"

#include <cstdint>
#include <stdexcept>
#include <vector>

namespace ovscene {
namespace {

using Sylvar3::internal::OvAttribute::castAttribute;
using Sylvar3::internal::OvAttribute::StringAttribute;

constexpr char kSetting[] = "renderSettings.resolution";

std::string settingOf(OvSgIteratorStruct* top) {
    const SYLVAR::GeometryProducerPtr producer = SYLVAR::OvHandleToGeometryProducer(top);
    return castAttribute<StringAttribute>(producer->getAttribute(kSetting)).getValue("");
}

/// What was meant, or how many there are to choose from.
std::string hintFor(const std::string& name, const std::vector<std::string>& names) {
    const std::string near = nearName(name, names);
    return near.empty()
               ? "the table has " + counted(static_cast<std::int64_t>(names.size()), "resolution") +
                     ", none of that name"
               : "did you mean '" + near + "'?";
}

[[noreturn]] void throwNoPicture(const std::string& filename,
                                 OvSgIteratorStruct* top,
                                 const std::string& reason) {
    const auto table = ORM_OV::ResolutionTable::v4::GetResolutionTable(nullptr);
    if (!table) {
        throw CommandError(ExitStatus::Unexpected, filename + ": " + reason);
    }
    const std::string name = settingOf(top);
    throw CommandError(ExitStatus::NotFound,
                       filename + ": no resolution '" + name + "' (" + kSetting + " names it); " +
                           hintFor(name, table->getNames()));
}

}  // namespace

Picture renderPicture(const std::string& filename, OvSgIteratorStruct* top) {
    Picture picture;
    try {
        const auto name = castAttribute<StringAttribute>(
            hostRenderOutputUtils().getRenderResolution(top, &picture.width, &picture.height));
        picture.name = name.getValue("");
    } catch (const std::runtime_error& error) {
        throwNoPicture(filename, top, error.what());
    }
    return picture;
}

}  // namespace ovscene
