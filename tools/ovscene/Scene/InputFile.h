// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Print/Terminal.h"

#include <cstdint>
#include <string>

namespace ovscene {

/// A file that is read from its start to its end, with a progress line.
class InputFile {
public:
    /// Throws InputUnreadable when the file cannot be opened, or is a folder.
    explicit InputFile(const std::string& filename);
    ~InputFile();
    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;

    /// An `OvReadFunction` over an `InputFile`.
    static long read(void* self, void* buffer, long size) {
        return static_cast<InputFile*>(self)->readSome(static_cast<char*>(buffer), size);
    }

    /// Throws InputUnreadable when the reading ended with an error and not with the file.
    void requireNoError() const;

    /// How many bytes were read.
    std::int64_t bytes() const { return bytes_; }

private:
    long readSome(char* buffer, long size);
    void showProgress();

    std::string filename_;
    int file_;
    int error_ = 0;
    std::int64_t bytes_ = 0;
    std::int64_t expected_ = 0;
    Progress progress_;
};

}  // namespace ovscene
