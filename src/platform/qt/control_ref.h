#pragma once

#include <cstddef>

#include "workbench/control.h"

namespace brindlemoor {

/// Where the record of a widget stands. A window's table may grow and move its records, so that
/// widgets keep this in place of an address.
struct ControlRef {
    Window* Owner = nullptr;
    std::size_t Index = 0;
};

inline Control& RecordOf(const ControlRef& place) {
    return place.Owner->Controls[place.Index];
}

/// Pixels of a length in twips.
inline int Pixels(int twips) {
    return twips / kTwipsPerPixel;
}

}  // namespace brindlemoor
