#pragma once

namespace brindlemoor {

/// Paints the map of the open disk anew: band titles, outlines of the tracks, files, free and fixed
/// areas; and lists the allocation bytes. `selectedRow`, a row of `DirTable` or -1 for none, takes
/// the colours of the selected file. Frame and window grow with the bands. The sector's mark is
/// gone then: `DrawSectorMap(-1)` sets it again. Does nothing when no disk is open.
void PaintTrackBlock(int selectedRow);

}  // namespace brindlemoor
