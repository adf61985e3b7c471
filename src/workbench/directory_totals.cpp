#include "workbench/directory_totals.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "core/numbers.h"
#include "filesystems/decb.h"
#include "workbench/principal.h"

namespace brindlemoor {

std::array<std::string, 3> TotalsLines;

namespace {

std::string Grouped(std::int64_t value) {
    return FormatNumber(static_cast<double>(value), "###,###");
}

std::string UsedLine(const DirectorySums& sums) {
    const std::int64_t used = static_cast<std::int64_t>(Disk.UsedSectors) * kSectorSize;
    const double efficiency =
        static_cast<double>(sums.Size) / static_cast<double>(used == 0 ? 1 : used) * 100;
    return JoinText(
        {MessageText(12), DecimalText(sums.RowsShown), "", "", DecimalText(Disk.UsedSectors),
         DecimalText(sums.Units), Grouped(sums.Size), Grouped(used), Grouped(used - sums.Size),
         FormatNumber(efficiency, "##0.00") + "%"},
        "|");
}

std::string CapacityLine() {
    const std::int64_t bytes = static_cast<std::int64_t>(Disk.TotalUnits) * kSectorSize;
    return JoinText({"Max:", DecimalText(Disk.MaxDirEntries), "", "", DecimalText(Disk.TotalUnits),
                     DecimalText(Disk.TotalUnits / kDecbGranuleSectors), Grouped(bytes),
                     Grouped(bytes), "      "},
                    "|");
}

std::string FreeLine(const DirectorySums& sums) {
    const std::int64_t bytes = static_cast<std::int64_t>(Disk.TotalUnits) * kSectorSize;
    const std::int64_t used = static_cast<std::int64_t>(Disk.UsedSectors) * kSectorSize;
    return JoinText({MessageText(14), DecimalText(Disk.MaxDirEntries - sums.RowsShown), "", "",
                     DecimalText(Disk.TotalUnits - Disk.UsedSectors),
                     DecimalText(Disk.TotalUnits / kDecbGranuleSectors - sums.Units),
                     Grouped(bytes - sums.Size), Grouped(bytes - used), MessageText(15)},
                    "|");
}

/// One cell of a totals line, as wide as its column: the first left-aligned and one character
/// narrower, the others right-aligned. `mayOverflow` lets a longer text stand whole.
std::string LaidOutCell(const std::string& text, int column, bool mayOverflow) {
    const GridColumn& shown = SeenColumn(ListDirec, column);
    const double characters = static_cast<double>(shown.Width) / kGridCharacterWidth;
    double pad = std::max(characters - static_cast<double>(text.size()), 0.0);
    if (column == 1) pad = std::max(pad - 1, 0.0);
    const std::string blanks(static_cast<std::size_t>(std::floor(pad)), ' ');
    std::string cell = column == 1 ? text + blanks : blanks + text;
    if (!mayOverflow) cell = Left(cell, static_cast<std::int64_t>(std::floor(characters)));
    return shown.Visible ? cell : std::string();
}

std::string LaidOutLine(const std::string& line, bool lastLine) {
    const std::vector<std::string> cells = SplitText(line, "|");
    std::string text;
    for (std::size_t cell = 0; cell < cells.size(); ++cell) {
        // The last text of the last line may stick out to the right of its column.
        const bool mayOverflow = lastLine && cell + 1 == cells.size();
        text += LaidOutCell(cells[cell], static_cast<int>(cell) + 1, mayOverflow);
    }
    const double hidden = -static_cast<double>(ListDirec.ScrollOffsetX) / kGridCharacterWidth;
    return Mid(text, WholeNumber32(1 + hidden), static_cast<std::int64_t>(text.size()));
}

}  // namespace

void ComputeTotals(const DirectorySums& sums) {
    TotalsLines = {UsedLine(sums), CapacityLine(), FreeLine(sums)};
}

void LayoutTotals() {
    for (std::size_t line = 0; line < TotalsLines.size(); ++line) {
        if (TotalsLines[line].empty()) return;
        const bool lastLine = line + 1 == TotalsLines.size();
        SetText(PrincipalControl("totales", static_cast<int>(line)),
                LaidOutLine(TotalsLines[line], lastLine));
    }
}

}  // namespace brindlemoor
