// SPDX-License-Identifier: Apache-2.0
// Makes the paths of tiles and the temporary locations of outputs. The first lines are a template,
// the tile's numbers, a frame and a location with runs of "#"; all others are paths. Nothing may
// throw, and all results and warnings must be those of the plain rules.
#include <OvSylvarProducers/RenderOutputUtilsHost.h>
#include <OvSylvarProducers/ScenegraphIteratorHost.h>
#include <OvSylvarProducers/StaticGeometryProducer.h>
#include <SylvarPlatform/Configuration.h>
#include <SylvarPlatform/DataAttribute.h>
#include <SylvarPlatform/GroupBuilder.h>
#include <SylvarPlatform/Logging.h>
#include <SylvarPlatform/PyString.h>

#include "Utils/OvRenderOutputUtilsHost/OutputLocation.h"
#include "Utils/OvScenegraphIteratorHost/IteratorHandle.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iomanip>
#include <limits>
#include <regex>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

using namespace Sylvar3::internal::OvAttribute;
using SYLVAR::RenderOutputUtilsHost::ProcessTilePath;
using Tile = std::vector<int>;

constexpr std::size_t kMostBytes = 512;
constexpr int kMostPaths = 8;
constexpr const char* kTemplateKey = "VARLIN_TILE_FILENAME";

void require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

bool has(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

bool startsWith(const std::string& text, const std::string& start) {
    return text.compare(0, start.size(), start) == 0;
}

bool endsWith(const std::string& text, const std::string& end) {
    return text.size() >= end.size() &&
           text.compare(text.size() - end.size(), end.size(), end) == 0;
}

std::string replaced(const std::string& text, const std::string& token, const std::string& value) {
    std::string result;
    for (std::size_t at = 0; at < text.size();) {
        const bool isToken = text.compare(at, token.size(), token) == 0;
        result += isToken ? value : text.substr(at, 1);
        at += isToken ? token.size() : 1;
    }
    return result;
}

int messages = 0;

/// What the location and the settings of the process bring in: more runs of "#", and a variable.
void prepareProcess() {
    static const bool isPrepared = [] {
        OvLoggingHost::setLogSink([](const OvLoggingHost::LogMessage&) { ++messages; });
        return ::setenv("HOME", "/home/#", 1) == 0 && ::setenv("V", "a##", 1) == 0;
    }();
    require(isPrepared);
}

/// @name Paths by the plain rules
/// @{
bool beginsWithHost(const std::string& path) {
    return path.size() > 2 && startsWith(path, "//") && path[2] != '/';
}

bool hasRootDirectory(const std::string& path) {
    return startsWith(path, "/") && (!beginsWithHost(path) || path.find('/', 2) != path.npos);
}

std::string fileNameOf(const std::string& path) {
    const std::size_t last = path.find_last_not_of('/');
    if (last == std::string::npos) {
        return "";
    }
    if (beginsWithHost(path) && path.find('/', 2) == std::string::npos) {
        return path;
    }
    if (path.back() == '/') {
        return beginsWithHost(path) && path.find('/', 2) > last ? "/" : ".";
    }
    return path.substr(path.find_last_of('/') + 1);
}

std::size_t extensionPlace(const std::string& fileName) {
    const bool isDots = fileName == "." || fileName == "..";
    return isDots ? fileName.size() : std::min(fileName.rfind('.'), fileName.size());
}
/// @}

/// The form that file names have where no template is set, and the path of it.
struct UsualPath {
    std::string name;
    std::string path;
};

UsualPath requireUsualPath(const std::string& image, const Tile& tile) {
    messages = 0;
    const std::string path = ProcessTilePath(image, tile);
    require(messages == 0);
    const std::string name =
        "tile_" + std::to_string(tile[0]) + "_" + std::to_string(tile[1]) + "." + fileNameOf(image);
    require(endsWith(path, name));
    std::string directory = path.substr(0, path.size() - name.size());
    require(directory.empty() || directory.back() == '/');
    directory.resize(directory.empty() ? 0 : directory.size() - 1);
    require(startsWith(image, directory));
    return {name, path};
}

bool isAcceptable(const std::string& text) {
    return (has(text, "@COLUMN@") && has(text, "@ROW@") && has(text, "@STEM@") &&
            has(text, "@EXT@")) ||
           has(text, "@DEFAULT@");
}

std::string filledIn(const std::string& text,
                     const std::string& usualName,
                     const std::string& image,
                     const Tile& tile) {
    const std::string fileName = fileNameOf(image);
    const std::size_t dot = extensionPlace(fileName);
    const bool isCountKnown = tile.size() >= 4;
    const std::pair<std::string, std::string> tokens[] = {
        {"@DEFAULT@", usualName},
        {"@COLUMNS@", isCountKnown ? std::to_string(tile[2]) : "UnknownColumns"},
        {"@COLUMN@", std::to_string(tile[0])},
        {"@ROWS@", isCountKnown ? std::to_string(tile[3]) : "UnknownRows"},
        {"@ROW@", std::to_string(tile[1])},
        {"@STEM@", fileName.substr(0, dot)},
        {"@EXT@", fileName.substr(dot)},
    };
    std::string result = text;
    for (const auto& [token, value] : tokens) {
        result = replaced(result, token, value);
    }
    return result;
}

/// With the template set.
void requireFilledIn(const std::string& text,
                     const UsualPath& usual,
                     const std::string& image,
                     const Tile& tile) {
    messages = 0;
    const std::string path = ProcessTilePath(image, tile);
    if (!isAcceptable(text)) {
        require(path == usual.path && messages == 1);
        return;
    }
    const bool missesCounts = tile.size() < 4 && (has(text, "@COLUMNS@") || has(text, "@ROWS@"));
    require(messages == (missesCounts ? 1 : 0));
    const std::string file = filledIn(text, usual.name, image, tile);
    const std::string directory = usual.path.substr(0, usual.path.size() - usual.name.size());
    require(endsWith(path, file));
    require(hasRootDirectory(file) ? path == file : startsWith(path + "/", directory));
    require(startsWith(file, "/") || path == directory + file);
}

void makeTilePaths(const std::string& text, const std::string& image, const Tile& tile) {
    auto* const config = Sylvar3::OvConfiguration::v1::Config();
    if (tile.size() < 2) {
        messages = 0;
        require(ProcessTilePath(image, tile) == image && messages == 1);
        return;
    }
    const UsualPath usual = requireUsualPath(image, tile);
    config->set(kTemplateKey, text);
    requireFilledIn(text, usual, image, tile);
    config->unset(kTemplateKey);
}

/// A location of a scene, as the table sees it.
class Location {
public:
    explicit Location(const GroupAttribute& attributes)
        : handle_(SYLVAR::OvGeometryProducerToHandle(
              SYLVAR::CreateStaticGeometryProducer("/root",
                                                   GroupAttribute({{"a", attributes}}, false),
                                                   nullptr))) {
        SYLVAR::retainIterator(handle_);
    }
    ~Location() { SYLVAR::releaseIterator(handle_); }
    Location(const Location&) = delete;
    Location& operator=(const Location&) = delete;

    std::string tilePath(const std::string& path) const {
        return taken(SYLVAR::processTilePath(handle_, path.c_str()));
    }

    std::string temporary(const char* prefix, const char* suffix, float frame) const {
        return taken(SYLVAR::getRenderOutputTempLocation(handle_, "o", prefix, suffix, frame));
    }

private:
    static std::string taken(OvAttributeStruct* owned) {
        const auto attribute = castAttribute<StringAttribute>(Attribute::adopt(owned));
        require(attribute.isValid());
        return attribute.getValue("");
    }

    OvSgIteratorStruct* handle_;
};

int wholeNumber(float frame) {
    constexpr auto kEnd = 2147483648.0F;
    if (std::isnan(frame)) {
        return 0;
    }
    if (frame >= kEnd) {
        return std::numeric_limits<int>::max();
    }
    return frame < -kEnd ? std::numeric_limits<int>::min() : static_cast<int>(frame);
}

std::string withFrame(const std::string& text, float frame) {
    static const std::regex runs("#+");
    std::ostringstream result;
    auto rest = text.cbegin();
    for (std::sregex_iterator run(text.begin(), text.end(), runs), end; run != end; ++run) {
        result << run->prefix() << std::setfill('0') << std::setw(static_cast<int>(run->length()))
               << wholeNumber(frame);
        rest = (*run)[0].second;
    }
    return result.str() + std::string(rest, text.cend());
}

void requireFixedLocation(const std::string& text, float frame) {
    namespace paths = Sylvar3::internal::pystring_v1::os::path;
    const Location location(GroupBuilder()
                                .set("renderSettings.outputs.o.rendererSettings.tempRenderLocation",
                                     StringAttribute(text))
                                .set("renderSettings.tempDir", StringAttribute("/not/this/one"))
                                .build());
    const std::string result = location.temporary("p", nullptr, frame);
    require(result == withFrame(paths::expandvars(paths::expanduser(text)), frame));
    require(!has(result, "#"));
}

void requireNameInDirectory(const std::string& directory, const std::string& id, float frame) {
    const Location location(GroupBuilder()
                                .set("renderSettings.tempDir", StringAttribute(directory))
                                .set("renderSettings.outputs.o.tempRenderId", StringAttribute(id))
                                .build());
    const auto requireName = [&](const char* prefix, const char* suffix, const std::string& name) {
        const std::string result = location.temporary(prefix, suffix, frame);
        const bool isJoined =
            directory.empty() || directory.back() == '/' || name.empty() || name.front() == '/';
        require(result == directory + (isJoined ? "" : "/") + name);
    };
    requireName("p", "exr", "p" + id + ".exr");
    requireName("", "", id + ".");
    requireName("p", nullptr, "p" + id + ".");
    requireName(nullptr, "exr", "");
}

void requireSameByTheTable(const std::string& image, const Tile& tile) {
    const Location location(
        GroupBuilder().set("renderSettings.tileRender", IntAttribute(tile)).build());
    require(location.tilePath(image) == ProcessTilePath(image, tile));
}

std::string takeLine(std::string_view& text) {
    const std::string line(text.substr(0, text.find('\n')));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    return line.substr(0, line.find('\0'));
}

Tile numbersOf(const std::string& line) {
    std::istringstream numbers(line);
    Tile tile;
    for (int number = 0; numbers >> number;) {
        tile.push_back(number);
    }
    return tile;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    prepareProcess();
    std::string_view text(reinterpret_cast<const char*>(data), std::min(size, kMostBytes));
    const std::string tileTemplate = takeLine(text);
    const Tile tile = numbersOf(takeLine(text));
    const float frame = std::strtof(takeLine(text).c_str(), nullptr);
    const std::string location = takeLine(text);
    if (!location.empty()) {
        requireFixedLocation(location, frame);
    }
    for (int i = 0; i < kMostPaths && (i == 0 || !text.empty()); ++i) {
        const std::string path = takeLine(text);
        makeTilePaths(tileTemplate, path, tile);
        requireSameByTheTable(path, tile);
        requireNameInDirectory(path, location, frame);
    }
    return 0;
}
