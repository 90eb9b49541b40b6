// SPDX-License-Identifier: Apache-2.0
#include "Scene/SceneErrors.h"

#include "Print/NumberText.h"
#include "Print/Terminal.h"

namespace ovscene {

std::string SceneErrors::look(const SceneWalk& walk) {
    std::string message = walk.location().errorMessage();
    if (!message.empty()) {
        add(1, count_ == 0 ? walk.path() : "", message);
    }
    return message;
}

void SceneErrors::add(std::int64_t count, const std::string& path, const std::string& message) {
    if (count_ == 0 && count > 0) {
        firstPath_ = path;
        firstMessage_ = message;
    }
    count_ += count;
}

void SceneErrors::tell(const std::string& filename, Output& output) const {
    if (count_ > 0) {
        output.flush();
        const std::string place = firstPath_.empty() ? "" : ", the first at " + firstPath_;
        tellUser(filename + ": " + counted(count_, "location") + " with errors" + place + ": " +
                 firstMessage_);
    }
}

}  // namespace ovscene
