// SPDX-License-Identifier: Apache-2.0
#include "Utils/OvRenderOutputUtilsHost/FrameNumber.h"

#include "Platform/Support/TruncatedInt.h"

#include <algorithm>

namespace SYLVAR {
namespace {

std::string filled(const std::string& number, std::size_t width) {
    return number.size() < width ? std::string(width - number.size(), '0') + number : number;
}

}  // namespace

std::string withFrameNumber(const std::string& path, float frame) {
    const std::string number = std::to_string(Sylvar3::internal::Support::truncatedInt(frame));
    std::string result;
    std::size_t done = 0;
    for (std::size_t run = path.find('#'); run != std::string::npos; run = path.find('#', done)) {
        result.append(path, done, run - done);
        done = std::min(path.find_first_not_of('#', run), path.size());
        result += filled(number, done - run);
    }
    return result.append(path, done);
}

}  // namespace SYLVAR
