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

/// Divides a path as Boost.Filesystem version 3 does. One of slashes alone is a directory.
ImagePath dividedPath(const std::string& path);

}  // namespace SYLVAR
