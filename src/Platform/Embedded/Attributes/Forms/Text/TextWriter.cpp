// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/AttributeFile.h>

#include "Platform/Embedded/Attributes/Forms/ExpandedSize.h"
#include "Platform/Embedded/Attributes/Forms/FileForms.h"
#include "Platform/Embedded/Attributes/Forms/NumberText.h"
#include "Platform/Embedded/Attributes/Forms/Text/ListLayout.h"
#include "Platform/Embedded/Attributes/Forms/Text/TextForm.h"
#include "Platform/Embedded/Attributes/Forms/TextEscape.h"
#include "Platform/Embedded/Attributes/Forms/TextOutput.h"
#include "Platform/Embedded/Attributes/Forms/TreeWalk.h"
#include "Platform/Embedded/Attributes/Values/TextRecords.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace Sylvar3::internal::OvAttribute::Embedded {

namespace {

/// Appends a text that needs no escape as the inside of a JSON string.
void appendPlain(std::string& to, std::string_view text) {
    std::size_t special = 0;
    while ((special = text.find_first_of("\"\\")) != std::string_view::npos) {
        to.append(text.substr(0, special));
        to.append({'\\', text[special]});
        text.remove_prefix(special + 1);
    }
    to.append(text);
}

void appendString(std::string& to, std::string_view text) {
    to.push_back('"');
    while (true) {
        const std::size_t span = TextEscape::plainSpan(text);
        appendPlain(to, text.substr(0, span));
        if (span == text.size()) {
            break;
        }
        char escape[TextEscape::kLength];
        TextEscape::write(escape, text[span]);
        appendPlain(to, {escape, TextEscape::kLength});
        text.remove_prefix(span + 1);
    }
    to.push_back('"');
}

/// How the numbers of an attribute are written.
enum class Style { Typed, Bare };

void appendItem(std::string& to, std::int32_t value, Style /*style*/) {
    char text[NumberText::kLongest];
    to.append(text, NumberText::write(text, value));
}

template <class T>
void appendItem(std::string& to, T value, Style style) {
    char buffer[NumberText::kLongest];
    const char* const end = NumberText::write(buffer, value);
    const std::string_view text(buffer, static_cast<std::size_t>(end - buffer));
    if (!std::isfinite(value)) {
        to.push_back('"');
        appendPlain(to, text);
        to.push_back('"');
        return;
    }
    to.append(text);
    if (style == Style::Bare && text.find_first_of(".e") == std::string_view::npos) {
        to.append(".0");
    }
}

void appendItem(std::string& to, const char* value, Style /*style*/) {
    appendString(to, TextRecord::at(value));
}

bool areFinite(const DataValue& data) {
    const double* const values = data.valuesAs<double>();
    return std::all_of(
        values, values + data.totalValues(), [](double value) { return std::isfinite(value); });
}

/// Whether an attribute is written without its kind.
bool isBare(const DataValue& data) {
    const bool isPlain = data.sampleCount == 1 && isPlainTime(data.times()[0]) &&
                         data.tupleSize == 1 && data.valueCount != 0;
    return isPlain && data.kind != OV_ATTRIBUTE_FLOAT &&
           (data.kind != OV_ATTRIBUTE_DOUBLE || areFinite(data));
}

class Writer {
public:
    explicit Writer(TextOutput& output) : output_(output), list_(output, ",") {}

    void visit(const WalkPlace& place) {
        depth_ = place.depth + 1;
        beginValue(place);
        if (!place.value) {
            output_.write("null");
        } else if (place.value->kind == OV_ATTRIBUTE_GROUP) {
            beginGroup(static_cast<const GroupValue&>(*place.value));
        } else {
            writeData(static_cast<const DataValue&>(*place.value));
        }
    }

    void leave(const GroupValue& group, std::size_t depth) {
        if (group.size() != 0) {
            output_.newLine(depth + 1);
        }
        output_.put('}');
    }

    bool isDone() const { return output_.isStopped() || output_.length() > TextForm::kLongestText; }

private:
    void beginValue(const WalkPlace& place) {
        if (!place.group) {
            return;
        }
        if (place.index != 0 || place.group->inherits()) {
            output_.put(',');
        }
        output_.newLine(depth_);
        const std::string_view name = place.group->shape->name(place.index);
        scratch_.clear();
        appendString(scratch_, name);
        output_.write(name.substr(0, 1) == "$" ? "\"$" : "\"");
        output_.write(std::string_view(scratch_).substr(1));
        output_.write(": ");
    }

    void beginGroup(const GroupValue& group) {
        output_.put('{');
        if (group.inherits()) {
            if (group.size() != 0) {
                output_.newLine(depth_ + 1);
            }
            output_.write("\"$inherit\": true");
        }
    }

    void writeData(const DataValue& data) {
        switch (data.kind) {
            case OV_ATTRIBUTE_INT:
                return writeValues(data, data.valuesAs<std::int32_t>());
            case OV_ATTRIBUTE_FLOAT:
                return writeValues(data, data.valuesAs<float>());
            case OV_ATTRIBUTE_DOUBLE:
                return writeValues(data, data.valuesAs<double>());
            default:
                return writeValues(data, data.valuesAs<const char*>());
        }
    }

    template <class T>
    void writeValues(const DataValue& data, const T* values) {
        if (isBare(data)) {
            return writeSample(data, values, Style::Bare);
        }
        output_.write("{\"");
        output_.write(TextForm::kKinds[data.kind - OV_ATTRIBUTE_INT]);
        output_.write("\": ");
        if (data.sampleCount == 1 && isPlainTime(data.times()[0])) {
            writeSample(data, values, Style::Typed);
        } else {
            writeSamples(data, values);
            writeTimes(data);
        }
        if (data.tupleSize != 1) {
            output_.write(", \"$tuple\": ");
            output_.write(std::to_string(data.tupleSize));
        }
        output_.put('}');
    }

    /// One value stands by itself, more in an array.
    template <class T>
    void writeSample(const DataValue& data, const T* values, Style style) {
        if (data.valueCount == 1 && data.tupleSize == 1) {
            scratch_.clear();
            appendItem(scratch_, *values, style);
            output_.write(scratch_);
        } else {
            writeArray(values, data.valueCount, data.tupleSize, style);
        }
    }

    template <class T>
    void writeArray(const T* values, std::int64_t count, std::size_t tupleSize, Style style) {
        output_.put('[');
        list_.begin(tupleSize, depth_ + 1);
        for (std::int64_t i = 0; i < count && !isDone(); ++i) {
            appendItem(list_.beginItem(), values[i], style);
            list_.endItem();
        }
        list_.end();
        output_.put(']');
    }

    template <class T>
    void writeSamples(const DataValue& data, const T* values) {
        output_.put('[');
        for (std::uint32_t i = 0; i < data.sampleCount && !isDone(); ++i) {
            if (i != 0) {
                output_.put(',');
                separate(data.valueCount);
            }
            writeArray(values, data.valueCount, data.tupleSize, Style::Typed);
            values += data.valueCount;
        }
        output_.put(']');
    }

    /// Long samples stand on lines of their own.
    void separate(std::int64_t valueCount) {
        constexpr std::size_t kUsualWidth = 6;
        const std::size_t width = static_cast<std::size_t>(valueCount) * kUsualWidth;
        if (output_.column() + width >= ListLayout::kLongestLine) {
            output_.newLine(depth_ + 1);
        } else {
            output_.put(' ');
        }
    }

    void writeTimes(const DataValue& data) {
        output_.write(", \"$times\": ");
        writeArray(data.times(), data.sampleCount, 1, Style::Typed);
    }

    TextOutput& output_;
    ListLayout list_;
    std::string scratch_;
    std::size_t depth_ = 0;  ///< Of the members of the group that the value stands in.
};

void writeHead(TextOutput& output, AttributeContent content) {
    output.put('{');
    output.newLine(1);
    output.write("\"format\": \"sylvar\",");
    output.newLine(1);
    output.write("\"version\": 1,");
    output.newLine(1);
    output.write("\"content\": \"");
    output.write(TextForm::kContents[static_cast<std::size_t>(content)]);
    output.write("\",");
    output.newLine(1);
    output.write("\"root\": ");
}

}  // namespace

std::string writeText(const Value& value,
                      AttributeContent content,
                      void* stream,
                      OvWriteFunction write) {
    if (expandedSizeOf(&value, kMaxWrittenAttributes) > kMaxWrittenAttributes) {
        return "The attribute expands to more than " + std::to_string(kMaxWrittenAttributes) +
               " attributes.";
    }
    TextOutput output(stream, write);
    Writer writer(output);
    writeHead(output, content);
    walkTree(&value, writer);
    output.write("\n}\n");
    const bool isWhole = output.finish();
    if (output.length() > TextForm::kLongestText) {
        return TextForm::kTooLong;
    }
    return isWhole ? std::string() : kWritingStopped;
}

}  // namespace Sylvar3::internal::OvAttribute::Embedded
