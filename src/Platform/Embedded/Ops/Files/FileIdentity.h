// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace Sylvar3::internal::OvSylvar::Embedded {

/// Which file stands at a path just now: its size, time, device and inode. A plain value.
class FileIdentity {
public:
    /// Of no file.
    FileIdentity() = default;

    /// Of the file at that path; a file that is not there has an identity too.
    explicit FileIdentity(const std::string& path);

    /// With the path; the same text, the same file.
    const std::string& text() const { return text_; }

    friend bool operator==(const FileIdentity& a, const FileIdentity& b) {
        return a.text_ == b.text_;
    }

private:
    std::string text_;
};

}  // namespace Sylvar3::internal::OvSylvar::Embedded
