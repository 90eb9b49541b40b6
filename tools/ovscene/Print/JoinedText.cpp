// SPDX-License-Identifier: Apache-2.0
#include "Print/JoinedText.h"

namespace ovscene {

std::string joined(const std::vector<std::string>& texts, const char* between) {
    std::string all;
    const char* before = "";
    for (const std::string& text : texts) {
        all += before + text;
        before = between;
    }
    return all;
}

}  // namespace ovscene
