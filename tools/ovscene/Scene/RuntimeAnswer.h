// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/SylvarRuntime.h>

#include <rapidjson/document.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

/// What a runtime answers: JSON of unknown origin, since any plug-in may be the runtime.
namespace ovscene {

using Sylvar3::internal::OvSylvar::SylvarRuntime;

using JsonDocument = std::unique_ptr<const rapidjson::Document>;

/// A text as JSON; null when it is no JSON object.
JsonDocument jsonObject(std::string_view text);

/// The answer to a query of `queryRuntimeInfo`; null when the runtime has none, or one that is no
/// JSON object.
JsonDocument askRuntime(const SylvarRuntime& runtime, std::string_view query);

/// @name Members of an object
/// A member that is not there, or is of another kind, reads as null, "", 0 or false.
/// @{
const rapidjson::Value& member(const rapidjson::Value& object, const char* name);
std::string textOf(const rapidjson::Value& object, const char* name);
std::int64_t countOf(const rapidjson::Value& object, const char* name);
bool flagOf(const rapidjson::Value& object, const char* name);
/// @}

/// Calls `use` with each element, when the member is an array.
void forEachOf(const rapidjson::Value& object,
               const char* name,
               const std::function<void(const rapidjson::Value&)>& use);

}  // namespace ovscene
