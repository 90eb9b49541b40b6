// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/GeometryProducer.h>

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace ovtest {

/// A producer with nothing behind it. Every child exists but those named "absent"; each step down
/// is noted in a list that the whole tree shares, as "name", or "name evicted".
class FakeProducer final : public SYLVAR::GeometryProducer {
public:
    using Attribute = SYLVAR::Attribute;
    using Steps = std::vector<std::string>;

    explicit FakeProducer(std::string path,
                          SYLVAR::GeometryProducerPtr above = nullptr,
                          std::shared_ptr<Steps> itsSteps = std::make_shared<Steps>())
        : GeometryProducer(std::move(above)), steps(std::move(itsSteps)), path_(std::move(path)) {}

    FakeProducer& set(const std::string& name, const Attribute& value) {
        attributes_[name] = value;
        return *this;
    }

    void getAttributeNames(std::set<std::string>* names) override {
        if (!names) {
            return;
        }
        for (const auto& [name, value] : attributes_) {
            names->insert(name);
        }
    }
    SYLVAR::StringAttribute getPotentialChildren() override { return {}; }
    Attribute getAttribute(const char* name) override {
        if (whenRead) {
            whenRead();
        }
        const auto found = attributes_.find(name);
        return found == attributes_.end() ? Attribute() : found->second;
    }
    std::string getName() override { return path_.substr(path_.rfind('/') + 1); }
    std::string getFullName() override { return path_; }
    std::string getHash() override { return path_; }
    SYLVAR::GeometryProducerPtr getChildByName(const char* name, bool evict) override {
        steps->push_back(std::string(name) + (evict ? " evicted" : ""));
        if (steps->back().rfind("..", 0) == 0) {
            return parent;
        }
        const bool isAbsent = steps->back().rfind("absent", 0) == 0;
        return isAbsent ? nullptr : new FakeProducer(path_ + "/" + name, this, steps);
    }
    SYLVAR::GeometryProducerPtr getFirstChild(bool) override { return nullptr; }
    SYLVAR::GeometryProducerPtr getNextSibling(bool) override { return nullptr; }

    const std::shared_ptr<Steps> steps;
    std::function<void()> whenRead;  ///< Called before an attribute is given.

private:
    const std::string path_;
    std::map<std::string, Attribute> attributes_;
};

}  // namespace ovtest
