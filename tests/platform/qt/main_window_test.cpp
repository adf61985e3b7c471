#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <filesystem>
#include <string>

#include "core/runtime_failure.h"
#include "core/settings.h"
#include "platform/qt/demonstration.h"
#include "platform/qt/shell.h"
#include "user_actions.h"
#include "window_fixture.h"
#include "workbench/principal.h"

namespace brindlemoor::test {
namespace {

TEST_F(WindowTest, ClosingRemembersTheDiskAndTheNextStartOpensIt) {
    ClickFile("OTHER.DSK");
    Window_.Widget->close();
    EXPECT_EQ(ExitCode, 0);
    EXPECT_EQ(Stored("ArchivoActual"), PcFolder + "/OTHER.DSK");
    EndProgram();
    std::filesystem::current_path(Base);  // not where the disk lies
    StartProgram();
    ASSERT_EQ(Directory()->model()->rowCount(), 1);
    EXPECT_EQ(Cell(0, 1), "SINGLE  ");
    EXPECT_EQ(Find<QLineEdit>("FilePath")->text().toStdString(), PcFolder + "/OTHER.DSK");
    EXPECT_EQ(Files()->currentItem()->text().toStdString(), "OTHER.DSK");
}

TEST_F(WindowTest, ItsTitleNamesProgramAndVersion) {
    EXPECT_EQ(Window_.Widget->windowTitle().toStdString(),
              "Brindlemoor Version: " + ProgramVersion());
    EXPECT_FALSE(Window_.Widget->windowIcon().isNull());
}

TEST_F(WindowTest, ANewSizeLaysTheControlsOutAnew) {
    Window_.Widget->resize(1100, 760);
    QApplication::processEvents();
    const QSize inner = Window_.Widget->centralWidget()->size();
    EXPECT_EQ(inner.width(), 1100);
    EXPECT_EQ(Principal.Width, 1100 * kTwipsPerPixel);
    EXPECT_EQ(Principal.Height, inner.height() * kTwipsPerPixel);
    EXPECT_EQ(Directory()->width(), 1100 - 4500 / kTwipsPerPixel);
    EXPECT_EQ(Find<QLabel>("Info")->y(), inner.height() - 300 / kTwipsPerPixel);
}

TEST_F(WindowTest, ARecordThatGrowsTakesTheWindowWithIt) {
    const int before = Window_.Widget->centralWidget()->height();
    UserAction([] { Principal.Height -= 60 * kTwipsPerPixel; });
    EXPECT_TRUE(
        QTest::qWaitFor([&] { return Window_.Widget->centralWidget()->height() == before - 60; }));
    EXPECT_EQ(Principal.Height, (before - 60) * kTwipsPerPixel);
}

TEST_F(WindowTest, NothingIsCutOffAtTheLeastSize) {
    Window_.Widget->resize(Window_.Widget->minimumSize());
    QApplication::processEvents();
    EXPECT_EQ(Window_.Widget->size(), QSize(1000, 700));
    for (const ControlWidget& control : Window_.Controls->Controls) {
        if (control.Widget == nullptr || !control.Widget->isVisible()) continue;
        if (control.Widget->size().isEmpty()) continue;  // a spare label
        const QRect room = control.Widget->parentWidget()->rect();
        EXPECT_TRUE(room.contains(control.Widget->geometry()))
            << control.Widget->objectName().toStdString();
    }
}

TEST_F(WindowTest, AFailureThatNobodyShapesShowsTheErrorBoxAndEndsTheProgram) {
    QString shown;
    {
        const WhenOpen box(Box::Dialog, [&shown](QWidget* open) {
            for (const QLabel* label : open->findChildren<QLabel*>()) shown += label->text();
            QTest::keyClick(open, Qt::Key_Escape);
        });
        UserAction([] { Fail(kIndexRange); });
    }
    EXPECT_EQ(shown.toStdString(), "Run-time error '9':\n\nSubscript out of range");
    EXPECT_EQ(ExitCode, 1);
    bool ran = false;
    UserAction([&ran] { ran = true; });
    EXPECT_FALSE(ran);
}

TEST_F(WindowTest, ADemonstrationOpensTheDiskAndLeavesAPicture) {
    const std::string picture = Base + "/picture.png";
    SetVariable("BRINDLEMOOR_FOLDER", PcFolder);
    SetVariable("BRINDLEMOOR_OPEN", "COCO.DSK");
    SetVariable("BRINDLEMOOR_SCREENSHOT", picture);
    Window_.Widget->hide();
    PrepareDemonstration(Window_);
    Window_.Widget->show();
    EXPECT_TRUE(QTest::qWaitFor([this] { return ExitCode >= 0; }));
    SetVariable("BRINDLEMOOR_FOLDER", "");
    SetVariable("BRINDLEMOOR_OPEN", "");
    SetVariable("BRINDLEMOOR_SCREENSHOT", "");
    EXPECT_EQ(ExitCode, 0);
    EXPECT_EQ(Cell(0, 1), "ALPHA   ");
    QImage saved(QString::fromStdString(picture));
    EXPECT_EQ(saved.size(), Window_.Widget->size());
}

}  // namespace
}  // namespace brindlemoor::test
