#include "core/screen.h"

#include <gtest/gtest.h>

namespace brindlemoor {
namespace {

TEST(NoScreen, AnswersWithEmptyTexts) {
    const ScreenTable screen = NoScreen();
    EXPECT_EQ(screen.PcListFolder(), "");
    EXPECT_EQ(screen.PcListName(), "");
    EXPECT_EQ(screen.PathDskText(), "");
    EXPECT_TRUE(screen.SelectedRows().empty());
    EXPECT_EQ(screen.OpenPaintSurface(128, 8).Image, nullptr);
}

TEST(NoScreen, HasARoutineForEveryEntry) {
    const ScreenTable screen = NoScreen();
    EXPECT_NO_THROW({
        screen.FillDirectoryGrid();
        screen.PaintTrackBlock(-1);
        screen.DrawSectorMap(-1);
        screen.ShowSectorPlace(0, 1);
        screen.ShowGranuleField(true);
        screen.ShowModified();
        screen.GiveUpColumnSort();
        screen.RefreshPcFiles();
        screen.OpenPaintSurface(128, 8).GiveBack();
        screen.SetFilePath("path");
        screen.SetPathDsk("path");
        screen.ViewFile(-1, 0);
        screen.SetCaptionAndTag("name", "text");
        screen.SetListItems("name", {});
        screen.SetMenuItems("name", {});
        screen.SetLanguageMenu({}, {}, "language");
        screen.SetControlIndex("name", 0);
        screen.SetControlText("name", "text");
        screen.SetAlternateRowColour(0);
        screen.SetGridHeaders();
    });
}

}  // namespace
}  // namespace brindlemoor
