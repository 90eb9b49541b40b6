// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>

namespace ovtest {

/// The host that the plug-in of the op type "import" gets: the platform's, watched. Has the plug-in
/// folder of the build searched.
class ImportingHost {
public:
    static ImportingHost& instance();

    /// How many float attributes the plug-in has made: points above all. It parses where it makes
    /// some.
    int floatsMade() const;

    /// What happens when the plug-in asks next but `count` for a file's identity, before it is
    /// told.
    void beforeIdentity(int count, std::function<void()> happens);

private:
    ImportingHost();
};

}  // namespace ovtest
