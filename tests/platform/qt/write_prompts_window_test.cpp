#include <gtest/gtest.h>

#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QTest>
#include <string>

#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "filesystems/delete_file.h"
#include "filesystems/write_file.h"
#include "platform/qt/shell.h"
#include "user_actions.h"
#include "window_fixture.h"
#include "workbench/principal.h"

namespace brindlemoor::test {
namespace {

/// The questions and messages of writing and deleting in their real boxes, over the disk of the
/// files ALPHA, BETA, a deleted one and GAMMA.
class WritePromptsTest : public WindowTest {
  protected:
    void SetUp() override {
        WindowTest::SetUp();
        ClickFile("COCO.DSK");
    }

    static void Write(const std::string& name, std::size_t size) {
        UserAction([&] {
            std::string data(size, 'd');
            WriteFileToDisk(name, false, data);
        });
    }

    static std::string TextOf(QWidget* box) {
        auto* message = qobject_cast<QMessageBox*>(box);
        return message == nullptr ? "no message box" : ToBytesOf(message->text());
    }

    static std::string ToBytesOf(const QString& text) { return text.toLatin1().toStdString(); }
};

TEST_F(WritePromptsTest, ANameThatIsThereAsksForAnother) {
    const WhenOpen box(Box::Dialog, [](QWidget* dialog) {
        auto* question = qobject_cast<QInputDialog*>(dialog);
        ASSERT_NE(question, nullptr);
        EXPECT_EQ(question->textValue(), "ALPHA.BAS");
        EXPECT_TRUE(question->labelText().contains(QStringLiteral("alpha.bas")));
        auto* line = question->findChild<QLineEdit*>();
        line->selectAll();
        QTest::keyClicks(line, "other.bas");
        QTest::keyClick(line, Qt::Key_Return);
    });
    Write("alpha.bas", 10);
    EXPECT_TRUE(box.Came());
    EXPECT_EQ(DirTable[2].FullName, "OTHER.BAS");  // the deleted row
    EXPECT_EQ(Directory()->model()->rowCount(), 4);
    EXPECT_TRUE(Find<QWidget>("UndoBtn")->isEnabled());
}

TEST_F(WritePromptsTest, GivingThatQuestionUpWritesNothing) {
    const std::string image = Disk.ImageBytes;
    const WhenOpen box(Box::Dialog,
                       [](QWidget* dialog) { QTest::keyClick(dialog, Qt::Key_Escape); });
    Write("alpha.bas", 10);
    EXPECT_TRUE(box.Came());
    EXPECT_EQ(Disk.ImageBytes, image);
}

TEST_F(WritePromptsTest, AFileThatDoesNotFitSaysWhy) {
    const WhenOpen box(Box::Dialog, [](QWidget* dialog) {
        EXPECT_NE(TextOf(dialog).find("BIG.DAT"), std::string::npos) << TextOf(dialog);
        QTest::keyClick(dialog, Qt::Key_Return);
    });
    Write("big.dat", 200000);
    EXPECT_TRUE(box.Came());
    EXPECT_EQ(Disk.DirRows, 4);
}

TEST_F(WritePromptsTest, DeletingAsksForTheFileByName) {
    ClickCell(Directory(), 1, 0);
    {
        const WhenOpen box(Box::Dialog, [](QWidget* dialog) {
            EXPECT_NE(TextOf(dialog).find("BETA.BIN"), std::string::npos) << TextOf(dialog);
            QTest::keyClick(dialog, Qt::Key_Escape);
        });
        UserAction(DeleteCommand);
        EXPECT_TRUE(box.Came());
        EXPECT_EQ(DirTable[1].Flags & kFlagDeleted, 0);
    }
    ClickCell(Directory(), 1, 0);
    const WhenOpen box(Box::Dialog,
                       [](QWidget* dialog) { QTest::keyClick(dialog, Qt::Key_Return); });
    UserAction(DeleteCommand);
    EXPECT_NE(DirTable[1].Flags & kFlagDeleted, 0);
    EXPECT_EQ(Directory()->model()->rowCount(), 2);
}

TEST_F(WritePromptsTest, DeletingSeveralAsksOnceByTheirNumber) {
    ClickCell(Directory(), 0, 0);
    ClickCell(Directory(), 2, 0, Qt::ControlModifier);
    const WhenOpen box(Box::Dialog, [](QWidget* dialog) {
        EXPECT_NE(TextOf(dialog).find("2 archivos"), std::string::npos) << TextOf(dialog);
        QTest::keyClick(dialog, Qt::Key_Return);
    });
    UserAction(DeleteCommand);
    EXPECT_EQ(Directory()->model()->rowCount(), 1);
    EXPECT_NE(DirTable[3].Flags & kFlagDeleted, 0);
}

}  // namespace
}  // namespace brindlemoor::test
