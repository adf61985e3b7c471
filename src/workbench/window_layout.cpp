#include "workbench/window_layout.h"

#include <algorithm>

#include "workbench/directory_totals.h"
#include "workbench/map_layout.h"
#include "workbench/principal.h"

namespace brindlemoor {

namespace {

// Twips.
constexpr int kRightMargin = 105;
constexpr int kGap = 90;

/// The viewer grows to the right with its frame and bars.
void PlaceViewer(int width, int viewerWidth) {
    Control& frame = PrincipalControl("Caracteres");
    Control& viewer = PrincipalControl("Archivo");
    frame.Width = width - frame.Left - 50;
    SetSize(viewer, viewerWidth, viewer.Height);
    PrincipalControl("VScrollA").Left = viewer.Left + viewerWidth;
    PrincipalControl("HScrollA").Width = viewerWidth;
    PrincipalControl("Propiedades").Width = viewerWidth;
}

/// The grid grows both ways; its totals and the geometry line stay at the foot.
void PlaceDirectory(int width, int height) {
    Control& grid = PrincipalControl("ListDirec");
    grid.Width = width - 4500;
    if (height - 6000 > 0) grid.Height = height - 6000;
    for (int line = 0; line < 3; ++line) {
        Control& totals = PrincipalControl("totales", line);
        totals.Width = width - 4500;
        totals.Top = line * 300 + height - 1200;
    }
    for (const char* name : {"Info", "VerContinuaciones", "VerBorrados"}) {
        PrincipalControl(name).Top = height - 300;
    }
    PrincipalControl("Frame1").Left = width - 4200;
}

/// The path of the open disk takes the room that the two buttons leave.
void PlaceTitleLine(int width) {
    Control& save = PrincipalControl("SaveBtn");
    Control& undo = PrincipalControl("UndoBtn");
    Control& path = PrincipalControl("PathDsk");
    undo.Left = width - kRightMargin - undo.Width;
    save.Left = undo.Left - kGap - save.Width;
    path.Width = std::max(save.Left - kGap - path.Left, 0);
}

}  // namespace

void ResizePrincipal(int width, int height) {
    constexpr int kRightOfViewer = 350;
    const int viewerWidth = width - PrincipalControl("Archivo").Left - kRightOfViewer;
    if (viewerWidth < 1) return;
    Principal.Width = width;
    Principal.Height = height;
    PlaceViewer(width, viewerWidth);
    PlaceTitleLine(width);
    PlaceDirectory(width, height);
    PlaceMap(height);
    LayoutTotals();
}

}  // namespace brindlemoor
