// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/OpTreeSource.h>

namespace SYLVAR {

/// A file of serialised ops, in a form that only the runtime knows.
///
/// Its hash is that of the name's bytes, never of what the file holds. Valid when the path exists,
/// be it a directory; otherwise "Empty filename provided." or "File "<name>" does not exist.".
class OV_SYLVAR_PRODUCERS_API OpTreeFileSource final : public AbstractOpTreeSource {
public:
    /// As it was given.
    const std::string filename;

    explicit OpTreeFileSource(const std::string& itsFilename);
    ~OpTreeFileSource() override;

    bool isValid(std::string* errorMessage) const override;

    /// Empty for an empty name. A file that holds no op tree gives an op with a negative id.
    ///
    /// Throws `std::runtime_error`, "Error opening file: <name>", when it cannot be opened.
    std::shared_ptr<SylvarRuntime::Op> getOp(
        const std::shared_ptr<SylvarRuntime::Transaction>& transaction) const override;

    /// The name.
    std::string describe() const override;
};

}  // namespace SYLVAR
