#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QLineEdit>
#include <QMessageBox>
#include <QTest>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "core/disk_state.h"
#include "core/platform.h"
#include "platform/qt/shell.h"
#include "support/decb_builder.h"
#include "support/disk_fixture.h"
#include "user_actions.h"
#include "window_fixture.h"
#include "workbench/archivos.h"
#include "workbench/pc_pane.h"
#include "workbench/principal.h"

namespace brindlemoor::test {
namespace {

namespace fs = std::filesystem;

using Texts = std::vector<std::string>;

// `10 CLS` and `20 A`, byte by byte, for a Color Computer.
const std::string kTokens("\xFF\x00\x0E\x26\x07\x00\x0A\x9E\x00\x26\x0D\x00\x14\x41\x00\x00\x00",
                          17);
const std::string kText = "\r10 CLS\r20 A\r";

/// A disk with two programs and a text, and a folder with two files: what every entry of both menus
/// does to the program and its disk, by mouse alone.
class FileCommandsWindowTest : public WindowTest {
  protected:
    void SetUp() override {
        WindowTest::SetUp();
        DecbBuilder disk;
        disk.File(0, "PROG    ", "BAS", 0, 0, {5}, kTokens);
        disk.File(1, "NOTE    ", "TXT", 3, 255, {6}, "a\rb\r");
        WriteTestFile(PcFolder, "COCO.DSK", disk.Image());
        WriteTestFile(PcFolder, "NEW.BAS", kTokens);
        for (const char* name :
             {"BRINDLEMOOR_EDITOR", "BRINDLEMOOR_HEXEDITOR", "BRINDLEMOOR_PAINT"}) {
            SetVariable(name, "");
        }
        Platform.HasProgram = [](const std::string&) { return true; };
        Platform.StartProgram = [this](const std::string& program, const Texts& arguments) {
            started_.push_back(program);
            started_.insert(started_.end(), arguments.begin(), arguments.end());
            return true;
        };
        UserAction(RefreshPcFiles);
        ClickFile("COCO.DSK");
    }

    /// Opens the popup on the entry that is selected, and clicks the items at those places: of
    /// `PopMenu`, and of `ConvMenu` below it.
    void Choose(QAbstractItemView* list, int row, int item, int conversion = -1) {
        const WhenOpen menu(Box::Menu, [item, conversion](QWidget* box) {
            QAction* chosen = box->actions().at(item);
            QMenu* below = ClickItem(box, ItemText(chosen));
            if (conversion < 0) return;
            ASSERT_NE(below, nullptr);
            ClickItem(below, ItemText(below->actions().at(conversion)));
        });
        const QRect place = list->visualRect(list->model()->index(row, 0));
        QTest::mouseClick(list->viewport(), Qt::RightButton, Qt::NoModifier, place.center());
        QApplication::processEvents();
    }

    void OnFile(const std::string& name, int item, int conversion = -1) {
        ClickFile(name);
        int row = 0;
        while (Files()->item(row)->text().toStdString() != name) ++row;
        Choose(Files(), row, item, conversion);
    }

    void OnRow(int row, int item, int conversion = -1) {
        ClickCell(Directory(), row, 0);
        Choose(Directory(), row, item, conversion);
    }

    /// Presses a button of a box, whose text holds `text`.
    static void Press(QWidget* box, QMessageBox::StandardButton button, const std::string& text) {
        auto* message = qobject_cast<QMessageBox*>(box);
        ASSERT_NE(message, nullptr);
        EXPECT_NE(message->text().toStdString().find(text), std::string::npos)
            << message->text().toStdString();
        QTest::mouseClick(message->button(button), Qt::LeftButton);
    }

    std::string PcFile(const std::string& name) const {
        const std::string path = PcFolder + "/" + name;
        return fs::exists(path) ? FileBytes(path) : "(none)";
    }

    Texts started_;
};

// The menu of `File1`

TEST_F(FileCommandsWindowTest, ViewShowsAFileOfThePc) {
    OnFile("NOTE.TXT", 0);
    EXPECT_EQ(Archivos.Caption, PcFolder + "/NOTE.TXT");
    EXPECT_EQ(ArchivosBytes, "a text");
}

TEST_F(FileCommandsWindowTest, TheThreeProgramsStartOnAFileOfThePc) {
    for (const int item : {1, 2, 3}) OnFile("NEW.BAS", item);
    ASSERT_EQ(started_.size(), 6U);
    EXPECT_EQ(started_[0], "gnome-text-editor");
    EXPECT_EQ(started_[2], "okteta");
    EXPECT_EQ(started_[4], "kolourpaint");
    for (const std::size_t argument : {1U, 3U, 5U}) {
        EXPECT_EQ(started_[argument], PcFolder + "/NEW.BAS");
    }
}

TEST_F(FileCommandsWindowTest, SavePutsAFileOfThePcIntoTheDisk) {
    OnFile("NEW.BAS", 6);
    EXPECT_EQ(DirTable[2].FullName, "NEW.BAS");
    EXPECT_EQ(DirTable[2].Content, kTokens);
    EXPECT_EQ(Directory()->model()->rowCount(), 3);
    EXPECT_TRUE(Find<QWidget>("UndoBtn")->isEnabled());
}

TEST_F(FileCommandsWindowTest, DeleteAsksAndDeletesAFileOfThePc) {
    {
        const WhenOpen box(Box::Dialog,
                           [](QWidget* open) { Press(open, QMessageBox::Cancel, "NEW.BAS"); });
        OnFile("NEW.BAS", 7);
    }
    EXPECT_EQ(PcFile("NEW.BAS"), kTokens);
    const WhenOpen box(Box::Dialog, [](QWidget* open) { Press(open, QMessageBox::Ok, "NEW.BAS"); });
    OnFile("NEW.BAS", 7);
    EXPECT_EQ(PcFile("NEW.BAS"), "(none)");
    for (int row = 0; row < Files()->count(); ++row) {
        EXPECT_NE(Files()->item(row)->text().toStdString(), "NEW.BAS");
    }
}

TEST_F(FileCommandsWindowTest, TheConversionsOfAFileOfThePcActByTheirPlaces) {
    for (const int place : {0, 6}) {
        WriteTestFile(PcFolder, "NEW.BAS", kTokens);
        OnFile("NEW.BAS", 5, place);
        EXPECT_EQ(PcFile("NEW.BAS"), kText) << place;
    }
    WriteTestFile(PcFolder, "NEW.BAS", kTokens);
    OnFile("NEW.BAS", 5, 1);
    EXPECT_EQ(PcFile("NEW.BAS"), kTokens);
    OnFile("NEW.BAS", 5, 3);
    EXPECT_EQ(PcFile("NEW.").substr(0, 5), "UUUUU");
    EXPECT_EQ(Files()->item(1)->text().toStdString(), "NEW.");
    for (const int place : {8, 10}) OnFile("NEW.BAS", 5, place);
    EXPECT_EQ(PcFile("NEW.BAS"), kTokens);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(FileCommandsWindowTest, AFileThatIsNoTapeIsToldByTheSoundsEntry) {
    const WhenOpen box(Box::Dialog, [](QWidget* open) {
        Press(open, QMessageBox::Ok, "El Archivo de entrada debe ser CAS o WAV");
    });
    OnFile("NEW.BAS", 5, 4);
    EXPECT_TRUE(box.Came());
}

TEST_F(FileCommandsWindowTest, ACartridgeIsMadeByTheEntryBehindIt) {
    WriteTestFile(PcFolder, "ROM.CCC", "rom");
    UserAction(RefreshPcFiles);
    OnFile("ROM.CCC", 5, 5);
    EXPECT_EQ(PcFile("ROM.PAK").size(), 42U);
}

// The menu of `ListDirec`

TEST_F(FileCommandsWindowTest, ViewShowsAFileOfTheDisk) {
    OnRow(1, 0);
    EXPECT_EQ(Archivos.Caption, PcFolder + "/NOTE.TXT");
    EXPECT_EQ(ArchivosBytes, "a\rb\r");
}

TEST_F(FileCommandsWindowTest, EditAsksStartsTheEditorAndWaits) {
    std::unique_ptr<WhenOpen> waiting;
    const WhenOpen question(Box::Dialog, [&](QWidget* open) {
        waiting = std::make_unique<WhenOpen>(Box::Dialog, [this](QWidget* next) {
            EXPECT_EQ(started_.size(), 2U);
            EXPECT_TRUE(fs::exists(PcFolder + "/PROG.BAS.TMP"));
            Press(next, QMessageBox::Ok, "Press OK when you are done editing the file");
        });
        Press(open, QMessageBox::No, "Would you like to convert the file to ASCII first?");
    });
    OnRow(0, 1);
    EXPECT_FALSE(fs::exists(PcFolder + "/PROG.BAS.TMP"));
}

TEST_F(FileCommandsWindowTest, EditHexAndPaintStartTheirPrograms) {
    {
        const WhenOpen box(Box::Dialog,
                           [](QWidget* open) { Press(open, QMessageBox::Ok, "Press OK"); });
        OnRow(1, 2);
    }
    EXPECT_EQ(started_, (Texts{"okteta", PcFolder + "/NOTE.TXT.TMP"}));
    started_.clear();
    {
        const WhenOpen box(Box::Dialog, [this](QWidget* open) {
            EXPECT_EQ(FileBytes(PcFolder + "/NOTE.TMP").substr(0, 2), "BM");
            Press(open, QMessageBox::Ok, "Press OK");
        });
        OnRow(1, 3);
    }
    EXPECT_EQ(started_, (Texts{"kolourpaint", PcFolder + "/NOTE.TMP"}));
    EXPECT_EQ(DirTable[2].FullName, "NOTE.TMP");
    EXPECT_FALSE(fs::exists(PcFolder + "/NOTE.TMP"));
}

TEST_F(FileCommandsWindowTest, SavePutsAFileOfTheDiskIntoTheFolder) {
    OnRow(0, 6);
    EXPECT_EQ(PcFile("PROG.BAS"), kTokens);
    bool listed = false;
    for (int row = 0; row < Files()->count(); ++row) {
        listed = listed || Files()->item(row)->text() == QStringLiteral("PROG.BAS");
    }
    EXPECT_TRUE(listed);
}

TEST_F(FileCommandsWindowTest, SaveAsksBeforeItOverwrites) {
    const WhenOpen box(Box::Dialog, [this](QWidget* open) {
        auto* line = open->findChild<QLineEdit*>();
        ASSERT_NE(line, nullptr);
        EXPECT_EQ(line->text().toStdString(), PcFolder + "/NOTE.TXT");
        QTest::keyClick(line, Qt::Key_Return);
    });
    OnRow(1, 6);
    EXPECT_EQ(PcFile("NOTE.TXT"), "a\rb\r");
}

TEST_F(FileCommandsWindowTest, DeleteAsksAndDeletesAFileOfTheDisk) {
    const WhenOpen box(Box::Dialog,
                       [](QWidget* open) { Press(open, QMessageBox::Ok, "PROG.BAS"); });
    OnRow(0, 7);
    EXPECT_EQ(Directory()->model()->rowCount(), 1);
}

TEST_F(FileCommandsWindowTest, OnTheDisksSideFourConversionsAct) {
    OnRow(0, 5, 4);
    EXPECT_EQ(DirTable[0].Content, kText);
    OnRow(0, 5, 3);
    EXPECT_EQ(DirTable[0].Content, kTokens);
    EXPECT_EQ(DirTable[0].FullName, "PROG.");
    for (const int place : {1, 5, 6, 8, 10}) OnRow(0, 5, place);
    EXPECT_EQ(Directory()->model()->rowCount(), 2);
    OnRow(0, 5, 0);
    EXPECT_EQ(Directory()->model()->rowCount(), 3);
}

}  // namespace
}  // namespace brindlemoor::test
