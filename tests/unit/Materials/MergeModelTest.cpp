// SPDX-License-Identifier: Apache-2.0
#include "unit/Materials/MergeModel.h"

#include <OvSylvarProducers/FlattenedMaterial.h>
#include <SylvarPlatform/DataAttribute.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <map>
#include <random>
#include <string>
#include <vector>

using namespace Sylvar3::internal::OvAttribute;

namespace {

using Children = std::vector<GroupAttribute::Child>;

/// Makes materials of all shapes with all that can be wrong with them, from few names, so that
/// those of one chain meet.
class RandomChain {
public:
    explicit RandomChain(std::uint64_t seed) : random_(seed) {}

    std::vector<GroupAttribute> materials() {
        const std::size_t kind = below(4);
        std::vector<GroupAttribute> chain;
        for (std::size_t i = below(6); i > 0; --i) {
            const bool isNetwork = kind == 0 || (kind != 1 && below(2) == 0);
            chain.push_back(below(6) == 0 ? GroupAttribute() : isNetwork ? network() : classic());
        }
        return chain;
    }

    std::vector<std::string> terminals() {
        std::vector<std::string> names;
        for (std::size_t i = below(5); i > 0; --i) {
            names.push_back(terminal());
        }
        return names;
    }

private:
    std::size_t below(std::size_t count) { return random_() % count; }
    std::string oneOf(const std::vector<std::string>& texts) { return texts[below(texts.size())]; }

    std::string terminal() { return oneOf({"surface", "bump", "volume", "out.mask", ""}); }
    std::string node() { return oneOf({"a", "b", "c", "a:0", "b.c", "", "surface"}); }
    std::string key() { return oneOf({"x", "y", "x.y", "", "name", "src"}); }

    StringAttribute text(const std::string& value) {
        switch (below(12)) {
            case 0:
                return StringAttribute(std::vector<std::string>());
            case 1:
                return StringAttribute(std::vector<std::string>{value, "second"});
            case 2:
                return StringAttribute(TimedSamples<std::string>{{-3, {"early"}}, {1, {value}}});
            case 3:
                return StringAttribute("");
            default:
                return StringAttribute(value);
        }
    }

    GroupAttribute group(const Children& children) {
        return GroupAttribute(children, below(3) == 0);
    }

    Attribute any() {
        switch (below(5)) {
            case 0:
                return {};
            case 1:
                return IntAttribute(static_cast<int>(below(3)));
            case 2:
                return text("any");
            case 3:
                return group({});
            default:
                return group({{key(), IntAttribute(1)}, {key(), text("inner")}});
        }
    }

    /// Mostly what it is given; now and then something else.
    Attribute rather(const Attribute& wanted) { return below(8) == 0 ? any() : wanted; }

    /// Some of what `make` makes, under names that `name` makes.
    template <class Name, class Make>
    GroupAttribute some(Name name, Make make) {
        Children children;
        for (std::size_t i = below(4); i > 0; --i) {
            children.emplace_back(name(), rather(make()));
        }
        return group(children);
    }

    GroupAttribute values() {
        return some([&] { return key(); }, [&] { return any(); });
    }
    GroupAttribute connections() {
        return some([&] { return key(); }, [&] { return text("out@" + node()); });
    }

    GroupAttribute shadingNode() {
        Children keys;
        for (std::size_t i = below(5); i > 0; --i) {
            switch (below(5)) {
                case 0:
                    keys.emplace_back("name", rather(text(node())));
                    break;
                case 1:
                    keys.emplace_back("type", rather(text("paint")));
                    break;
                case 2:
                    keys.emplace_back("connections", rather(connections()));
                    break;
                case 3:
                    keys.emplace_back("parameters", rather(values()));
                    break;
                default:
                    keys.emplace_back(key(), any());
            }
        }
        return group(keys);
    }

    GroupAttribute interfaceEntry() {
        return group(
            {{key(), any()},
             {"src",
              rather(text(oneOf({node() + "." + oneOf({"x", ""}), node(), "a.b.x", ".."})))}});
    }

    GroupAttribute drivenTerminals() {
        Children children;
        for (std::size_t i = below(5); i > 0; --i) {
            children.emplace_back(oneOf({"surface", "bump", "volume", "other", ""}),
                                  rather(text(node())));
        }
        if (below(3) == 0) {
            children.emplace_back("out", rather(group({{"mask", rather(text(node()))}})));
        }
        return group(children);
    }

    /// The children of a material in any order, each there or not.
    GroupAttribute shuffled(Children children) {
        std::shuffle(children.begin(), children.end(), random_);
        Children kept;
        for (const GroupAttribute::Child& child : children) {
            if (below(6) != 0) {
                kept.emplace_back(child.first, rather(child.second));
            }
        }
        return group(kept);
    }

    GroupAttribute network() {
        const std::string style = oneOf({"network", "network", "network", "Network"});
        Children children = childrenOf(
            shuffled({{"nodes", some([&] { return node(); }, [&] { return shadingNode(); })},
                      {"interface", some([&] { return key(); }, [&] { return interfaceEntry(); })},
                      {"parameters", values()},
                      {"terminals", drivenTerminals()},
                      {"surfaceShader", text("paint")},
                      {key(), any()}}));
        children.insert(children.begin() + static_cast<std::ptrdiff_t>(below(children.size() + 1)),
                        {"style", StringAttribute(style)});
        return group(children);
    }

    GroupAttribute classic() {
        return shuffled({{"surfaceShader", text("paint")},
                         {"surfaceParams", values()},
                         {"bumpShader", text("noise")},
                         {"bumpParams", values()},
                         {"Shader", text("of no name")},
                         {"out", group({{"maskShader", text("mask")}, {"maskParams", values()}})},
                         {"style", text(oneOf({"classic", "network"}))},
                         {key(), any()}});
    }

    static Children childrenOf(const GroupAttribute& group) {
        Children children;
        group.fillChildVector(&children);
        return children;
    }

    std::mt19937_64 random_;
};

std::string describe(const std::vector<GroupAttribute>& materials,
                     const std::vector<std::string>& terminals) {
    std::string text = "terminals:";
    for (const std::string& terminal : terminals) {
        text += " \"" + terminal + "\"";
    }
    for (const GroupAttribute& material : materials) {
        text += "\n" + material.getXML();
    }
    return text;
}

/// What became of a chain, for a look at how much of the rules the chains try.
std::string kindOf(const GroupAttribute& result) {
    if (!result) {
        return "null";
    }
    if (result.getChild<StringAttribute>("style").getValue("") != "network") {
        return "classic";
    }
    std::string kind = "network";
    for (const char* const part : {"nodes", "interface", "parameters"}) {
        kind += result.getChild<GroupAttribute>(part) ? std::string(" ") + part : "";
    }
    return kind;
}

}  // namespace

TEST(MergeModel, AgreesWithTheLibraryOnTenThousandRandomChains) {
    std::map<std::string, int> kinds;
    for (std::uint64_t seed = 0; seed < 10'000; ++seed) {
        RandomChain random(seed);
        const std::vector<GroupAttribute> materials = random.materials();
        const std::vector<std::string> terminals = random.terminals();
        const GroupAttribute expected = ovtest::mergeByTheRules(materials, terminals);
        const GroupAttribute found = SYLVAR::GetFlattenedMaterialAttr(materials, terminals);
        ASSERT_EQ(expected.getHash(), found.getHash())
            << "seed " << seed << "\nexpected\n"
            << expected.getXML() << "found\n"
            << found.getXML() << describe(materials, terminals);
        if (materials.size() > 1) {
            ++kinds[kindOf(found)];
        }
    }
    for (const char* const kind :
         {"null", "classic", "network", "network nodes", "network nodes interface parameters"}) {
        EXPECT_LT(20, kinds[kind]) << kind;
    }
}
