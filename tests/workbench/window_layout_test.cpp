#include "workbench/window_layout.h"

#include <gtest/gtest.h>

#include <array>

#include "support/workbench_fixture.h"
#include "workbench/directory_totals.h"
#include "workbench/principal.h"

namespace brindlemoor {
namespace {

/// Places and sizes of all controls, for comparison.
std::vector<std::array<int, 4>> Places() {
    std::vector<std::array<int, 4>> places;
    for (const Control& control : Principal.Controls) {
        places.push_back({control.Left, control.Top, control.Width, control.Height});
    }
    return places;
}

class LayoutTest : public test::WorkbenchTest {
  protected:
    static Control& Named(const char* name) { return PrincipalControl(name); }

    /// The narrowest window that is laid out, in twips.
    static int LeastWidth() { return Named("Archivo").Left + 351; }
};

TEST_F(LayoutTest, FollowsTheWindowInTwips) {
    for (const auto& [width, height] : {std::pair{15000, 10500}, std::pair{28800, 16200}}) {
        ResizePrincipal(width, height);
        const int viewer = width - Named("Archivo").Left - 350;
        EXPECT_EQ(Named("Caracteres").Width, width - Named("Caracteres").Left - 50);
        EXPECT_EQ(Named("Archivo").Width, viewer);
        EXPECT_EQ(Named("VScrollA").Left, Named("Archivo").Left + viewer);
        EXPECT_EQ(Named("HScrollA").Width, viewer);
        EXPECT_EQ(Named("ListDirec").Width, width - 4500);
        EXPECT_EQ(Named("ListDirec").Height, height - 6000);
        EXPECT_EQ(Named("Frame1").Left, width - 4200);
        for (int line = 0; line < 3; ++line) {
            EXPECT_EQ(PrincipalControl("totales", line).Width, width - 4500);
            EXPECT_EQ(PrincipalControl("totales", line).Top, line * 300 + height - 1200);
        }
        for (const char* name : {"Info", "VerContinuaciones", "VerBorrados"}) {
            EXPECT_EQ(Named(name).Top, height - 300) << name;
        }
        EXPECT_EQ(Principal.Width, width);
        EXPECT_EQ(Principal.Height, height);
    }
}

TEST_F(LayoutTest, AWindowThatIsTooNarrowForTheViewerLeavesTheLayout) {
    const auto before = Places();
    ResizePrincipal(LeastWidth() - 1, 12000);
    EXPECT_EQ(Places(), before);
    ResizePrincipal(0, 0);
    ResizePrincipal(-500, 12000);
    EXPECT_EQ(Places(), before);
    ResizePrincipal(LeastWidth(), 12000);
    EXPECT_EQ(Named("Archivo").Width, 1);
    EXPECT_NE(Places(), before);
}

TEST_F(LayoutTest, ALowWindowKeepsTheGridsHeightAndMovesTheRest) {
    ResizePrincipal(19200, 6001);
    EXPECT_EQ(Named("ListDirec").Height, 1);
    ResizePrincipal(19200, 12000);
    ResizePrincipal(19200, 6000);
    EXPECT_EQ(Named("ListDirec").Height, 6000);
    EXPECT_EQ(Named("Info").Top, 5700);
}

TEST_F(LayoutTest, NoControlGetsANegativeSize) {
    for (const int height : {1, 5000, 12000}) {
        ResizePrincipal(LeastWidth(), height);
        for (const Control& control : Principal.Controls) {
            EXPECT_GE(control.Width, 0) << control.Name;
            EXPECT_GE(control.Height, 0) << control.Name;
        }
    }
}

TEST_F(LayoutTest, ResizingSetsTheTotalsOutAnew) {
    Start();
    TotalsLines = {"Files:|3", "", ""};
    AddColumn(ListDirec, {});
    AddColumn(ListDirec, {});
    SetColumnWidth(ListDirec, 1, 70);
    SetColumnWidth(ListDirec, 2, 35);
    ResizePrincipal(20000, 12000);
    EXPECT_EQ(PrincipalControl("totales", 0).Text, "Files:       3");
}

TEST_F(LayoutTest, TheWindowIsBuiltLaidOut) {
    EXPECT_EQ(Principal.Width, 1280 * kTwipsPerPixel);
    EXPECT_EQ(Named("ListDirec").Width, Principal.Width - 4500);
    EXPECT_EQ(Named("Info").Top, Principal.Height - 300);
}

/// True for controls that take room of their own in the window: frames hold others, hidden ones
/// and images do not show.
bool TakesRoom(const Control& control) {
    return control.Visible && control.Kind != ControlKind::Frame &&
           control.Kind != ControlKind::Hidden && control.Width > 0 && control.Height > 0;
}

bool Overlap(const Control& a, const Control& b) {
    return a.Left < b.Left + b.Width && b.Left < a.Left + a.Width && a.Top < b.Top + b.Height &&
           b.Top < a.Top + a.Height;
}

class LayoutSizes : public LayoutTest, public testing::WithParamInterface<std::pair<int, int>> {};

TEST_P(LayoutSizes, NothingOverlapsOrLeavesItsFrame) {
    const auto [width, height] = GetParam();
    ResizePrincipal(width * kTwipsPerPixel, height * kTwipsPerPixel);
    for (const Control& control : Principal.Controls) {
        if (!TakesRoom(control)) continue;
        const Control* frame = FindControl(Principal, control.Container);
        EXPECT_GE(control.Left, 0) << control.Name;
        EXPECT_GE(control.Top, 0) << control.Name;
        EXPECT_LE(control.Left + control.Width, frame == nullptr ? Principal.Width : frame->Width)
            << control.Name;
        EXPECT_LE(control.Top + control.Height, frame == nullptr ? Principal.Height : frame->Height)
            << control.Name;
        for (const Control& other : Principal.Controls) {
            const bool sameFrame = other.Container == control.Container;
            if (&other == &control || !TakesRoom(other) || !sameFrame) continue;
            EXPECT_FALSE(Overlap(control, other)) << control.Name << " and " << other.Name;
        }
    }
}

// The menu bar takes 24 pixels of a window of 1000 by 700, the smallest in use.
INSTANTIATE_TEST_SUITE_P(SmallestToLarge, LayoutSizes,
                         testing::Values(std::pair{1000, 676}, std::pair{1280, 836},
                                         std::pair{1920, 1056}, std::pair{3840, 2136}));

}  // namespace
}  // namespace brindlemoor
