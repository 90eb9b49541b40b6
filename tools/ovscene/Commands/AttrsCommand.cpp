// SPDX-License-Identifier: Apache-2.0
#include "Commands/Commands.h"
#include "ExitStatus.h"
#include "Print/AttributeJson.h"
#include "Print/AttributeText.h"
#include "Print/JsonOutput.h"
#include "Print/NumberText.h"
#include "Print/SafeText.h"
#include "Print/Table.h"
#include "Print/Terminal.h"
#include "Scene/AttributeWalk.h"
#include "Scene/SceneErrors.h"
#include "Scene/SceneFile.h"
#include "Scene/SceneWalk.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace ovscene {
namespace {

constexpr std::size_t kLevelsIndented = 20;
constexpr std::size_t kLongestName = 60;
constexpr std::size_t kLinesMeasured = 1000;
constexpr std::size_t kFewestValueColumns = 24;

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

std::string indentation(std::size_t levels) {
    constexpr std::size_t kStep = 2;
    if (levels <= kLevelsIndented) {
        return std::string(levels * kStep, ' ');
    }
    const std::size_t more = levels - kLevelsIndented;
    return std::string(kLevelsIndented * kStep, ' ') + "(+" +
           numberText(static_cast<std::int64_t>(more)) + ") ";
}

/// The lines of a list of attributes: name, kind, samples and values. The values get the columns
/// that the lines measured leave.
class AttributeLines {
public:
    AttributeLines(Output& output, std::string topName, std::size_t firstDepth)
        : table_(output), topName_(std::move(topName)), firstDepth_(firstDepth) {
        const std::vector<Cell> heading = {
            Cell::left("name"), Cell::left("kind"), Cell::left("samples")};
        measure(heading);
        add(heading, "values");
    }

    void measure(const AttributeWalk& walk) { measure(cells(walk)); }

    void add(const AttributeWalk& walk) {
        const std::size_t columns = outputColumns();
        const std::size_t room = columns - std::min(columns, taken_);
        add(cells(walk), valuesText(walk.attribute(), std::max(kFewestValueColumns, room)));
    }

    void finish() { table_.finish(); }

private:
    std::vector<Cell> cells(const AttributeWalk& walk) const {
        const std::string name = walk.depth() == 0 ? topName_ : std::string(walk.name());
        const std::string kind = kindText(walk.attribute());
        return {Cell::left(indentation(walk.depth() - firstDepth_) + safeText(name, kLongestName)),
                {palette_.type(kind), kind.size()},
                Cell::left(samplesText(walk.attribute()))};
    }

    void measure(const std::vector<Cell>& line) {
        constexpr std::size_t kGap = 2;
        taken_ = 0;
        for (std::size_t i = 0; i < line.size(); ++i) {
            widths_[i] = std::max(widths_[i], line[i].width);
            taken_ += widths_[i] + kGap;
        }
    }

    void add(std::vector<Cell> line, const std::string& values) {
        line.push_back(Cell::left(values));
        table_.add(std::move(line));
    }

    Table table_;
    Palette palette_;
    std::string topName_;
    std::size_t firstDepth_;
    std::size_t widths_[3] = {};
    std::size_t taken_ = 0;
};

void printHeading(const Subject& subject, Output& output) {
    const Palette palette;
    if (!subject.path.empty()) {
        const std::string type = safeText(subject.type, kLongestName);
        output.write(palette.bold(safeText(subject.path)) + (type.empty() ? "" : "  ") +
                     palette.type(type) + "\n\n");
    }
}

void printLines(const Subject& subject, const std::string& filename, Output& output) {
    printHeading(subject, output);
    const bool list = subject.name.empty() && subject.attribute.getType() == OV_ATTRIBUTE_GROUP;
    if (!subject.attribute) {
        output.write("no attributes\n");
        return;
    }
    const std::string topName = subject.name.empty() ? "(attribute)" : subject.name;
    AttributeLines lines(output, topName, list ? 1 : 0);
    VisitLimit limit(filename);
    AttributeWalk first(subject.attribute, limit);
    if (list) {
        first.next();
    }
    std::size_t measured = 0;
    for (AttributeWalk walk = first; !walk.atEnd() && measured < kLinesMeasured; walk.next()) {
        lines.measure(walk);
        ++measured;
    }
    for (AttributeWalk walk = first; !walk.atEnd(); walk.next()) {
        lines.add(walk);
    }
    lines.finish();
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
