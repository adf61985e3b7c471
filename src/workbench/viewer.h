#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "workbench/control.h"
#include "workbench/viewer_lines.h"

namespace brindlemoor {

/// How a byte is drawn: the items of `OpciónChar`.
enum CharacterMode : int {
    kWindowsCharacters = 0,
    kCocoCharacters = 1,
    kCocoBasicCharacters = 2,
    kCocoMaxPicture = 3,
};

/// Types of a file as `ViewFile` gets them.
inline constexpr int kViewBasic = 0;
inline constexpr int kViewData = 1;
inline constexpr int kViewBinary = 2;

/// Bytes in front of the picture in a CoCo MAX file: the head of a binary file.
inline constexpr int kCocoMaxHead = 5;

/// A viewer: the pane of the main window or that of the detached window. Its state is that of the
/// controls `VerAsc`, `OpciónChar`, `Zoom`, `Anchos`, `VScrollA` and `HScrollA` of its window.
struct Viewer {
    Window* Owner = nullptr;
    std::string* FileBytes = nullptr;  ///< the file in view
    bool KnowsDragonTokens = true;     ///< takes a first byte of 85 for tokens
    double HighestZoom = 0;            ///< percent; above it `Zoom` is reset to it. 0: no limit

    std::string ViewerText;        ///< what is shown: the file's bytes, perhaps converted
    ViewedLines ViewerLines;       ///< `ViewerText` cut at the separator in force
    std::int16_t ViewerMode = 0;   ///< type of the file, for calls that bring none
    bool ShowsMaxPicture = false;  ///< `ViewerText` is the file without its head
    bool ViewerBusy = false;       ///< the program itself is changing controls
    std::array<std::int32_t, 4> MaxPalette = {0, 255, 0xFF0000, 0xFFFFFF};  ///< 0x00BBGGRR

    Picture Surface;         ///< the pixels of the picture `Archivo`
    double CellWidth = 8;    ///< pixels, set by `ViewFile`
    double CellHeight = 12;  ///< pixels
};

/// Shows the file: names its kind in `Propiedades`, converts BASIC as `VerAsc` says, cuts it into
/// lines as `Anchos` says and draws those in view. `newFile` -1 takes the file's bytes anew, 0
/// draws only. `mode` is the type of a file that was just chosen, whose first byte comes into view;
/// without it the type and place of the file before hold. Brings up the messages of a BASIC
/// conversion; one that cannot go on leaves nothing to show. A file that starts with 239 is freed
/// of its high bits in place.
void ViewFile(Viewer& viewer, int newFile, std::optional<int> mode = std::nullopt);

/// Draws one line of text at the 0-based `row` of cells, from the value of `HScrollA` on.
void RenderViewer(Viewer& viewer, int row, std::string_view line);

/// A control of the viewer's window. Fails with 730 when there is none.
Control& ViewerControl(Viewer& viewer, std::string_view name);

}  // namespace brindlemoor
