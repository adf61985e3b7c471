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

namespace brindlemoor {

namespace {

struct ModalRow {
    const char* Name;
    Window* Record;
};

/// The windows that a menu can open, by the name that it asks for.
const std::array<ModalRow, 1> kModalWindows = {{{"Acerca", &Acerca}}};

/// The picture of the about box; it is the only picture that a record leaves to the shell.
void ShowProgramPicture(const WindowWidgets& widgets) {
    QWidget* place = WidgetOf(widgets, "Icono");
    if (place == nullptr) return;
    auto* label = new QLabel(place->parentWidget());
    label->setGeometry(place->geometry());
    label->setPixmap(ProgramPicture(place->width()));
    place->hide();
}

void RunWindow(Window& record) {
    QDialog dialog(Shell.MainWindow);
    dialog.setWindowTitle(ToText(record.Caption));
    auto* area = new QWidget(&dialog);
    area->setFixedSize(Pixels(record.Width), Pixels(record.Height));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok, &dialog);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    auto* layout = new QVBoxLayout(&dialog);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addWidget(area);
    layout->addWidget(buttons);
    const auto widgets = BuildWidgets(record, area);
    AddRefresh(area, [widgets] { ShowRecords(*widgets); });
    RefreshWindows();
    ShowProgramPicture(*widgets);
    buttons->button(QDialogButtonBox::Ok)->setFocus();
    dialog.exec();
}

}  // namespace

void RunModalWindow(const std::string& name) {
    for (const ModalRow& row : kModalWindows) {
        if (name == row.Name) RunWindow(*row.Record);
    }
}

}  // namespace brindlemoor
