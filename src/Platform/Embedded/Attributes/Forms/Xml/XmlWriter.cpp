// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Attributes/Forms/Xml/XmlWriter.h"

#include <SylvarPlatform/AttributeFile.h>

#include "Platform/Embedded/Attributes/Forms/ExpandedSize.h"
#include "Platform/Embedded/Attributes/Forms/NumberText.h"
#include "Platform/Embedded/Attributes/Forms/Text/ListLayout.h"
#include "Platform/Embedded/Attributes/Forms/TextEscape.h"
#include "Platform/Embedded/Attributes/Forms/TextOutput.h"
#include "Platform/Embedded/Attributes/Forms/TreeWalk.h"
#include "Platform/Embedded/Attributes/Forms/Xml/XmlForm.h"
#include "Platform/Embedded/Attributes/Values/TextRecords.h"

#include <string>

namespace Sylvar3::internal::OvAttribute::Embedded {

namespace {

std::string_view referenceFor(char c) {
    switch (c) {
        case '&':
            return "&amp;";
        case '<':
            return "&lt;";
        case '>':
            return "&gt;";
        default:
            return "&quot;";
    }
}

/// Appends a text that needs no escape.
void appendPlain(std::string& to, std::string_view text) {
    std::size_t special = 0;
    while ((special = text.find_first_of("&<>\"")) != std::string_view::npos) {
        to.append(text.substr(0, special));
        to.append(referenceFor(text[special]));
        text.remove_prefix(special + 1);
    }
    to.append(text);
}

void appendText(std::string& to, std::string_view text) {
    while (true) {
        const std::size_t span = TextEscape::plainSpan(text);
        appendPlain(to, text.substr(0, span));
        if (span == text.size()) {
            return;
        }
        char escape[TextEscape::kLength];
        TextEscape::write(escape, text[span]);
        to.append(escape, TextEscape::kLength);
        text.remove_prefix(span + 1);
    }
}

template <class T>
void appendItem(std::string& to, T value) {
    char text[NumberText::kLongest];
    to.append(text, NumberText::write(text, value));
}

void appendItem(std::string& to, const char* value) {
    const std::string_view text = TextRecord::at(value);
    if (text.empty()) {
        to.append("<value/>");
        return;
    }
    to.append("<value>");
    appendText(to, text);
    to.append("</value>");
}

class Writer {
public:
    explicit Writer(TextOutput& output) : output_(output), list_(output, "") {}

    void visit(const WalkPlace& place) {
        depth_ = place.depth;
        const std::int32_t kind = place.value ? place.value->kind : 0;
        beginElement(place, XmlForm::kTypes[kind]);
        if (kind == 0) {
            output_.write("/>");
        } else if (kind == OV_ATTRIBUTE_GROUP) {
            endGroupTag(static_cast<const GroupValue&>(*place.value));
        } else {
            writeData(static_cast<const DataValue&>(*place.value));
        }
    }

    void leave(const GroupValue& group, std::size_t depth) {
        if (group.size() != 0) {
            output_.newLine(depth);
            output_.write("</attr>");
        }
    }

    bool isDone() const { return output_.isStopped(); }

private:
    void beginElement(const WalkPlace& place, std::string_view type) {
        if (place.group) {
            output_.newLine(depth_);
        }
        output_.write("<attr");
        if (place.group) {
            scratch_.clear();
            appendText(scratch_, place.group->shape->name(place.index));
            writeAttribute("name", scratch_);
        }
        writeAttribute("type", type);
    }

    void writeAttribute(std::string_view name, std::string_view value) {
        output_.put(' ');
        output_.write(name);
        output_.write("=\"");
        output_.write(value);
        output_.put('"');
    }

    void endGroupTag(const GroupValue& group) {
        if (group.inherits()) {
            writeAttribute("inherit", "1");
        }
        output_.write(group.size() != 0 ? ">" : "/>");
    }

    void writeData(const DataValue& data) {
        if (data.tupleSize != 1) {
            writeAttribute("tuple", std::to_string(data.tupleSize));
        }
        output_.write(data.sampleCount != 0 ? ">" : "/>");
        for (std::uint32_t i = 0; i < data.sampleCount && !isDone(); ++i) {
            writeSample(data, i);
        }
        if (data.sampleCount != 0) {
            output_.newLine(depth_);
            output_.write("</attr>");
        }
    }

    void writeSample(const DataValue& data, std::uint32_t sample) {
        output_.newLine(depth_ + 1);
        output_.write("<sample");
        scratch_.clear();
        appendItem(scratch_, data.times()[sample]);
        writeAttribute("time", scratch_);
        if (data.valueCount == 0) {
            output_.write("/>");
            return;
        }
        output_.put('>');
        writeValues(data, sample * data.valueCount);
        output_.write("</sample>");
    }

    void writeValues(const DataValue& data, std::int64_t first) {
        switch (data.kind) {
            case OV_ATTRIBUTE_INT:
                return writeList(data, data.valuesAs<std::int32_t>() + first);
            case OV_ATTRIBUTE_FLOAT:
                return writeList(data, data.valuesAs<float>() + first);
            case OV_ATTRIBUTE_DOUBLE:
                return writeList(data, data.valuesAs<double>() + first);
            default:
                return writeList(data, data.valuesAs<const char*>() + first);
        }
    }

    template <class T>
    void writeList(const DataValue& data, const T* values) {
        list_.begin(data.tupleSize, depth_ + 2);
        for (std::int64_t i = 0; i < data.valueCount && !isDone(); ++i) {
            appendItem(list_.beginItem(), values[i]);
            list_.endItem();
        }
        list_.end();
    }

    TextOutput& output_;
    ListLayout list_;
    std::string scratch_;
    std::size_t depth_ = 0;
};

}  // namespace

bool writeXmlTo(const Value* value, void* stream, OvWriteFunction write) {
    if (expandedSizeOf(value, kMaxWrittenAttributes) > kMaxWrittenAttributes) {
        return false;
    }
    TextOutput output(stream, write);
    Writer writer(output);
    walkTree(value, writer);
    output.put('\n');
    return output.finish();
}

}  // namespace Sylvar3::internal::OvAttribute::Embedded
