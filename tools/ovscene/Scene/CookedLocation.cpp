// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/DelimiterCodec.h>

#include "Scene/HostTables.h"
#include "Scene/SceneLocation.h"

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

/// Whether the tables take it for the name of a child.
bool isChildName(const std::string& name) {
    return !name.empty() && name != "." && name != ".." &&
           name.find_first_of(std::string("/\0", 2)) == std::string::npos;
}

class CookedLocation final : public SceneLocation {
public:
    CookedLocation(Location itself, std::string name, Names siblings, std::int64_t place)
        : SceneLocation(std::move(itself), std::move(name), place),
          children_(location().potentialChildren()),
          siblings_(std::move(siblings)) {}

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
        return wrap(valueOf(location().nextSibling()), siblings_, place() + 1);
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
    /// A location of these siblings; `from` is the first place that it can have. Null when absent.
    static SceneLocationPtr wrap(Location itself, const Names& siblings, std::int64_t from) {
        if (!itself) {
            return nullptr;
        }
        std::string name = itself.name();
        while (from < countOf(siblings) && nameAt(siblings, from) != name) {
            ++from;
        }
        return std::make_shared<CookedLocation>(std::move(itself), std::move(name), siblings, from);
    }

    Names children_;
    Names siblings_;
};

}  // namespace

SceneLocationPtr cookedTopLocation(Location location) {
    std::string name = location.name();
    return std::make_shared<CookedLocation>(std::move(location), std::move(name), Names(), 0);
}

}  // namespace ovscene
