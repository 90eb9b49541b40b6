// SPDX-License-Identifier: Apache-2.0
#include "Scene/Statistics.h"

#include "Print/AttributeText.h"
#include "Print/NumberText.h"
#include "Print/Terminal.h"
#include "Scene/DataValues.h"

#include <algorithm>
#include <chrono>
#include <cstring>
#include <type_traits>
#include <utility>

namespace ovscene {
namespace {

namespace OvAttribute = Sylvar3::internal::OvAttribute;

constexpr std::size_t kLargestShown = 10;

template <class Samples>
std::int64_t bytesOf(const Samples& samples) {
    using Value = typename Samples::value_type;
    const std::int64_t perSample = samples.getNumberOfValues();
    if constexpr (!std::is_pointer_v<Value>) {
        return samples.getNumberOfTimeSamples() * perSample *
               static_cast<std::int64_t>(sizeof(Value));
    } else {
        std::int64_t bytes = 0;
        for (std::int64_t i = 0; i < samples.getNumberOfTimeSamples() * perSample; ++i) {
            const char* const text = samples.getSample(i / perSample)[i % perSample];
            bytes += text ? static_cast<std::int64_t>(std::strlen(text)) + 1 : 1;
        }
        return bytes;
    }
}

class Collector {
public:
    explicit Collector(const SceneFile& file)
        : limit_(file.name), progress_("walking " + file.name) {}

    void addScene(SceneLocationPtr top) {
        statistics_.hasLocations = true;
        for (SceneWalk walk(std::move(top), "", limit_); !walk.atEnd(); walk.next()) {
            addLocation(walk);
            showProgress();
        }
    }

    /// `walk` is null for an attribute that belongs to no location.
    void addAttributes(const Attribute& attribute, const SceneWalk* walk) {
        for (AttributeWalk inner(attribute, limit_); !inner.atEnd(); inner.next()) {
            if (inner.depth() > 0 || !walk) {
                addAttribute(inner, walk);
            }
        }
    }

    Statistics result() {
        statistics_.distinctValues = static_cast<std::int64_t>(values_.size());
        statistics_.shapes = static_cast<std::int64_t>(shapes_.size());
        return std::move(statistics_);
    }

private:
    void addLocation(const SceneWalk& walk) {
        const SceneLocation& location = walk.location();
        ++statistics_.locations;
        statistics_.errors.look(walk);
        ++statistics_.types[location.type()];
        statistics_.depths.resize(std::max(statistics_.depths.size(), walk.depth() + 1));
        ++statistics_.depths[walk.depth()];
        const GroupAttribute attributes = location.attributes();
        addShape(attributes);
        if (attributes) {
            addAttributes(attributes, &walk);
        }
    }

    void addShape(const GroupAttribute& attributes) {
        shape_.clear();
        for (std::int64_t i = 0; i < attributes.getNumberOfChildren(); ++i) {
            const std::string_view name = attributes.getChildNameView(i);
            shape_.append(numberText(static_cast<std::int64_t>(name.size())))
                .append(":")
                .append(name);
        }
        shapes_.insert(shape_);
    }

    void addAttribute(const AttributeWalk& inner, const SceneWalk* walk) {
        const Attribute& attribute = inner.attribute();
        ++statistics_.attributes;
        ++statistics_.kinds[kindName(attribute)];
        withSamples(attribute, [&](const auto& samples) {
            const std::int64_t bytes = bytesOf(samples);
            const bool first = values_.insert(attribute.getHash()).second;
            statistics_.valueBytes += bytes;
            statistics_.distinctBytes += first ? bytes : 0;
            statistics_.samples += samples.getNumberOfTimeSamples();
            statistics_.animated += samples.getNumberOfTimeSamples() > 1 ? 1 : 0;
            if (first) {
                addLarge(inner, walk, bytes);
            }
        });
    }

    void addLarge(const AttributeWalk& inner, const SceneWalk* walk, std::int64_t bytes) {
        std::vector<LargeAttribute>& largest = statistics_.largest;
        if (largest.size() == kLargestShown && largest.back().bytes >= bytes) {
            return;
        }
        const auto smaller = [](std::int64_t wanted, const LargeAttribute& other) {
            return wanted > other.bytes;
        };
        largest.insert(std::upper_bound(largest.begin(), largest.end(), bytes, smaller),
                       {walk ? walk->path() : std::string(), inner.dottedName(), bytes});
        largest.resize(std::min(largest.size(), kLargestShown));
    }

    void showProgress() {
        if (progress_.isDue()) {
            progress_.show(counted(statistics_.locations, "location"));
        }
    }

    VisitLimit limit_;
    Progress progress_;
    Statistics statistics_;
    std::unordered_set<OvAttribute::Hash> values_;
    std::unordered_set<std::string> shapes_;
    std::string shape_;
};

}  // namespace

Statistics collectStatistics(const SceneFile& file) {
    const auto start = std::chrono::steady_clock::now();
    Collector collector(file);
    if (file.content == AttributeContent::Attribute) {
        collector.addAttributes(file.attribute, nullptr);
    } else {
        collector.addScene(topLocation(file));
    }
    Statistics statistics = collector.result();
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
    statistics.walkSeconds = taken.count();
    return statistics;
}

}  // namespace ovscene
