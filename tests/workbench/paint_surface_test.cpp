#include "workbench/paint_surface.h"

#include <gtest/gtest.h>

#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "support/workbench_fixture.h"
#include "workbench/control.h"
#include "workbench/principal.h"
#include "workbench/principal_viewer.h"
#include "workbench/viewer.h"
#include "workbench/window_layout.h"

namespace brindlemoor::test {
namespace {

class PaintSurfaceTest : public DirectoryTest {
  protected:
    static Control& Shown() { return PrincipalControl("Archivo"); }
};

TEST_F(PaintSurfaceTest, IsTheViewersPictureInThatManyPixelsWithoutItsFrame) {
    const PaintSurface surface = OpenPaintSurface(128, 40);
    EXPECT_EQ(surface.Image, &PrincipalViewer.Surface);
    EXPECT_EQ(surface.Image->Width, 128);
    EXPECT_EQ(surface.Image->Height, 40);
    EXPECT_TRUE(Shown().Visible);
}

TEST_F(PaintSurfaceTest, HoldsWhatTheViewerDraws) {
    ClickListEntry(PrincipalControl("OpciónChar"_w), kCocoMaxPicture);
    Disk.PcFileBytes = "12345" + std::string(32, '\x55') + "12345";
    const PaintSurface surface = OpenPaintSurface(128, 2);
    // The viewer's dots are two pixels wide and begin at the third.
    EXPECT_EQ(PixelAt(*surface.Image, 2, 0), PrincipalViewer.MaxPalette[1]);
    EXPECT_EQ(PixelAt(*surface.Image, 127, 0), PrincipalViewer.MaxPalette[1]);
}

TEST_F(PaintSurfaceTest, GivesTheSizeBack) {
    const int width = Shown().Width;
    const int height = Shown().Height;
    OpenPaintSurface(128, 40).GiveBack();
    EXPECT_EQ(Shown().Width, width);
    EXPECT_EQ(Shown().Height, height);
}

TEST_F(PaintSurfaceTest, AWindowLaidOutAnewMeanwhileKeepsItsLayout) {
    const PaintSurface surface = OpenPaintSurface(128, 40);
    SetSize(Shown(), 9000, 3000);
    surface.GiveBack();
    EXPECT_EQ(Shown().Width, 9000);
    EXPECT_EQ(Shown().Height, 3000);
}

/// Laying out settles the width alone; the height is not to stay that of the painted picture.
TEST_F(PaintSurfaceTest, AWindowWidenedMeanwhileKeepsTheWidthAndGetsItsHeightBack) {
    const int height = Shown().Height;
    const PaintSurface surface = OpenPaintSurface(128, 40);
    ResizePrincipal(Principal.Width + 3000, Principal.Height);
    const int width = Shown().Width;
    surface.GiveBack();
    EXPECT_EQ(Shown().Width, width);
    EXPECT_EQ(Shown().Height, height);
}

}  // namespace
}  // namespace brindlemoor::test
