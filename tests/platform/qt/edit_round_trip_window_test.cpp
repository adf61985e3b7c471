#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QTest>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>

#include "core/disk_state.h"
#include "core/platform.h"
#include "platform/qt/shell.h"
#include "support/decb_builder.h"
#include "support/disk_fixture.h"
#include "user_actions.h"
#include "window_fixture.h"
#include "workbench/pc_pane.h"
#include "workbench/principal.h"

namespace brindlemoor::test {
namespace {

namespace fs = std::filesystem;

// `10 PRINT "ONE"` and `20 GOTO 10` as text and in a Color Computer's tokens, byte by byte; in the
// second program the editor has made "TWO" of "ONE".
const std::string kText = "10 PRINT \"ONE\"\r20 GOTO 10\r";
const std::string kTokens(
    "\xFF\x00\x18\x26\x0D\x00\x0A\x87 \"ONE\"\x00\x26\x17\x00\x14\x81\xA5 10\x00\x00\x00", 27);
const std::string kEdited(
    "\xFF\x00\x18\x26\x0D\x00\x0A\x87 \"TWO\"\x00\x26\x17\x00\x14\x81\xA5 10\x00\x00\x00", 27);

/// An empty disk, a program of the PC, and a shell script in the place of the user's editor.
class EditRoundTripTest : public WindowTest {
  protected:
    void SetUp() override {
        WindowTest::SetUp();
        WriteTestFile(PcFolder, "EMPTY.DSK", DecbBuilder().Image());
        WriteTestFile(PcFolder, "HELLO.BAS", kText);
        tools_ = Base + "/tools";
        fs::create_directories(tools_);
        editor_ = WriteTestFile(tools_, "my editor",
                                "#!/bin/sh\n"
                                "cp \"$1\" \"$0.given\"\n"
                                "sed 's/ONE/TWO/' \"$0.given\" > \"$1\"\n"
                                "printf '%s' \"$1\" > \"$0.part\"\n"
                                "mv \"$0.part\" \"$0.done\"\n");
        fs::permissions(editor_, fs::perms::owner_all);
        SetVariable("BRINDLEMOOR_EDITOR", editor_);
        UserAction(RefreshPcFiles);
    }

    void TearDown() override {
        SetVariable("BRINDLEMOOR_EDITOR", "");
        WindowTest::TearDown();
    }

    int RowOf(const std::string& name) const {
        for (int row = 0; row < Files()->count(); ++row) {
            if (Files()->item(row)->text().toStdString() == name) return row;
        }
        ADD_FAILURE() << name << " is not in the list";
        return 0;
    }

    /// Drags an entry of one list onto the other, with the mouse.
    static void DragOnto(QAbstractItemView* from, int row, QAbstractItemView* to) {
        const QPoint start = from->visualRect(from->model()->index(row, 0)).center();
        const QPoint end = to->mapToGlobal(to->rect().center());
        QTest::mousePress(from->viewport(), Qt::LeftButton, Qt::NoModifier, start);
        for (const QPoint& place : {start + QPoint(15, 5), from->viewport()->mapFromGlobal(end)}) {
            QMouseEvent move(QEvent::MouseMove, place, from->viewport()->mapToGlobal(place),
                             Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(from->viewport(), &move);
        }
        QMouseEvent release(QEvent::MouseButtonRelease, from->viewport()->mapFromGlobal(end), end,
                            Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(from->viewport(), &release);
        QApplication::processEvents();
    }

    void Choose(int row, int item, int conversion = -1) {
        ClickCell(Directory(), row, 0);
        const WhenOpen menu(Box::Menu, [item, conversion](QWidget* box) {
            QMenu* below = ClickItem(box, ItemText(box->actions().at(item)));
            if (conversion >= 0) ClickItem(below, ItemText(below->actions().at(conversion)));
        });
        const QRect place = Directory()->visualRect(Directory()->model()->index(row, 0));
        QTest::mouseClick(Directory()->viewport(), Qt::RightButton, Qt::NoModifier, place.center());
        QApplication::processEvents();
    }

    static void Press(QWidget* box, QMessageBox::StandardButton button) {
        auto* message = qobject_cast<QMessageBox*>(box);
        ASSERT_NE(message, nullptr);
        QTest::mouseClick(message->button(button), Qt::LeftButton);
    }

    /// Edits a row, with Yes to both questions, and OK once the editor has done its work.
    void Edit(int row) {
        std::unique_ptr<WhenOpen> lines;
        std::unique_ptr<WhenOpen> waiting;
        const WhenOpen text(Box::Dialog, [&](QWidget* first) {
            lines = std::make_unique<WhenOpen>(Box::Dialog, [&](QWidget* second) {
                waiting = std::make_unique<WhenOpen>(Box::Dialog, [&](QWidget* third) {
                    EXPECT_TRUE(QTest::qWaitFor([&] { return fs::exists(editor_ + ".done"); }));
                    Press(third, QMessageBox::Ok);
                });
                Press(second, QMessageBox::Yes);
            });
            Press(first, QMessageBox::Yes);
        });
        Choose(row, 1);
    }

    /// Storing a file over itself frees nothing: the granule of its old bytes stays taken, and
    /// reading the disk tells that.
    static void CloseFatMessage(QWidget* box) {
        auto* message = qobject_cast<QMessageBox*>(box);
        ASSERT_NE(message, nullptr);
        EXPECT_TRUE(message->text().contains(QStringLiteral("GR33 -> 193 ")));
        Press(box, QMessageBox::Ok);
    }

    void ChooseFromMenu(const std::string& menu, const std::string& item) {
        ClickItem(ClickItem(Bar(), menu), item);
        QApplication::processEvents();
    }

    std::string tools_;
    std::string editor_;
};

TEST_F(EditRoundTripTest, AProgramGoesInIsConvertedEditedSavedAndTakenOut) {
    ClickFile("EMPTY.DSK");
    ClickFile("HELLO.BAS");
    DragOnto(Files(), RowOf("HELLO.BAS"), Directory());
    ASSERT_EQ(Disk.DirRows, 1);
    EXPECT_EQ(DirTable[0].FullName, "HELLO.BAS");
    EXPECT_EQ(DirTable[0].Content, kText);

    Choose(0, 5, 4);
    EXPECT_EQ(DirTable[0].Content, kTokens);
    const std::size_t granule32 = std::size_t{32} * 2304;
    EXPECT_EQ(Disk.ImageBytes.substr(granule32, kTokens.size()), kTokens);

    ChooseFromMenu("Files", "Save");
    ClickFile("EMPTY.DSK");
    ASSERT_EQ(Disk.DirRows, 1);
    EXPECT_EQ(DirTable[0].Content, kTokens);

    Edit(0);
    EXPECT_EQ(FileBytes(editor_ + ".done"), PcFolder + "/HELLO.BAS.TMP");
    EXPECT_EQ(FileBytes(editor_ + ".given"), "\r\n10 PRINT \"ONE\"\r\n20 GOTO 10\r\n");
    EXPECT_FALSE(fs::exists(PcFolder + "/HELLO.BAS.TMP"));
    EXPECT_EQ(DirTable[1].Content, kEdited);

    {
        const WhenOpen told(Box::Dialog, CloseFatMessage);
        ChooseFromMenu("Files", "Save");
    }
    ClickFile("OTHER.DSK");
    const WhenOpen told(Box::Dialog, CloseFatMessage);
    ClickFile("EMPTY.DSK");
    ASSERT_EQ(Disk.DirRows, 1);
    EXPECT_EQ(DirTable[0].FullName, "HELLO.BAS");
    EXPECT_EQ(DirTable[0].Content, kEdited);

    fs::remove(PcFolder + "/HELLO.BAS");
    ClickCell(Directory(), 0, 0);
    DragOnto(Directory(), 0, Files());
    EXPECT_EQ(FileBytes(PcFolder + "/HELLO.BAS"), kEdited);
}

}  // namespace
}  // namespace brindlemoor::test
