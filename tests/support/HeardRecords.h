// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/Analytics.h>

#include <rapidjson/document.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <string>
#include <vector>

namespace ovtest {

/// The process's manager of analytics for as long as it lives: keeps records as "key json".
class HeardRecords final : public Sylvar3::OvRenderServices::v1::AnalyticsManager {
public:
    HeardRecords() { g_instance = this; }
    ~HeardRecords() override { g_instance = nullptr; }

    void addRecord(const std::string& key, const Value& value) override {
        rapidjson::StringBuffer text;
        rapidjson::Writer<rapidjson::StringBuffer> writer(text);
        value.Accept(writer);
        records.push_back(key + " " + text.GetString());
    }

    std::vector<std::string> records;
};

}  // namespace ovtest
