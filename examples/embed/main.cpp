// SPDX-License-Identifier: Apache-2.0
//
// A program that embeds the library: walks the scene of an op tree on several threads, counts its
// locations by type, and tells where its cameras stand.
//
//     survey OP_TREE [THREADS]
#include <OvSylvarProducers/ThreadAwareGeometryProducer.h>
#include <SylvarPlatform/Configuration.h>
#include <SylvarPlatform/PluginManager.h>
#include <SylvarPlatform/XFormUtil.h>

#include <array>
#include <condition_variable>
#include <cstdint>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <future>
#include <iostream>
#include <map>
#include <mutex>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

using SYLVAR::GeometryProducerPtr;
using Sylvar3::internal::OvPluginManager::PluginManager;
using Sylvar3::internal::OvSylvarServices::OvXFormUtil;
using Sylvar3::OvConfiguration::v1::Config;

namespace {

using Point = std::array<double, 3>;

/// What is found: by each thread for itself, and then of all of them together.
struct Survey {
    std::map<std::string, std::int64_t> types;
    std::map<std::string, Point> cameras;  ///< By path, so that the order is always the same.

    void add(const Survey& other) {
        for (const auto& [type, count] : other.types) {
            types[type] += count;
        }
        cameras.insert(other.cameras.begin(), other.cameras.end());
    }
};

/// The locations that are found and not yet visited, for any number of threads.
class WorkList {
public:
    void add(GeometryProducerPtr location) {
        const std::lock_guard<std::mutex> lock(mutex_);
        waiting_.push_back(std::move(location));
        ++unfinished_;
        changed_.notify_one();
    }

    /// The next one, waiting for it; null when the whole scene has been visited, or the walk ended.
    GeometryProducerPtr take() {
        std::unique_lock<std::mutex> lock(mutex_);
        changed_.wait(lock, [this] { return !waiting_.empty() || unfinished_ == 0 || stopped_; });
        if (unfinished_ == 0 || stopped_) {
            return nullptr;
        }
        GeometryProducerPtr location = std::move(waiting_.back());
        waiting_.pop_back();
        return location;
    }

    /// One that was taken has been visited, and its children were added.
    void finish() {
        const std::lock_guard<std::mutex> lock(mutex_);
        if (--unfinished_ == 0) {
            changed_.notify_all();
        }
    }

    /// Ends the walk for all threads.
    void stop() {
        const std::lock_guard<std::mutex> lock(mutex_);
        stopped_ = true;
        changed_.notify_all();
    }

private:
    std::mutex mutex_;
    std::condition_variable changed_;
    std::vector<GeometryProducerPtr> waiting_;  // the last one first: few are kept at a time
    std::int64_t unfinished_ = 0;
    bool stopped_ = false;
};

/// Where the origin of the location's own space lies in the world, at time 0.
Point placeOf(SYLVAR::GeometryProducer& location) {
    const auto transforms = location.getGlobalXFormGroup();
    const auto matrix = OvXFormUtil::CalcTransformMatrixAtTime(transforms, 0).attribute;
    // Row 3 is the translation. A null matrix has no values: then nothing moves the location.
    return {matrix.getValue(0, 12), matrix.getValue(0, 13), matrix.getValue(0, 14)};
}

void visit(SYLVAR::GeometryProducer& location, Survey& survey) {
    const std::string type = location.getType();
    ++survey.types[type.empty() ? "(none)" : type];
    if (type == "camera") {
        survey.cameras.emplace(location.getFullName(), placeOf(location));
    }
}

/// What one thread does. A step cooks with the calling thread's own client of the runtime.
Survey work(WorkList& list) {
    Survey survey;
    try {
        while (const GeometryProducerPtr location = list.take()) {
            visit(*location, survey);
            for (auto child = location->getFirstChild(false); child;
                 child = child->getNextSibling(false)) {
                list.add(child);
            }
            list.finish();
        }
    } catch (...) {
        list.stop();  // the others must not wait for what never comes
        throw;
    }
    return survey;
}

Survey surveyScene(const GeometryProducerPtr& root, int threads) {
    WorkList list;
    list.add(root);
    std::vector<std::future<Survey>> workers;
    for (int i = 0; i < threads; ++i) {
        workers.push_back(std::async(std::launch::async, [&list] { return work(list); }));
    }
    Survey all;
    for (auto& worker : workers) {
        all.add(worker.get());
    }
    return all;
}

void print(const Survey& survey) {
    for (const auto& [type, count] : survey.types) {
        std::cout << count << "  " << type << '\n';
    }
    for (const auto& [path, place] : survey.cameras) {
        std::cout << path << " stands at " << place[0] << ' ' << place[1] << ' ' << place[2]
                  << '\n';
    }
}

/// What a host sets before the first scene: where plug-ins are, and where the files are that ops
/// name, here beside the op tree.
void setUpServices(const std::filesystem::path& file) {
    PluginManager::setSearchDirectories({PLUGIN_DIR});
    Config()->set("SYLVAR_ASSET_PATH", std::filesystem::absolute(file).parent_path().string());
}

GeometryProducerPtr openScene(const std::string& file) {
    GeometryProducerPtr root = SYLVAR::CreateThreadAwareGeometryProducer(file, "/root");
    if (!root) {
        throw std::runtime_error(file + ": no op tree with a location /root");
    }
    return root;
}

int threadCount(const char* text) {
    char* end = nullptr;
    const long count = std::strtol(text, &end, 10);
    if (*end != '\0' || count < 1 || count > 256) {
        throw std::runtime_error(std::string(text) + ": no number of threads from 1 to 256");
    }
    return static_cast<int>(count);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2 || argc > 3) {
        std::cerr << "usage: survey OP_TREE [THREADS]\n";
        return 2;
    }
    try {
        setUpServices(argv[1]);
        print(surveyScene(openScene(argv[1]), argc > 2 ? threadCount(argv[2]) : 4));
    } catch (const std::exception& error) {
        std::cerr << "survey: " << error.what() << '\n';
        return 1;
    }
    return 0;
}
