#include "workbench/colour_options.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/languages.h"
#include "core/settings.h"
#include "support/workbench_fixture.h"
#include "workbench/principal.h"

namespace brindlemoor::test {
namespace {

using Colours = std::vector<std::int32_t>;

constexpr std::int32_t kErrorColour = 13158655;
constexpr std::int32_t kContinuesColour = 13158600;

class ColourOptionsTest : public WorkbenchTest {
  protected:
    static Control& Part(const std::string& name, int index = 0) {
        return ControlOf(Opciones, name, index);
    }
    static void Press(int index) { Part("BtnColores", index).Click(); }

    void Open() {
        Start();
        MenuOf(Principal, "OptionsMenu").Click(1);
        EXPECT_EQ(script_.ModalWindows, std::vector<std::string>{"Opciones"});
    }
};

TEST_F(ColourOptionsTest, HasTheTextsOfItsDesignUntilItOpens) {
    EXPECT_EQ(Part("Label", 0).Text, "Color de las filas alternantes:");
    EXPECT_EQ(Part("Label", 1).Text, "Color de error:");
    EXPECT_EQ(Part("Label", 2).Text, "Color de Continuaciones:");
    EXPECT_EQ(Part("Normal").Text, "Normal");
    for (int index = 0; index < 3; ++index) EXPECT_EQ(Part("BtnColores", index).Text, "...");
}

TEST_F(ColourOptionsTest, OpensInTheLanguageInForce) {
    Open();
    EXPECT_EQ(Opciones.Caption, "Options");
    EXPECT_EQ(Part("Label", 0).Text, "Alternate Row Back Color:");
    EXPECT_EQ(Part("Label", 1).Text, "Sector Error Color:");
    EXPECT_EQ(Part("Label", 2).Text, "Continue Dir Entry Color (DRAGON):");
    EXPECT_EQ(Part("BtnColores", 2).AccessibleName, "Continue Dir Entry Color (DRAGON)");
    ChooseLanguage("Spanish");
    OpenColourOptions();
    EXPECT_EQ(Opciones.Caption, "Opciones");
    EXPECT_EQ(Part("Label", 1).Text, "Color para archivo con error en los sectores:");
}

TEST_F(ColourOptionsTest, ShowsTheColoursAsNumbersOnThemselves) {
    Open();
    EXPECT_TRUE(script_.ColourQuestions.empty());
    EXPECT_EQ(Part("Color", 1).Text, "13158655");
    EXPECT_EQ(Part("Color", 1).BackColour, kErrorColour);
    EXPECT_EQ(Part("Color", 1).ForeColour, 0);
    EXPECT_EQ(Part("Color", 2).Text, "13158600");
    EXPECT_EQ(Part("Color", 2).BackColour, kContinuesColour);
}

TEST_F(ColourOptionsTest, TheFirstColourOfANewFileIsBlackAndCanBeRead) {
    Open();
    EXPECT_EQ(Part("Color", 0).Text, "0");
    EXPECT_EQ(Part("Color", 0).BackColour, 0);
    EXPECT_EQ(Part("Color", 0).ForeColour, 0xFFFFFF);
}

TEST_F(ColourOptionsTest, AChosenColourLivesInItsBoxAndTheOldOneIsStored) {
    Open();
    script_.Colours = {0x112233};
    Press(1);
    EXPECT_EQ(script_.ColourQuestions, Colours{kErrorColour});
    EXPECT_EQ(Part("Color", 1).Text, "1122867");
    EXPECT_EQ(Part("Color", 1).BackColour, 0x112233);
    EXPECT_EQ(Stored("SectorErrorColor"), "13158655");
    EXPECT_EQ(Settings.ColourOptions[kSectorErrorColour].Value, kErrorColour);
    Press(1);  // the chooser stands on what was chosen
    EXPECT_EQ(script_.ColourQuestions.back(), 0x112233);
}

TEST_F(ColourOptionsTest, OnlyTheFirstColourReachesTheGrid) {
    Open();
    const std::int32_t before = ListDirec.AlternateRowBackColour;
    script_.Colours = {0x112233, 0x445566, 0x778899};
    Press(2);
    Press(1);
    EXPECT_EQ(ListDirec.AlternateRowBackColour, before);
    Press(0);
    EXPECT_EQ(ListDirec.AlternateRowBackColour, 0x778899);
}

TEST_F(ColourOptionsTest, GivingUpLeavesTheColourThatTheChooserStoodOn) {
    Open();
    Press(2);
    EXPECT_EQ(Part("Color", 2).Text, "13158600");
    EXPECT_EQ(Part("Color", 2).BackColour, kContinuesColour);
    EXPECT_EQ(Stored("ContinueDirEntryColor"), "13158600");
    Press(0);
    EXPECT_EQ(Part("Color", 0).Text, "0");
    EXPECT_EQ(ListDirec.AlternateRowBackColour, 0);
}

TEST_F(ColourOptionsTest, AnyChangeOfABoxAsksForItsColour) {
    Open();
    script_.Colours = {0x010203};
    for (const std::string& text : {std::string("7"), std::string(), std::string("\xE1"),
                                    std::string(400, '9'), std::string("-1")}) {
        SetText(Part("Color", 1), text);
        EXPECT_EQ(Part("Color", 1).Text, "66051") << text;
    }
    EXPECT_EQ(script_.ColourQuestions.size(), 5u);
    EXPECT_EQ(script_.ColourQuestions[0], kErrorColour);
    EXPECT_EQ(script_.ColourQuestions[1], 0x010203);
}

TEST_F(ColourOptionsTest, AnEntryWithoutANameIsStoredUnderAnEmptyKey) {
    Open();
    script_.Colours = {0x112233};
    Press(0);
    EXPECT_EQ(Stored(""), "0");
    BuildAgain();
    Start();  // the start passes over that line
    EXPECT_TRUE(script_.Messages.empty());
}

TEST_F(ColourOptionsTest, NormalShowsTheBuiltInColoursAndStoresThePresentOnes) {
    GiveDefaultSettings("SectorErrorColor=13158655", "SectorErrorColor=255");
    Open();
    EXPECT_EQ(Part("Color", 1).Text, "255");
    script_.Colours = {0x112233};
    Press(2);
    Opciones.Open = true;
    Part("Normal").Click();
    EXPECT_TRUE(Opciones.Open);
    EXPECT_EQ(Part("Color", 1).Text, "13158655");
    EXPECT_EQ(Part("Color", 1).BackColour, kErrorColour);
    EXPECT_EQ(Part("Color", 2).Text, "13158600");
    EXPECT_EQ(Stored("SectorErrorColor"), "255");
    EXPECT_EQ(ListDirec.AlternateRowBackColour, 0);
    EXPECT_EQ(script_.ColourQuestions.size(), 1u);  // that of the button before
}

TEST_F(ColourOptionsTest, AFileEditedByHandGivesTheFirstColourItsName) {
    GiveDefaultSettings("AlternateRowBackgroundColor=15138044",
                        "AlternateRowBackGroundColor=8421504");
    Open();
    EXPECT_EQ(Part("Color", 0).Text, "8421504");
    Part("Normal").Click();
    EXPECT_EQ(Part("Color", 0).Text, "15138044");
    EXPECT_EQ(ListDirec.AlternateRowBackColour, 15138044);
    EXPECT_EQ(Stored("AlternateRowBackGroundColor"), "8421504");
}

TEST_F(ColourOptionsTest, ARestartShowsTheColoursOfTheFileAsTheyWere) {
    Open();
    script_.Colours = {1, 2, 3};
    for (int index = 0; index < 3; ++index) Press(index);
    Part("Normal").Click();
    BuildAgain();
    Start();
    OpenColourOptions();
    EXPECT_EQ(Part("Color", 0).Text, "0");
    EXPECT_EQ(Part("Color", 1).Text, "13158655");
    EXPECT_EQ(Part("Color", 2).Text, "13158600");
}

}  // namespace
}  // namespace brindlemoor::test
