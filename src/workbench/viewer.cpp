#include "workbench/viewer.h"

#include <algorithm>
#include <cmath>

#include "convert/basic.h"
#include "convert/conversion.h"
#include "convert/text_repair.h"
#include "core/byte_helpers.h"
#include "core/numbers.h"
#include "core/platform.h"
#include "workbench/character_set.h"
#include "workbench/viewer_drawing.h"

namespace brindlemoor {

namespace {

constexpr int kCocoTokens = 255;
constexpr int kDragonTokens = 85;
constexpr int kHighBitText = 239;

// Items of `VerAsc`.
constexpr int kBasicAuto = 0;
constexpr int kBasicAsTokens = 1;
constexpr int kBasicAsText = 2;

constexpr double kFullCellWidth = 8;  ///< pixels at 100%
constexpr double kFullCellHeight = 12;

/// Sets `ViewerBusy` while it lives.
class Busy {
  public:
    explicit Busy(Viewer& viewer) : viewer_(viewer), before_(viewer.ViewerBusy) {
        viewer_.ViewerBusy = true;
    }
    ~Busy() { viewer_.ViewerBusy = before_; }
    Busy(const Busy&) = delete;
    Busy& operator=(const Busy&) = delete;

  private:
    Viewer& viewer_;
    bool before_;
};

int FirstByte(const Viewer& viewer) {
    return ByteOr(*viewer.FileBytes, 0, -1);
}

/// What a file is by its head: the first bytes of a program or of a Dragon DOS file.
std::string KindOfFile(const std::string& bytes) {
    constexpr std::size_t kDragonHead = 9;
    constexpr int kDragonEnd = 0xAA;  // last byte of the head
    const int first = ByteOr(bytes, 0, -1);
    if (first == kCocoTokens) return "COCO BAS (Compress-Tokenized)";
    if (first == '\r') return "COCO-DRAGON BAS (ASCII)";
    if (first == 0) return "COCO BIN";
    const bool dragon = bytes.size() > kDragonHead && first == kDragonTokens &&
                        ByteOr(bytes, kDragonHead - 1, 0) == kDragonEnd;
    if (!dragon) return {};
    const int type = ByteOr(bytes, 1, 0);
    if (type <= 1) return "DRAGON BAS (Compress-Tokenized)";
    return type == 2 ? "DRAGON BIN" : "";
}

/// A bar that stands beyond its new maximum goes back to that.
void SetRange(Control& bar, int maximum, int largeChange) {
    bar.LargeChange = largeChange;
    bar.Maximum = std::max(maximum, 0);
    bar.Minimum = 0;
    SetValue(bar, std::clamp(bar.Value, bar.Minimum, bar.Maximum));
}

/// Bars never stand below their start; those of a file just chosen stand at it.
void PlaceBars(Viewer& viewer, bool chosen) {
    const Busy busy(viewer);
    for (const char* name : {"VScrollA", "HScrollA"}) {
        Control& bar = ViewerControl(viewer, name);
        bar.Value = chosen ? 0 : std::max(bar.Value, 0);
    }
}

/// The view of BASIC follows the kind of program that was chosen, unless it is left to itself.
void FollowBasicKind(Viewer& viewer) {
    Control& view = ViewerControl(viewer, "VerAsc");
    if (view.ListIndex == kBasicAuto || viewer.ViewerMode != kViewBasic) return;
    const int first = FirstByte(viewer);
    const bool tokens = first == kCocoTokens || first == kDragonTokens;
    const Busy busy(viewer);
    SetListIndex(view, tokens ? kBasicAsTokens : kBasicAsText);
}

/// True when BASIC is kept in the other form than `VerAsc` asks for.
bool NeedsConversion(Viewer& viewer) {
    if (viewer.ViewerMode != kViewBasic) return false;
    const int first = FirstByte(viewer);
    const bool tokens =
        first == kCocoTokens || (first == kDragonTokens && viewer.KnowsDragonTokens);
    return tokens != (ViewerControl(viewer, "VerAsc").ListIndex == kBasicAsTokens);
}

/// A conversion may bring up messages, behind which the window may be given another size and the
/// view be drawn: until it is done, there is nothing to draw.
void TakeFile(Viewer& viewer) {
    viewer.ViewerLines = {};
    viewer.ViewerText = {};
    std::string text = *viewer.FileBytes;
    if (NeedsConversion(viewer)) {
        text = ConvertedOrNothing([&text] { return BasicConvert(text, false); });
    }
    viewer.ViewerLines = {};  // its lines are parts of the text
    viewer.ViewerText = std::move(text);
    viewer.ShowsMaxPicture = false;
}

/// The size of a cell by the percents in `Zoom`.
void MeasureCells(Viewer& viewer) {
    constexpr double kLeastZoom = 7;
    constexpr double kMostZoom = 1e6;  // a cell beyond any picture
    Control& zoom = ViewerControl(viewer, "Zoom");
    double percent = TypedNumber(ReplaceText(zoom.Text, "%", ""));
    if (viewer.HighestZoom > 0 && percent > viewer.HighestZoom) {
        const Busy busy(viewer);
        percent = viewer.HighestZoom;
        SetText(zoom, FormatNumber(percent, "0") + "%");
    }
    const double scale = std::clamp(percent, kLeastZoom, kMostZoom) / 100;
    viewer.CellWidth = kFullCellWidth * scale;
    viewer.CellHeight = kFullCellHeight * scale;
}

bool IsCocoMax(Viewer& viewer) {
    return ViewerControl(viewer, "OpciónChar"_w).ListIndex == kCocoMaxPicture &&
           viewer.FileBytes->size() > kCocoMaxHead;
}

LineRule RuleOf(Viewer& viewer) {
    if (IsCocoMax(viewer)) return {};
    const Control& widths = ViewerControl(viewer, "Anchos");
    return LineRuleOf(widths.ListIndex, widths.Text, viewer.ViewerMode,
                      ViewerControl(viewer, "VerAsc").ListIndex);
}

/// A picture of CoCo MAX is taken as it stands in the file, behind the file's head.
void TakeCocoMaxPicture(Viewer& viewer) {
    viewer.CellWidth = 1;
    viewer.CellHeight = 1;
    if (viewer.ShowsMaxPicture) return;
    viewer.ViewerLines = {};
    viewer.ViewerText = viewer.FileBytes->substr(kCocoMaxHead);
    viewer.ShowsMaxPicture = true;
}

/// A text in the machine's characters stands on the machine's screen; all else on white.
void ChoosePaper(Viewer& viewer, const LineRule& rule) {
    constexpr std::int32_t kWhite = 0xFFFFFF;
    const int characters = ViewerControl(viewer, "OpciónChar"_w).ListIndex;
    const bool cells = characters == kCocoCharacters || characters == kCocoBasicCharacters;
    const std::int32_t paper = cells && !rule.Separator.empty() ? kScreenGreen : kWhite;
    if (viewer.Surface.BackColour == paper) return;
    viewer.Surface.BackColour = paper;
    ClearPicture(viewer.Surface);
}

/// Lines and the longest of them, as far as the scroll bars count.
struct TextSize {
    int Rows = 0;
    int Columns = 0;
};

TextSize CutText(Viewer& viewer, const LineRule& rule) {
    if (rule.Separator.empty()) {
        viewer.ViewerLines = {};
        const std::size_t rows =
            viewer.ViewerText.size() / static_cast<std::size_t>(rule.Width) + 1;
        return {static_cast<int>(std::min<std::size_t>(rows, kMostViewerCells)), rule.Width};
    }
    if (viewer.ViewerLines.Separator != rule.Separator) {
        viewer.ViewerLines = CutIntoLines(viewer.ViewerText, rule.Separator);
    }
    const auto last = viewer.ViewerLines.Count - 1;
    return {static_cast<int>(std::min<std::int64_t>(last, kMostViewerCells)),
            viewer.ViewerLines.Longest};
}

/// Cells that fit whole into `pixels`.
int CellsIn(int pixels, double cell) {
    return std::max(static_cast<int>(pixels / cell), 0);
}

/// Sets the bars for a text of that size and returns the rows to be drawn.
int SetBars(Viewer& viewer, const TextSize& size, const LineRule& rule) {
    const Busy busy(viewer);
    const int lines = rule.Separator.empty() ? size.Rows : size.Rows + 1;
    const int fullRows = std::max(CellsIn(viewer.Surface.Height, viewer.CellHeight), 1);
    const int fullColumns = std::max(CellsIn(viewer.Surface.Width, viewer.CellWidth), 1);
    const int visible = std::max(std::min(fullRows, size.Rows), 1);
    SetRange(ViewerControl(viewer, "VScrollA"), std::min(lines - fullRows, kMostViewerCells),
             visible);
    SetRange(ViewerControl(viewer, "HScrollA"), size.Columns - fullColumns,
             std::max(std::min(fullColumns, size.Columns), 1));
    return visible;
}

std::string_view LineAt(const Viewer& viewer, const LineRule& rule, int index) {
    const auto line = static_cast<std::size_t>(index);
    if (!rule.Separator.empty()) {
        const auto& lines = viewer.ViewerLines.Lines;
        return line < lines.size() ? lines[line] : std::string_view();
    }
    const std::string_view text = viewer.ViewerText;
    const std::size_t start = line * static_cast<std::size_t>(rule.Width);
    return start < text.size() ? text.substr(start, static_cast<std::size_t>(rule.Width))
                               : std::string_view();
}

void DrawView(Viewer& viewer) {
    MeasureCells(viewer);
    const LineRule rule = RuleOf(viewer);
    ChoosePaper(viewer, rule);
    if (IsCocoMax(viewer)) {
        TakeCocoMaxPicture(viewer);
    } else if (viewer.ShowsMaxPicture) {
        TakeFile(viewer);
    }
    const int visible = SetBars(viewer, CutText(viewer, rule), rule);
    const int first = ViewerControl(viewer, "VScrollA").Value;
    for (int row = 0; row <= visible; ++row) {
        RenderViewer(viewer, row, LineAt(viewer, rule, first + row));
    }
}

}  // namespace

Control& ViewerControl(Viewer& viewer, std::string_view name) {
    return ControlOf(*viewer.Owner, name);
}

void ViewFile(Viewer& viewer, int newFile, std::optional<int> mode) {
    constexpr int kNewFile = -1;
    ClearPicture(viewer.Surface);
    if (viewer.FileBytes->empty()) return;
    if (FirstByte(viewer) == kHighBitText) StripHighBits(*viewer.FileBytes);
    SetText(ViewerControl(viewer, "Propiedades"), KindOfFile(*viewer.FileBytes));
    if (viewer.ViewerBusy) return;
    PlaceBars(viewer, newFile == kNewFile && mode.has_value());
    if (mode) {
        viewer.ViewerMode = WholeNumber16(*mode);
        FollowBasicKind(viewer);
    }
    ViewerControl(viewer, "VerAsc").Enabled = viewer.ViewerMode == kViewBasic;
    if (newFile == kNewFile) TakeFile(viewer);
    DrawView(viewer);
}

void RenderViewer(Viewer& viewer, int row, std::string_view line) {
    const int characters = ViewerControl(viewer, "OpciónChar"_w).ListIndex;
    const int skipped = ViewerControl(viewer, "HScrollA").Value;
    if (characters == kCocoMaxPicture) {
        DrawCocoMaxLine(viewer.Surface, row, line, skipped, viewer.MaxPalette);
        return;
    }
    const auto most = static_cast<std::size_t>(viewer.Surface.Width / viewer.CellWidth) + 1;
    line = line.substr(std::min(static_cast<std::size_t>(skipped), line.size()));
    line = line.substr(0, most);
    const ViewerRow place{row, viewer.CellWidth, viewer.CellHeight};
    switch (characters) {
        case kWindowsCharacters:
            Platform.DrawText(viewer.Surface, {std::string(line), 0, row * viewer.CellHeight,
                                               viewer.CellWidth, viewer.CellHeight, 0});
            break;
        case kCocoCharacters:
            DrawCharacterCells(viewer.Surface, place, line);
            break;
        case kCocoBasicCharacters:
            DrawCharacterCells(viewer.Surface, place, CodesOfBasicText(line));
            break;
        default:
            break;
    }
}

}  // namespace brindlemoor
