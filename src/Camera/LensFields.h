// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <utility>

namespace SYLVAR {

/// The values of a lens by their names, in the order in which they are read.
template <class Lens>
constexpr std::array<std::pair<const char*, float Lens::*>, 7> lensFields() {
    return {{{"fov", &Lens::fov},
             {"near", &Lens::near},
             {"far", &Lens::far},
             {"left", &Lens::left},
             {"right", &Lens::right},
             {"top", &Lens::top},
             {"bottom", &Lens::bottom}}};
}

}  // namespace SYLVAR
