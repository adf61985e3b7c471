#include <gtest/gtest.h>

#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>
#include <string>

#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "platform/qt/detached_window.h"
#include "platform/qt/shell.h"
#include "support/disk_fixture.h"
#include "user_actions.h"
#include "window_fixture.h"
#include "workbench/archivos.h"
#include "workbench/character_set.h"
#include "workbench/pc_pane.h"
#include "workbench/principal.h"
#include "workbench/principal_viewer.h"

namespace brindlemoor::test {
namespace {

const std::string kOpcionChar = "OpciónChar"_w;

/// "10 CLS" as a Color Computer keeps it.
const std::string kProgram("\xFF\x00\x08\x26\x07\x00\x0A\x9E\x00\x00\x00", 11);

class ViewerWindowTest : public WindowTest {
  protected:
    void SetUp() override {
        WindowTest::SetUp();
        WriteTestFile(PcFolder, "TOK.BAS", kProgram);
        std::string lines;
        for (int line = 100; line < 400; ++line) lines += std::to_string(line) + "\r";
        WriteTestFile(PcFolder, "LINES.BAS", lines);
        UserAction(RefreshPcFiles);
    }

    QWidget* View() const { return Find<QWidget>("Archivo"); }
    QScrollBar* Rows() const { return Find<QScrollBar>("VScrollA"); }

    /// Picks an entry of a list as the keys do: Home, and down to it.
    void Pick(const std::string& name, int index) const {
        auto* box = Find<QComboBox>(name);
        box->setFocus();
        for (int step = box->currentIndex(); step < index; ++step)
            QTest::keyClick(box, Qt::Key_Down);
        for (int step = box->currentIndex(); step > index; --step) QTest::keyClick(box, Qt::Key_Up);
    }

    /// True when the picture's widget shows the surface of its record, pixel by pixel.
    static bool ShowsSurface(QWidget* widget, const Picture& surface) {
        const QImage shown = widget->grab().toImage();
        for (int y = 0; y < surface.Height; ++y) {
            for (int x = 0; x < surface.Width; ++x) {
                const QColor colour = shown.pixelColor(x + kPictureFrame, y + kPictureFrame);
                const int wanted = PixelAt(surface, x, y);
                if ((colour.red() | colour.green() << 8 | colour.blue() << 16) != wanted) {
                    return false;
                }
            }
        }
        return true;
    }

    /// Pixels of that colour in the viewer's surface.
    static long Count(std::int32_t colour) {
        const auto& pixels = PrincipalViewer.Surface.Pixels;
        return std::count(pixels.begin(), pixels.end(), colour);
    }
};

TEST_F(ViewerWindowTest, AProgramOfThePcIsShownInTheMachinesCharacters) {
    ClickFile("TOK.BAS");
    EXPECT_EQ(Find<QLabel>("Propiedades")->text(), "COCO BAS (Compress-Tokenized)");
    EXPECT_EQ(PrincipalViewer.ViewerText, "\r10 CLS\r");
    EXPECT_GT(Count(kScreenGreen), 1000);
    EXPECT_TRUE(ShowsSurface(View(), PrincipalViewer.Surface));
}

TEST_F(ViewerWindowTest, AClickOnARowOfTheDirectoryShowsItsFile) {
    ClickFile("COCO.DSK");
    ClickCell(Directory(), 1, 0);
    EXPECT_EQ(Disk.DirCount, 1);
    EXPECT_EQ(PrincipalViewer.ViewerText.size(), 700u);
    EXPECT_EQ(Find<QComboBox>(kOpcionChar)->currentText(), "CoCo");
    EXPECT_FALSE(Find<QComboBox>("VerAsc")->isEnabled());
    QTest::keyClick(Directory(), Qt::Key_Up);
    EXPECT_EQ(Disk.DirCount, 0);
    EXPECT_EQ(Find<QComboBox>(kOpcionChar)->currentText(), "CoCo Bas");
    EXPECT_TRUE(Find<QComboBox>("VerAsc")->isEnabled());
    EXPECT_TRUE(ShowsSurface(View(), PrincipalViewer.Surface));
}

TEST_F(ViewerWindowTest, EveryListChangesTheViewAndIsStored) {
    ClickFile("TOK.BAS");
    Pick("VerAsc", 1);
    EXPECT_EQ(PrincipalViewer.ViewerText, kProgram);
    EXPECT_EQ(Stored("VerAscActual"), "1");
    Pick(kOpcionChar, 1);
    EXPECT_EQ(Stored(kOpcionChar + "Actual"), "1");
    EXPECT_TRUE(ShowsSurface(View(), PrincipalViewer.Surface));
    Pick(kOpcionChar, 0);
    EXPECT_EQ(Count(kScreenGreen), 0);
    EXPECT_TRUE(ShowsSurface(View(), PrincipalViewer.Surface));
    Pick("VerAsc", 2);
    EXPECT_EQ(PrincipalViewer.ViewerText, "\r10 CLS\r");
    Pick("Anchos", 4);
    EXPECT_EQ(Stored("AnchoActual"), PrincipalControl("Anchos").Text);
    EXPECT_TRUE(PrincipalViewer.ViewerLines.Lines.empty());
    Pick("Zoom", 5);
    EXPECT_EQ(PrincipalControl("Zoom").Text, "200%");
    EXPECT_EQ(PrincipalViewer.CellWidth, 16);
    Pick(kOpcionChar, 3);
    EXPECT_EQ(PrincipalViewer.ViewerText, kProgram.substr(5));
}

TEST_F(ViewerWindowTest, WidthsAndZoomCanBeTyped) {
    ClickFile("LINES.BAS");
    auto* widths = Find<QComboBox>("Anchos");
    widths->setFocus();
    widths->lineEdit()->selectAll();
    QTest::keyClicks(widths->lineEdit(), "16");
    EXPECT_EQ(PrincipalControl("HScrollA").LargeChange, 16);
    EXPECT_EQ(Stored("AnchoActual"), "16");
    auto* zoom = Find<QComboBox>("Zoom");
    zoom->setFocus();
    zoom->lineEdit()->selectAll();
    QTest::keyClicks(zoom->lineEdit(), "9999");
    EXPECT_EQ(zoom->lineEdit()->text(), "2600%");
    zoom->lineEdit()->selectAll();
    QTest::keyClicks(zoom->lineEdit(), "25%");
    EXPECT_EQ(PrincipalViewer.CellWidth, 2);
}

TEST_F(ViewerWindowTest, BarsWheelAndKeysScroll) {
    ClickFile("LINES.BAS");
    ASSERT_GT(Rows()->maximum(), 200);
    Rows()->setValue(7);
    EXPECT_EQ(PrincipalControl("VScrollA").Value, 7);
    EXPECT_TRUE(ShowsSurface(View(), PrincipalViewer.Surface));
    QTest::mouseClick(View(), Qt::LeftButton, Qt::NoModifier, QPoint(20, 20));
    QTest::keyClick(View(), Qt::Key_Home);
    EXPECT_EQ(Rows()->value(), 0);
    QTest::keyClick(View(), Qt::Key_PageDown);
    EXPECT_EQ(Rows()->value(), PrincipalControl("VScrollA").LargeChange);
    QTest::keyClick(View(), Qt::Key_End);
    EXPECT_EQ(Rows()->value(), Rows()->maximum());
    QTest::keyClick(View(), Qt::Key_Home);
    const QPoint place(30, 30);
    for (const int turn : {-60, -60, -120}) {
        QWheelEvent event(place, View()->mapToGlobal(place), QPoint(), QPoint(0, turn),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(View(), &event);
    }
    EXPECT_EQ(Rows()->value(), 6);
}

TEST_F(ViewerWindowTest, AWiderWindowShowsMore) {
    ClickFile("LINES.BAS");
    const int before = PrincipalViewer.Surface.Width;
    Window_.Widget->resize(Window_.Widget->width() + 100, Window_.Widget->height());
    QApplication::processEvents();
    EXPECT_EQ(PrincipalViewer.Surface.Width, before + 100);
    EXPECT_TRUE(ShowsSurface(View(), PrincipalViewer.Surface));
}

TEST_F(ViewerWindowTest, AStoppedConversionShowsTheErrorAndTheProgramGoesOn) {
    WriteTestFile(PcFolder, "BAD.BAS", "\xFF\x80\x01 no program");
    UserAction(RefreshPcFiles);
    {
        const WhenOpen box(Box::Dialog, [](QWidget* dialog) { dialog->close(); });
        ClickFile("BAD.BAS");
        EXPECT_TRUE(box.Came());
    }
    EXPECT_EQ(ExitCode, -1);
    ClickFile("TOK.BAS");
    EXPECT_EQ(PrincipalViewer.ViewerText, "\r10 CLS\r");
}

class DetachedWindowTest : public ViewerWindowTest {
  protected:
    /// The widget of a control of the detached window.
    template <typename Widget>
    Widget* Own(const std::string& name) const {
        auto* widget =
            DetachedWindow("Archivos")
                ->findChild<Widget*>(
                    QString::fromLatin1(name.data(), static_cast<qsizetype>(name.size())) + "0");
        EXPECT_NE(widget, nullptr) << name;
        return widget;
    }

    static void Show(const std::string& caption, const std::string& bytes, int mode) {
        UserAction([&] { ShowArchivos(caption, bytes, mode); });
    }
};

TEST_F(DetachedWindowTest, StandsBesideTheMainWindowUnderTheFilesPath) {
    Show("/disks/TOK.BAS", kProgram, kViewBasic);
    QWidget* window = DetachedWindow("Archivos");
    ASSERT_NE(window, nullptr);
    EXPECT_TRUE(window->isVisible());
    EXPECT_FALSE(window->isModal());
    EXPECT_EQ(window->windowTitle(), "/disks/TOK.BAS");
    EXPECT_TRUE(ShowsSurface(Own<QWidget>("Archivo"), ArchivosViewer.Surface));
    EXPECT_EQ(Own<QLabel>("Propiedades")->text(), "COCO BAS (Compress-Tokenized)");
    ClickFile("LINES.BAS");  // the main window works on
    EXPECT_EQ(ArchivosViewer.ViewerText, "\r10 CLS\r");
    Show("other", "TEXT", kViewData);
    EXPECT_EQ(DetachedWindow("Archivos"), window);
    EXPECT_EQ(window->windowTitle(), "other");
    EXPECT_EQ(ArchivosViewer.ViewerText, "TEXT");
}

TEST_F(DetachedWindowTest, ItsListsBarsAndSizeWorkOnItsOwnView) {
    std::string lines;
    for (int line = 0; line < 200; ++line) lines += "LINE\r";
    Show("x", lines, kViewData);
    auto* characters = Own<QComboBox>(kOpcionChar);
    characters->setFocus();
    QTest::keyClick(characters, Qt::Key_Home);
    EXPECT_EQ(ControlOf(Archivos, kOpcionChar).ListIndex, 0);
    EXPECT_NE(PrincipalControl(kOpcionChar).ListIndex, 0);
    auto* bar = Own<QScrollBar>("VScrollA");
    ASSERT_GT(bar->maximum(), 0);
    bar->setValue(3);
    EXPECT_EQ(ControlOf(Archivos, "VScrollA").Value, 3);
    EXPECT_EQ(PrincipalControl("VScrollA").Value, 0);
    const int before = ArchivosViewer.Surface.Height;
    QWidget* window = DetachedWindow("Archivos");
    window->resize(window->width(), window->height() + 60);
    QApplication::processEvents();
    EXPECT_EQ(ArchivosViewer.Surface.Height, before + 60);
    EXPECT_EQ(Own<QWidget>("Archivo")->height(), before + 60 + 2 * kPictureFrame);
}

TEST_F(DetachedWindowTest, ClosingItLetsGoOfTheFileAndItOpensAgain) {
    Show("x", "TEXT", kViewData);
    DetachedWindow("Archivos")->close();
    EXPECT_TRUE(ArchivosBytes.empty());
    Show("y", "AGAIN", kViewData);
    EXPECT_TRUE(DetachedWindow("Archivos")->isVisible());
    EXPECT_EQ(ArchivosViewer.ViewerText, "AGAIN");
}

}  // namespace
}  // namespace brindlemoor::test
