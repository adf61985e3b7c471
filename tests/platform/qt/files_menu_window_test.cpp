#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QFileDialog>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <memory>
#include <string>

#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "image/modified_state.h"
#include "platform/qt/file_dialog_box.h"
#include "platform/qt/shell.h"
#include "support/disk_fixture.h"
#include "user_actions.h"
#include "window_fixture.h"
#include "workbench/new_disk.h"
#include "workbench/principal.h"

namespace brindlemoor::test {
namespace {

class FilesWindowTest : public WindowTest {
  protected:
    /// Types a path into the file dialog and accepts it.
    static void Choose(QWidget* box, const std::string& path) {
        auto* dialog = qobject_cast<QFileDialog*>(box);
        ASSERT_NE(dialog, nullptr);
        auto* name = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        ASSERT_NE(name, nullptr);
        name->setText(QString::fromStdString(path));
        QTest::keyClick(name, Qt::Key_Return);
    }

    void PickFromFilesMenu(const std::string& item) const {
        QMenu* files = ClickItem(Bar(), "Files");
        ClickItem(files, item);
    }

    std::string Path(const std::string& name) const { return JoinPath(PcFolder, name); }
};

TEST_F(FilesWindowTest, OpenShowsTheFileDialogAndOpensTheFile) {
    const WhenOpen box(Box::Dialog, [this](QWidget* dialog) { Choose(dialog, Path("OTHER.DSK")); });
    PickFromFilesMenu("Open");
    EXPECT_TRUE(box.Came());
    EXPECT_EQ(Directory()->model()->rowCount(), 1);
    EXPECT_EQ(PrincipalControl("PathDsk").Text, Path("OTHER.DSK"));
}

TEST_F(FilesWindowTest, EscapeInTheFileDialogChangesNothing) {
    ClickFile("COCO.DSK");
    const WhenOpen box(Box::Dialog,
                       [](QWidget* dialog) { QTest::keyClick(dialog, Qt::Key_Escape); });
    PickFromFilesMenu("Open");
    EXPECT_TRUE(box.Came());
    EXPECT_EQ(PrincipalControl("PathDsk").Text, Path("COCO.DSK"));
}

TEST_F(FilesWindowTest, NewAsksForTheShapeAndTheFile) {
    std::unique_ptr<WhenOpen> second;
    const WhenOpen first(Box::Dialog, [this, &second](QWidget* dialog) {
        EXPECT_FALSE(In<QGroupBox>(dialog, "FrameDOS")->isEnabled());
        Press(In<QCheckBox>(dialog, "Format"));
        EXPECT_TRUE(In<QGroupBox>(dialog, "FrameDOS")->isEnabled());
        Press(In<QRadioButton>(dialog, "VDiskF", 1));
        EXPECT_TRUE(In<QRadioButton>(dialog, "DOS", 1)->isChecked());
        EXPECT_FALSE(In<QRadioButton>(dialog, "VDiskF", 0)->isChecked());
        EXPECT_TRUE(In<QCheckBox>(dialog, "Header")->isChecked());
        EXPECT_EQ(In<QComboBox>(dialog, "Tracks")->currentText(), "40");
        second = std::make_unique<WhenOpen>(
            Box::Dialog, [this](QWidget* files) { Choose(files, Path("BLANK")); });
        QTest::keyClick(dialog, Qt::Key_Return);
    });
    PickFromFilesMenu("New");
    EXPECT_TRUE(first.Came());
    ASSERT_NE(second, nullptr);
    EXPECT_TRUE(second->Came());
    EXPECT_EQ(FileBytes(Path("BLANK.VDK")).size(), 184336u);
    EXPECT_EQ(Disk.DiskFamily, kDragon);
}

TEST_F(FilesWindowTest, TheDialogKeepsItsValuesAndItsCancelGivesUp) {
    {
        const WhenOpen box(Box::Dialog, [](QWidget* dialog) {
            auto* interleave = In<QComboBox>(dialog, "Interleave");
            interleave->setFocus();
            QTest::keyClick(interleave, Qt::Key_Down);
            QTest::keyClick(dialog, Qt::Key_Escape);
        });
        PickFromFilesMenu("New");
        EXPECT_TRUE(box.Came());
        EXPECT_TRUE(NewDiskCancelled);
    }
    const WhenOpen box(Box::Dialog, [](QWidget* dialog) {
        EXPECT_EQ(In<QComboBox>(dialog, "Interleave")->currentText(), "7");
        Press(In<QPushButton>(dialog, "Cancelar"));
    });
    PickFromFilesMenu("New");
    EXPECT_TRUE(box.Came());
    EXPECT_TRUE(NewDiskCancelled);
}

TEST_F(FilesWindowTest, SaveAndUndoFollowTheModifiedState) {
    ClickFile("COCO.DSK");
    auto* undo = Find<QPushButton>("UndoBtn");
    EXPECT_FALSE(undo->isEnabled());
    UserAction([] {
        Disk.ImageBytes[9] = 'X';
        RefreshModified();
    });
    EXPECT_TRUE(undo->isEnabled());
    Press(undo);
    EXPECT_FALSE(undo->isEnabled());
    EXPECT_NE(Disk.ImageBytes[9], 'X');
    UserAction([] {
        Disk.ImageBytes[9] = 'X';
        RefreshModified();
    });
    QTest::keyClick(Window_.Widget.get(), Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(FileBytes(Path("COCO.DSK"))[9], 'X');
    EXPECT_FALSE(undo->isEnabled());
}

TEST_F(FilesWindowTest, TheSaveButtonWritesTheFile) {
    ClickFile("COCO.DSK");
    DirTable[0].Name = "RENAMED ";
    Press(Find<QPushButton>("SaveBtn"));
    EXPECT_EQ(FileBytes(Path("COCO.DSK")).substr(78848, 8), "RENAMED ");
    EXPECT_EQ(Cell(0, 1).substr(0, 7), "RENAMED");
}

TEST_F(FilesWindowTest, SaveAsAsksBeforeItOverwrites) {
    ClickFile("COCO.DSK");
    const std::string other = FileBytes(Path("OTHER.DSK"));
    std::unique_ptr<WhenOpen> question;
    const WhenOpen box(Box::Dialog, [this, &question](QWidget* dialog) {
        question = std::make_unique<WhenOpen>(Box::Dialog, [dialog](QWidget* asked) {
            EXPECT_NE(asked, dialog);
            QTest::keyClick(asked, Qt::Key_Escape);
            QTest::keyClick(dialog, Qt::Key_Escape);
        });
        Choose(dialog, Path("OTHER.DSK"));
    });
    PickFromFilesMenu("Save As...");
    EXPECT_TRUE(box.Came());
    EXPECT_EQ(FileBytes(Path("OTHER.DSK")), other);
}

TEST(NameFiltersTest, PatternsMatchInAnyCase) {
    EXPECT_EQ(NameFilters("Disks: *.DSK;*.v1|*.DSK;*.v1|All|*.*").join("\n").toStdString(),
              "Disks: *.DSK;*.v1 (*.[Dd][Ss][Kk] *.[Vv]1)\nAll (*)");
    EXPECT_TRUE(NameFilters("").isEmpty());
    EXPECT_EQ(NameFilters("Todos Los Archivos (*.*)|*.*")[0].toStdString(),
              "Todos Los Archivos [*.*] (*)");
    EXPECT_EQ(NameFilters("No pattern|")[0].toStdString(), "No pattern (*)");
}

}  // namespace
}  // namespace brindlemoor::test
