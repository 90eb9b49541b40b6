// SPDX-License-Identifier: Apache-2.0
//
// A renderer as a plug-in, complete and in C++17: "CensusCpp" walks a scene and prints what it
// found, as a renderer would that translates it. Build it into a shared object and put that where
// plug-ins are looked for:
//
//     c++ -std=c++17 -shared -fPIC -fvisibility=hidden CensusPlugin.cpp -o CensusCpp.so
//
// It links nothing: all that it calls comes in tables of functions, which the host hands over and
// the view in Scene.hpp makes pleasant.
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

using SYLVAR::Suites::Error;
using SYLVAR::Suites::Expected;
using SYLVAR::Suites::Location;
using SYLVAR::Suites::Scene;

constexpr char kName[] = "CensusCpp";  // of the plug-in, the renderer and its logger
constexpr std::size_t kShownLevels = 4;

const OvHostTable* host = nullptr;

void log(std::int32_t level, const std::string& message, int line) {
    if (host->isLogEnabled(kName, level)) {
        host->log(kName, level, message.c_str(), __FILE__, line);
    }
}

// ---- Where the result goes ----------------------------------------------------------------------

/// The file that the user named, or the standard output, which the host looks after.
class Output {
public:
    explicit Output(const char* name)
        : name_(name ? name : ""), file_(name ? std::fopen(name, "w") : stdout) {}
    ~Output() { static_cast<void>(close()); }
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;

    /// Null when it cannot be opened.
    std::FILE* file() const { return file_; }

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

// ---- The walk -----------------------------------------------------------------------------------

/// What was found so far.
struct Census {
    std::FILE* file;  ///< Where the lines go.
    std::map<std::string, unsigned long> countByType;
    unsigned long locations = 0;
    unsigned long points = 0;
    std::size_t levels = 0;
};

std::string typeOf(const Location& location) {
    const std::string type = location.type();
    return type.empty() ? "-" : type;
}

void count(const Location& location, std::size_t level, Census& census) {
    const std::string type = typeOf(location);
    if (level <= kShownLevels) {
        std::fprintf(census.file, "%s  %s\n", location.fullName().c_str(), type.c_str());
    }
    ++census.countByType[type];
    ++census.locations;
    census.points += location.values<float>("geometry.points").size() / 3;
    census.levels = std::max(census.levels, level);
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

Expected<Census> countAll(const Location& root, std::FILE* file) {
    Census census{};
    census.file = file;
    std::vector<Location> way;
    way.push_back(root.share());
    while (!way.empty()) {
        count(way.back(), way.size(), census);
        if (const Expected<void> gone = goOn(way); !gone) {
            return gone.error();
        }
    }
    return census;
}

void print(const Census& census) {
    std::fprintf(census.file,
                 "%lu locations, %zu levels, %lu points\n",
                 census.locations,
                 census.levels,
                 census.points);
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

Expected<Location> open(const OvRenderJob& job) {
    const Expected<Scene> scene = Scene::find(*host);
    if (!scene) {
        return scene.error();
    }
    return job.opTreeFile ? scene->openFile(job.opTreeFile) : scene->openOpTree(job.opTree);
}

Expected<void> writeCensus(const Location& root, const char* filename) {
    Output output(filename);
    if (!output.file()) {
        return Error("cannot open " + std::string(filename));
    }
    const Expected<Census> census = countAll(root, output.file());
    if (!census) {
        return census.error();
    }
    print(*census);
    return output.close();
}

/// What was cooked for this render is wanted no longer when it has ended, well or not.
Expected<void> renderOf(const OvRenderJob& job) {
    tellUnknownOptions(job);
    const Expected<Location> root = open(job);
    if (!root) {
        return root.error();
    }
    const Expected<void> written = writeCensus(*root, job.outputFile);
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
                              "Prints what a scene holds: locations, types and points.",
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
