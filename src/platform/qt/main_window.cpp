#include "platform/qt/main_window.h"

#include <QGuiApplication>
#include <QScreen>
#include <QShortcut>

#include "platform/qt/colours.h"
#include "platform/qt/event_hook.h"
#include "platform/qt/icon.h"
#include "platform/qt/later.h"
#include "platform/qt/outside_drops.h"
#include "platform/qt/shell.h"
#include "platform/qt/text.h"
#include "workbench/principal.h"
#include "workbench/start_up.h"
#include "workbench/window_layout.h"

namespace brindlemoor {

namespace {

constexpr int kLeastWidth = 1000;  ///< pixels, of the whole window
constexpr int kLeastHeight = 700;

/// The inner size that the window and its record agreed on last, in pixels.
struct AgreedSize {
    QSize Inner;
};

QSize RecordSize() {
    return {Pixels(Principal.Width), Pixels(Principal.Height)};
}

/// The window's size for an inner size, as far as the screen goes.
QSize OuterSize(QMainWindow* window, QSize inner) {
    const QSize outer = inner + QSize(0, window->menuBar()->sizeHint().height());
    const QScreen* screen = window->screen();
    return screen == nullptr ? outer : outer.boundedTo(screen->availableSize());
}

/// How high the program can make the window now: as high as the screen, and one that fills the
/// screen not at all.
int MostHeight(const QMainWindow* window) {
    const QScreen* screen = window->screen();
    const bool fills = window->isMaximized() || window->isFullScreen();
    if (fills || screen == nullptr) return Principal.Height;
    const int frame = window->frameGeometry().height() - window->height();
    const int menu = window->menuBar()->sizeHint().height();
    return (screen->availableSize().height() - frame - menu) * kTwipsPerPixel;
}

void FollowWindowSize(QSize inner, AgreedSize& agreed) {
    agreed.Inner = inner;
    UserAction([inner] {
        Principal.Width = inner.width() * kTwipsPerPixel;
        Principal.Height = inner.height() * kTwipsPerPixel;
        ResizePrincipal(Principal.Width, Principal.Height);
    });
}

/// The record was given another size by the program: the window follows, once the records have
/// been shown. A window that fills the screen stays as it is, and one that cannot take the size
/// goes as far as it can; the record then follows back.
void FollowRecordSize(QMainWindow* window, const std::shared_ptr<AgreedSize>& agreed) {
    if (RecordSize() == agreed->Inner) return;
    agreed->Inner = RecordSize();
    const QSize outer = OuterSize(window, agreed->Inner);
    RunLater(window, 0, [window, outer, agreed] {
        if (!window->isMaximized() && !window->isFullScreen()) window->resize(outer);
        const QSize inner = window->centralWidget()->size();
        if (window->isVisible() && inner != RecordSize()) FollowWindowSize(inner, *agreed);
    });
}

void HookWindowEvents(QMainWindow* window, const std::shared_ptr<AgreedSize>& agreed) {
    QWidget* area = window->centralWidget();
    HookEvents(area, [area, agreed](QEvent* event) {
        if (event->type() == QEvent::Resize) FollowWindowSize(area->size(), *agreed);
        return false;
    });
    HookEvents(window, [window](QEvent* event) {
        if (event->type() == QEvent::ThemeChange) ApplyPalette();
        if (event->type() == QEvent::WindowStateChange) Principal.MostHeight = MostHeight(window);
        if (event->type() != QEvent::Close) return false;
        UserAction(ClosePrincipal);
        QuitProgram(0);
        return false;
    });
}

void ShowTitle(QMainWindow* window) {
    const QString title = ToText(Principal.Caption);
    if (window->windowTitle() != title) window->setWindowTitle(title);
}

}  // namespace

MainWindow MakeMainWindow() {
    MainWindow made;
    made.Widget = std::make_unique<QMainWindow>();
    QMainWindow* window = made.Widget.get();
    window->setWindowIcon(ProgramIcon());
    window->setContextMenuPolicy(Qt::NoContextMenu);
    window->setMinimumSize(kLeastWidth, kLeastHeight);
    auto* area = new QWidget(window);
    window->setCentralWidget(area);
    made.Controls = BuildWidgets(Principal, area);
    made.Menus = std::make_shared<MenuBarView>();
    made.Menus->Bar = MakeMenuBar(window);
    window->setMenuBar(made.Menus->Bar);
    made.Menus->Bar->setNativeMenuBar(false);
    made.Menus->Record = &Principal;
    const auto* menuKey = new QShortcut(Qt::Key_F10, window);
    QObject::connect(menuKey, &QShortcut::activated, made.Menus->Bar,
                     [bar = made.Menus->Bar] { OpenMenuBar(bar); });
    const auto agreed = std::make_shared<AgreedSize>(AgreedSize{RecordSize()});
    HookWindowEvents(window, agreed);
    TakeOutsideDrops(window, WidgetOf(*made.Controls, "ListDirec"));
    Shell.MainWindow = window;
    AddRefresh(window, [window, agreed, controls = made.Controls, menus = made.Menus] {
        ShowTitle(window);
        ShowMenuBar(*menus);
        ShowRecords(*controls);
        FollowRecordSize(window, agreed);
        Principal.MostHeight = MostHeight(window);
    });
    RefreshWindows();
    window->resize(OuterSize(window, agreed->Inner));
    return made;
}

}  // namespace brindlemoor
