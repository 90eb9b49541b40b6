// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Platform/Embedded/Runtime/Location.h"
#include "Platform/Embedded/Runtime/Session.h"
#include "Platform/Embedded/Runtime/StorePage.h"

#include <algorithm>
#include <cstdint>

namespace Sylvar3::internal::OvSylvar::Embedded {

/// The page in which a location is made. It is chosen when the op begins to write, behind the pages
/// of all that the op has read by then, since a page keeps values of earlier pages alone.
class LocationPage {
public:
    /// `order`: of a page that it has to come behind, or be.
    LocationPage(Session& session, std::uint64_t order) : session_(session), order_(order) {}
    LocationPage(const LocationPage&) = delete;
    LocationPage& operator=(const LocationPage&) = delete;
    ~LocationPage() {
        if (page_) {
            session_.store.endLocation(session_, *page_);
        }
    }

    /// Tells what the op has read.
    void follow(const Location& location) {
        if (location.exists()) {
            order_ = std::max(order_, StorePage::orderOf(*location.group()));
        }
    }

    /// Throws `std::bad_alloc`.
    StorePage& get() {
        if (!page_) {
            page_ = &session_.store.beginLocation(session_, order_);
        }
        return *page_;
    }

private:
    Session& session_;
    std::uint64_t order_;
    StorePage* page_ = nullptr;
};

}  // namespace Sylvar3::internal::OvSylvar::Embedded
