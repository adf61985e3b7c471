#pragma once

#include <string>

#include "core/disk_state.h"
#include "image/read_disk.h"
#include "support/workbench_fixture.h"
#include "workbench/map_picture.h"
#include "workbench/principal.h"
#include "workbench/sector_view.h"
#include "workbench/track_block.h"

namespace brindlemoor::test {

/// A started program that shows disks on its map.
class MapTest : public DirectoryTest {
  protected:
    /// Reads an image and paints its map.
    static void Show(const std::string& image, int selectedRow = -1) {
        Disk.ImageBytes = image;
        ReadDisk();
        PaintTrackBlock(selectedRow);
        DrawSectorMap(-1);
    }

    /// The same without the mark, so that every strip shows what it is.
    static void Paint(const std::string& image, int selectedRow = -1) {
        Show(image, selectedRow);
        PaintTrackBlock(selectedRow);
    }

    static Control& Named(const char* name) { return PrincipalControl(name); }
    static const std::string& Text(const char* name) { return PrincipalControl(name).Text; }
    static void Type(const char* name, const std::string& text) {
        SetText(PrincipalControl(name), text);
    }
};

}  // namespace brindlemoor::test
