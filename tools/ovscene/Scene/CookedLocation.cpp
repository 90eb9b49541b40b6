// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/DelimiterCodec.h>

#include "Scene/HostTables.h"
#include "Scene/SceneLocation.h"

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <utility>

namespace ovscene {
namespace {

using Names = SYLVAR::Suites::Values<const char*>;

std::int64_t countOf(const Names& names) {
    return static_cast<std::int64_t>(names.size());
}

const char* nameAt(const Names& names, std::int64_t place) {
    return names[static_cast<std::size_t>(place)];
}

/// From the place `from` on; the count of names when it is not there.
std::int64_t placeOf(const std::string& name, const Names& names, std::int64_t from) {
    while (from < countOf(names) && nameAt(names, from) != name) {
        ++from;
    }
    return from;
}

/// Whether the tables take it for the name of a child.
bool isChildName(const std::string& name) {
    return !name.empty() && name != "." && name != ".." &&
           name.find_first_of(std::string("/\0", 2)) == std::string::npos;
}

class CookedLocation final : public SceneLocation {
public:
    /// `earliest` is the first place that it can have among its siblings, some of which may be
    /// absent.
    CookedLocation(Location itself, Names siblings, std::int64_t earliest)
        : SceneLocation(std::move(itself)),
          children_(location().potentialChildren()),
          siblings_(std::move(siblings)),
          earliest_(earliest) {}

    std::string name() const override { return location().name(); }

    /// Looked up by the name when it is asked for, since it is asked of few.
    std::int64_t place() const override {
        std::int64_t place = place_.load(std::memory_order_relaxed);
        if (place == kUnknown) {
            place = placeOf(name(), siblings_, earliest_);
            place_.store(place, std::memory_order_relaxed);
        }
        return place;
    }

    std::int64_t childCount() const override { return countOf(children_); }

    SceneLocationPtr childFrom(std::int64_t place) const override {
        if (place == 0) {
            return wrap(valueOf(location().firstChild()), children_, 0);
        }
        for (; place < childCount(); ++place) {
            if (Location child = valueOf(location().child(nameAt(children_, place)))) {
                return wrap(std::move(child), children_, place);
            }
        }
        return nullptr;
    }

    SceneLocationPtr nextSibling() const override {
        const std::int64_t known = place_.load(std::memory_order_relaxed);
        return wrap(valueOf(location().nextSibling()), siblings_, std::max(earliest_, known) + 1);
    }

    SceneLocationPtr childNamed(const std::string& name) const override {
        for (const std::string& spelling :
             {name, Sylvar3::internal::OvAttribute::DelimiterDecode(name)}) {
            Location child =
                isChildName(spelling) ? valueOf(location().child(spelling)) : Location();
            if (child) {
                return wrap(std::move(child), children_, 0);
            }
        }
        return nullptr;
    }

private:
    static constexpr std::int64_t kUnknown = -1;

    /// Null for the absent location.
    static SceneLocationPtr wrap(Location itself, const Names& siblings, std::int64_t earliest) {
        return itself ? std::make_shared<CookedLocation>(std::move(itself), siblings, earliest)
                      : nullptr;
    }

    Names children_;
    Names siblings_;
    std::int64_t earliest_;
    mutable std::atomic<std::int64_t> place_{kUnknown};
};

}  // namespace

SceneLocationPtr cookedTopLocation(Location location) {
    return std::make_shared<CookedLocation>(std::move(location), Names(), 0);
}

}  // namespace ovscene
