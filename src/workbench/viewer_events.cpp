#include "workbench/viewer_events.h"

#include <algorithm>

#include "core/byte_helpers.h"
#include "core/numbers.h"
#include "core/screen.h"
#include "core/settings.h"

namespace brindlemoor {

namespace {

constexpr int kNewFile = -1;
constexpr int kRedraw = 0;

/// Moves a bar by `steps`, as far as it goes.
void MoveBar(Control& bar, int steps) {
    SetValue(bar, std::clamp(bar.Value + steps, bar.Minimum, bar.Maximum));
}

/// Scrolls by keys as every text window does. True when the key was one of them.
bool ScrollByKey(Viewer& viewer, int key) {
    Control& rows = ViewerControl(viewer, "VScrollA");
    Control& columns = ViewerControl(viewer, "HScrollA");
    switch (key) {
        case kKeyUp:
            MoveBar(rows, -1);
            return true;
        case kKeyDown:
            MoveBar(rows, 1);
            return true;
        case kKeyLeft:
            MoveBar(columns, -1);
            return true;
        case kKeyRight:
            MoveBar(columns, 1);
            return true;
        case kKeyPageUp:
            MoveBar(rows, -rows.LargeChange);
            return true;
        case kKeyPageDown:
            MoveBar(rows, rows.LargeChange);
            return true;
        case kKeyHome:
            SetValue(rows, rows.Minimum);
            return true;
        case kKeyEnd:
            SetValue(rows, rows.Maximum);
            return true;
        default:
            return false;
    }
}

void ConnectLists(Viewer& viewer) {
    ViewerControl(viewer, "VerAsc").Click = [&viewer] {
        if (WindowBusy || viewer.ViewerBusy) return;
        StoreSetting("VerAscActual", DecimalText(ViewerControl(viewer, "VerAsc").ListIndex));
        ViewFile(viewer, kNewFile);
    };
    ViewerControl(viewer, "OpciónChar"_w).Click = [&viewer] {
        if (WindowBusy || viewer.ViewerBusy) return;
        const int index = ViewerControl(viewer, "OpciónChar"_w).ListIndex;
        StoreSetting("OpciónCharActual"_w, DecimalText(index));
        ViewFile(viewer, kNewFile);
    };
    const auto widthChanged = [&viewer] {
        if (WindowBusy || viewer.ViewerBusy) return;
        StoreSetting("AnchoActual", ViewerControl(viewer, "Anchos").Text);
        ViewFile(viewer, kRedraw);
    };
    ViewerControl(viewer, "Anchos").Click = widthChanged;
    ViewerControl(viewer, "Anchos").Change = widthChanged;
}

}  // namespace

void ConnectViewer(Viewer& viewer) {
    ConnectLists(viewer);
    const auto redraw = [&viewer] {
        if (!viewer.ViewerBusy) ViewFile(viewer, kRedraw);
    };
    ViewerControl(viewer, "Zoom").Click = redraw;
    ViewerControl(viewer, "Zoom").Change = redraw;
    ViewerControl(viewer, "VScrollA").Change = redraw;
    ViewerControl(viewer, "HScrollA").Change = redraw;
    Control& picture = ViewerControl(viewer, "Archivo");
    picture.Surface = &viewer.Surface;
    ResizePicture(viewer.Surface, SurfacePixels(picture.Width), SurfacePixels(picture.Height));
    picture.Resize = redraw;
    picture.Key = [&viewer](int key) { return ScrollByKey(viewer, key); };
    picture.Wheel = [&viewer](int steps) {
        constexpr int kLinesInStep = 3;
        MoveBar(ViewerControl(viewer, "VScrollA"), steps * kLinesInStep);
    };
}

}  // namespace brindlemoor
