// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <stdexcept>
#include <unistd.h>

namespace ovtest {

/// While it lives, the process has no more rights to files than any user, even when the tests run
/// as root.
class OrdinaryUser {
public:
    OrdinaryUser() : user_(geteuid()) {
        constexpr uid_t kNobody = 65534;
        if (user_ == 0 && seteuid(kNobody) != 0) {
            throw std::runtime_error("Cannot become an ordinary user.");
        }
    }
    ~OrdinaryUser() { static_cast<void>(!seteuid(user_)); }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

private:
    uid_t user_;
};

}  // namespace ovtest
