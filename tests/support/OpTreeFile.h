// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/AttributeFile.h>

#include <cstdio>
#include <fstream>
#include <string>

namespace ovtest {

/// A file in the tests' output folder, gone with this. Each test has names of its own.
class TestFile {
public:
    using Attribute = Sylvar3::internal::OvAttribute::Attribute;
    using Content = Sylvar3::internal::OvAttribute::AttributeContent;

    explicit TestFile(const std::string& name) : path_(OV_TEST_OUTPUT_DIR "/" + name) {
        std::remove(path_.c_str());
    }
    ~TestFile() { std::remove(path_.c_str()); }
    TestFile(const TestFile&) = delete;
    TestFile& operator=(const TestFile&) = delete;

    const std::string& path() const { return path_; }

    TestFile& writeBytes(const std::string& bytes) {
        std::ofstream(path_, std::ios::binary) << bytes;
        return *this;
    }
    TestFile& writeOpTree(const Attribute& tree) { return write(tree, Content::OpTree); }
    TestFile& writeScene(const Attribute& scene) { return write(scene, Content::StaticScene); }
    TestFile& remove() {
        std::remove(path_.c_str());
        return *this;
    }

private:
    TestFile& write(const Attribute& attribute, Content content) {
        Sylvar3::internal::OvAttribute::writeAttributeFile(
            attribute, content, Sylvar3::internal::OvAttribute::attributeFormOf(path_), path_);
        return *this;
    }

    const std::string path_;
};

}  // namespace ovtest
