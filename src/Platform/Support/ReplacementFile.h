// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Platform/Support/FileHandle.h"

#include <string>

namespace Sylvar3::internal::Support {

/// A file that is written beside the wanted one and takes its place when it is whole: a failure
/// leaves what was there. Where the name stands for something that is no ordinary file (a pipe, a
/// terminal), it is written to as it is. Belongs to one thread.
class ReplacementFile {
public:
    explicit ReplacementFile(const std::string& filename);

    /// Without a commit, what was written is gone.
    ~ReplacementFile();
    ReplacementFile(const ReplacementFile&) = delete;
    ReplacementFile& operator=(const ReplacementFile&) = delete;

    /// Where to write; null, with `errno`, when the file could not be made.
    std::FILE* get() const { return file_.get(); }

    /// Puts the file in place; false, with `errno`, when anything of it could not be written.
    bool commit();

private:
    std::string filename_;
    std::string temporary_;  ///< Empty when there is none.
    FileHandle file_;
};

}  // namespace Sylvar3::internal::Support
