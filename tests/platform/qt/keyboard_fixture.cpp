#include "keyboard_fixture.h"

#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QTest>

#include "core/platform.h"
#include "platform/qt/detached_window.h"
#include "platform/qt/shell.h"
#include "support/decb_builder.h"
#include "support/disk_fixture.h"
#include "support/dragon_builder.h"
#include "user_actions.h"
#include "workbench/fat_editor.h"

namespace brindlemoor::test {

namespace {

/// The sectors 28 to 31 are wrong in its bitmap.
std::string WrongDragonDisk() {
    DragonBuilder disk;
    disk.File(0, "FILE    ", "BIN", {{40, 2}}, Pattern(500, 1));
    disk.BitmapByte(3, 0x0F);
    return disk.Image();
}

/// The letter by which a key chooses an item; 0 when there is none.
char LetterOf(const QAction* item) {
    const QString text = item->text();
    for (int place = 0; place + 1 < text.size(); ++place) {
        if (text[place] != QLatin1Char('&')) continue;
        if (text[place + 1] != QLatin1Char('&')) return text[place + 1].toLower().toLatin1();
        ++place;
    }
    return 0;
}

QWidget* FocusIn(QWidget* window) {
    QWidget* focus = window->focusWidget();
    return focus != nullptr ? focus : window;
}

/// There is no window manager that gives the focus back behind a box. A window that has it for the
/// system, but not for the program, gets it by way of another one.
void ActivateAgain(QWidget* window) {
    if (QApplication::activeWindow() == window) return;
    QWidget other;
    other.show();
    other.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&other));
    window->activateWindow();
    EXPECT_TRUE(QTest::qWaitFor([window] { return QApplication::activeWindow() == window; }));
}

}  // namespace

void KeyboardTest::SetUp() {
    WindowTest::SetUp();
    WriteTestFile(PcFolder, "WRONG.DSK", WrongDragonDisk());
    EndProgram();
    StartProgram();
}

void KeyboardTest::TearDown() {
    WindowTest::TearDown();
    FatEditor = Window();
    FatLines = {};
}

void KeyboardTest::Key(Qt::Key key, Qt::KeyboardModifiers held) const {
    KeyIn(Window_.Widget.get(), key, held);
}

void KeyboardTest::KeyIn(QWidget* window, Qt::Key key, Qt::KeyboardModifiers held) {
    QTest::keyClick(FocusIn(window), key, held);
    QApplication::processEvents();
}

void KeyboardTest::TypeIn(QWidget* window, const std::string& text) {
    KeyIn(window, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(FocusIn(window), QString::fromStdString(text));
}

void KeyboardTest::ChooseByKeys(const std::vector<int>& places) const {
    const QAction* top = Bar()->actions().at(places.front());
    ASSERT_NE(LetterOf(top), 0);
    ActivateAgain(Window_.Widget.get());
    QTest::keyClick(FocusIn(Window_.Widget.get()), LetterOf(top), Qt::AltModifier);
    for (std::size_t depth = 1; depth < places.size(); ++depth) {
        ASSERT_NE(QApplication::activePopupWidget(), nullptr) << ItemText(top);
        ChooseInPopup(places[depth]);
    }
}

void KeyboardTest::ChooseInPopup(int place) {
    QWidget* menu = QApplication::activePopupWidget();
    ASSERT_NE(menu, nullptr);
    const char letter = LetterOf(menu->actions().at(place));
    ASSERT_NE(letter, 0) << ItemText(menu->actions().at(place));
    QTest::keyClick(menu, letter);
}

void KeyboardTest::GoTo(QWidget* widget) {
    QWidget* window = widget->window();
    for (int step = 0; step < 200 && window->focusWidget() != widget; ++step) {
        QTest::keyClick(FocusIn(window), Qt::Key_Tab);
    }
    EXPECT_EQ(window->focusWidget(), widget) << Describe(widget) << " is not reached by Tab";
}

void KeyboardTest::GoToFile(const std::string& name) const {
    GoTo(Files());
    Key(Qt::Key_Home);
    for (int step = 0; step < Files()->count(); ++step) {
        const QListWidgetItem* entry = Files()->currentItem();
        if (entry != nullptr && entry->text().toStdString() == name) return;
        Key(Qt::Key_Down);
    }
    ADD_FAILURE() << name << " is not reached by the arrow keys";
}

void KeyboardTest::GoToCell(int row, int column) const {
    GoTo(Directory());
    const auto current = [this] { return Directory()->currentIndex(); };
    Key(Qt::Key_Home, Qt::ControlModifier);
    for (int step = 0; step < row; ++step) Key(Qt::Key_Down);
    while (current().column() > column) Key(Qt::Key_Left);
    for (int step = 0; step < 20 && current().column() < column; ++step) Key(Qt::Key_Right);
    EXPECT_EQ(current().column(), column);
}

void KeyboardTest::InDialog(const std::function<void()>& open,
                            const std::function<void(QWidget* dialog)>& use) {
    const WhenOpen box(Box::Dialog, [&use](QWidget* dialog) {
        EXPECT_TRUE(QTest::qWaitForWindowActive(dialog));
        use(dialog);
        if (dialog->isVisible()) QTest::keyClick(dialog, Qt::Key_Escape);
        EXPECT_FALSE(dialog->isVisible());
        if (dialog->isVisible()) dialog->close();
    });
    open();
    EXPECT_TRUE(box.Came());
}

void KeyboardTest::ForEachMenuWindow(const Look& look) const {
    struct Row {
        const char* Name;
        std::vector<int> Places;
    };
    const std::vector<Row> rows = {
        {"about box", {2, 2}},   {"new disk", {0, 0}}, {"open", {0, 2}},
        {"save as", {0, 6}},     {"colours", {1, 1}},  {"header", {1, 2}},
        {"OS-9 sector", {1, 3}}, {"sound", {1, 4}},    {"spare options", {1, 5}}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.Name);
        InDialog([&] { ChooseByKeys(row.Places); },
                 [&](QWidget* dialog) { look(row.Name, dialog); });
    }
}

void KeyboardTest::ForEachBox(const Look& look) const {
    InDialog(
        [&] {
            ChooseByKeys({1, 1});
        },
        [&](QWidget* colours) {
            GoTo(In<QPushButton>(colours, "BtnColores"));
            InDialog([&] { KeyIn(colours, Qt::Key_Space); },
                     [&](QWidget* chooser) { look("colour chooser", chooser); });
        });
    for (const Buttons buttons : {Buttons::Ok, Buttons::YesNoCancel}) {
        const auto ask = [buttons] {
            Platform.ShowMessage("What is it?", "Title", buttons, MessageIcon::Question);
        };
        InDialog([&] { UserAction(ask); }, [&](QWidget* box) { look("message", box); });
    }
    InDialog([] { UserAction([] { Platform.AskText("Name?", "Title", "NAME"); }); },
             [&](QWidget* box) { look("text question", box); });
}

void KeyboardTest::ForEachWindow(const Look& look) const {
    GoToFile("COCO.DSK");
    look("main window", Window_.Widget.get());
    ForEachMenuWindow(look);
    ForEachBox(look);
    GoTo(Find<QPushButton>("EditBat"));
    InDialog([this] { Key(Qt::Key_Space); },
             [&](QWidget* editor) { look("bitmap editor", editor); });
    GoTo(Directory());
    Key(Qt::Key_Home);
    const WhenOpen popup(Box::Menu, [](QWidget*) { ChooseInPopup(0); });
    Key(Qt::Key_Menu);
    QWidget* viewer = DetachedWindow("Archivos");
    ASSERT_NE(viewer, nullptr);
    ASSERT_TRUE(QTest::qWaitForWindowActive(viewer));
    look("viewer window", viewer);
    const QPointer<QWidget> there(viewer);
    KeyIn(viewer, Qt::Key_Escape);
    EXPECT_TRUE(there.isNull() || !there->isVisible());
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

std::vector<QWidget*> TabStops(QWidget* window) {
    std::vector<QWidget*> stops;
    for (QWidget* widget : window->findChildren<QWidget*>()) {
        const bool takes = (widget->focusPolicy() & Qt::TabFocus) != 0;
        const bool own = widget->window() == window && widget->focusProxy() == nullptr;
        if (takes && own && widget->isVisible() && widget->isEnabled()) stops.push_back(widget);
    }
    return stops;
}

std::string Describe(const QWidget* widget) {
    if (widget == nullptr) return "(none)";
    return std::string(widget->metaObject()->className()) + " " +
           widget->objectName().toStdString();
}

}  // namespace brindlemoor::test
