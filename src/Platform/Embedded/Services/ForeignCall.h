// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <exception>
#include <string>

namespace Sylvar3::internal::Embedded {

/// Calls a plug-in's function of that name; empty when it returned, otherwise what it threw.
template <class Call>
std::string faultOfCall(const char* name, Call call) {
    try {
        call();
        return {};
    } catch (const std::exception& e) {
        const char* text = e.what();
        return std::string(name) + " throws: " + (text ? text : "");
    } catch (...) {
        return std::string(name) + " throws";
    }
}

}  // namespace Sylvar3::internal::Embedded
