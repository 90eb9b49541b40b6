// SPDX-License-Identifier: Apache-2.0
#include "unit/Platform/AttributeModel.h"

#include <SylvarPlatform/GroupAttribute.h>

#include <algorithm>
#include <cstring>
#include <utility>

namespace ovtest {

namespace {

using namespace Sylvar3::internal::OvAttribute;
using Random = AttributeModel::Random;

std::size_t below(Random& random, std::size_t end) {
    return std::uniform_int_distribution<std::size_t>(0, end - 1)(random);
}

std::uint32_t randomBits(Random& random) {
    return static_cast<std::uint32_t>(random());
}

std::string randomText(Random& random, std::size_t longest) {
    std::string text(below(random, longest + 1), ' ');
    for (char& letter : text) {
        letter = static_cast<char>(1 + below(random, 255));
    }
    return text;
}

std::size_t bitsOf(std::int32_t kind) {
    return kind == OV_ATTRIBUTE_DOUBLE ? 64 : 32;
}

AttributeModel randomData(Random& random, std::int32_t kind) {
    AttributeModel data;
    data.kind = kind;
    data.tupleSize = static_cast<std::int64_t>(1 + below(random, 4));
    data.times.resize(below(random, 8) == 0 ? 0 : 1 + below(random, 3));
    for (std::uint32_t& time : data.times) {
        time = data.times.size() == 1 && below(random, 2) == 0 ? 0 : randomBits(random);
    }
    data.valuesPerSample = data.times.empty() ? 0 : below(random, 12);
    const std::size_t total = data.valuesPerSample * data.times.size();
    for (std::size_t i = 0; i < total; ++i) {
        if (kind == OV_ATTRIBUTE_STRING) {
            data.strings.push_back(randomText(random, 6));
        } else {
            const std::uint64_t bits =
                (std::uint64_t{randomBits(random)} << 32) | randomBits(random);
            data.numbers.push_back(bits >> (64 - bitsOf(kind)));
        }
    }
    return data;
}

AttributeModel randomGroup(Random& random, int depth) {
    AttributeModel group;
    group.kind = OV_ATTRIBUTE_GROUP;
    group.inherits = below(random, 2) == 0;
    const std::size_t size = below(random, 6);
    while (group.names.size() < size) {
        const std::string name = randomText(random, 4);
        if (std::count(group.names.begin(), group.names.end(), name) == 0) {
            group.names.push_back(name);
            group.children.push_back(AttributeModel::random(random, depth - 1));
        }
    }
    return group;
}

template <class T>
std::vector<T> valuesFrom(const std::vector<std::uint64_t>& bits) {
    std::vector<T> values(bits.size());
    for (std::size_t i = 0; i < bits.size(); ++i) {
        std::memcpy(&values[i], &bits[i], sizeof(T));
    }
    return values;
}

template <class T, class Create>
OvAttributeStruct* create(Create create,
                          const AttributeModel& model,
                          const std::vector<T>& values) {
    std::vector<float> times(model.times.size());
    std::vector<const T*> samples;
    for (std::size_t i = 0; i < times.size(); ++i) {
        std::memcpy(&times[i], &model.times[i], sizeof(float));
        samples.push_back(values.data() + i * model.valuesPerSample);
    }
    return create(times.data(),
                  static_cast<std::int64_t>(times.size()),
                  samples.data(),
                  static_cast<std::int64_t>(model.valuesPerSample),
                  model.tupleSize,
                  nullptr,
                  nullptr);
}

OvAttributeStruct* createData(const AttributeModel& model) {
    const OvAttributeSuite& suite = *OvGetAttributeSuite();
    switch (model.kind) {
        case OV_ATTRIBUTE_INT:
            return create(
                suite.createIntFromSamples, model, valuesFrom<std::int32_t>(model.numbers));
        case OV_ATTRIBUTE_FLOAT:
            return create(suite.createFloatFromSamples, model, valuesFrom<float>(model.numbers));
        case OV_ATTRIBUTE_DOUBLE:
            return create(suite.createDoubleFromSamples, model, valuesFrom<double>(model.numbers));
        default: {
            std::vector<const char*> strings;
            for (const std::string& string : model.strings) {
                strings.push_back(string.c_str());
            }
            return create(suite.createStringFromSamples, model, strings);
        }
    }
}

void changeNumber(AttributeModel& model, Random& random) {
    if (!model.numbers.empty()) {
        model.numbers[below(random, model.numbers.size())] ^= std::uint64_t{1}
                                                              << below(random, bitsOf(model.kind));
    }
}

/// Moves the border between a text and the one behind it.
void moveBorder(std::vector<std::string>& texts, Random& random) {
    if (texts.size() < 2) {
        return;
    }
    const std::size_t first = below(random, texts.size() - 1);
    if (!texts[first].empty()) {
        texts[first + 1].insert(0, 1, texts[first].back());
        texts[first].pop_back();
    }
}

void changeLetter(std::vector<std::string>& texts, Random& random) {
    if (texts.empty()) {
        return;
    }
    std::string& text = texts[below(random, texts.size())];
    if (text.empty()) {
        text = "x";
        return;
    }
    char& letter = text[below(random, text.size())];
    const auto changed = static_cast<char>(letter ^ (1 << below(random, 8)));
    letter = changed == '\0' ? letter : changed;
}

void changeData(AttributeModel& model, Random& random) {
    switch (below(random, 6)) {
        case 0:
            ++model.tupleSize;
            break;
        case 1:
            if (!model.times.empty()) {
                model.times[below(random, model.times.size())] ^= 1U << below(random, 32);
            }
            break;
        case 2:
            moveBorder(model.strings, random);
            break;
        case 3:  // Samples become values.
            if (model.times.size() == 2) {
                model.times.pop_back();
                model.valuesPerSample *= 2;
            }
            break;
        default:
            changeNumber(model, random);
            changeLetter(model.strings, random);
    }
}

bool areUnique(std::vector<std::string> names) {
    std::sort(names.begin(), names.end());
    return std::adjacent_find(names.begin(), names.end()) == names.end();
}

void changeNames(AttributeModel& group, Random& random) {
    std::vector<std::string> names = group.names;
    if (below(random, 2) == 0) {
        changeLetter(names, random);
    } else {
        moveBorder(names, random);
    }
    if (areUnique(names)) {
        group.names = names;
    }
}

void changeGroup(AttributeModel& group, Random& random) {
    const std::size_t size = group.names.size();
    switch (size < 2 ? 0 : below(random, 5)) {
        case 0:
            group.inherits = !group.inherits;
            break;
        case 1:
            std::swap(group.children[0], group.children[size - 1]);
            break;
        case 2:
            std::swap(group.children[0], group.children[size - 1]);
            std::swap(group.names[0], group.names[size - 1]);
            break;
        case 3:
            group.children.pop_back();
            group.names.pop_back();
            break;
        default:
            changeNames(group, random);
    }
}

}  // namespace

AttributeModel AttributeModel::random(Random& random, int depth) {
    const auto kind = static_cast<std::int32_t>(below(random, depth > 0 ? 9 : 5));
    if (kind == 0) {
        return {};
    }
    return kind < OV_ATTRIBUTE_GROUP ? randomData(random, kind) : randomGroup(random, depth);
}

void AttributeModel::change(Random& random) {
    if (!children.empty() && below(random, 4) != 0) {
        children[below(random, children.size())].change(random);
    } else if (kind == 0) {
        *this = AttributeModel::random(random, 0);
    } else if (below(random, 16) == 0) {
        *this = AttributeModel();
    } else if (kind == OV_ATTRIBUTE_GROUP) {
        changeGroup(*this, random);
    } else {
        changeData(*this, random);
    }
}

Attribute AttributeModel::make() const {
    if (kind == 0) {
        return {};
    }
    if (kind != OV_ATTRIBUTE_GROUP) {
        return Attribute::adopt(createData(*this));
    }
    std::vector<GroupAttribute::Child> made;
    for (std::size_t i = 0; i < names.size(); ++i) {
        made.emplace_back(names[i], children[i].make());
    }
    return GroupAttribute(made, inherits);
}

}  // namespace ovtest
