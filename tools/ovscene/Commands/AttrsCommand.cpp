// SPDX-License-Identifier: Apache-2.0
#include "Commands/Commands.h"
#include "ExitStatus.h"
#include "Print/AttributeJson.h"
#include "Print/AttributeLines.h"
#include "Print/JsonOutput.h"
#include "Print/LocationHeading.h"
#include "Scene/SceneErrors.h"
#include "Scene/SceneFile.h"
#include "Scene/SceneWalk.h"

#include <memory>
#include <optional>
#include <stdexcept>
#include <string>

namespace ovscene {
namespace {

struct AttrsOptions {
    std::string file;
    std::optional<std::string> path;
    std::string name;
    bool xml = false;
    bool json = false;
};

/// What is to be shown, and what it is called.
struct Subject {
    Attribute attribute;
    std::string path;  ///< Empty for the attribute that the file holds.
    std::string type;
    std::string name;
    SceneErrors errors;  ///< The location's own.
};

Subject locationSubject(const SceneFile& file, const AttrsOptions& options) {
    const FoundLocation found = findLocation(topLocation(file), *options.path, file.name);
    VisitLimit limit(file.name);
    const SceneWalk walk(found.location, found.parentPath, limit);
    const std::string path = walk.path();
    const Attribute attribute = found.location->attribute(options.name);
    if (!attribute && !options.name.empty()) {
        throw CommandError(ExitStatus::NotFound,
                           file.name + ": no attribute " + options.name + " at " + path);
    }
    Subject subject{attribute, path, found.location->type(), options.name, SceneErrors()};
    subject.errors.look(walk);
    return subject;
}

Subject subjectOf(const SceneFile& file, const AttrsOptions& options) {
    return options.path ? locationSubject(file, options)
                        : Subject{file.attribute, "", "", "", SceneErrors()};
}

void printXml(const Subject& subject, const std::string& filename, Output& output) {
    try {
        const std::string xml = subject.attribute.getXML();
        output.write(xml);
        output.write(xml.empty() || xml.back() != '\n' ? "\n" : "");
    } catch (const std::length_error& error) {
        throw CommandError(ExitStatus::InputMalformed, filename + ": " + error.what());
    }
}

void printJson(const Subject& subject, const std::string& filename, Output& output) {
    JsonStream stream(output);
    JsonWriter json(stream);
    VisitLimit limit(filename);
    json.StartObject();
    writeJsonMember(json, "file", filename);
    if (!subject.path.empty()) {
        writeJsonMember(json, "path", subject.path);
        writeJsonMember(json, "type", subject.type);
        writeJsonMember(json, "name", subject.name);
    }
    writeJsonKey(json, "attribute");
    writeAttributeJson(json, subject.attribute, limit);
    json.EndObject();
    output.put('\n');
}

void printLines(const Subject& subject, const std::string& filename, Output& output) {
    if (!subject.path.empty()) {
        printLocationHeading(subject.path, subject.type, output);
    }
    printAttributeLines(subject.attribute, subject.name, filename, output);
}

void runAttrs(const AttrsOptions& options, Output& output) {
    const SceneFile file = readSceneFile(options.file);
    const Subject subject = subjectOf(file, options);
    if (options.xml) {
        printXml(subject, file.name, output);
    } else if (options.json) {
        printJson(subject, file.name, output);
    } else {
        printLines(subject, file.name, output);
    }
    subject.errors.tell(file.name, output);
}

}  // namespace

void addAttrsCommand(CLI::App& app, Output& output) {
    const auto options = std::make_shared<AttrsOptions>();
    CLI::App* command = app.add_subcommand("attrs", "Shows the attributes of a location");
    command->add_option("FILE", options->file, "A file, binary or text")->required();
    command->add_option("PATH",
                        options->path,
                        "A location of the scene; without one, what the file\n"
                        "holds is shown, whatever it is");
    command->add_option("NAME", options->name, "One attribute alone; dots step into groups");
    CLI::Option* xml =
        command->add_flag("--xml", options->xml, "Print as XML, in full")->option_text(" ");
    command->add_flag("--json", options->json, "Print as one JSON document, in full")
        ->excludes(xml)
        ->option_text(" ");
    command->footer(
        "Examples:\n"
        "  ovscene attrs chair.optree /root/chair/seat\n"
        "  ovscene attrs chair.optree /root/chair/seat geometry.points --json\n"
        "  ovscene attrs look.optree.json --xml");
    command->callback([options, &output] { runAttrs(*options, output); });
}

}  // namespace ovscene
