// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/OpTreeFileSource.h>

#include "Filters/FileStream.h"

namespace SYLVAR {
namespace {

/// Bytes are signed on purpose: sources must be in one order in every build.
std::uint64_t hashOf(const std::string& text) {
    constexpr std::uint64_t kMultiplier = 0xc6a4a7935bd1e995;
    std::uint64_t hash = 0;
    for (const char byte : text) {
        const auto extended = std::int64_t{static_cast<signed char>(byte)};
        std::uint64_t k = static_cast<std::uint64_t>(extended) * kMultiplier;
        k ^= k >> 47;
        k *= kMultiplier;
        hash = (hash ^ k) * kMultiplier + 0xe6546b64;
    }
    return hash;
}

void tell(std::string* errorMessage, const std::string& text) {
    if (errorMessage) {
        *errorMessage = text;
    }
}

}  // namespace

OpTreeFileSource::OpTreeFileSource(const std::string& itsFilename)
    : AbstractOpTreeSource(hashOf(itsFilename)), filename(itsFilename) {}

OpTreeFileSource::~OpTreeFileSource() = default;

bool OpTreeFileSource::isValid(std::string* errorMessage) const {
    if (filename.empty()) {
        tell(errorMessage, "Empty filename provided.");
        return false;
    }
    if (!fileExists(filename)) {
        tell(errorMessage, "File \"" + filename + "\" does not exist.");
        return false;
    }
    return true;
}

std::shared_ptr<SylvarRuntime::Op> OpTreeFileSource::getOp(
    const std::shared_ptr<SylvarRuntime::Transaction>& transaction) const {
    if (filename.empty()) {
        return {};
    }
    std::ifstream file = openFile(filename);
    return transaction->deserializeOps(&file, readFromFile);
}

std::string OpTreeFileSource::describe() const {
    return filename;
}

}  // namespace SYLVAR
