#include "workbench/viewer_events.h"

#include <gtest/gtest.h>

#include "core/screen.h"
#include "support/viewer_fixture.h"

namespace brindlemoor::test {
namespace {

class ViewerEventsTest : public ViewerTest {
  protected:
    /// How often the view was drawn since the last call: once a line, three rows and one.
    bool WasDrawn() { return !Lines().empty(); }
};

TEST_F(ViewerEventsTest, EachChoiceIsStoredAndShown) {
    View("A\rB\rC\rD", kViewBasic);
    Lines();
    Choose("VerAsc", 2);
    EXPECT_EQ(Stored("VerAscActual"), "2");
    EXPECT_TRUE(WasDrawn());
    Choose("OpciónChar"_w, 2);
    EXPECT_EQ(Stored("OpciónCharActual"_w), "2");
    Choose("OpciónChar"_w, 0);
    EXPECT_TRUE(WasDrawn());
    Choose("Anchos", 3);
    EXPECT_EQ(Stored("AnchoActual"), PrincipalControl("Anchos").Text);
    EXPECT_TRUE(WasDrawn());
    SetText(PrincipalControl("Anchos"), "40");
    EXPECT_EQ(Stored("AnchoActual"), "40");
    EXPECT_TRUE(WasDrawn());
    SetText(PrincipalControl("Zoom"), "50%");
    EXPECT_TRUE(WasDrawn());
    Choose("Zoom", 3);
    EXPECT_TRUE(WasDrawn());
    EXPECT_EQ(Stored("ZoomActual"), "(none)");
}

TEST_F(ViewerEventsTest, ChangesByTheProgramAreNeitherStoredNorShown) {
    View("A", kViewBasic);
    Lines();
    const std::string width = Stored("AnchoActual");
    for (bool* flag : {&WindowBusy, &PrincipalViewer.ViewerBusy}) {
        *flag = true;
        Choose("VerAsc", 2);
        Choose("VerAsc", 0);
        SetText(PrincipalControl("Anchos"), "77");
        SetText(PrincipalControl("Anchos"), "78");
        *flag = false;
        EXPECT_FALSE(WasDrawn());
        EXPECT_EQ(Stored("VerAscActual"), "(none)");
        EXPECT_EQ(Stored("AnchoActual"), width);
    }
}

TEST_F(ViewerEventsTest, BarsKeysAndWheelScroll) {
    std::string text;
    for (int line = 0; line < 20; ++line) text += std::string(30, 'A') + "\r";
    View(text, kViewData);  // 21 lines, 3 in view; 30 columns, 10 in view
    const Control& picture = PrincipalControl("Archivo");
    struct Step {
        int Key;
        int Row;
        int Column;
    };
    for (const Step step : {Step{kKeyDown, 1, 0},
                            {kKeyPageDown, 4, 0},
                            {kKeyUp, 3, 0},
                            {kKeyRight, 3, 1},
                            {kKeyPageUp, 0, 1},
                            {kKeyPageUp, 0, 1},
                            {kKeyLeft, 0, 0},
                            {kKeyLeft, 0, 0},
                            {kKeyEnd, 18, 0},
                            {kKeyDown, 18, 0},
                            {kKeyHome, 0, 0}}) {
        EXPECT_TRUE(picture.Key(step.Key));
        EXPECT_EQ(Rows().Value, step.Row) << step.Key;
        EXPECT_EQ(Columns().Value, step.Column) << step.Key;
    }
    EXPECT_FALSE(picture.Key(kKeyEnter));
    picture.Wheel(2);
    EXPECT_EQ(Rows().Value, 6);
    picture.Wheel(-9);
    EXPECT_EQ(Rows().Value, 0);
    picture.Wheel(100);
    EXPECT_EQ(Rows().Value, 18);
}

TEST_F(ViewerEventsTest, APictureOfAnotherSizeIsDrawnAnew) {
    View("A\rB\rC\rD\rE", kViewData);
    EXPECT_EQ(Rows().Maximum, 2);
    SetSize(PrincipalControl("Archivo"), 82 * kTwipsPerPixel, 50 * kTwipsPerPixel);
    EXPECT_EQ(Rows().Maximum, 1);
    EXPECT_EQ(PrincipalViewer.Surface.Height, 48);
    SetSize(PrincipalControl("Archivo"), 0, 0);
    SetSize(PrincipalControl("Archivo"), 15, 15);
    EXPECT_EQ(PrincipalViewer.Surface.Width, 0);
}

}  // namespace
}  // namespace brindlemoor::test
