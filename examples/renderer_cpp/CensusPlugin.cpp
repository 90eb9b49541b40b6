// SPDX-License-Identifier: Apache-2.0
//
// A renderer as a plug-in, complete and in C++17: "CensusCpp" walks a scene and prints what it
// found, as a renderer would that translates it. Build it into a shared object and put that where
// plug-ins are looked for:
//
//     c++ -std=c++17 -shared -fPIC -fvisibility=hidden CensusPlugin.cpp -o CensusCpp.so
//
// It links nothing: all that it calls comes in tables of functions, which the host hands over and
// the views in Scene.hpp and RenderOutput.hpp make pleasant.
#include <OvSylvarProducers/suites/RenderOutput.hpp>
#include <OvSylvarProducers/suites/Scene.hpp>
#include <SylvarPlatform/suites/Plugin.h>
#include <SylvarPlatform/suites/Renderer.h>

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace {

using SYLVAR::Suites::Attribute;
using SYLVAR::Suites::Camera;
using SYLVAR::Suites::Error;
using SYLVAR::Suites::Expected;
using SYLVAR::Suites::Kind;
using SYLVAR::Suites::Location;
using SYLVAR::Suites::RenderOutput;
using SYLVAR::Suites::Resolution;
using SYLVAR::Suites::Scene;
using SYLVAR::Suites::ShadingNetwork;

constexpr char kName[] = "CensusCpp";  // of the plug-in, the renderer and its logger
constexpr std::size_t kShownLevels = 4;
constexpr float kFrame = 1;

const OvHostTable* host = nullptr;

void log(std::int32_t level, const std::string& message, int line) {
    if (host->isLogEnabled(kName, level)) {
        host->log(kName, level, message.c_str(), __FILE__, line);
    }
}

// ---- Where the result goes ----------------------------------------------------------------------

/// The file that the user named, or the standard output, which the host looks after.
class File {
public:
    explicit File(const char* name)
        : name_(name ? name : ""), file_(name ? std::fopen(name, "w") : stdout) {}
    ~File() { static_cast<void>(close()); }
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    /// Null when it cannot be opened.
    std::FILE* get() const { return file_; }

    /// Whether all was written.
    Expected<void> close() {
        std::FILE* const file = std::exchange(file_, nullptr);
        bool isWritten = file != nullptr;
        if (file && file != stdout) {
            isWritten = std::ferror(file) == 0;
            isWritten = std::fclose(file) == 0 && isWritten;
        }
        return isWritten ? Expected<void>() : Error("cannot write " + name_);
    }

private:
    std::string name_;
    std::FILE* file_;
};

std::string shown(const std::string& text) {
    return text.empty() ? "-" : text;
}

// ---- The render ---------------------------------------------------------------------------------

Expected<void> printResolution(const RenderOutput& output, const Location& root, std::FILE* file) {
    const Expected<Resolution> picture = output.resolution(root);
    if (!picture) {
        return picture.error();
    }
    std::fprintf(file,
                 "resolution %s: %d x %d\n",
                 shown(picture->name).c_str(),
                 picture->width,
                 picture->height);
    return {};
}

Expected<void> printCamera(const RenderOutput& output, const Location& root, std::FILE* file) {
    const Expected<std::string> path = output.cameraPath(root);
    if (!path) {
        return path.error();
    }
    const Expected<Camera> camera = output.camera(root, *path);
    if (!camera) {
        return camera.error();
    }
    const std::string name = shown(*path);
    if (*camera) {
        const auto fov = static_cast<double>(camera->fov);
        std::fprintf(file, "camera %s: %g degrees\n", name.c_str(), fov);
    } else {
        std::fprintf(file, "camera %s: none\n", name.c_str());
    }
    return {};
}

/// Where each output is rendered to before it is moved to its place.
Expected<void> printOutputs(const RenderOutput& output, const Location& root, std::FILE* file) {
    for (const auto& [key, settings] : root.attribute("renderSettings.outputs").children()) {
        const std::string name(key);
        const Expected<std::string> place = output.tempLocation(root, name, name, "exr", kFrame);
        if (!place) {
            return place.error();
        }
        std::fprintf(file, "output %s: %s\n", name.c_str(), shown(*place).c_str());
    }
    return {};
}

Expected<void> printRender(const RenderOutput& output, const Location& root, std::FILE* file) {
    for (const auto print : {printResolution, printCamera, printOutputs}) {
        if (Expected<void> printed = print(output, root, file); !printed) {
            return printed;
        }
    }
    return {};
}

// ---- The walk -----------------------------------------------------------------------------------

/// What was found so far.
struct Census {
    std::FILE* file;  ///< Where the lines go.
    std::map<std::string, unsigned long> countByType;
    unsigned long locations = 0;
    unsigned long points = 0;
    unsigned long materials = 0;
    unsigned long nodes = 0;
    std::size_t levels = 0;
};

/// Counts the nodes that can be used. A network is asked for them by their names, which the
/// material has.
Expected<void> countMaterial(const RenderOutput& output,
                             const Attribute& material,
                             Census& census) {
    const Expected<ShadingNetwork> network = output.shadingNetwork(material);
    if (!network) {
        return network.error();
    }
    ++census.materials;
    for (const auto& [key, node] : material.child("nodes").children()) {
        census.nodes += network->node(node.child("name").get("")) ? 1 : 0;
    }
    return {};
}

Expected<void> count(const RenderOutput& output,
                     const Location& location,
                     std::size_t level,
                     Census& census) {
    const std::string type = shown(location.type());
    if (level <= kShownLevels) {
        std::fprintf(census.file, "%s  %s\n", location.fullName().c_str(), type.c_str());
    }
    ++census.countByType[type];
    ++census.locations;
    census.points += location.values<float>("geometry.points").size() / 3;
    census.levels = std::max(census.levels, level);
    const Attribute material = location.attribute("material");
    return material.kind() == Kind::Group ? countMaterial(output, material, census)
                                          : Expected<void>();
}

/// Takes the way from the root to a location on to the next one: down, beside, or beside the
/// nearest one above that has a neighbour. Empty after the last location. A scene may be deeper
/// than any stack, so nothing here calls itself.
Expected<void> goOn(std::vector<Location>& way) {
    Expected<Location> next = way.back().firstChild();
    while (next && !*next && !way.empty()) {
        next = way.back().nextSibling();
        way.pop_back();
    }
    if (!next) {
        return next.error();
    }
    if (*next) {
        way.push_back(*std::move(next));
    }
    return {};
}

Expected<Census> countAll(const RenderOutput& output, const Location& root, std::FILE* file) {
    Census census{};
    census.file = file;
    std::vector<Location> way;
    way.push_back(root.share());
    while (!way.empty()) {
        if (const Expected<void> counted = count(output, way.back(), way.size(), census);
            !counted) {
            return counted.error();
        }
        if (const Expected<void> gone = goOn(way); !gone) {
            return gone.error();
        }
    }
    return census;
}

void print(const Census& census) {
    std::fprintf(census.file,
                 "%lu locations, %zu levels, %lu points, %lu materials, %lu shading nodes\n",
                 census.locations,
                 census.levels,
                 census.points,
                 census.materials,
                 census.nodes);
    for (const auto& [type, howMany] : census.countByType) {
        std::fprintf(census.file, "%8lu  %s\n", howMany, type.c_str());
    }
}

// ---- The renderer -------------------------------------------------------------------------------

void tellUnknownOptions(const OvRenderJob& job) {
    for (std::uint32_t i = 0; i < job.optionCount; ++i) {
        log(OV_LOG_WARN, "there is no option \"" + std::string(job.options[i]) + "\"", __LINE__);
    }
}

Expected<void> writeCensus(const RenderOutput& output, const Location& root, const char* filename) {
    File file(filename);
    if (!file.get()) {
        return Error("cannot open " + std::string(filename));
    }
    if (Expected<void> printed = printRender(output, root, file.get()); !printed) {
        return printed;
    }
    const Expected<Census> census = countAll(output, root, file.get());
    if (!census) {
        return census.error();
    }
    print(*census);
    return file.close();
}

/// What was cooked for this render is wanted no longer when it has ended, well or not.
Expected<void> renderOf(const OvRenderJob& job) {
    tellUnknownOptions(job);
    const Expected<Scene> scene = Scene::find(*host);
    if (!scene) {
        return scene.error();
    }
    const Expected<RenderOutput> output = RenderOutput::find(*host);
    if (!output) {
        return output.error();
    }
    const Expected<Location> root =
        job.opTreeFile ? scene->openFile(job.opTreeFile) : scene->openOpTree(job.opTree);
    if (!root) {
        return root.error();
    }
    const Expected<void> written = writeCensus(*output, *root, job.outputFile);
    const Expected<void> finalized = root->finalize();
    return written ? finalized : written;
}

std::int32_t render(const OvRenderJob* job) {
    const Expected<void> rendered = renderOf(*job);
    if (!rendered) {
        log(OV_LOG_ERROR, rendered.error().message(), __LINE__);
    }
    return rendered ? 0 : 1;
}

const OvRenderer kRenderer = {sizeof(OvRenderer),
                              0,  // reserved
                              "Prints what a scene holds: the render, locations and types.",
                              render};

// ---- The plug-in --------------------------------------------------------------------------------

/// Called once, before anything else is wanted of the plug-in. Anything but 0 refuses the host.
std::int32_t setHost(const OvHostTable* table) {
    host = table;
    return 0;
}

const void* getSuite() {
    return &kRenderer;
}

OvPluginStruct plugin = {sizeof(OvPluginStruct),
                         OV_PLUGIN_VERSION,
                         kName,
                         OV_RENDERER_API_NAME,
                         OV_RENDERER_API_VERSION,
                         0,  // reserved
                         setHost,
                         getSuite,
                         nullptr};  // flush: nothing is cached

}  // namespace

OV_PLUGIN_EXPORT std::int32_t OvGetPluginCount();
OV_PLUGIN_EXPORT OvPluginStruct* OvGetPlugin(std::int32_t index);

std::int32_t OvGetPluginCount() {
    return 1;
}

OvPluginStruct* OvGetPlugin(std::int32_t index) {
    return index == 0 ? &plugin : nullptr;
}
