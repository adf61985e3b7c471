#include "workbench/archivos.h"

#include <array>

#include "core/byte_helpers.h"
#include "core/numbers.h"
#include "core/platform.h"
#include "workbench/control_design.h"
#include "workbench/principal.h"
#include "workbench/viewer_events.h"

namespace brindlemoor {

Window Archivos;
Viewer ArchivosViewer;
std::string ArchivosBytes;
DetachedZoom ArchivosZoom;

namespace {

constexpr int kFirstWidth = 760;  ///< pixels
constexpr int kFirstHeight = 520;

/// Labels that are copied by name and have nothing to say here.
constexpr std::array<const char*, 6> kUnusedLabels = {"Label1", "Label2", "Label3",
                                                      "Label4", "Label5", "Label6"};
constexpr std::array<const char*, 4> kCopiedLists = {"VerAsc", "OpciónChar", "Zoom", "Anchos"};

std::vector<Control> DesignedControls() {
    using enum ControlKind;
    return {
        Designed("Label7", Label, {8, 8, 42, 24}),
        DesignedList("VerAsc", {50, 8, 96, 24}, {}, false),
        Designed("Label8", Label, {156, 8, 76, 24}),
        DesignedList("OpciónChar"_w, {232, 8, 90, 24}, {}, false),
        Designed("Label9", Label, {332, 8, 42, 24}),
        DesignedList("Zoom", {374, 8, 72, 24}, {}, true),
        Designed("Label10", Label, {456, 8, 46, 24}),
        DesignedList("Anchos", {502, 8, 110, 24}, {}, true),
        WithFont(Designed("Archivo", Picture, {8, 40, 0, 0}), FontKind::Fixed),
        Designed("VScrollA", VerticalBar, {0, 40, 17, 0}),
        Designed("HScrollA", HorizontalBar, {8, 0, 0, 17}),
        Designed("Propiedades", Label, {8, 0, 0, 20}),
        Designed("Picture1", Hidden, {0, 0, 512, 384}),
    };
}

void CopyCaption(const std::string& name) {
    Control* own = FindControl(Archivos, name);
    if (own == nullptr) {
        Archivos.Controls.push_back(Invisible(Designed(name, ControlKind::Label, {0, 0, 0, 0})));
        own = &Archivos.Controls.back();
    }
    own->Text = PrincipalControl(name).Text;
}

/// The items of a list of the main window, and the one that is chosen there.
void CopyList(const std::string& name) {
    const Control& list = PrincipalControl(name);
    Control& own = ControlOf(Archivos, name);
    own.Items = list.Items;
    own.ListIndex = list.ListIndex;
    own.Text = list.Text;
}

void ZoomChanged() {
    constexpr double kFullSize = 260;
    const double percent = TypedNumber(ReplaceText(ControlOf(Archivos, "Zoom").Text, "%", ""));
    ArchivosZoom.Width = percent / 100 * kFullSize;
    ArchivosZoom.Height = percent / 100 * kFullSize;
    if (!ArchivosViewer.ViewerBusy) ViewFile(ArchivosViewer, 0);
}

void ConnectArchivos() {
    const unsigned revision = ArchivosViewer.Surface.Revision;
    ArchivosViewer = Viewer();
    ArchivosViewer.Surface.Revision = revision;  // what stands on the screen is known by it
    ArchivosViewer.Owner = &Archivos;
    ArchivosViewer.FileBytes = &ArchivosBytes;
    ArchivosViewer.KnowsDragonTokens = false;
    ConnectViewer(ArchivosViewer);
    ControlOf(Archivos, "Zoom").Click = ZoomChanged;
    ControlOf(Archivos, "Zoom").Change = ZoomChanged;
    Archivos.Resize = ResizeArchivos;
    Archivos.Close = [] {
        ArchivosViewer.ViewerText = {};
        ArchivosViewer.ViewerLines = {};
        ArchivosBytes = {};
    };
}

void LoadArchivos() {
    const int width = Archivos.Width > 0 ? Archivos.Width : kFirstWidth * kTwipsPerPixel;
    const int height = Archivos.Height > 0 ? Archivos.Height : kFirstHeight * kTwipsPerPixel;
    Archivos = Window();
    Archivos.Name = "Archivos";
    Archivos.Controls = DesignedControls();
    for (const char* name : kUnusedLabels) CopyCaption(name);
    for (const char* name : {"Label7", "Label8", "Label9", "Label10"}) CopyCaption(name);
    for (const char* name : kCopiedLists) CopyList(Windows1252(name));
    ArchivosZoom = DetachedZoom();
    ConnectArchivos();
    ResizeArchivos(width, height);
}

}  // namespace

void ShowArchivos(const std::string& caption, const std::string& bytes, int mode) {
    LoadArchivos();
    Archivos.Caption = caption;
    ArchivosBytes = bytes;
    ViewFile(ArchivosViewer, -1, mode);
    Platform.ShowWindow("Archivos");
}

void ResizeArchivos(int width, int height) {
    constexpr int kMargin = 8 * kTwipsPerPixel;
    constexpr int kFoot = 20 * kTwipsPerPixel;
    Control& picture = ControlOf(Archivos, "Archivo");
    Control& rows = ControlOf(Archivos, "VScrollA");
    Control& columns = ControlOf(Archivos, "HScrollA");
    Control& kind = ControlOf(Archivos, "Propiedades");
    const int viewWidth = width - picture.Left - rows.Width - kMargin;
    const int viewHeight = height - picture.Top - columns.Height - kFoot - kMargin;
    if (viewWidth < 1 || viewHeight < 1) return;
    Archivos.Width = width;
    Archivos.Height = height;
    rows.Left = picture.Left + viewWidth;
    rows.Height = viewHeight;
    columns.Top = picture.Top + viewHeight;
    columns.Width = viewWidth;
    kind.Top = columns.Top + columns.Height + kMargin / 2;
    kind.Width = viewWidth;
    SetSize(picture, viewWidth, viewHeight);
}

}  // namespace brindlemoor
