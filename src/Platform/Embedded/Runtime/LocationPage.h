// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Platform/Embedded/Runtime/Location.h"
#include "Platform/Embedded/Runtime/Session.h"
#include "Platform/Embedded/Runtime/StorePage.h"

#include <algorithm>
#include <cstdint>

namespace Sylvar3::internal::OvSylvar::Embedded {

/// The page in which a location is made. It is chosen when the op begins to write, behind the pages
/// of all that the op has read by then, since a page keeps values of earlier pages alone. When the
/// op keeps something later all the same, the location goes on in a page behind that.
class LocationPage {
public:
    explicit LocationPage(Session& session) : session_(session) {}
    LocationPage(const LocationPage&) = delete;
    LocationPage& operator=(const LocationPage&) = delete;
    ~LocationPage() { end(); }

    /// Tells what the op has read.
    void follow(const Location& location) {
        if (location.exists()) {
            order_ = std::max(order_, StorePage::orderOf(*location.group()));
        }
    }

    /// Throws `std::bad_alloc`, as does `keep`.
    StorePage& get() {
        if (!page_) {
            page_ = &session_.store.beginLocation(session_, order_);
        }
        return *page_;
    }

    StorePage::Value* keep(StorePage::Value& value) {
        const std::uint64_t order = get().orderToKeep(value);
        if (order > page_->order()) {
            goOn(order);
        }
        return page_->keep(value);
    }

private:
    void end() {
        if (page_) {
            session_.store.endLocation(session_, *page_);
        }
    }

    /// In a later page, which keeps what was written up to now.
    void goOn(std::uint64_t order) {
        StorePage& next = session_.store.beginLocation(session_, order);
        try {
            next.keep(*page_->existsValue());
        } catch (...) {
            session_.store.endLocation(session_, next);
            throw;
        }
        end();
        page_ = &next;
    }

    Session& session_;
    std::uint64_t order_ = 0;
    StorePage* page_ = nullptr;
};

}  // namespace Sylvar3::internal::OvSylvar::Embedded
