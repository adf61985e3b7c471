// The map and the sector view in the real window, with mouse and keys.

#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>

#include "core/disk_state.h"
#include "core/platform.h"
#include "platform/qt/shell.h"
#include "support/decb_builder.h"
#include "support/disk_fixture.h"
#include "support/dragon_builder.h"
#include "support/os9_builder.h"
#include "user_actions.h"
#include "window_fixture.h"
#include "workbench/map_picture.h"
#include "workbench/pc_pane.h"
#include "workbench/principal.h"

namespace brindlemoor::test {
namespace {

class SectorMapWindow : public WindowTest {
  protected:
    QWidget* Map() const { return Find<QWidget>("TrackBlock"); }
    QLineEdit* Field(const char* name) const { return Find<QLineEdit>(name); }

    /// What the fields for track and sector show.
    std::string Place() const {
        return (Field("Track")->text() + "/" + Field("Sector")->text()).toStdString();
    }

    /// A pixel of the map as a place of its widget.
    static QPoint At(int x, int y) { return {x + kPictureFrame, y + kPictureFrame}; }

    void Type(const char* name, const char* text) const {
        QLineEdit* field = Field(name);
        field->setFocus();
        QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(field, QString::fromLatin1(text));
    }

    /// Puts a further file into the pane's folder and opens it.
    void Open(const std::string& name, const std::string& image) const {
        WriteTestFile(PcFolder, name, image);
        UserAction([] { RefreshPcFiles(); });
        ClickFile(name);
    }

    /// A disk of 160 tracks, which needs more room than the lowest window has.
    static std::string HighDisk() { return Os9Builder(160 * 18).Image(); }
};

TEST_F(SectorMapWindow, OpeningADiskShowsItsMapAndItsDirectory) {
    ClickFile("COCO.DSK");
    EXPECT_EQ(Place(), "17/3");
    EXPECT_EQ(Field("Granulo")->text(), QStringLiteral("DIR"));
    EXPECT_EQ(Find<QLabel>("Label11")->text(), QStringLiteral("Track 0-9\n10-19\n20-29\n30-34\n"));
    EXPECT_TRUE(Find<QPlainTextEdit>("EditFAT")->toPlainText().startsWith(
        QStringLiteral("255 255 255 255 255 255 255 255 255 255 194 195 ")));
    const QImage shown = Map()->grab().toImage();
    EXPECT_EQ(shown.pixelColor(At(5, 5)), QColor(100, 200, 100));
    EXPECT_EQ(shown.pixelColor(At(5 * 19 + 3, 5)), QColor(150, 255, 255));
    EXPECT_EQ(shown.pixelColor(At(0, 5)), QColor(Qt::black));
}

TEST_F(SectorMapWindow, APressAndADragChooseSectors) {
    ClickFile("COCO.DSK");
    QTest::mousePress(Map(), Qt::LeftButton, Qt::NoModifier, At(20, 13));
    EXPECT_EQ(Place(), "11/2");
    QTest::mouseRelease(Map(), Qt::LeftButton, Qt::NoModifier, At(20, 13));
    Drag(Map(), At(5, 5), At(40, 30));
    EXPECT_EQ(Place(), "22/3");
    EXPECT_EQ(Find<QScrollBar>("HScroll1")->value(), 22);
    EXPECT_EQ(Find<QScrollBar>("VScroll1")->value(), 3);
    QTest::mousePress(Map(), Qt::RightButton, Qt::NoModifier, At(0, 0));
    EXPECT_EQ(Place(), "0/1");
    QTest::mouseRelease(Map(), Qt::RightButton, Qt::NoModifier, At(0, 0));
}

TEST_F(SectorMapWindow, TheMarkMovesOnTheScreenAndLeavesNoTrace) {
    ClickFile("COCO.DSK");
    QTest::mouseClick(Map(), Qt::LeftButton, Qt::NoModifier, At(3, 5));
    EXPECT_EQ(Map()->grab().toImage().pixelColor(At(4, 5)), QColor(Qt::white));
    QTest::mouseClick(Map(), Qt::LeftButton, Qt::NoModifier, At(100, 5));
    EXPECT_EQ(Map()->grab().toImage().pixelColor(At(4, 5)), QColor(100, 200, 100));
}

TEST_F(SectorMapWindow, MovingWithoutAButtonSetsTheTipOnly) {
    ClickFile("COCO.DSK");
    QTest::mouseMove(Map(), At(5 * 19 + 3, 5));
    EXPECT_EQ(Map()->toolTip(), QStringLiteral("Archivo actual"));
    QTest::mouseMove(Map(), At(5, 5));
    EXPECT_EQ(Map()->toolTip(), QStringLiteral("Sectores Libres"));
    EXPECT_EQ(Place(), "17/3");
}

TEST_F(SectorMapWindow, TheArrowsMoveTheMarkAndTheMapKeepsTheFocus) {
    ClickFile("COCO.DSK");
    QTest::mouseClick(Map(), Qt::LeftButton, Qt::NoModifier, At(20, 13));
    EXPECT_TRUE(Map()->hasFocus());
    QTest::keyClick(Map(), Qt::Key_Right);
    EXPECT_EQ(Place(), "11/3");
    QTest::keyClick(Map(), Qt::Key_Down);
    EXPECT_EQ(Place(), "21/3");
    QTest::keyClick(Map(), Qt::Key_Left);
    QTest::keyClick(Map(), Qt::Key_Up);
    EXPECT_EQ(Place(), "11/2");
    EXPECT_TRUE(Map()->hasFocus());
    QTest::keyClick(Map(), Qt::Key_Tab);
    EXPECT_FALSE(Map()->hasFocus());
}

TEST_F(SectorMapWindow, TheFieldsCanBeTyped) {
    ClickFile("COCO.DSK");
    Type("Track", "20");
    EXPECT_EQ(Place(), "20/3");
    EXPECT_EQ(Field("Granulo")->text(), QStringLiteral("38"));
    Type("Sector", "12");
    EXPECT_EQ(Place(), "20/12");
    EXPECT_EQ(Field("Granulo")->text(), QStringLiteral("39"));
    Type("Granulo", "12");
    EXPECT_EQ(Place(), "6/1");
    EXPECT_EQ(Field("Granulo")->text(), QStringLiteral("12"));
    Type("Track", "99");
    EXPECT_EQ(Place(), "34/1");
}

TEST_F(SectorMapWindow, TheBarsChooseTrackAndSector) {
    ClickFile("COCO.DSK");
    auto* tracks = Find<QScrollBar>("HScroll1");
    auto* sectors = Find<QScrollBar>("VScroll1");
    EXPECT_EQ(tracks->maximum(), 34);
    EXPECT_EQ(sectors->minimum(), 1);
    EXPECT_EQ(sectors->maximum(), 18);
    tracks->triggerAction(QAbstractSlider::SliderSingleStepAdd);
    EXPECT_EQ(Place(), "18/3");
    sectors->triggerAction(QAbstractSlider::SliderSingleStepSub);
    EXPECT_EQ(Place(), "18/2");
    tracks->triggerAction(QAbstractSlider::SliderToMaximum);
    sectors->triggerAction(QAbstractSlider::SliderToMaximum);
    EXPECT_EQ(Place(), "34/18");
}

TEST_F(SectorMapWindow, ARowOfTheDirectoryShowsItsFile) {
    ClickFile("COCO.DSK");
    ClickCell(Directory(), 1, 1);
    EXPECT_EQ(Place(), "5/10");
    const QImage shown = Map()->grab().toImage();
    EXPECT_EQ(shown.pixelColor(At(5 * 19 + 14, 5)), QColor(100, 100, 200));
    EXPECT_EQ(shown.pixelColor(At(5 * 19 + 3, 5)), QColor(150, 255, 255));
    // Another window over it and away again: the colours stay.
    Window_.Widget->hide();
    Window_.Widget->show();
    EXPECT_EQ(Map()->grab().toImage().pixelColor(At(5 * 19 + 14, 5)), QColor(100, 100, 200));
}

TEST_F(SectorMapWindow, TheSectorsTextIsDrawn) {
    ClickFile("COCO.DSK");
    auto* text = Find<QWidget>("Sectores");
    const QImage directory = text->grab().toImage();
    Type("Sector", "18");
    EXPECT_NE(text->grab().toImage(), directory);
    Type("Sector", "3");
    EXPECT_EQ(text->grab().toImage(), directory);
}

TEST_F(SectorMapWindow, TheButtonAsksForTheEditor) {
    ClickFile("COCO.DSK");
    std::vector<std::string> opened;
    Platform.ShowModal = [&opened](const std::string& window) { opened.push_back(window); };
    QTest::mouseClick(Find<QPushButton>("EditBat"), Qt::LeftButton);
    EXPECT_EQ(opened, std::vector<std::string>{"FatEditor"});
}

TEST_F(SectorMapWindow, OnAScreenOfHighDensityEveryPixelIsAWholeSquare) {
    ClickFile("COCO.DSK");
    ClickCell(Directory(), 0, 1);
    QImage dense(Map()->size() * 2, QImage::Format_RGB32);
    dense.setDevicePixelRatio(2);
    Map()->render(&dense);
    for (int y = 0; y < TrackBlockPicture.Height; ++y) {
        for (int x = 0; x < TrackBlockPicture.Width; ++x) {
            const int colour = PixelAt(TrackBlockPicture, x, y);
            const QRgb expected = qRgb(colour & 0xFF, colour >> 8 & 0xFF, colour >> 16 & 0xFF);
            for (const QPoint corner : {QPoint(0, 0), QPoint(1, 0), QPoint(0, 1), QPoint(1, 1)}) {
                ASSERT_EQ(dense.pixel(At(x, y) * 2 + corner), expected) << x << "," << y;
            }
        }
    }
}

TEST_F(SectorMapWindow, AMapWiderThanItsRoomShowsTheMarkAndTakesTheMouseWhereItIs) {
    Open("WIDE.DSK", DragonBuilder(40, 36).Image());
    EXPECT_EQ(TrackBlockPicture.Width, 371);
    Type("Track", "6");
    Type("Sector", "1");
    const int offset = 7 * 37 + 1 - 191;
    EXPECT_EQ(PrincipalControl("TrackBlock").ViewLeft, offset);
    const QImage shown = Map()->grab().toImage();
    EXPECT_EQ(shown.pixelColor(At(6 * 37 - offset, 5)), QColor(Qt::black));  // outline
    EXPECT_EQ(shown.pixelColor(At(7 * 37 - offset, 5)), QColor(Qt::black));
    EXPECT_EQ(shown.pixelColor(At(6 * 37 + 1 - offset, 5)), QColor(Qt::black));
    QTest::mouseClick(Map(), Qt::LeftButton, Qt::NoModifier, At(2 * 37 - offset, 5));
    EXPECT_EQ(Place(), "2/1");
}

TEST_F(SectorMapWindow, AWindowThatIsTooLowGrowsForTheMap) {
    Window_.Widget->resize(1000, 700);
    QApplication::processEvents();
    const int before = Window_.Widget->centralWidget()->height();
    Open("HIGH.OS9", HighDisk());
    const int wanted =
        (PrincipalControl("Frame1").Top + 16 * 180 + 60 + 2700 + 900) / kTwipsPerPixel;
    const int most = Principal.MostHeight / kTwipsPerPixel;
    EXPECT_TRUE(QTest::qWaitFor([&] {
        return Window_.Widget->centralWidget()->height() == std::min(wanted, most);
    })) << before
        << " " << Window_.Widget->centralWidget()->height();
    EXPECT_EQ(Principal.Height, Window_.Widget->centralWidget()->height() * kTwipsPerPixel);
}

TEST_F(SectorMapWindow, AWindowThatFillsTheScreenKeepsItsSizeAndShowsWhatFits) {
    Window_.Widget->showMaximized();
    ASSERT_TRUE(QTest::qWaitFor([this] { return Window_.Widget->isMaximized(); }));
    QApplication::processEvents();
    const QSize size = Window_.Widget->size();
    const int inner = Window_.Widget->centralWidget()->height();
    EXPECT_EQ(Principal.MostHeight, inner * kTwipsPerPixel);
    Open("HIGH.OS9", Os9Builder(20000).Image());
    QApplication::processEvents();
    EXPECT_EQ(Window_.Widget->size(), size);
    EXPECT_EQ(Principal.Height, inner * kTwipsPerPixel);
    for (const char* name : {"Frame1", "EditFAT", "EditBat"}) {
        const QWidget* widget = WidgetOf(*Window_.Controls, name);
        EXPECT_LE(widget->geometry().bottom(), inner) << name;
    }
    const auto* text = Find<QWidget>("Sectores");
    EXPECT_TRUE(text->parentWidget()->rect().contains(text->geometry()));
}

TEST_F(SectorMapWindow, ARecordThatTheWindowCannotFollowFollowsTheWindow) {
    UserAction([] { Principal.Height = 100 * kTwipsPerPixel; });
    EXPECT_TRUE(QTest::qWaitFor([this] {
        const int inner = Window_.Widget->centralWidget()->height();
        return inner > 600 && Principal.Height == inner * kTwipsPerPixel;
    }));
}

}  // namespace
}  // namespace brindlemoor::test
