// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Attributes/Forms/Xml/XmlReader.h"

#include "Platform/Embedded/Attributes/Forms/GroupStack.h"
#include "Platform/Embedded/Attributes/Forms/NumberText.h"
#include "Platform/Embedded/Attributes/Forms/TextEscape.h"
#include "Platform/Embedded/Attributes/Forms/Xml/XmlForm.h"
#include "Platform/Embedded/Attributes/Forms/Xml/XmlScan.h"
#include "Platform/Embedded/Attributes/Values/BlockBuilder.h"
#include "Platform/Embedded/Attributes/Values/DataValue.h"
#include "Platform/Embedded/Attributes/Values/TextRecords.h"

#include <pugixml.hpp>

#include <algorithm>
#include <cstring>
#include <iterator>
#include <limits>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace Sylvar3::internal::OvAttribute::Embedded {

namespace {

/// Thrown for anything that no attribute is written as.
struct NoAttribute {};

void require(bool isTrue) {
    if (!isTrue) {
        throw NoAttribute();
    }
}

constexpr std::string_view kBlanks = " \t\r\n";

bool isBlank(std::string_view text) {
    return text.find_first_not_of(kBlanks) == std::string_view::npos;
}

/// Calls `take` with each piece of the text of an element, which a comment or a CDATA section cuts.
template <class Take>
void forEachPiece(const pugi::xml_node& node, Take take) {
    take(std::string_view(node.value()));
    for (const pugi::xml_node& piece : node.children()) {
        require(piece.type() != pugi::node_element);
        take(std::string_view(piece.value()));
    }
}

/// Calls `take` with each word of the text of an element.
template <class Take>
void forEachWord(const pugi::xml_node& node, Take take) {
    forEachPiece(node, [&](std::string_view text) {
        while (!isBlank(text)) {
            text.remove_prefix(text.find_first_not_of(kBlanks));
            const std::string_view word = text.substr(0, text.find_first_of(kBlanks));
            take(word);
            text.remove_prefix(word.size());
        }
    });
}

/// Calls `take` with each element in an element that holds elements of one name alone.
template <class Take>
void forEachElement(const pugi::xml_node& node, const char* name, Take take) {
    require(isBlank(node.value()));
    for (const pugi::xml_node& child : node.children()) {
        if (child.type() == pugi::node_element) {
            require(std::strcmp(child.name(), name) == 0);
            take(child);
        } else {
            require(isBlank(child.value()));
        }
    }
}

/// The XML attributes of an <attr> element, or null where it has none.
struct Tag {
    const char* name = nullptr;
    const char* type = nullptr;
    const char* tuple = nullptr;
    const char* inherit = nullptr;
};

const char** fieldOf(Tag& tag, std::string_view name) {
    constexpr std::string_view kNames[] = {"name", "type", "tuple", "inherit"};
    const char** const fields[] = {&tag.name, &tag.type, &tag.tuple, &tag.inherit};
    const auto* const found = std::find(std::begin(kNames), std::end(kNames), name);
    require(found != std::end(kNames));
    return fields[found - std::begin(kNames)];
}

Tag tagOf(const pugi::xml_node& node) {
    Tag tag;
    for (const pugi::xml_attribute& attribute : node.attributes()) {
        const char** const field = fieldOf(tag, attribute.name());
        require(!*field);
        *field = attribute.value();
    }
    require(tag.type != nullptr);
    return tag;
}

/// Makes one data attribute out of its element.
class DataReader {
public:
    explicit DataReader(BlockBuilder& builder) : builder_(builder) {}

    Value* read(const pugi::xml_node& node, std::int32_t kind, const char* tuple) {
        DataShape shape{kind};
        shape.tupleSize = tuple ? tupleSizeOf(tuple) : 1;
        measure(node, shape);
        require(shape.isLegal());
        DataValue* const value = builder_.addData(shape);
        switch (kind) {
            case OV_ATTRIBUTE_INT:
                return fill<std::int32_t>(node, *value);
            case OV_ATTRIBUTE_FLOAT:
                return fill<float>(node, *value);
            case OV_ATTRIBUTE_DOUBLE:
                return fill<double>(node, *value);
            default:
                return fillStrings(node, *value);
        }
    }

private:
    static std::int64_t tupleSizeOf(const char* text) {
        std::int32_t size = 0;
        require(NumberText::read(text, size) && size >= 1);
        return size;
    }

    static float timeOf(const pugi::xml_node& sample) {
        const pugi::xml_attribute time = sample.first_attribute();
        float value = 0;
        require(std::strcmp(time.name(), "time") == 0 && !time.next_attribute() &&
                NumberText::read(time.value(), value));
        return value;
    }

    /// Fills in the counts and times; all samples must have the same number of values.
    void measure(const pugi::xml_node& node, DataShape& shape) {
        times_.clear();
        shape.valueCount = 0;
        forEachElement(node, "sample", [&](const pugi::xml_node& sample) {
            const std::int64_t count = shape.kind == OV_ATTRIBUTE_STRING
                                           ? countStrings(sample, shape.textBytes)
                                           : countNumbers(sample);
            require(times_.empty() || count == shape.valueCount);
            shape.valueCount = count;
            times_.push_back(timeOf(sample));
        });
        shape.sampleCount = static_cast<std::int64_t>(times_.size());
        shape.times = times_.data();
    }

    static std::int64_t countNumbers(const pugi::xml_node& sample) {
        std::int64_t count = 0;
        forEachWord(sample, [&](std::string_view /*word*/) { ++count; });
        return count;
    }

    std::int64_t countStrings(const pugi::xml_node& sample, std::size_t& textBytes) {
        std::int64_t count = 0;
        forEachElement(sample, "value", [&](const pugi::xml_node& value) {
            require(!value.first_attribute());
            textBytes += textOf(value).size() + TextRecord::kExtraBytes;
            ++count;
        });
        return count;
    }

    template <class T>
    static Value* fill(const pugi::xml_node& node, DataValue& value) {
        T* to = static_cast<T*>(value.values());
        forEachElement(node, "sample", [&](const pugi::xml_node& sample) {
            forEachWord(sample,
                        [&](std::string_view word) { require(NumberText::read(word, *to++)); });
        });
        return &value;
    }

    Value* fillStrings(const pugi::xml_node& node, DataValue& value) {
        StringWriter writer(value);
        forEachElement(node, "sample", [&](const pugi::xml_node& sample) {
            forEachElement(
                sample, "value", [&](const pugi::xml_node& one) { writer.write(textOf(one)); });
        });
        return &value;
    }

    std::string_view textOf(const pugi::xml_node& value) {
        text_.clear();
        forEachPiece(value, [&](std::string_view piece) { text_.append(piece); });
        text_.resize(TextEscape::unescape(text_.data(), text_.size()));
        require(text_.find('\0') == std::string::npos && text_.size() <= 0xFFFFFFFF);
        return text_;
    }

    BlockBuilder& builder_;
    std::vector<float> times_;
    std::string text_;
};

/// Makes the attribute of a document, from the leaves up.
class TreeReader {
public:
    Value* read(const pugi::xml_node& top) {
        require(std::strcmp(top.name(), "attr") == 0);
        pugi::xml_node node = top;
        begin(node, Place::Top);
        while (!groups_.isEmpty()) {
            node = nextAttr(node);
        }
        return builder_.finish(result_);
    }

private:
    enum class Place { Top, InGroup };

    /// Reads the <attr> behind a node, or ends the group around it; gives the node to go on from.
    pugi::xml_node nextAttr(const pugi::xml_node& node) {
        const pugi::xml_node next = isInside_ ? node.first_child() : node.next_sibling();
        if (!next) {
            const pugi::xml_node group = isInside_ ? node : node.parent();
            isInside_ = false;
            complete(groups_.close());
            return group;
        }
        isInside_ = false;
        if (next.type() != pugi::node_element) {
            require(isBlank(next.value()));
        } else {
            require(std::strcmp(next.name(), "attr") == 0);
            begin(next, Place::InGroup);
        }
        return next;
    }

    void begin(const pugi::xml_node& node, Place place) {
        const Tag tag = tagOf(node);
        require((tag.name != nullptr) == (place == Place::InGroup));
        if (tag.name) {
            name_ = tag.name;
            name_.resize(TextEscape::unescape(name_.data(), name_.size()));
            groups_.name(name_);
        }
        const auto* const type =
            std::find(std::begin(XmlForm::kTypes), std::end(XmlForm::kTypes), tag.type);
        require(type != std::end(XmlForm::kTypes));
        const auto kind = static_cast<std::int32_t>(type - std::begin(XmlForm::kTypes));
        require(kind == OV_ATTRIBUTE_GROUP || !tag.inherit);
        require(isDataKind(kind) || !tag.tuple);
        beginKind(node, kind, tag);
    }

    void beginKind(const pugi::xml_node& node, std::int32_t kind, const Tag& tag) {
        if (kind == 0) {
            require(!node.first_child() && isBlank(node.value()));
            complete(nullptr);
        } else if (kind == OV_ATTRIBUTE_GROUP) {
            require(isBlank(node.value()));
            groups_.open();
            groups_.setInherits(inheritsOf(tag.inherit));
            isInside_ = true;
        } else {
            complete(data_.read(node, kind, tag.tuple));
        }
    }

    static bool inheritsOf(const char* text) {
        const std::string_view flag = text ? text : "0";
        require(flag == "0" || flag == "1");
        return flag == "1";
    }

    void complete(Value* value) {
        if (groups_.isEmpty()) {
            result_ = value;
        } else {
            groups_.add(value);
        }
    }

    BlockBuilder builder_;
    GroupStack groups_{builder_, std::numeric_limits<std::size_t>::max()};
    DataReader data_{builder_};
    std::string name_;
    bool isInside_ = false;  ///< The walk is to go on with the children of its node.
    Value* result_ = nullptr;
};

/// The root element of a text, whose nodes lie in `document` and whose texts in `buffer`.
pugi::xml_node parse(std::string_view xml,
                     std::unique_ptr<char[]>& buffer,
                     pugi::xml_document& document) {
    constexpr unsigned kOptions = pugi::parse_escapes | pugi::parse_cdata |
                                  pugi::parse_ws_pcdata_single | pugi::parse_embed_pcdata |
                                  pugi::parse_wconv_attribute | pugi::parse_eol;
    buffer.reset(new char[xml.size()]);
    std::copy(xml.begin(), xml.end(), buffer.get());
    const pugi::xml_parse_result result =
        document.load_buffer_inplace(buffer.get(), xml.size(), kOptions, pugi::encoding_utf8);
    if (result.status == pugi::status_out_of_memory) {
        throw std::bad_alloc();
    }
    const pugi::xml_node root = document.first_child();
    require(result && root && !root.next_sibling());
    return root;
}

}  // namespace

Value* readXml(std::string_view xml) {
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    if (xml.substr(0, kByteOrderMark.size()) == kByteOrderMark) {
        xml.remove_prefix(kByteOrderMark.size());
    }
    // No attribute needs more; what does is made to fill the memory.
    const std::optional<std::size_t> nodeBytes = xmlNodeBytes(xml);
    if (!nodeBytes || *nodeBytes > xml.size() * 11) {
        return nullptr;
    }
    try {
        std::unique_ptr<char[]> buffer;
        pugi::xml_document document;
        const pugi::xml_node root = parse(xml, buffer, document);
        return TreeReader().read(root);
    } catch (const NoAttribute&) {
        return nullptr;
    } catch (const std::length_error&) {
        return nullptr;
    }
}

}  // namespace Sylvar3::internal::OvAttribute::Embedded
