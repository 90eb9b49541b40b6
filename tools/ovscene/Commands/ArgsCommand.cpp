// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/ProceduralArguments.h>
#include <OvSylvarProducers/RenderResolution.h>

#include "Commands/Commands.h"
#include "Commands/NumberOptions.h"
#include "Commands/OptionChecks.h"
#include "ExitStatus.h"
#include "Print/AttributeText.h"
#include "Print/SafeText.h"
#include "Print/Terminal.h"
#include "Scene/SceneErrors.h"
#include "Scene/SceneProducer.h"
#include "Scene/SceneWalk.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace ovscene {
namespace {

using SYLVAR::GeometryProducerPtr;
using SYLVAR::ProceduralOutputContextInfo;

constexpr int kClassic = 1;
constexpr int kScenegraphAttr = 2;

struct ArgsOptions {
    std::string file;
    std::string path;
    std::string name;
    int style = kClassic;
    int frame = 1;
    std::string shutter = "0,0";
    std::string crop = "0,1,0,1";
    std::optional<int> xres;
    std::optional<int> yres;
};

/// A location, and what it hands to the procedural that it calls.
struct Procedural {
    GeometryProducerPtr producer;
    GroupAttribute arguments;
    SceneErrors errors;  ///< The location's own.
};

Procedural findProcedural(const SceneFile& file, const ArgsOptions& options) {
    const FoundLocation found = findLocation(topLocation(file), options.path, file.name);
    VisitLimit limit(file.name);
    const SceneWalk walk(found.location, found.parentPath, limit);
    const Attribute attribute = found.location->attribute(options.name);
    if (!attribute) {
        throw CommandError(ExitStatus::NotFound,
                           file.name + ": no attribute " + options.name + " at " + walk.path());
    }
    if (attribute.getType() != OV_ATTRIBUTE_GROUP) {
        throw CommandError(ExitStatus::InputMalformed,
                           file.name + ": the attribute " + options.name + " at " + walk.path() +
                               " is no group but " + kindText(attribute));
    }
    Procedural procedural{producerAt(file, topProducer(file), walk.path()),
                          Sylvar3::internal::OvAttribute::castAttribute<GroupAttribute>(attribute),
                          SceneErrors()};
    procedural.errors.look(walk);
    return procedural;
}

/// The classic form has no resolution, and asks for none.
ProceduralOutputContextInfo contextOf(const ArgsOptions& options,
                                      const GeometryProducerPtr& producer) {
    ProceduralOutputContextInfo context;
    context.frame = options.frame;
    const std::vector<float> shutter = numbersOf(options.shutter);
    context.shutterOpen = shutter.front();
    context.shutterClose = shutter.back();
    const std::vector<float> crop = numbersOf(options.crop);
    std::copy_n(crop.begin(), context.cropWindow.size(), context.cropWindow.begin());
    if (options.style == kScenegraphAttr && !(options.xres && options.yres)) {
        SYLVAR::GetRenderResolution(
            nullptr, &context.xres, &context.yres, producer->getRootProducer());
    }
    context.xres = options.xres.value_or(context.xres);
    context.yres = options.yres.value_or(context.yres);
    return context;
}

void tellFailure(const std::string& message, GeometryProducerPtr producer) {
    tellUser(producer->getFullName() + ": " + message);
}

std::string argumentsText(const Procedural& procedural, const ArgsOptions& options) {
    ProceduralOutputContextInfo context = contextOf(options, procedural.producer);
    if (options.style == kScenegraphAttr) {
        return SYLVAR::BuildScenegraphAttrProceduralArgumentsString(
            procedural.producer, context, procedural.arguments, &tellFailure);
    }
    return safeText(SYLVAR::BuildClassicProceduralArgumentsString(
               procedural.producer, context, procedural.arguments, &tellFailure)) +
           "\n";
}

std::string textOrFailure(const Procedural& procedural, const ArgsOptions& options) {
    try {
        return argumentsText(procedural, options);
    } catch (const std::length_error& error) {
        throw CommandError(ExitStatus::InputMalformed, options.file + ": " + error.what());
    } catch (const std::runtime_error& error) {  // an unknown resolution, among others
        throw CommandError(ExitStatus::InputMalformed, options.file + ": " + error.what());
    }
}

void runArgs(const ArgsOptions& options, Output& output) {
    const SceneFile file = readSceneFile(options.file);
    const Procedural procedural = findProcedural(file, options);
    output.write(textOrFailure(procedural, options));
    procedural.errors.tell(file.name, output);
}

void addContextOptions(CLI::App& command, ArgsOptions& options) {
    command.add_option("--frame", options.frame, "The frame; 1 by default")
        ->check(isInt())
        ->option_text("N");
    command
        .add_option("--shutter",
                    options.shutter,
                    "When the shutter opens and closes; 0,0 by\n"
                    "default")
        ->check(isNumberList(2))
        ->option_text("OPEN,CLOSE");
    command.add_option("--crop", options.crop, "The crop window; 0,1,0,1 by default")
        ->check(isNumberList(4))
        ->option_text("L,R,B,T");
    command
        .add_option("--xres",
                    options.xres,
                    "The picture's width in pixels, told by style 2\n"
                    "alone; as the render settings say by default")
        ->check(isCountUpTo(std::numeric_limits<int>::max()))
        ->option_text("N");
    command.add_option("--yres", options.yres, "The same for its height")
        ->check(isCountUpTo(std::numeric_limits<int>::max()))
        ->option_text("N");
}

}  // namespace

void addArgsCommand(CLI::App& app, Output& output) {
    const auto options = std::make_shared<ArgsOptions>();
    CLI::App* command = app.add_subcommand("args", "Tells the arguments of a procedural");
    command->add_option("FILE", options->file, "A static scene or an op tree, binary or text")
        ->required();
    command->add_option("PATH", options->path, "The location that calls the procedural")
        ->required();
    command
        ->add_option("ATTR",
                     options->name,
                     "The group that has the arguments; dots step\n"
                     "into groups")
        ->required();
    command
        ->add_option("--style",
                     options->style,
                     "1: a line of command, by default; 2: the XML of\n"
                     "an attribute")
        ->check(isCountUpTo(kScenegraphAttr))
        ->option_text("1|2");
    addContextOptions(*command, *options);
    command->footer(
        "Examples:\n"
        "  ovscene args shot.optree /root/world/fur procedural\n"
        "  ovscene args shot.optree /root/world/fur procedural --style 2 --frame 12");
    command->callback([options, &output] { runArgs(*options, output); });
}

}  // namespace ovscene
