// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace Sylvar3::internal::OvSylvar {

/// A scene runtime: cooks op trees into locations on demand. Held by `std::shared_ptr`, as are its
/// transactions, clients and ops; an empty pointer means that there is none.
class SylvarRuntime {
public:
    class Op;
    class Transaction;
    class Client;
    class LocationData;
};

}  // namespace Sylvar3::internal::OvSylvar
