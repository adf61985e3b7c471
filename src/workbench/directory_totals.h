#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace brindlemoor {

/// The three totals lines under the grid: cells joined with "|", one for each of the grid's first
/// columns. Empty before the first disk.
extern std::array<std::string, 3> TotalsLines;

/// What the rows of the directory add up to.
struct DirectorySums {
    std::int64_t Size = 0;   ///< bytes, without continuation entries and "." entries
    std::int64_t Units = 0;  ///< granules
    int RowsShown = 0;
};

/// Computes `TotalsLines` from `Disk` and the sums.
void ComputeTotals(const DirectorySums& sums);

/// Sets the captions of the labels `totales` from `TotalsLines`, the grid's column widths and its
/// horizontal scroll offset, so that each cell stands under its column. Stops at the first empty
/// line. Fails with 9 when a line has more cells than the grid has columns.
void LayoutTotals();

}  // namespace brindlemoor
