// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <boost/filesystem/path.hpp>

#include <string>

namespace SYLVAR {

/// The pieces of an image's path, "/a/b/beauty.0001.exr" being "/a/b", "beauty.0001" and ".exr".
struct ImagePath {
    boost::filesystem::path directory;
    std::string stem;
    std::string extension;
};

/// Divides a path as Boost.Filesystem version 3 does; but one of slashes alone is a directory,
/// where that one makes a file name of up to three of them and throws for more.
ImagePath dividedPath(const std::string& path);

}  // namespace SYLVAR
