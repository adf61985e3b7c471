#pragma once

namespace brindlemoor {

/// Paints the files of `DirTable` into the map in the order of their rows, that of `selectedRow`
/// (-1 for none) in the colours of the selected file. What was painted already shows as overlap.
void PaintFilesOnMap(int selectedRow);

}  // namespace brindlemoor
