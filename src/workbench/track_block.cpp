#include "workbench/track_block.h"

#include <algorithm>

#include "core/disk_state.h"
#include "workbench/map_allocation.h"
#include "workbench/map_files.h"
#include "workbench/map_layout.h"
#include "workbench/map_picture.h"
#include "workbench/principal.h"
#include "workbench/window_layout.h"

namespace brindlemoor {

namespace {

/// A window that is too low for the map grows, as far as it can.
void MakeRoomForMap() {
    const int height = std::min(WindowHeightForMap(), Principal.MostHeight);
    if (Principal.Height < height) ResizePrincipal(Principal.Width, height);
    PlaceMap(Principal.Height);
}

/// Outlines of neighbours share an edge.
void OutlineTracks() {
    const int pitch = Disk.SectorsPerTrack + 1;
    const int bandsBegun = TrackBlockPicture.Height / kBandHeight + 1;
    const int tracks = std::min<int>(Disk.TrackCount, bandsBegun * kTracksInBand);
    for (int track = 0; track < tracks; ++track) {
        const int left = track % kTracksInBand * pitch;
        const int top = track / kTracksInBand * kBandHeight;
        OutlineBox(TrackBlockPicture, left, top, left + pitch, top + kBandHeight, kMapBlack);
    }
}

}  // namespace

void PaintTrackBlock(int selectedRow) {
    if (Disk.ImageBytes.empty()) return;
    SizeMap();
    MakeRoomForMap();
    OutlineTracks();
    PaintFilesOnMap(selectedRow);
    PaintAllocationOnMap();
}

}  // namespace brindlemoor
