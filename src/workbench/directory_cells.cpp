#include "workbench/directory_cells.h"

#include <array>
#include <string>

#include "core/byte_helpers.h"
#include "core/numbers.h"
#include "core/settings.h"
#include "filesystems/decb.h"
#include "workbench/principal.h"

namespace brindlemoor {

namespace {

constexpr int kIndentPixels = 13;
constexpr std::int32_t kDeletedColour = 0x8080FF;
constexpr std::int32_t kProtectedColour = 0x646464;
constexpr std::int32_t kWhite = 0xFFFFFF;
constexpr std::int32_t kBlack = 0;

std::string GranuleText(const std::string& chain) {
    std::string text;
    for (std::size_t place = 0; place < chain.size(); ++place) {
        text += DecimalText(ByteAt(chain, static_cast<std::int64_t>(place))) + " ";
    }
    return text;
}

/// Dragon extents: "sector(count) ". A bar stands where the extents of a directory entry end: four
/// in the first, more in those that continue it.
std::string ExtentText(const std::string& chain) {
    std::string text;
    const auto extents = static_cast<std::int64_t>(chain.size() / 3);
    for (std::int64_t extent = 0; extent < extents; ++extent) {
        if (extent > 2 && (extent - 4) % 6 == 0) text += "| ";
        const int sector = ByteAt(chain, extent * 3) * 256 + ByteAt(chain, extent * 3 + 1);
        text += DecimalText(sector) + "(" + DecimalText(ByteAt(chain, extent * 3 + 2)) + ") ";
    }
    return text;
}

/// OS-9 segments: "LSN(count) ", the first with its file descriptor in front: "LSN(1+count) ".
std::string SegmentText(const std::string& chain) {
    std::string text;
    const auto segments = static_cast<std::int64_t>(chain.size() / 5);
    for (std::int64_t segment = 0; segment < segments; ++segment) {
        const std::int64_t offset = segment * 5;
        const int start = BigEndian(CutBytes(chain, offset, 3));
        const int count = ByteAt(chain, offset + 3) * 256 + ByteAt(chain, offset + 4);
        text += DecimalText(start) + (segment == 0 ? "(1+" : "(") + DecimalText(count) + ") ";
    }
    return text;
}

/// The letters of the bits of `attributes` from `firstBit` up; a clear bit gives a blank, or
/// nothing.
std::string BitLetters(int attributes, int firstBit, const std::string& letters, bool blanks) {
    std::string text;
    for (std::size_t letter = 0; letter < letters.size(); ++letter) {
        const bool set = (attributes >> (firstBit + static_cast<int>(letter)) & 1) != 0;
        if (set) {
            text += letters[letter];
        } else if (blanks) {
            text += ' ';
        }
    }
    return text;
}

/// What the name cell shows: a deleted DECB entry's lost first letter as "?".
std::string ShownName(const DirEntry& entry) {
    std::string name = entry.Name.empty() ? std::string(1, '\0') : entry.Name;
    if (name[0] == '\0') name[0] = '?';
    return name;
}

double Efficiency(const DirEntry& entry, std::int64_t used) {
    if (used == 0) return 100;
    return static_cast<double>(entry.Size) / static_cast<double>(used) * 100;
}

void SetAttributeCell(const DirEntry& entry, int row) {
    SetCellText(ListDirec, row, kAttributeColumn, AttributeText(entry));
    if (Disk.DiskFamily == kDragon && (entry.Flags & kFlagProtected) != 0) {
        GridCell& cell = CellOf(ListDirec, row, kAttributeColumn);
        cell.ForeColour = kWhite;
        cell.BackColour = kBlack;
    }
}

void SetCells(const DirEntry& entry, int row) {
    const std::int64_t used = UsedBytes(entry);
    const auto number = [row](int column, std::int64_t value) {
        SetCellNumber(ListDirec, row, column, static_cast<double>(value));
    };
    const auto text = [row](int column, const std::string& value) {
        SetCellText(ListDirec, row, column, value);
    };
    text(1, ShownName(entry));
    text(2, entry.Ext);
    text(3, DecimalText(entry.FileType));
    text(4, entry.FormatChar);
    text(5, DecimalText(entry.SectorCount));
    text(6, DecimalText(entry.UnitCount));
    CellOf(ListDirec, row, 6).RightAligned = true;
    number(7, entry.Size);
    number(8, used);
    number(9, used - entry.Size);
    for (const int column : {7, 8, 9}) CellOf(ListDirec, row, column).RightAligned = true;
    SetCellNumber(ListDirec, row, 10, Efficiency(entry, used));
    SetAttributeCell(entry, row);
    SetCellDate(ListDirec, row, 12, entry.CreatedDate);
    SetCellDate(ListDirec, row, 13, entry.ModifiedDate);
    text(14, DecimalText(entry.FirstUnit));
    text(15, DecimalText(entry.LastGranuleSectors));
    text(16, DecimalText(entry.LastSectorBytes));
    text(17, entry.ContinuationLink != 0 ? DecimalText(entry.ContinuationLink + 1) : "");
    text(18, ChainText(entry));
}

std::int32_t OptionColour(ColourOptionIndex option) {
    return Settings.ColourOptions[option].Value;
}

/// The tests of a row's state, in their order: a later one wins the name's colour.
void MarkRow(const DirEntry& entry, int row) {
    GridRow& line = RowOf(ListDirec, row);
    GridCell& name = line.Cells[0];
    const bool showContinuations = PrincipalControl("VerContinuaciones").Checked;
    if ((entry.Flags & kFlagContinuationEntry) != 0) {
        line.Visible = line.Visible && showContinuations;
        line.Cells[1].BackColour = OptionColour(kContinuationColour);
    }
    if ((entry.Flags & kFlagDeleted) != 0) {
        line.Visible = line.Visible && PrincipalControl("VerBorrados").Checked;
        name.BackColour = kDeletedColour;
    }
    if ((entry.Attributes & kAttributeDirectory) != 0) name.BackColour = kNoColour;
    if ((entry.Flags & kFlagProtected) != 0) name.ForeColour = kProtectedColour;
    if (!entry.BadSectorMark.empty()) name.BackColour = OptionColour(kSectorErrorColour);
    if (IsOs9DotEntry(entry)) line.Visible = line.Visible && showContinuations;
    line.Height = 17;
    name.Indent = static_cast<std::int16_t>(entry.TreeLevel * kIndentPixels);
    name.Bold = true;
}

}  // namespace

void FillDirectoryRow(const DirEntry& entry, int row) {
    SetCells(entry, row);
    MarkRow(entry, row);
}

bool IsOs9DotEntry(const DirEntry& entry) {
    return Disk.DiskFamily == kOs9 && ByteOr(entry.Name, 0, 0) == '.';
}

std::int64_t UsedBytes(const DirEntry& entry) {
    if (Disk.DiskFamily == kDecb) {
        return static_cast<std::int64_t>(entry.Chain.size()) * kDecbGranuleSectors * kSectorSize;
    }
    if (Disk.DiskFamily == kDragon) {
        return entry.Size == 0 ? 0 : ((entry.Size - 1) / kSectorSize + 1) * kSectorSize;
    }
    return static_cast<std::int64_t>(entry.UnitCount) * kSectorSize;
}

std::string ChainText(const DirEntry& entry) {
    switch (Disk.DiskFamily) {
        case kDecb:
            return GranuleText(entry.Chain);
        case kDragon:
            return ExtentText(entry.Chain);
        case kOs9:
            return SegmentText(entry.Chain);
        default:
            return {};
    }
}

std::string AttributeText(const DirEntry& entry) {
    switch (Disk.DiskFamily) {
        case kDragon:
            return (entry.Flags & kFlagProtected) != 0 ? "P " : "";
        case kOs9:
            return BitLetters(entry.Attributes, 0, "rweRWESD", true);
        case kFlex:
            return BitLetters(entry.Attributes, 3, "MCRDW", false);
        default:
            return {};
    }
}

}  // namespace brindlemoor
