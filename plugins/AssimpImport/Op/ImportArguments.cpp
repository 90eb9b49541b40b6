// SPDX-License-Identifier: Apache-2.0
#include "Op/ImportArguments.h"

#include "ImportError.h"

#include <cmath>
#include <cstring>
#include <iterator>
#include <sstream>

namespace AssimpImport {
namespace {

constexpr OvOpArgument kArguments[] = {
    {"file", "string", nullptr, "The file: an asset's name, or a path."},
    {"at", "string", "/root", "Where the scene goes: its top location."},
    {"upAxis",
     "string",
     "",
     "\"x\", \"y\" or \"z\": the axis of the file that points up, which is turned to y; \"\": as "
     "the file says."},
    {"unitScale", "number", "0", "Scene units for one unit of the file; 0: as the file says."},
    {"lights", "int", "1", "0: leaves lights out."},
    {"cameras", "int", "1", "0: leaves cameras out."},
    {"materials", "int", "1", "0: leaves materials out."},
    {"maxFileBytes", "number", "0", "The largest file, in bytes; 0: no limit."},
    {"maxLocations", "number", "0", "The most locations; 0: no limit."},
};

/// Whole numbers up to here are exact.
constexpr double kLargestLimit = 9007199254740992.0;

/// Reads arguments by name.
class Reader {
public:
    Reader(const OvAttributeSuite& suite, OvAttributeStruct* arguments)
        : suite_(suite), arguments_(arguments) {}

    std::string string(const char* name, const char* otherwise) const {
        OvAttributeStruct* const value = find(name);
        const char* text = otherwise;
        suite_.getNearestString(&value, 0, 0.0F, &text);
        return text;
    }

    char axis(const char* name) const {
        const std::string text = string(name, "");
        if (text.empty()) {
            return 0;
        }
        if (text != "x" && text != "y" && text != "z") {
            fail(name, "one of \"\" \"x\" \"y\" \"z\", found \"" + text + "\"");
        }
        return text.front();
    }

    std::uint8_t flag(const char* name) const {
        const double value = number(name, 1.0);
        if (value != 0.0 && value != 1.0) {
            failFor(name, "0 or 1", value);
        }
        return value == 0.0 ? 0 : 1;
    }

    double scale(const char* name) const {
        const double value = number(name, 0.0);
        if (!std::isfinite(value) || value < 0.0) {
            failFor(name, "a positive number, or 0", value);
        }
        return value;
    }

    std::int64_t limit(const char* name) const {
        const double value = number(name, 0.0);
        if (!(value >= 0.0 && value <= kLargestLimit && std::floor(value) == value)) {
            failFor(name, "a whole number, or 0 for no limit", value);
        }
        return static_cast<std::int64_t>(value);
    }

    [[noreturn]] static void fail(const char* name, const std::string& expected) {
        throw ImportError("argument \"" + std::string(name) + "\": expected " + expected);
    }

private:
    OvAttributeStruct* find(const char* name) const {
        return suite_.borrowChildByName(
            arguments_, name, static_cast<std::int32_t>(std::strlen(name)));
    }

    double number(const char* name, double otherwise) const {
        OvAttributeStruct* const value = find(name);
        std::int32_t whole = 0;
        float single = 0.0F;
        if (suite_.getNearestInt(&value, 0, 0.0F, &whole) != 0) {
            return whole;
        }
        if (suite_.getNearestFloat(&value, 0, 0.0F, &single) != 0) {
            return static_cast<double>(single);
        }
        suite_.getNearestDouble(&value, 0, 0.0F, &otherwise);
        return otherwise;
    }

    [[noreturn]] static void failFor(const char* name, const char* expected, double found) {
        std::ostringstream text;
        text << expected << ", found " << found;
        fail(name, text.str());
    }

    const OvAttributeSuite& suite_;
    OvAttributeStruct* arguments_;
};

}  // namespace

const OvOpSchema kImportSchema = {
    "An asset file as a scene: OBJ, glTF, FBX, COLLADA, PLY, STL and others; read when it is first "
    "needed.",
    "A plug-in that is installed with the library; [import.md](import.md) tells what becomes of a "
    "file. The asset plug-in finds it, as for `load`. A file is read once for all that import it "
    "with the same options, wherever they put it. One that is missing, broken, or beyond a limit "
    "is an error at `at`. A changed file is noticed as by `load`; that is the file itself, not "
    "those that it refers to.",
    0,
    0,
    kArguments,
    static_cast<std::int32_t>(std::size(kArguments))};

ImportArguments::ImportArguments(const OvAttributeSuite& suite, OvAttributeStruct* arguments) {
    const Reader reader(suite, arguments);
    file = reader.string("file", "");
    if (file.empty()) {
        Reader::fail("file", "a file's name, found \"\"");
    }
    at = reader.string("at", "/root");
    options.upAxis = reader.axis("upAxis");
    options.unitScale = reader.scale("unitScale");
    options.lights = reader.flag("lights");
    options.cameras = reader.flag("cameras");
    options.materials = reader.flag("materials");
    options.maxFileBytes = reader.limit("maxFileBytes");
    options.maxLocations = reader.limit("maxLocations");
}

std::string fileArgument(const OvAttributeSuite& suite, OvAttributeStruct* arguments) {
    return Reader(suite, arguments).string("file", "");
}

}  // namespace AssimpImport
