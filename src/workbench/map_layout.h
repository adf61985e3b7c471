#pragma once

namespace brindlemoor {

/// Gives the map the size of the open disk: a clear picture with a band for ten tracks each, and
/// the bands' titles in `Label11`. The controls follow with `PlaceMap`.
void SizeMap();

/// The height of the main window, twips, that shows the whole map and all below it.
int WindowHeightForMap();

/// Lays out the frame of the map and the allocation bytes below it for a window of that height
/// (twips). Where the window is too low for all bands the map shows some of them.
void PlaceMap(int windowHeight);

/// Scrolls the map, where it shows only a part, so that the strip at that place (pixels of the
/// picture, the band's top) can be seen.
void ScrollMapTo(int x, int bandTop);

}  // namespace brindlemoor
