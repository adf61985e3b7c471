#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QTabBar>
#include <QTest>
#include <filesystem>
#include <memory>
#include <string>

#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "core/platform.h"
#include "core/settings.h"
#include "keyboard_fixture.h"
#include "platform/qt/detached_window.h"
#include "platform/qt/shell.h"
#include "support/disk_fixture.h"
#include "user_actions.h"
#include "workbench/archivos.h"
#include "workbench/audio_convert.h"
#include "workbench/principal.h"

namespace brindlemoor::test {
namespace {

class KeyboardUseTest : public KeyboardTest {
  protected:
    /// A text of a thousand lines, in the list of files.
    void GoToLongText() {
        std::string text;
        for (int line = 0; line < 1000; ++line) text += "line\r";
        WriteTestFile(PcFolder, "LONG.TXT", text);
        EndProgram();
        StartProgram();
        GoToFile("LONG.TXT");
    }
};

// The main window

TEST_F(KeyboardUseTest, F10OpensTheMenuAndArrowsAndEnterChooseInIt) {
    std::vector<int> clicked;
    MenuOf(Principal, "FilesMenu").Click = [&clicked](int index) { clicked.push_back(index); };
    GoTo(Files());
    Key(Qt::Key_F10);
    QWidget* menu = QApplication::activePopupWidget();
    ASSERT_NE(menu, nullptr);
    QTest::keyClick(menu, Qt::Key_Down);  // over the separator
    QTest::keyClick(menu, Qt::Key_Return);
    EXPECT_EQ(clicked, std::vector<int>{2});
}

TEST_F(KeyboardUseTest, TheBarShowsWhichMenuTheArrowsAreOn) {
    const auto pixels = [this](int place) {
        const QRect item = Bar()->actionGeometry(Bar()->actions().at(place));
        return Bar()->grab(item).toImage();
    };
    const QImage first = pixels(0);
    const QImage second = pixels(1);
    GoTo(Files());
    Key(Qt::Key_F10);
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
    ASSERT_TRUE(Bar()->hasFocus());
    EXPECT_NE(pixels(0), first);
    QTest::keyClick(Bar(), Qt::Key_Right);
    EXPECT_EQ(pixels(0), first);
    EXPECT_NE(pixels(1), second);
}

TEST_F(KeyboardUseTest, EscapeLeavesTheMenuForTheFieldThatHadTheFocus) {
    GoTo(Find<QLineEdit>("FilePath"));
    Key(Qt::Key_F10);
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    if (Bar()->hasFocus()) QTest::keyClick(Bar(), Qt::Key_Escape);
    EXPECT_EQ(Window_.Widget->focusWidget(), Find<QLineEdit>("FilePath"));
}

TEST_F(KeyboardUseTest, EveryItemOfEveryMenuHasALetterOfItsOwn) {
    const auto letters = [](const QWidget* menu) {
        QString found;
        for (const QAction* item : menu->actions()) {
            if (item->isSeparator()) continue;
            const QString key = QKeySequence::mnemonic(item->text()).toString().right(1);
            EXPECT_FALSE(key.isEmpty()) << ItemText(item);
            EXPECT_FALSE(found.contains(key)) << ItemText(item);
            found += key;
        }
    };
    for (const int language : {1, 0}) {
        letters(Bar());
        for (const QAction* top : Bar()->actions()) letters(top->menu());
        ChooseByKeys({1, 0, language});
    }
}

TEST_F(KeyboardUseTest, AFolderAFileAndARowAreChosenByKeys) {
    GoToFile("COCO.DSK");
    EXPECT_EQ(Disk.DirRows, 4);
    GoToCell(2, 0);
    EXPECT_EQ(ListDirec.SelectedRow, 4);  // a deleted one is hidden before it
    auto* drives = Find<QComboBox>("Drive1");
    GoTo(drives);
    Key(Qt::Key_Down, Qt::AltModifier);
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    QTest::keyClick(QApplication::activePopupWidget()->focusWidget() != nullptr
                        ? QApplication::activePopupWidget()->focusWidget()
                        : QApplication::activePopupWidget(),
                    Qt::Key_Escape);
}

TEST_F(KeyboardUseTest, TheMapIsWalkedByArrows) {
    GoToFile("COCO.DSK");
    UserAction([] { SetText(PrincipalControl("Track"), "0"); });
    UserAction([] { SetText(PrincipalControl("Sector"), "1"); });
    GoTo(Find<QWidget>("TrackBlock"));
    Key(Qt::Key_Right);
    Key(Qt::Key_Down);
    EXPECT_EQ(Find<QLineEdit>("Track")->text().toStdString(), "10");
    EXPECT_EQ(Find<QLineEdit>("Sector")->text().toStdString(), "2");
}

TEST_F(KeyboardUseTest, TheCheckBoxesAreSwitchedBySpace) {
    GoToFile("COCO.DSK");
    auto* box = Find<QCheckBox>("VerBorrados");
    GoTo(box);
    Key(Qt::Key_Space);
    EXPECT_TRUE(box->isChecked());
    EXPECT_EQ(Cell(2, 1).substr(0, 1), "?");
}

TEST_F(KeyboardUseTest, TheViewerScrollsByKeys) {
    GoToLongText();
    GoTo(Find<QWidget>("Archivo"));
    Key(Qt::Key_Down);
    EXPECT_EQ(PrincipalControl("VScrollA").Value, 1);
    Key(Qt::Key_End);
    EXPECT_GT(PrincipalControl("VScrollA").Value, 1);
    EXPECT_EQ(PrincipalControl("VScrollA").Value, PrincipalControl("VScrollA").Maximum);
}

// The windows behind its menus

TEST_F(KeyboardUseTest, TheAboutBoxClosesByEnter) {
    InDialog(
        [this] {
            ChooseByKeys({2, 2});
        },
        [](QWidget* dialog) {
            KeyIn(dialog, Qt::Key_Return);
            EXPECT_FALSE(dialog->isVisible());
        });
}

TEST_F(KeyboardUseTest, ABlankDiskIsMadeByKeys) {
    std::unique_ptr<WhenOpen> file;
    InDialog(
        [this] {
            ChooseByKeys({0, 0});
        },
        [this, &file](QWidget* dialog) {
            GoTo(In<QRadioButton>(dialog, "VDiskF", 1));
            KeyIn(dialog, Qt::Key_Space);
            EXPECT_TRUE(In<QRadioButton>(dialog, "VDiskF", 1)->isChecked());
            auto* tracks = In<QComboBox>(dialog, "Tracks");
            GoTo(tracks);
            for (int step = 0; step < tracks->count(); ++step) KeyIn(dialog, Qt::Key_Down);
            EXPECT_EQ(tracks->currentText(), QStringLiteral("80"));
            file = std::make_unique<WhenOpen>(Box::Dialog, [this](QWidget* box) {
                EXPECT_TRUE(QTest::qWaitForWindowActive(box));
                TypeIn(box, PcFolder + "/BLANK");
                KeyIn(box, Qt::Key_Return);
            });
            KeyIn(dialog, Qt::Key_Return);
        });
    ASSERT_NE(file, nullptr);
    EXPECT_TRUE(file->Came());
    EXPECT_EQ(std::filesystem::file_size(PcFolder + "/BLANK.VDK"), 80U * 18 * 256 + 16);
}

TEST_F(KeyboardUseTest, TheHeaderIsEditedByKeys) {
    GoToFile("COCO.DSK");
    UserAction([] { Disk.ImageHeader = std::string("dk\x0C\0\0\0\0\0\x28\1\0\0", 12); });
    InDialog(
        [this] {
            ChooseByKeys({1, 2});
        },
        [](QWidget* dialog) {
            GoTo(In<QComboBox>(dialog, "Tracks"));
            TypeIn(dialog, "80");
            GoTo(In<QCheckBox>(dialog, "Check", 0));
            KeyIn(dialog, Qt::Key_Space);
            KeyIn(dialog, Qt::Key_Return);
            EXPECT_FALSE(dialog->isVisible());
        });
    EXPECT_EQ(Disk.ImageHeader[8], 80);
    EXPECT_EQ(Disk.ImageHeader[10] & 1, 1);
}

TEST_F(KeyboardUseTest, TheSoundSettingsAreStoredByKeys) {
    InDialog(
        [this] {
            ChooseByKeys({1, 4});
        },
        [](QWidget* dialog) {
            GoTo(In<QComboBox>(dialog, "SampleRate"));
            TypeIn(dialog, "22050");
            auto* volume = In<QSlider>(dialog, "Volumen");
            GoTo(volume);
            const int before = volume->value();
            KeyIn(dialog, Qt::Key_Right);
            EXPECT_EQ(volume->value(), before + 1);
            KeyIn(dialog, Qt::Key_Return);
            EXPECT_FALSE(dialog->isVisible());
        });
    EXPECT_EQ(Stored("SampleRate"), "22050");
}

TEST_F(KeyboardUseTest, AColourIsChosenByKeys) {
    GoToFile("COCO.DSK");
    InDialog(
        [this] {
            ChooseByKeys({1, 1});
        },
        [](QWidget* dialog) {
            GoTo(In<QPushButton>(dialog, "BtnColores", 1));
            InDialog([dialog] { KeyIn(dialog, Qt::Key_Space); },
                     [](QWidget* chooser) { KeyIn(chooser, Qt::Key_Return); });
            EXPECT_EQ(In<QLineEdit>(dialog, "Color", 1)->text().toStdString(), "13158655");
            GoTo(In<QPushButton>(dialog, "Normal"));
            KeyIn(dialog, Qt::Key_Return);
            EXPECT_TRUE(dialog->isVisible());
        });
}

TEST_F(KeyboardUseTest, TheSpareOptionsCloseByTheirCancelButton) {
    InDialog(
        [this] {
            ChooseByKeys({1, 5});
        },
        [](QWidget* dialog) {
            GoTo(In<QPushButton>(dialog, "cmdCancel"));
            KeyIn(dialog, Qt::Key_Space);
            EXPECT_FALSE(dialog->isVisible());
        });
}

TEST_F(KeyboardUseTest, TheOs9SectorIsLeftByEscapeUnchanged) {
    GoToFile("COCO.DSK");
    const std::string image = Disk.ImageBytes;
    InDialog(
        [this] {
            ChooseByKeys({1, 3});
        },
        [](QWidget* dialog) {
            GoTo(In<QLineEdit>(dialog, "Text", 6));
            TypeIn(dialog, "8");
            EXPECT_TRUE(In<QCheckBox>(dialog, "Att", 3)->isChecked());
            GoTo(In<QCheckBox>(dialog, "Att", 3));
            KeyIn(dialog, Qt::Key_Space);
            EXPECT_EQ(In<QLineEdit>(dialog, "Text", 6)->text().toStdString(), "0");
        });
    EXPECT_EQ(Disk.ImageBytes, image);
}

TEST_F(KeyboardUseTest, ABitOfTheBitmapIsChangedByKeys) {
    const auto change = [](QWidget* editor) {
        auto* text = In<QPlainTextEdit>(editor, "Text");
        ASSERT_TRUE(QTest::qWaitFor([&] { return editor->focusWidget() == text; }));
        KeyIn(editor, Qt::Key_Right);
        const char bit = (ByteAt(Disk.FatBytes, 0) & 2) != 0 ? '0' : '1';
        QTest::keyClick(text, bit);
        GoTo(In<QPushButton>(editor, "cmdOK"));
        KeyIn(editor, Qt::Key_Space);
        EXPECT_FALSE(editor->isVisible());
    };
    std::unique_ptr<WhenOpen> editor;
    int before = -1;
    const WhenOpen question(Box::Dialog, [&](QWidget* box) {
        before = ByteAt(Disk.FatBytes, 0);
        editor = std::make_unique<WhenOpen>(Box::Dialog, change);
        KeyIn(box, Qt::Key_Return);
    });
    GoToFile("WRONG.DSK");
    ASSERT_TRUE(question.Came());
    EXPECT_EQ(ByteAt(Disk.FatBytes, 0), before ^ 2);
}

TEST_F(KeyboardUseTest, AFileIsShownInAWindowOfItsOwnAndEscapeClosesThat) {
    GoToLongText();
    const WhenOpen popup(Box::Menu, [](QWidget*) { ChooseInPopup(0); });
    Key(Qt::Key_Menu);
    QWidget* viewer = DetachedWindow("Archivos");
    ASSERT_NE(viewer, nullptr);
    ASSERT_TRUE(QTest::qWaitForWindowActive(viewer));
    GoTo(viewer->findChild<QWidget*>(QStringLiteral("Archivo0")));
    KeyIn(viewer, Qt::Key_End);
    const Control& rows = ControlOf(Archivos, "VScrollA");
    EXPECT_GT(rows.Maximum, 0);
    EXPECT_EQ(rows.Value, rows.Maximum);
    const QPointer<QWidget> there(viewer);
    KeyIn(viewer, Qt::Key_Escape);
    EXPECT_TRUE(there.isNull() || !there->isVisible());
    EXPECT_TRUE(QTest::qWaitForWindowActive(Window_.Widget.get()));
}

// The boxes

TEST_F(KeyboardUseTest, ADiskIsOpenedByItsTypedPath) {
    InDialog(
        [this] {
            ChooseByKeys({0, 2});
        },
        [this](QWidget* dialog) {
            TypeIn(dialog, PcFolder + "/OTHER.DSK");
            KeyIn(dialog, Qt::Key_Return);
            EXPECT_FALSE(dialog->isVisible());
        });
    EXPECT_EQ(Cell(0, 1), "SINGLE  ");
}

TEST_F(KeyboardUseTest, MessagesAndQuestionsAreAnsweredByKeys) {
    Answer answer = Answer::Ok;
    const auto ask = [&answer] {
        answer = Platform.ShowMessage("?", "", Buttons::YesNoCancel, MessageIcon::Question);
    };
    InDialog([&] { UserAction(ask); },
             [](QWidget* box) {
                 QTest::keyClick(box, Qt::Key_N, Qt::AltModifier);
                 EXPECT_TRUE(QTest::qWaitFor([box] { return !box->isVisible(); }));
             });
    EXPECT_EQ(answer, Answer::No);
    InDialog([&] { UserAction(ask); }, [](QWidget* box) { KeyIn(box, Qt::Key_Escape); });
    EXPECT_EQ(answer, Answer::Cancel);
    std::string text;
    InDialog([&] { UserAction([&] { text = Platform.AskText("?", "", "OLD"); }); },
             [](QWidget* box) {
                 TypeIn(box, "NEW");
                 KeyIn(box, Qt::Key_Return);
             });
    EXPECT_EQ(text, "NEW");
}

}  // namespace
}  // namespace brindlemoor::test
