#include "workbench/spoken_name.h"

#include <algorithm>
#include <cstdlib>

#include "core/byte_helpers.h"
#include "core/settings.h"
#include "workbench/principal.h"

namespace brindlemoor {

namespace {

/// Names of what has no caption beside it, or one that says too little.
struct NameRow {
    const char* Window;  ///< null: any that has a control of that name and kind
    const char* Control;
    ControlKind KindOf;
    const char* English;
    const char* Spanish;
};

using Kind = ControlKind;

constexpr NameRow kNames[] = {
    {"Principal", "Drive1", Kind::DriveList, "Drive of the PC", "Unidad del PC"},
    {"Principal", "Dir1", Kind::FolderList, "Folders of the PC", "Carpetas del PC"},
    {"Principal", "File1", Kind::FileList, "Files of the PC", "Archivos del PC"},
    {"Principal", "ListDirec", Kind::Grid, "Directory of the disk", "Directorio del disco"},
    {"Principal", "Granulo", Kind::TextBox, "Granule", "Gránulo"},
    {"Principal", "TrackBlock", Kind::Picture, "Map of the sectors", "Mapa de los sectores"},
    {"Principal", "Sectores", Kind::Picture, "Bytes of the sector", "Bytes del sector"},
    {"Principal", "HScroll1", Kind::HorizontalBar, "Track", "Pista"},
    {"Principal", "VScroll1", Kind::VerticalBar, "Sector", "Sector"},
    {"FatEditor", "Text", Kind::CaretText, "Bits of the sectors", "Bits de los sectores"},
    {"frmOptions", "tbsOptions", Kind::TabStrip, "Pages", "Páginas"},
    {nullptr, "Archivo", Kind::Picture, "Contents of the file", "Contenido del archivo"},
    {nullptr, "VScrollA", Kind::VerticalBar, "Lines of the file", "Líneas del archivo"},
    {nullptr, "HScrollA", Kind::HorizontalBar, "Columns of the file", "Columnas del archivo"},
};

constexpr int kFarthestAbove = 12 * kTwipsPerPixel;  ///< between a caption and what it stands over

bool SaysItself(ControlKind kind) {
    return kind == Kind::Label || kind == Kind::Button || kind == Kind::CheckBox ||
           kind == Kind::OptionButton || kind == Kind::Frame || kind == Kind::Hidden;
}

std::string WithoutColon(const std::string& caption) {
    return caption.substr(0, caption.find_last_not_of(" :") + 1);
}

std::string NameFromTable(const Window& window, const Control& control) {
    for (const NameRow& row : kNames) {
        const bool here = row.Window == nullptr || window.Name == row.Window;
        if (!here || control.Name != row.Control || control.Kind != row.KindOf) continue;
        return Windows1252(Settings.LanguageIndex != 0 ? row.Spanish : row.English);
    }
    return {};
}

/// The menu of the header lists the columns by their long names.
std::string EditedColumnName(const Window& window) {
    const auto index = static_cast<std::size_t>(ListDirec.Edited.Column) - 1;
    for (const Menu& menu : window.Menus) {
        if (menu.Name == "columnsMenu" && index < menu.Items.size()) {
            return menu.Items[index].Caption;
        }
    }
    return {};
}

bool IsLeftOf(const Control& label, const Control& control) {
    const int lower = 2 * label.Top + label.Height;
    const int own = 2 * control.Top + control.Height;
    const int reach = std::min(label.Height, control.Height);
    return label.Left < control.Left && label.Left + label.Width <= control.Left + kTwipsPerPixel &&
           std::abs(lower - own) <= reach;
}

bool IsAbove(const Control& label, const Control& control) {
    const int gap = control.Top - label.Top - label.Height;
    return gap >= 0 && gap <= kFarthestAbove && label.Left < control.Left + control.Width &&
           control.Left < label.Left + label.Width;
}

/// The caption nearest to the control on its left, else the one above it.
const Control* CaptionOf(const Window& window, const Control& control) {
    const Control* beside = nullptr;
    const Control* above = nullptr;
    for (const Control& label : window.Controls) {
        if (label.Kind != Kind::Label || !label.Visible || label.Container != control.Container)
            continue;
        if (WithoutColon(label.Text).empty()) continue;
        if (IsLeftOf(label, control) && (beside == nullptr || label.Left > beside->Left)) {
            beside = &label;
        }
        if (IsAbove(label, control) && (above == nullptr || label.Top > above->Top)) above = &label;
    }
    return beside != nullptr ? beside : above;
}

}  // namespace

std::string SpokenName(const Window& window, const Control& control) {
    if (!control.AccessibleName.empty()) return control.AccessibleName;
    if (SaysItself(control.Kind)) return {};
    if (control.Container == "ListDirec") return EditedColumnName(window);
    std::string name = NameFromTable(window, control);
    if (!name.empty()) return name;
    const Control* caption = CaptionOf(window, control);
    return caption == nullptr ? std::string() : WithoutColon(caption->Text);
}

}  // namespace brindlemoor
