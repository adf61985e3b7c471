#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <string>
#include <vector>

#include "platform/qt/shell.h"
#include "support/command_record.h"
#include "user_actions.h"
#include "window_fixture.h"
#include "workbench/principal.h"

namespace brindlemoor::test {
namespace {

using Texts = std::vector<std::string>;

class FilePopupWindowTest : public WindowTest {
  protected:
    void SetUp() override {
        WindowTest::SetUp();
        ClickFile("COCO.DSK");
    }

    /// Clicks the right button in the middle of an entry or a cell.
    static void RightClick(QAbstractItemView* list, int row) {
        const QRect place = list->visualRect(list->model()->index(row, 0));
        QTest::mouseClick(list->viewport(), Qt::RightButton, Qt::NoModifier, place.center());
    }

    static Texts TextsOf(const QWidget* menu) {
        Texts texts;
        for (const QAction* item : menu->actions()) {
            texts.push_back(item->isSeparator() ? "-" : ItemText(item));
        }
        return texts;
    }

    CommandRecord commands_;
};

TEST_F(FilePopupWindowTest, TheFileListsMenuNamesTheFile) {
    const WhenOpen menu(Box::Menu, [](QWidget* box) {
        EXPECT_EQ(TextsOf(box), (Texts{"View  COCO.DSK", "Edit  COCO.DSK", "Edit HEX  COCO.DSK",
                                       "Paint  COCO.DSK", "-", "Convert  To COCO.DSK",
                                       "Save  To Virtual COCO.DSK", "Delete  COCO.DSK"}));
        ClickItem(box, "Save  To Virtual COCO.DSK");
    });
    RightClick(Files(), 1);  // the button itself selects nothing
    ASSERT_EQ(commands_.Calls.size(), 1U);
    EXPECT_EQ(commands_.Calls[0].Index, 6);
    EXPECT_EQ(commands_.Calls[0].Side, 0);
}

TEST_F(FilePopupWindowTest, TheGridsMenuNamesTheRowAndLeadsToTheConversions) {
    ClickCell(Directory(), 1, 0);
    const WhenOpen menu(Box::Menu, [](QWidget* box) {
        EXPECT_EQ(TextsOf(box), (Texts{"View  BETA.BIN", "Edit  BETA.BIN", "Edit HEX  BETA.BIN",
                                       "Paint  BETA.BIN", "-", "Convert  To BETA.BIN",
                                       "Save  To PC BETA.BIN", "Delete  BETA.BIN"}));
        QMenu* conversions = ClickItem(box, "Convert  To BETA.BIN");
        ASSERT_NE(conversions, nullptr);
        EXPECT_EQ(TextsOf(conversions),
                  (Texts{"BAS ASCII<->BAS (Token/Compress)", "BAS (CR)<->BAS (CRLF)", "-",
                         "-> .BAS.DAT.BIN.TXT", "-> CAS", "-> WAV", "-> Audio", "-", "CCC <-> PAK",
                         "-", "DSK <-> VDK"}));
        ClickItem(conversions, "-> CAS");
    });
    RightClick(Directory(), 1);
    ASSERT_EQ(commands_.Calls.size(), 1U);
    EXPECT_EQ(commands_.Calls[0].Index, 24);
    EXPECT_EQ(commands_.Calls[0].Side, 100);
}

TEST_F(FilePopupWindowTest, SeveralSelectedFilesAreCounted) {
    ClickEntry(Files(), 1, Qt::ControlModifier);
    ClickCell(Directory(), 0, 0);
    ClickCell(Directory(), 2, 0, Qt::ShiftModifier);
    {
        const WhenOpen menu(Box::Menu, [](QWidget* box) {
            EXPECT_NE(ItemOf(box, "Save  To Virtual 2 Files"), nullptr);
            QTest::keyClick(box, Qt::Key_Escape);
        });
        RightClick(Files(), 0);
    }
    const WhenOpen menu(Box::Menu, [](QWidget* box) {
        EXPECT_NE(ItemOf(box, "Save  To PC 3 Files"), nullptr);
        QTest::keyClick(box, Qt::Key_Escape);
    });
    RightClick(Directory(), 0);
    EXPECT_TRUE(commands_.Calls.empty());
}

TEST_F(FilePopupWindowTest, ANamesAmpersandAndTabAreNoKeyAndNoShortcut) {
    WriteFile("../pc/A&B\tC.TXT", "text");
    UserAction([] { ClickListEntry(PrincipalControl("DirPattern"), 5); });  // lists anew
    ClickEntry(Files(), 0);
    const WhenOpen menu(Box::Menu, [](QWidget* box) {
        EXPECT_NE(ItemOf(box, "View  A&B C.TXT"), nullptr);
        EXPECT_TRUE(box->actions().at(0)->text().contains(QLatin1String("A&&B C")));
        QTest::keyClick(box, Qt::Key_Escape);
    });
    RightClick(Files(), 0);
}

TEST_F(FilePopupWindowTest, WithNothingSelectedNoMenuComes) {
    const QRect last = Files()->visualItemRect(Files()->item(Files()->count() - 1));
    QTest::mouseClick(Files()->viewport(), Qt::LeftButton, Qt::NoModifier,
                      last.bottomLeft() + QPoint(20, 20));
    EXPECT_EQ(PrincipalControl("File1").ItemSelected, (std::vector<bool>{false, false, false}));
    RightClick(Files(), 0);  // a menu would not let this come back
    RightClick(Directory(), 0);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

TEST_F(FilePopupWindowTest, TheDeleteKeyWorksInBothLists) {
    QTest::keyClick(Files(), Qt::Key_Delete);
    ClickCell(Directory(), 1, 0);
    QTest::keyClick(Directory(), Qt::Key_Delete);
    ASSERT_EQ(commands_.Calls.size(), 2U);
    EXPECT_EQ(commands_.Calls[0].Index, 7);
    EXPECT_EQ(commands_.Calls[0].Side, 0);
    EXPECT_EQ(commands_.Calls[0].DeleteTag, "Borrar PC");
    EXPECT_EQ(commands_.Calls[1].Index, 7);
    EXPECT_EQ(commands_.Calls[1].Side, 100);
}

TEST_F(FilePopupWindowTest, EscapeInTheGridPressesUndo) {
    int undone = 0;
    PrincipalControl("UndoBtn").Click = [&undone] { ++undone; };
    ClickCell(Directory(), 0, 0);
    QTest::keyClick(Directory(), Qt::Key_Escape);
    EXPECT_EQ(undone, 1);
}

}  // namespace
}  // namespace brindlemoor::test
