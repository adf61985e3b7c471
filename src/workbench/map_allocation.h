#pragma once

namespace brindlemoor {

/// Lists the allocation bytes in `EditFAT` and paints what they call free, and the areas of the
/// disk that are not for files, into the map. Comes behind the files: a free sector that is painted
/// already is one in use. FLEX has no such table. A Disk BASIC image that ends within its table
/// gets neither list nor areas.
void PaintAllocationOnMap();

}  // namespace brindlemoor
