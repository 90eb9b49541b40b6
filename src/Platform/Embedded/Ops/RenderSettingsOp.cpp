// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/GroupBuilder.h>

#include "Platform/Embedded/Ops/Arguments.h"
#include "Platform/Embedded/Ops/Locations/AttributeAssignment.h"
#include "Platform/Embedded/Ops/Locations/LocationChange.h"
#include "Platform/Embedded/Ops/OpTypes.h"
#include "Platform/Embedded/Runtime/AttributeEdit.h"
#include "Platform/Embedded/Runtime/Cook.h"
#include "Platform/Support/OnceBuilt.h"

#include <utility>

namespace Sylvar3::internal::OvSylvar::Embedded {

using OvAttribute::GroupAttribute;
using OvAttribute::GroupBuilder;

namespace {

constexpr const char* kTop = "/root";

class RenderSettingsOp final : public OpBody {
public:
    explicit RenderSettingsOp(GroupAttribute settings) : settings_(std::move(settings)) {}

    void cook(Cook& cook, LocationWriter& out) const override {
        const Location input = cook.input(0);
        if (!input.exists() || cook.path() != kTop) {
            return out.pass(input);
        }
        AttributeEdit attributes(input);
        assign(attributes, "renderSettings", settings_.handle(), AssignmentMode::Merge, out);
        writeWithAttributes(input, attributes.write(out), out);
    }

private:
    GroupAttribute settings_;
};

void checkOutputs(const GroupAttribute& outputs) {
    for (std::int64_t i = 0; i < outputs.getNumberOfChildren(); ++i) {
        if (outputs.getChildByIndex(i).getType() != OV_ATTRIBUTE_GROUP) {
            Arguments::fail(
                "outputs",
                "a group for each output, found none for \"" + outputs.getChildName(i) + "\"");
        }
    }
}

void checkTile(const NumberList& tile) {
    if (tile.size() != 2 && tile.size() != 4) {
        Arguments::fail("tileRender",
                        "column and row, and perhaps their numbers, found " +
                            std::to_string(tile.size()) + " numbers");
    }
}

class RenderSettingsOpType final : public OpType {
public:
    const OpSchema& schema() const override { return schema_; }

    std::unique_ptr<const OpBody> make(const GroupAttribute& group,
                                       std::size_t /*inputCount*/,
                                       const std::string& /*place*/) const override {
        const Arguments arguments(schema_, group);
        checkOutputs(arguments.getGroup("outputs"));
        if (arguments.has("tileRender")) {
            checkTile(arguments.getNumbers("tileRender", 1, true));
        }
        if (arguments.has("camera")) {
            arguments.getPath("camera", "");
        }
        GroupBuilder settings(GroupBuilder::Mode::Flat);
        for (std::int64_t i = 0; i < group.getNumberOfChildren(); ++i) {
            const std::string name = group.getChildName(i);
            if (const OvAttribute::Attribute value = group.getChildByIndex(i)) {
                settings.set(name == "camera" ? "cameraName" : name, value);
            }
        }
        return std::make_unique<RenderSettingsOp>(settings.build());
    }

private:
    const OpSchema schema_ = {
        "renderSettings",
        "Sets how the scene is to be rendered: \"renderSettings\" of /root.",
        "What is not given stays as it is; outputs are merged with those that are there. The "
        "camera becomes \"cameraName\", all else has the name of its argument. A scene without "
        "/root has "
        "nowhere to put them.",
        1,
        1,
        {
            {"camera", "string", "", "The path of the camera."},
            {"resolution", "string", "", "A name of the resolution table, such as `hd_720`."},
            {"outputs", "group", "", "A group for each output, by its name."},
            {"tempDir", "string", "", "The folder for files of unfinished renders."},
            {"tileRender",
             "ints",
             "",
             "Column and row of the tile to render, and the numbers of columns and rows."},
        },
    };
};

}  // namespace

const OpType& renderSettingsOpType() {
    static Support::OnceBuilt<RenderSettingsOpType> type;
    return type.get();
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
