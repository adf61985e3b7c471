#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QTimer>
#include <string>
#include <vector>

#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "platform/qt/shell.h"
#include "support/decb_builder.h"
#include "support/disk_fixture.h"
#include "user_actions.h"
#include "window_fixture.h"
#include "workbench/principal.h"

namespace brindlemoor::test {
namespace {

/// The rows of "COCO.DSK" that show: ALPHA, BETA and GAMMA; their slots are 0, 1 and 3.
class CellWindowTest : public WindowTest {
  protected:
    void SetUp() override {
        WindowTest::SetUp();
        ClickFile("COCO.DSK");
    }

    QLineEdit* TextEditor() const { return Find<QLineEdit>("txtEdit"); }
    QComboBox* ListEditor() const { return Find<QComboBox>("ComboEdit"); }

    QRect CellRect(int row, int column) const {
        return Directory()->visualRect(Directory()->model()->index(row, column));
    }

    /// Double-clicks a cell; row and column as shown, from 0.
    void DoubleClick(int row, int column) const {
        ClickCell(Directory(), row, column);
        QTest::mouseDClick(Directory()->viewport(), Qt::LeftButton, Qt::NoModifier,
                           CellRect(row, column).center());
    }

    /// Goes to a cell by keys, from the first of the row, and asks for its edit by F2.
    void EditByKeys(int row, int column) const {
        ClickCell(Directory(), row, 0);
        for (int step = 0; step < column; ++step) QTest::keyClick(Directory(), Qt::Key_Right);
        QTest::keyClick(Directory(), Qt::Key_F2);
    }

    static void Type(QWidget* widget, const std::string& text) {
        QTest::keyClicks(widget, QString::fromStdString(text));
    }

    /// Types characters that no plain keyboard has.
    static void TypeText(QWidget* widget, const QString& text) {
        for (const QChar character : text) {
            QKeyEvent press(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, character);
            QApplication::sendEvent(widget, &press);
        }
    }

    static std::string Slot(int slot, std::size_t length) {
        return Disk.ImageBytes.substr(78848 + static_cast<std::size_t>(slot) * 32, length);
    }

    QWidget* Focus() const { return Window_.Widget->focusWidget(); }
};

TEST_F(CellWindowTest, ADoubleClickOnANameEditsItAndEnterKeepsIt) {
    DoubleClick(1, 0);
    ASSERT_TRUE(TextEditor()->isVisible());
    EXPECT_EQ(Focus(), TextEditor());
    EXPECT_EQ(TextEditor()->selectedText().toStdString(), "BETA");
    EXPECT_EQ(TextEditor()->geometry(), CellRect(1, 0));
    Type(TextEditor(), "newnames");
    QTest::keyClick(TextEditor(), Qt::Key_Return);
    EXPECT_FALSE(TextEditor()->isVisible());
    EXPECT_EQ(Cell(1, 1), "NEWNAMES");
    EXPECT_EQ(Slot(1, 11), "NEWNAMESBIN");
    EXPECT_EQ(Focus(), Directory());
    EXPECT_TRUE(Find<QPushButton>("UndoBtn")->isEnabled());
    EXPECT_EQ(Directory()->viewport()->palette().color(QPalette::Base), QColor(Qt::yellow));
}

TEST_F(CellWindowTest, EscapeCancelsAndDoesNotUndo) {
    UserAction([] { Disk.ImageBytes[9] = 'X'; });
    DoubleClick(0, 1);
    Type(TextEditor(), "zzz");
    QTest::keyClick(TextEditor(), Qt::Key_Escape);
    EXPECT_FALSE(TextEditor()->isVisible());
    EXPECT_EQ(Cell(0, 2), "BAS");
    EXPECT_EQ(Slot(0, 11), "ALPHA   BAS");
    EXPECT_EQ(Disk.ImageBytes[9], 'X');  // the grid's own Escape gives up all changes
    EXPECT_EQ(Focus(), Directory());
}

TEST_F(CellWindowTest, NoMoreCharactersCanBeTypedThanTheFieldHas) {
    DoubleClick(0, 0);
    Type(TextEditor(), "abcdefghijkl");
    EXPECT_EQ(TextEditor()->text().toStdString(), "abcdefgh");
    QTest::keyClick(TextEditor(), Qt::Key_Escape);
    DoubleClick(0, 1);
    Type(TextEditor(), "wxyz");
    QTest::keyClick(TextEditor(), Qt::Key_Enter);
    EXPECT_EQ(Slot(0, 8), "ALPHA   ");
    EXPECT_EQ(DirTable[0].Ext, "WXY");
}

TEST_F(CellWindowTest, AccentedLettersAreWrittenInTheirCodePage) {
    DoubleClick(0, 0);
    TypeText(TextEditor(), QStringLiteral("\u00F1and\u00FA X9"));
    QTest::keyClick(TextEditor(), Qt::Key_Return);
    EXPECT_EQ(Slot(0, 8),
              "\xF1"
              "AND\xFA X9");
    DoubleClick(0, 0);
    TypeText(TextEditor(), QStringLiteral("\u4E2D\u6587\u4E2D\u6587"));
    QTest::keyClick(TextEditor(), Qt::Key_Return);
    EXPECT_EQ(DirTable[0].Name.size(), 8u);
    EXPECT_EQ(Slot(0, 11).substr(8), "BAS");
}

TEST_F(CellWindowTest, AClickElsewhereInTheGridKeepsTheEditInItsOwnRow) {
    DoubleClick(0, 0);
    Type(TextEditor(), "LEFTHERE");
    ClickCell(Directory(), 2, 0);
    EXPECT_FALSE(TextEditor()->isVisible());
    EXPECT_EQ(Cell(0, 1), "LEFTHERE");
    EXPECT_EQ(Slot(0, 8), "LEFTHERE");
    EXPECT_EQ(Slot(3, 8), "GAMMA   ");
    EXPECT_EQ(Disk.DirCount, 3);
}

TEST_F(CellWindowTest, TheTabKeyAndAnotherControlKeepTheEdit) {
    DoubleClick(0, 0);
    Type(TextEditor(), "BYTABKEY");
    QTest::keyClick(TextEditor(), Qt::Key_Tab);
    EXPECT_EQ(Slot(0, 8), "BYTABKEY");
    EXPECT_FALSE(TextEditor()->isVisible());
    DoubleClick(0, 0);
    Type(TextEditor(), "BYACLICK");
    auto* path = Find<QLineEdit>("FilePath");
    QTest::mouseClick(path, Qt::LeftButton);
    EXPECT_EQ(Slot(0, 8), "BYACLICK");
    EXPECT_EQ(Focus(), path);
}

TEST_F(CellWindowTest, AnEmptyTextShowsTheMessageAndTheEditorStays) {
    DoubleClick(0, 0);
    QTest::keyClick(TextEditor(), Qt::Key_Delete);
    std::string text;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    {
        const WhenOpen box(Box::Dialog, [&](QWidget* dialog) {
            text = qobject_cast<QMessageBox*>(dialog)->text().toStdString();
            icon = qobject_cast<QMessageBox*>(dialog)->icon();
            QTest::keyClick(dialog, Qt::Key_Return);
        });
        QTest::keyClick(TextEditor(), Qt::Key_Return);
    }
    EXPECT_EQ(text, "Please enter some text in cell.");
    EXPECT_EQ(icon, QMessageBox::Warning);
    EXPECT_TRUE(TextEditor()->isVisible());
    EXPECT_EQ(Focus(), TextEditor());
    Type(TextEditor(), "AGAIN");
    QTest::keyClick(TextEditor(), Qt::Key_Return);
    EXPECT_EQ(DirTable[0].Name, "AGAIN");
}

TEST_F(CellWindowTest, AClickElsewhereLeavesAnEmptyEditorOpenAndChoosesNoRow) {
    DoubleClick(0, 0);
    QTest::keyClick(TextEditor(), Qt::Key_Delete);
    int boxes = 0;
    {
        const WhenOpen box(Box::Dialog, [&](QWidget* dialog) {
            ++boxes;
            QTest::keyClick(dialog, Qt::Key_Return);
        });
        ClickCell(Directory(), 2, 0);
    }
    EXPECT_EQ(boxes, 1);
    Window_.Widget->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(Window_.Widget.get()));
    {
        const WhenOpen box(Box::Dialog, [&](QWidget* dialog) {
            ++boxes;
            QTest::keyClick(dialog, Qt::Key_Return);
        });
        QTest::mouseClick(Directory()->viewport(), Qt::RightButton, Qt::NoModifier,
                          CellRect(2, 0).center());
    }
    EXPECT_EQ(boxes, 2);  // and no menu of files
    EXPECT_TRUE(TextEditor()->isVisible());
    EXPECT_EQ(Focus(), TextEditor());
    EXPECT_EQ(Disk.DirCount, 0);
    EXPECT_EQ(ListDirec.SelectedRow, 1);
    QTest::keyClick(TextEditor(), Qt::Key_Escape);
    EXPECT_FALSE(TextEditor()->isVisible());
    EXPECT_EQ(Cell(0, 1), "ALPHA   ");
}

TEST_F(CellWindowTest, AClickOnAnotherControlDoesNothingWhileAnEmptyEditorIsOpen) {
    DoubleClick(1, 0);
    Type(TextEditor(), "CHANGED1");
    QTest::keyClick(TextEditor(), Qt::Key_Return);
    DoubleClick(0, 0);
    QTest::keyClick(TextEditor(), Qt::Key_Delete);
    auto* save = Find<QPushButton>("SaveBtn");
    auto* characters = Find<QComboBox>("OpciónChar"_w);
    for (QWidget* other : {static_cast<QWidget*>(save), static_cast<QWidget*>(characters),
                           Files()->viewport(), static_cast<QWidget*>(Directory()->viewport())}) {
        Window_.Widget->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(Window_.Widget.get()));
        int boxes = 0;
        const WhenOpen box(Box::Dialog, [&](QWidget* dialog) {
            ++boxes;
            QTest::keyClick(dialog, Qt::Key_Return);
        });
        QTest::mouseClick(other, Qt::LeftButton, Qt::NoModifier, QPoint(20, 8));
        EXPECT_EQ(boxes, 1);
        EXPECT_TRUE(TextEditor()->isVisible());
        EXPECT_EQ(Focus(), TextEditor());
    }
    EXPECT_FALSE(save->isDown());
    EXPECT_FALSE(characters->view()->isVisible());
    EXPECT_EQ(PrincipalControl("PathDsk").Text, PcFolder + "/COCO.DSK");
    EXPECT_EQ(FileBytes(PcFolder + "/COCO.DSK").substr(78848 + 32, 8), "BETA    ");
    QTest::keyClick(TextEditor(), Qt::Key_Escape);
    EXPECT_EQ(Cell(0, 1), "ALPHA   ");
}

TEST_F(CellWindowTest, TheSaveButtonKeepsTheOpenEditAndSavesIt) {
    DoubleClick(0, 0);
    Type(TextEditor(), "BYBUTTON");
    QTest::mouseClick(Find<QPushButton>("SaveBtn"), Qt::LeftButton);
    EXPECT_FALSE(TextEditor()->isVisible());
    EXPECT_EQ(FileBytes(PcFolder + "/COCO.DSK").substr(78848, 8), "BYBUTTON");
}

TEST_F(CellWindowTest, KeysThatTheEditorHasNoUseForDoNotMoveInTheGrid) {
    DoubleClick(0, 0);
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_PageDown, Qt::Key_F2, Qt::Key_Up}) {
        QTest::keyClick(TextEditor(), key);
    }
    EXPECT_TRUE(TextEditor()->isVisible());
    EXPECT_EQ(ListDirec.SelectedRow, 1);
    EXPECT_EQ(Disk.DirCount, 0);
}

TEST_F(CellWindowTest, F2AndEnterEditTheCurrentCell) {
    EditByKeys(0, 2);
    ASSERT_TRUE(ListEditor()->isVisible());
    EXPECT_EQ(Focus(), ListEditor());
    EXPECT_EQ(ListEditor()->lineEdit()->selectedText().toStdString(), "0");
    EXPECT_EQ(ListEditor()->count(), 4);
    EXPECT_EQ(ListEditor()->geometry(), CellRect(0, 2));
    QTest::keyClick(ListEditor(), Qt::Key_Escape);
    EXPECT_FALSE(ListEditor()->isVisible());
    QTest::keyClick(Directory(), Qt::Key_Return);
    ASSERT_TRUE(ListEditor()->isVisible());
    QTest::keyClick(ListEditor(), Qt::Key_Down);
    EXPECT_EQ(ListEditor()->currentText().toStdString(), "0=BASIC");
    QTest::keyClick(ListEditor(), Qt::Key_Down);
    QTest::keyClick(ListEditor(), Qt::Key_Return);
    EXPECT_FALSE(ListEditor()->isVisible());
    EXPECT_EQ(Cell(0, 3), "1");
    EXPECT_EQ(Slot(0, 12)[11], 1);
}

TEST_F(CellWindowTest, TheCellThatAKeyWouldEditIsMarkedWhileTheUserMovesByKeys) {
    ClickCell(Directory(), 0, 0);
    const auto pixels = [this] { return Directory()->viewport()->grab(CellRect(0, 1)).toImage(); };
    const QImage plain = pixels();
    QTest::keyClick(Directory(), Qt::Key_Right);
    EXPECT_NE(pixels(), plain);
    QTest::keyClick(Directory(), Qt::Key_Right);
    EXPECT_EQ(pixels(), plain);
    ClickCell(Directory(), 0, 1);
    EXPECT_EQ(pixels(), plain);
}

TEST_F(CellWindowTest, AnItemOfTheOpenListIsTaken) {
    EditByKeys(0, 3);
    ASSERT_TRUE(ListEditor()->isVisible());
    ListEditor()->showPopup();
    QAbstractItemView* list = ListEditor()->view();
    ASSERT_TRUE(QTest::qWaitFor([list] { return list->isVisible(); }));
    EXPECT_TRUE(ListEditor()->isVisible());  // its own list is no other place
    QTest::mouseMove(list->viewport(), list->visualRect(list->model()->index(1, 0)).center());
    QTest::qWait(QApplication::doubleClickInterval() + 50);  // not the click that opened it
    QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier,
                      list->visualRect(list->model()->index(1, 0)).center());
    EXPECT_EQ(ListEditor()->currentText().toStdString(), "A=AscII");
    ASSERT_TRUE(ListEditor()->isVisible());
    QTest::keyClick(ListEditor(), Qt::Key_Return);
    EXPECT_EQ(DirTable[0].FormatChar, "A");
    EXPECT_EQ(Cell(0, 4), "A");
}

TEST_F(CellWindowTest, TheOtherColumnsAskForNoEdit) {
    DoubleClick(0, 6);
    EXPECT_FALSE(TextEditor()->isVisible() || ListEditor()->isVisible());
    EXPECT_EQ(ListDirec.Edited.Row, 0);
}

TEST_F(CellWindowTest, ATypeThatIsNoNumberEndsTheProgramByTheErrorBox) {
    EditByKeys(0, 2);
    Type(ListEditor(), "x");
    std::string text;
    {
        const WhenOpen box(Box::Dialog, [&](QWidget* dialog) {
            text = qobject_cast<QMessageBox*>(dialog)->text().toStdString();
            QTest::keyClick(dialog, Qt::Key_Return);
        });
        QTest::keyClick(ListEditor(), Qt::Key_Return);
    }
    EXPECT_EQ(text, "Run-time error '13':\n\nType mismatch");
    EXPECT_EQ(ExitCode, 1);
    EXPECT_EQ(FileBytes(PcFolder + "/COCO.DSK"), Disk.ImageOnOpen);
}

TEST_F(CellWindowTest, APressOnTheTypeCellPopsUpItsMenu) {
    {
        const WhenOpen menu(Box::Menu, [](QWidget* box) {
            ASSERT_EQ(box->actions().size(), 4);
            EXPECT_TRUE(ItemOf(box, "0=Basic")->isChecked());
            ClickItem(box, "3=Data");
        });
        ClickCell(Directory(), 0, 2);
    }
    EXPECT_EQ(Cell(0, 3), "3");
    EXPECT_EQ(Slot(0, 16).substr(0, 12), std::string("ALPHA   BAS") + '\3');
    EXPECT_TRUE(Find<QPushButton>("UndoBtn")->isEnabled());
    {
        const WhenOpen menu(Box::Menu, [](QWidget* box) {
            EXPECT_TRUE(ItemOf(box, "B=Binario")->isChecked());
            EXPECT_FALSE(ItemOf(box, "A=AscII")->isChecked());
            QTest::keyClick(box, Qt::Key_Escape);
        });
        ClickCell(Directory(), 1, 3);
    }
    EXPECT_EQ(Cell(1, 4), "B");
    EXPECT_EQ(Disk.DirCount, 1);
}

TEST_F(CellWindowTest, TheMenuOfADeletedRowIsGreyed) {
    UserAction([] { SetChecked(PrincipalControl("VerBorrados"), true); });
    ASSERT_EQ(Cell(2, 1).substr(0, 4), "?ONE");
    const WhenOpen menu(Box::Menu, [](QWidget* box) {
        for (const QAction* item : box->actions()) EXPECT_FALSE(item->isEnabled());
        QTest::keyClick(box, Qt::Key_Escape);
    });
    ClickCell(Directory(), 2, 2);
    DoubleClick(2, 0);
    EXPECT_FALSE(TextEditor()->isVisible());
}

TEST_F(CellWindowTest, TheRightButtonPopsUpTheFilesMenuOnly) {
    ClickCell(Directory(), 0, 0);
    const WhenOpen menu(Box::Menu, [](QWidget* box) {
        EXPECT_EQ(box->actions().size(), 8);
        QTest::keyClick(box, Qt::Key_Escape);
    });
    QTest::mouseClick(Directory()->viewport(), Qt::RightButton, Qt::NoModifier,
                      CellRect(0, 2).center());
}

// What could open another disk

TEST_F(CellWindowTest, ReopeningByTheMenuKeepsTheEditFirstAndThenUndoesIt) {
    DoubleClick(0, 0);
    Type(TextEditor(), "UNDOTHIS");
    UserAction([] { MenuOf(Principal, "FilesMenu").Items[3].Enabled = true; });
    QMenu* files = ClickItem(Bar(), "Files");
    EXPECT_TRUE(TextEditor()->isVisible());  // a menu that is looked at is no other place
    ClickItem(files, "ReOpen (Undo)");
    EXPECT_FALSE(TextEditor()->isVisible());
    EXPECT_EQ(Cell(0, 1), "ALPHA   ");
    EXPECT_EQ(Slot(0, 8), "ALPHA   ");
}

TEST_F(CellWindowTest, SavingByItsShortcutSavesTheOpenEdit) {
    DoubleClick(0, 0);
    Type(TextEditor(), "FIRSTONE");
    QTest::keyClick(TextEditor(), Qt::Key_Return);
    DoubleClick(1, 0);
    Type(TextEditor(), "SAVETHIS");
    QTest::keyClick(TextEditor(), Qt::Key_S, Qt::ControlModifier);
    EXPECT_FALSE(TextEditor()->isVisible());
    EXPECT_EQ(FileBytes(PcFolder + "/COCO.DSK").substr(78848 + 32, 8), "SAVETHIS");
}

TEST_F(CellWindowTest, OpeningAnotherDiskKeepsTheEditFirstAndAsks) {
    DoubleClick(0, 0);
    Type(TextEditor(), "LASTONES");
    const WhenOpen box(Box::Dialog,
                       [](QWidget* dialog) { QTest::keyClick(dialog, Qt::Key_Escape); });
    ClickFile("OTHER.DSK");
    EXPECT_FALSE(TextEditor()->isVisible());
    EXPECT_EQ(Cell(0, 1), "LASTONES");  // the user did not want to lose it
    EXPECT_EQ(PrincipalControl("PathDsk").Text, PcFolder + "/COCO.DSK");
}

TEST_F(CellWindowTest, TheEditorScrollsWithItsCell) {
    DecbBuilder disk;
    for (int slot = 0; slot < 60; ++slot) {
        disk.File(slot, "FILE    ", "BIN", 2, 0, {slot}, Pattern(9, 1));
    }
    WriteTestFile(PcFolder, "SIXTY.DSK", disk.Image());
    EndProgram();
    StartProgram();
    ClickFile("SIXTY.DSK");
    ASSERT_EQ(Directory()->model()->rowCount(), 60);
    DoubleClick(6, 0);
    ASSERT_TRUE(TextEditor()->isVisible());
    Directory()->verticalScrollBar()->setValue(2);
    EXPECT_EQ(TextEditor()->geometry(), CellRect(6, 0));
    Directory()->verticalScrollBar()->setValue(30);
    EXPECT_EQ(TextEditor()->geometry(), CellRect(6, 0));
    EXPECT_LT(TextEditor()->geometry().bottom(), 0);  // clipped away
    Directory()->verticalScrollBar()->setValue(0);
    EXPECT_EQ(TextEditor()->geometry(), CellRect(6, 0));
    QTest::keyClick(TextEditor(), Qt::Key_Escape);
}

TEST_F(CellWindowTest, ClosingTheWindowAsksNothingOfAnEmptyEditor) {
    DoubleClick(0, 0);
    QTest::keyClick(TextEditor(), Qt::Key_Delete);
    int boxes = 0;
    QTimer closer;
    QObject::connect(&closer, &QTimer::timeout, [&boxes] {
        if (QWidget* box = QApplication::activeModalWidget()) {
            ++boxes;
            box->close();
        }
    });
    closer.start(20);
    Window_.Widget->close();
    QTest::qWait(100);
    EXPECT_EQ(boxes, 0);
    EXPECT_EQ(ExitCode, 0);
}

TEST_F(CellWindowTest, AWindowThatGoesWithAnOpenEditorGoesInPeace) {
    DoubleClick(0, 0);
    Type(TextEditor(), "UNKEPT");
    EndProgram();
    StartProgram();
    EXPECT_EQ(FileBytes(PcFolder + "/COCO.DSK").substr(78848, 8), "ALPHA   ");
}

}  // namespace
}  // namespace brindlemoor::test
