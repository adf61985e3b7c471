#include <gtest/gtest.h>

#include <QApplication>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <memory>
#include <string>

#include "core/disk_state.h"
#include "fat_editor_actions.h"
#include "platform/qt/caret_text.h"
#include "support/decb_builder.h"
#include "support/disk_fixture.h"
#include "support/dragon_builder.h"
#include "user_actions.h"
#include "window_fixture.h"
#include "workbench/fat_editor.h"
#include "workbench/principal.h"

namespace brindlemoor::test {
namespace {

/// Lines of 720 characters and a line break, which is one character to the widget.
constexpr int kLine = 721;
constexpr int kThirdLine = 2 * kLine;

/// A disk whose bitmap has the sectors 28 to 31 wrong, with its copy.
std::string WrongDragonDisk() {
    DragonBuilder disk;
    disk.File(0, "FILE    ", "BIN", {{40, 2}}, Pattern(500, 1));
    disk.BitmapByte(3, 0x0F);
    return disk.Image();
}

class FatWindowTest : public WindowTest {
  protected:
    void SetUp() override {
        WindowTest::SetUp();
        WriteTestFile(PcFolder, "WRONG.DSK", WrongDragonDisk());
        EndProgram();
        StartProgram();
    }

    void TearDown() override {
        WindowTest::TearDown();
        FatEditor = Window();
        FatLines = {};
    }

    static QPlainTextEdit* Text(QWidget* dialog) {
        return dialog->findChild<QPlainTextEdit*>(QStringLiteral("Text0"));
    }

    static QPushButton* Button(QWidget* dialog, const char* name) {
        return dialog->findChild<QPushButton*>(QString::fromLatin1(name) + QLatin1Char('0'));
    }

    static void Click(QPushButton* button) { QTest::mouseClick(button, Qt::LeftButton); }

    static std::string Line(QWidget* dialog, int number) {
        const QStringList lines = Text(dialog)->toPlainText().split(QLatin1Char('\n'));
        return lines.value(number - 1).toStdString();
    }

    static int Caret(QWidget* dialog) { return Text(dialog)->textCursor().position(); }

    /// Where a character of the text is on the screen.
    static QPoint PlaceOf(QPlainTextEdit* text, int place) {
        QTextCursor cursor(text->document());
        cursor.setPosition(place);
        return text->cursorRect(cursor).center();
    }

    static void ClickPlace(QWidget* dialog, int place) {
        QPlainTextEdit* text = Text(dialog);
        QTest::mouseClick(text->viewport(), Qt::LeftButton, Qt::NoModifier, PlaceOf(text, place));
    }

    static void PressKeys(QWidget* widget, std::initializer_list<Qt::Key> keys) {
        for (const Qt::Key key : keys) QTest::keyClick(widget, key);
    }

    /// Opens the disk, answers Yes to the differences, and lets `act` use the editor.
    void Edit(const std::function<void(QWidget* dialog)>& act) {
        UseFatEditor([this] { ClickFile("WRONG.DSK"); }, act);
    }
};

TEST_F(FatWindowTest, YesToTheDifferencesOpensTheEditorAtTheThirdLine) {
    Edit([](QWidget* dialog) {
        EXPECT_EQ(dialog->windowTitle().toStdString(), "Fat Editor");
        EXPECT_TRUE(dialog->isModal());
        QPlainTextEdit* text = Text(dialog);
        EXPECT_EQ(Caret(dialog), kThirdLine);
        EXPECT_EQ(text->lineWrapMode(), QPlainTextEdit::NoWrap);
        EXPECT_TRUE(text->horizontalScrollBar()->isVisible());
        EXPECT_EQ(text->verticalScrollBar()->maximum(), 0);  // all five lines show
        EXPECT_EQ(Line(dialog, 1).substr(0, 18), "|---Track 00-----|");
        EXPECT_EQ(Line(dialog, 3).substr(24, 8), "11110000");
        EXPECT_EQ(Line(dialog, 4).substr(24, 8), "11111111");
        EXPECT_EQ(Line(dialog, 5).substr(24, 8), "    ||||");
        for (int line = 1; line <= 5; ++line) EXPECT_EQ(Line(dialog, line).size(), 720u);
    });
}

TEST_F(FatWindowTest, CharactersStandUnderEachOther) {
    Edit([](QWidget* dialog) {
        QPlainTextEdit* text = Text(dialog);
        for (const int column : {1, 50, 700}) {
            for (int line = 1; line < 5; ++line) {
                EXPECT_EQ(PlaceOf(text, line * kLine + column).x(), PlaceOf(text, column).x());
            }
        }
    });
}

TEST_F(FatWindowTest, TypingMovesAndChangesTheThirdLineAndOkStoresIt) {
    Edit([](QWidget* dialog) {
        QPlainTextEdit* text = Text(dialog);
        PressKeys(text, {Qt::Key_0, Qt::Key_1, Qt::Key_X, Qt::Key_Space, Qt::Key_2});
        EXPECT_EQ(Line(dialog, 3).substr(0, 4), "0111");
        EXPECT_EQ(Caret(dialog), kThirdLine + 2);
        PressKeys(text, {Qt::Key_Left, Qt::Key_Left, Qt::Key_Left, Qt::Key_Right});
        EXPECT_EQ(Caret(dialog), kThirdLine + 1);
        PressKeys(text, {Qt::Key_End, Qt::Key_Right, Qt::Key_0});
        EXPECT_EQ(Caret(dialog), kThirdLine + 720);
        PressKeys(text, {Qt::Key_Left, Qt::Key_0});
        EXPECT_EQ(Line(dialog, 3).back(), '0');
        PressKeys(text, {Qt::Key_Home});
        EXPECT_EQ(Caret(dialog), kThirdLine);
        EXPECT_EQ(text->horizontalScrollBar()->value(), 0);
        Click(Button(dialog, "cmdOK"));
        EXPECT_FALSE(dialog->isVisible());
    });
    EXPECT_EQ(Disk.FatBytes[0], '\xFE');
    EXPECT_EQ(Disk.FatBytes[3], '\x0F');
    EXPECT_EQ(Disk.FatBytes[89], '\x7F');
    EXPECT_EQ(Disk.ImageBytes, WrongDragonDisk());
    EXPECT_EQ(Disk.DirRows, 1);
}

TEST_F(FatWindowTest, NoOtherKeyChangesTheTextOrLeavesTheLine) {
    Edit([](QWidget* dialog) {
        QPlainTextEdit* text = Text(dialog);
        PressKeys(text, {Qt::Key_Right});
        const QString before = text->toPlainText();
        PressKeys(text, {Qt::Key_Up, Qt::Key_Down, Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Delete,
                         Qt::Key_Backspace, Qt::Key_Return, Qt::Key_Insert});
        for (const Qt::Key key : {Qt::Key_V, Qt::Key_X, Qt::Key_Z, Qt::Key_A, Qt::Key_Home}) {
            QTest::keyClick(text, key, Qt::ControlModifier);
        }
        EXPECT_EQ(text->toPlainText(), before);
        EXPECT_EQ(Caret(dialog), kThirdLine);  // by Home alone
        QTest::keyClick(text, Qt::Key_Right, Qt::ShiftModifier);
        EXPECT_FALSE(text->textCursor().hasSelection());
        EXPECT_EQ(Caret(dialog), kThirdLine + 1);
        EXPECT_TRUE(dialog->isVisible());
    });
}

TEST_F(FatWindowTest, AClickOnAnyLineGoesToItsColumnInTheThird) {
    Edit([](QWidget* dialog) {
        for (int line = 0; line < 5; ++line) {
            ClickPlace(dialog, line * kLine + 30 + line);
            EXPECT_EQ(Caret(dialog), kThirdLine + 30 + line) << line;
        }
        Drag(Text(dialog)->viewport(), PlaceOf(Text(dialog), 10), PlaceOf(Text(dialog), 60));
        EXPECT_EQ(Caret(dialog), kThirdLine + 60);
        EXPECT_FALSE(Text(dialog)->textCursor().hasSelection());
        QTest::keyClick(Text(dialog), Qt::Key_0);
        EXPECT_EQ(Line(dialog, 3)[60], '0');
    });
}

TEST_F(FatWindowTest, TypingFarToTheRightKeepsTheViewThere) {
    Edit([](QWidget* dialog) {
        QPlainTextEdit* text = Text(dialog);
        QTest::keyClick(text, Qt::Key_End);
        const int place = text->horizontalScrollBar()->value();
        EXPECT_GT(place, 0);
        PressKeys(text, {Qt::Key_Left, Qt::Key_Left, Qt::Key_0});
        EXPECT_EQ(text->horizontalScrollBar()->value(), place);
    });
}

TEST_F(FatWindowTest, CopyTakesTheFourthLine) {
    Edit([](QWidget* dialog) {
        Click(Button(dialog, "cmdCopiar"));
        EXPECT_EQ(Line(dialog, 3), Line(dialog, 4));
        Click(Button(dialog, "cmdOK"));
    });
    EXPECT_EQ(Disk.FatBytes.substr(0, 90), Disk.FatComputed.substr(0, 90));
}

TEST_F(FatWindowTest, CancelEscapeAndTheTabKeyWork) {
    Edit([](QWidget* dialog) {
        QTest::keyClick(Text(dialog), Qt::Key_0);
        QTest::keyClick(Text(dialog), Qt::Key_Tab);
        EXPECT_EQ(dialog->focusWidget(), Button(dialog, "cmdCopiar"));
        Click(Button(dialog, "cmdCancel"));
        EXPECT_FALSE(dialog->isVisible());
    });
    EXPECT_EQ(Disk.FatBytes[0], '\xFF');
    {
        const WhenOpen again(Box::Dialog, [](QWidget* dialog) {
            EXPECT_EQ(Line(dialog, 3)[0], '1');
            QTest::keyClick(Text(dialog), Qt::Key_0);
            QTest::keyClick(Text(dialog), Qt::Key_Escape);
            EXPECT_FALSE(dialog->isVisible());
        });
        Click(Find<QPushButton>("EditBat"));
    }
    EXPECT_EQ(Disk.FatBytes[0], '\xFF');
}

TEST_F(FatWindowTest, WhileItIsOpenNoOtherDiskCanBeOpened) {
    // Through the window system, which holds back what a modal window is in front of.
    const auto clickOther = [this] {
        const auto found = Files()->findItems(QStringLiteral("OTHER.DSK"), Qt::MatchExactly);
        const QPoint place = Files()->visualItemRect(found.front()).center();
        QTest::mouseClick(Window_.Widget->windowHandle(), Qt::LeftButton, Qt::NoModifier,
                          Files()->viewport()->mapTo(Window_.Widget.get(), place));
    };
    Edit([&](QWidget* dialog) {
        EXPECT_EQ(QApplication::activeModalWidget(), dialog);
        clickOther();
        EXPECT_TRUE(dialog->isVisible());
    });
    EXPECT_EQ(PrincipalControl("PathDsk").Text, PcFolder + "/WRONG.DSK");
    clickOther();
    EXPECT_EQ(PrincipalControl("PathDsk").Text, PcFolder + "/OTHER.DSK");
}

TEST_F(FatWindowTest, OnADecbDiskItIsEmptyAndOkEndsTheProgramByTheErrorBox) {
    ClickFile("COCO.DSK");
    std::string text = "none";
    std::string message;
    std::unique_ptr<WhenOpen> failure;
    const WhenOpen editor(Box::Dialog, [&](QWidget* dialog) {
        text = Text(dialog)->toPlainText().toStdString();
        PressKeys(Text(dialog), {Qt::Key_1, Qt::Key_Right, Qt::Key_0});
        QTest::mouseClick(Text(dialog)->viewport(), Qt::LeftButton);
        failure = std::make_unique<WhenOpen>(Box::Dialog, [&](QWidget* box) {
            message = qobject_cast<QMessageBox*>(box)->text().toStdString();
            QTest::keyClick(box, Qt::Key_Return);
        });
        Click(Button(dialog, "cmdOK"));
        qobject_cast<QDialog*>(dialog)->reject();
    });
    Click(Find<QPushButton>("EditBat"));
    EXPECT_EQ(text, "");
    EXPECT_EQ(message, "Run-time error '5':\n\nInvalid procedure call or argument");
    EXPECT_EQ(ExitCode, 1);
    EXPECT_EQ(Disk.FatBytes, std::string(68, '\0'));
    EXPECT_EQ(FileBytes(PcFolder + "/COCO.DSK"), Disk.ImageOnOpen);
}

TEST(CaretPlaces, ALineBreakIsTwoBytesAndOneCharacter) {
    const std::string text = "ab\r\ncd\r\n\r\ne";
    const std::vector<std::pair<int, int>> places = {{0, 0}, {2, 2},  {4, 3}, {6, 5},
                                                     {8, 6}, {10, 7}, {11, 8}};
    for (const auto& [bytes, characters] : places) {
        EXPECT_EQ(PlaceInLines(text, bytes), characters) << bytes;
        EXPECT_EQ(PlaceInBytes(text, characters), bytes) << characters;
    }
    EXPECT_EQ(PlaceInLines(text, 3), 2);  // within the break
    EXPECT_EQ(PlaceInLines(text, 99), 8);
    EXPECT_EQ(PlaceInLines(text, -1), 0);
    EXPECT_EQ(PlaceInBytes(text, 99), 11);
    EXPECT_EQ(PlaceInBytes("", 4), 0);
}

}  // namespace
}  // namespace brindlemoor::test
