// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/AttributeFile.h>

#include "Scene/SceneLocation.h"

#include <cstdint>
#include <string>

namespace ovscene {

using Sylvar3::internal::OvAttribute::Attribute;
using Sylvar3::internal::OvAttribute::AttributeContent;
using Sylvar3::internal::OvAttribute::AttributeForm;

/// A file that was read as a whole.
struct SceneFile {
    std::string name;
    Attribute attribute;
    AttributeContent content = AttributeContent::Attribute;
    AttributeForm form = AttributeForm::Binary;
    std::int64_t bytes = 0;
    double readSeconds = 0;
};

/// Reads either form. Throws a `CommandError`: InputUnreadable when the file cannot be opened or
/// read, InputMalformed with the reader's message when its bytes are no attribute.
SceneFile readSceneFile(const std::string& filename);

/// The top location of the scene, /root. That of an op tree is cooked, and so are others when they
/// are stepped to. Throws InputMalformed for a file of other content, and for an op tree that has
/// no such location or cannot be opened, which the log tells more of.
SceneLocationPtr topLocation(const SceneFile& file);

/// Writes in the form that the file name asks for; returns the file's size. Throws
/// OutputUnwritable.
std::int64_t writeSceneFile(const Attribute& attribute,
                            AttributeContent content,
                            const std::string& filename);

/// Whether it is a file that can be read again, and no pipe or terminal.
bool isOrdinaryFile(const std::string& filename);

/// Throws OutputUnwritable when no file of that name can be put in place: before long work.
void requireWritablePlace(const std::string& filename);

/// "op tree", "static scene", "attribute"; "binary", "text".
const char* contentName(AttributeContent content);
const char* formName(AttributeForm form);

}  // namespace ovscene
