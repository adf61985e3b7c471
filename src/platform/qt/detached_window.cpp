#include "platform/qt/detached_window.h"

#include <QKeyEvent>
#include <QPointer>
#include <array>

#include "platform/qt/control_ref.h"
#include "platform/qt/event_hook.h"
#include "platform/qt/icon.h"
#include "platform/qt/shell.h"
#include "platform/qt/text.h"
#include "platform/qt/window_widgets.h"
#include "workbench/archivos.h"

namespace brindlemoor {

namespace {

struct DetachedRow {
    const char* Name;
    Window* Record;
    QSize LeastSize;  ///< pixels
    QPointer<QWidget> Open;
};

std::array<DetachedRow, 1> rows = {{{"Archivos", &Archivos, QSize(640, 240), nullptr}}};

DetachedRow* RowOf(const std::string& name) {
    for (DetachedRow& row : rows) {
        if (name == row.Name) return &row;
    }
    return nullptr;
}

void HookWindow(QWidget* window, Window* record) {
    HookEvents(window, [window, record](QEvent* event) {
        if (event->type() == QEvent::Resize) {
            const QSize size = window->size();
            UserAction([record, size] {
                const auto resize = record->Resize;
                if (resize) resize(size.width() * kTwipsPerPixel, size.height() * kTwipsPerPixel);
            });
        }
        const bool key = event->type() == QEvent::KeyPress;
        if (key && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
            window->close();
            return true;
        }
        if (event->type() == QEvent::Close) {
            // Not every window manager gives the keys back to the window behind.
            const bool active = window->isActiveWindow() && !Shell.MainWindow.isNull();
            if (active) Shell.MainWindow->activateWindow();
            UserAction([record] { Raise(record->Close); });
            RemoveRefresh(window);
            window->deleteLater();
        }
        return false;
    });
}

QWidget* MakeDetachedWindow(const DetachedRow& row) {
    auto* window = new QWidget(Shell.MainWindow, Qt::Window);
    window->setWindowIcon(ProgramIcon());
    window->setMinimumSize(row.LeastSize);
    window->resize(Pixels(row.Record->Width), Pixels(row.Record->Height));
    const auto widgets = BuildWidgets(*row.Record, window);
    Window* record = row.Record;
    AddRefresh(window, [window, record, widgets] {
        const QString title = ToText(record->Caption);
        if (window->windowTitle() != title) window->setWindowTitle(title);
        ShowRecords(*widgets);
    });
    HookWindow(window, record);
    return window;
}

}  // namespace

void ShowDetachedWindow(const std::string& name) {
    DetachedRow* row = RowOf(name);
    if (row == nullptr) return;
    if (row->Open.isNull() || !row->Open->isVisible()) row->Open = MakeDetachedWindow(*row);
    RefreshWindows();
    row->Open->show();
    row->Open->raise();
    row->Open->activateWindow();
}

QWidget* DetachedWindow(const std::string& name) {
    const DetachedRow* row = RowOf(name);
    return row == nullptr ? nullptr : row->Open.data();
}

}  // namespace brindlemoor
