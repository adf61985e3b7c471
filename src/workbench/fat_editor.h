#pragma once

#include <cstdint>

#include "workbench/control.h"

namespace brindlemoor {

/// The window in which the bitmap of a Dragon disk is compared with the one that its files make,
/// sector by sector, and changed. Its `Text` has five lines, one character a sector: the tracks,
/// the sectors, the bitmap of the disk (`FatBytes`), the one of the files (`FatComputed`), and a
/// "|" where they differ. Only the third line can be changed, by typing "0" and "1" over it.
extern Window FatEditor;

/// Where the third line stands in the text. Both are 0 while the text is empty.
struct FatEditorLines {
    std::int16_t LineWidth = 0;  ///< bytes of a line, its line break included
    std::int16_t LineStart = 0;  ///< of the third line, from 0
};
extern FatEditorLines FatLines;

/// Builds the window anew and fills it from `Disk`. The text stays empty unless both tables are
/// there with the same length; the OK button then stores zeros, and fails with 5 where the disk has
/// more sectors than the table bits. Fails with 5 when the tables end before the disk does, and
/// with 6 on lines beyond 16 bits.
///
/// Events: OK stores the third line in `Disk.FatBytes`, whole bytes only, and closes the window;
/// the image is not touched. Copy puts the fourth line over the third. Cancel closes the window.
void LoadFatEditor();

}  // namespace brindlemoor
