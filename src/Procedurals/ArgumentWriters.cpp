// SPDX-License-Identifier: Apache-2.0
#include "Procedurals/ArgumentWriters.h"

#include <SylvarPlatform/AssetPlugin.h>
#include <SylvarPlatform/SampleAccessor.h>

#include "Procedurals/NumberWriter.h"

#include <cstdint>
#include <optional>

namespace SYLVAR {
namespace {

using Sylvar3::internal::OvAttribute::getStringValue;
using Sylvar3::internal::OvAttribute::SampleAccessor;
using Sylvar3::OvAssetHost::v1::OvAssetPluginManager;

void writeName(std::ostream& stream, const std::string& name) {
    stream << " -" << name << ' ';
}

/// `Written` is the type in which a value goes into the stream.
template <class Written, class NumberAttribute>
void writeNumbers(std::ostream& stream, const std::string& name, const NumberAttribute& attr) {
    const SampleAccessor<NumberAttribute> values(attr, 0.0F);
    if (values.begin() == values.end()) {
        return;
    }
    writeName(stream, name);
    for (const auto* value = values.begin(); value != values.end(); ++value) {
        stream << (value == values.begin() ? "" : " ");
        WriteNumber(stream, static_cast<Written>(*value));
    }
}

std::string resolved(const std::string& value, int frame) {
    return OvAssetPluginManager::getDefaultAssetPlugin()->resolveAsset(value, frame, true);
}

/// Nothing when it cannot be, which the callback is told.
std::optional<std::string> resolvedOrTold(const std::string& value,
                                          int frame,
                                          const GeometryProducerPtr& producer,
                                          ProceduralErrorCallback errorCallback) {
    try {
        return resolved(value, frame);
    } catch (...) {
        if (errorCallback) {
            errorCallback(
                "asset resolve failed on  '" + value + "' when building an procedural call.",
                producer);
        }
        return std::nullopt;
    }
}

void writeQuotedWhereNeeded(std::ostream& stream, const std::string& value) {
    const bool isQuoted = value.empty() || value.find(' ') != std::string::npos;
    const char* const quote = isQuoted ? "'" : "";
    stream << quote << value << quote;
}

}  // namespace

void WriteFloatArgument(std::ostream& stream, const std::string& name, const FloatAttribute& attr) {
    writeNumbers<double>(stream, name, attr);
}

void WriteDoubleArgument(std::ostream& stream,
                         const std::string& name,
                         const DoubleAttribute& attr) {
    writeNumbers<double>(stream, name, attr);
}

void WriteIntArgument(std::ostream& stream, const std::string& name, const IntAttribute& attr) {
    writeNumbers<std::int32_t>(stream, name, attr);
}

void WriteStringArgument(std::ostream& stream,
                         const std::string& name,
                         const StringAttribute& attr,
                         GeometryProducerPtr& producer,
                         int frame,
                         ProceduralErrorCallback errorCallback) {
    const SampleAccessor<StringAttribute> values(attr, 0.0F);
    if (values.begin() == values.end()) {
        return;
    }
    const bool isList = values.getNumberOfValues() > 1;
    writeName(stream, name);
    stream << (isList ? "'" : "");
    for (const char* const* value = values.begin(); value != values.end(); ++value) {
        stream << (value == values.begin() ? "" : " ");
        const auto text = resolvedOrTold(*value, frame, producer, errorCallback);
        if (!text) {
            return;
        }
        if (isList) {
            stream << *text;
        } else {
            writeQuotedWhereNeeded(stream, *text);
        }
    }
    stream << (isList ? "'" : "");
}

void WriteExtraArguments(std::ostream& stream,
                         const std::string& name,
                         const StringAttribute& attr,
                         GeometryProducerPtr& producer,
                         int frame,
                         ProceduralErrorCallback errorCallback) {
    if (SampleAccessor<StringAttribute>(attr).getNumberOfValues() == 0) {
        return;
    }
    std::string text = getStringValue(attr, "", false);
    try {
        text = resolved(text, frame);
    } catch (...) {
        if (errorCallback) {
            errorCallback("asset resolve failed on '" + name + "' when building an procedural.",
                          producer);
        }
    }
    stream << ' ' << text << ' ';
}

}  // namespace SYLVAR
