#include "platform/qt/modal_window.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <array>

#include "platform/qt/icon.h"
#include "platform/qt/shell.h"
#include "platform/qt/text.h"
#include "platform/qt/window_widgets.h"
#include "workbench/acerca.h"
#include "workbench/audio_convert.h"
#include "workbench/colour_options.h"
#include "workbench/fat_editor.h"
#include "workbench/header_info.h"
#include "workbench/info_nitros.h"
#include "workbench/new_disk.h"
#include "workbench/spare_options.h"

namespace brindlemoor {

namespace {

struct ModalRow {
    const char* Name;
    Window* Record;
    bool OwnButtons;  ///< its record has the buttons that close it; else the shell adds one
};

/// The windows that a menu can open, by the name that it asks for.
const std::array<ModalRow, 8> kModalWindows = {{
    {"Acerca", &Acerca, false},
    {"NewDisk", &NewDisk, true},
    {"FatEditor", &FatEditor, true},
    {"AudioConvert", &AudioConvert, true},
    {"HeaderInfo", &HeaderInfo, true},
    {"InfoNitros", &InfoNitros, true},
    {"Opciones", &Opciones, false},
    {"frmOptions", &SpareOptions, true},
}};

/// The picture of the about box; it is the only picture that a record leaves to the shell.
void ShowProgramPicture(const WindowWidgets& widgets) {
    QWidget* place = WidgetOf(widgets, "Icono");
    if (place == nullptr) return;
    auto* label = new QLabel(place->parentWidget());
    label->setGeometry(place->geometry());
    label->setPixmap(ProgramPicture(place->width()));
    place->hide();
}

// The shell's own button looks as those of the windows' tables do.
constexpr QSize kButtonSize(96, 28);
constexpr int kButtonMargin = 12;

void AddOkButton(QDialog& dialog) {
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok, &dialog);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    buttons->setContentsMargins(0, 0, kButtonMargin, 0);
    dialog.layout()->addWidget(buttons);
    QPushButton* button = buttons->button(QDialogButtonBox::Ok);
    button->setIcon(QIcon());
    button->setFixedSize(kButtonSize);
    button->setFocus();
}

/// A window of its own buttons closes when its record says so; closing it by Escape or the frame's
/// button is told to the record.
void RunWindow(const ModalRow& row) {
    Window& record = *row.Record;
    record.Open = true;
    QDialog dialog(Shell.MainWindow);
    dialog.setWindowTitle(ToText(record.Caption));
    auto* area = new QWidget(&dialog);
    area->setFixedSize(Pixels(record.Width), Pixels(record.Height));
    auto* layout = new QVBoxLayout(&dialog);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addWidget(area);
    const auto widgets = BuildWidgets(record, area);
    AddRefresh(area, [widgets, &dialog, &record] {
        ShowRecords(*widgets);
        if (!record.Open) dialog.accept();
    });
    RefreshWindows();
    ShowProgramPicture(*widgets);
    if (!row.OwnButtons) AddOkButton(dialog);
    dialog.exec();
    if (record.Open) UserAction([&record] { Raise(record.Close); });
    record.Open = false;
    RemoveRefresh(area);
}

}  // namespace

void RunModalWindow(const std::string& name) {
    for (const ModalRow& row : kModalWindows) {
        if (name == row.Name) RunWindow(row);
    }
}

}  // namespace brindlemoor
