#pragma once

#include "core/screen.h"

namespace brindlemoor {

/// Sets `WindowBusy` as long as it lives, and puts it back as it was.
class WhileWindowBusy {
  public:
    WhileWindowBusy() : before_(WindowBusy) { WindowBusy = true; }
    ~WhileWindowBusy() { WindowBusy = before_; }
    WhileWindowBusy(const WhileWindowBusy&) = delete;
    WhileWindowBusy& operator=(const WhileWindowBusy&) = delete;

  private:
    bool before_;
};

/// The number at the start of the text of `Track`, `Sector` or `Granulo`, rounded to a whole one;
/// numbers beyond 16 bits become the nearest that is not.
int SectorFieldNumber(const char* name);

/// Shows the sector of `Track` and `Sector`: its 256 bytes as text in `Sectores`, its granule in
/// `Granulo`, and the mark on the map, which is scrolled there. `resetMark` -1 forgets where the
/// mark was: the map has been painted anew. The maxima of both scroll bars follow the disk.
void DrawSectorMap(int resetMark);

/// Paints the map with the files of that row of `DirTable` (from 0) as the selected ones and shows
/// the first sector of its file. A row that is not there changes nothing.
void ShowRowOnMap(int row);

}  // namespace brindlemoor
