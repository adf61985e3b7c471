#include "workbench/fat_editor.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "core/runtime_failure.h"
#include "core/screen.h"
#include "support/disk_fixture.h"
#include "support/dragon_builder.h"
#include "support/edit_fixture.h"
#include "workbench/principal.h"

namespace brindlemoor::test {
namespace {

using Texts = std::vector<std::string>;

class FatEditorTest : public EditTest {
  protected:
    void SetUp() override {
        EditTest::SetUp();
        GiveTables(40, 18, 360);
    }

    void TearDown() override {
        FatEditor = Window();
        FatLines = {};
        EditTest::TearDown();
    }

    /// A Dragon disk of that geometry with tables that differ in the first byte only.
    static void GiveTables(int tracks, int sectors, std::size_t bytes) {
        Disk.DiskFamily = kDragon;
        Disk.TrackCount = static_cast<std::int16_t>(tracks);
        Disk.SectorsPerTrack = static_cast<std::int16_t>(sectors);
        Disk.FatBytes.assign(bytes, '\xFF');
        Disk.FatComputed.assign(bytes, '\xFF');
        Disk.FatBytes[0] = '\x05';
        Disk.FatComputed[0] = '\x06';
    }

    static Control& Text() { return ControlOf(FatEditor, "Text"); }
    static Texts Lines() { return SplitText(Text().Text, "\r\n"); }

    static void Press(const std::string& button) {
        FatEditor.Open = true;
        ControlOf(FatEditor, button).Click();
    }

    /// Clicks a place of the text.
    static void Click(int place) {
        Text().SelStart = place;
        Text().CaretPlaced();
    }
};

// The text

TEST_F(FatEditorTest, SevenHundredTwentySectorsGiveLinesOfThatLength) {
    LoadFatEditor();
    ASSERT_EQ(Lines().size(), 5u);
    for (const std::string& line : Lines()) EXPECT_EQ(line.size(), 720u);
    EXPECT_EQ(FatLines.LineWidth, 722);
    EXPECT_EQ(FatLines.LineStart, 1444);
    EXPECT_EQ(Text().SelStart, 1444);
    EXPECT_EQ(FatEditor.Caption, "Fat Editor");
}

TEST_F(FatEditorTest, TheRulersNameTracksAndSectors) {
    LoadFatEditor();
    EXPECT_EQ(Lines()[0].substr(0, 36), "|---Track 00-----||---Track 01-----|");
    EXPECT_EQ(Lines()[0].substr(702), "|---Track 39-----|");
    EXPECT_EQ(Lines()[1].substr(0, 36), "1-------||------181-------||------18");
}

TEST_F(FatEditorTest, TheRulersOfTwoSidesNameThirtySixSectors) {
    GiveTables(40, 36, 360);
    LoadFatEditor();
    EXPECT_EQ(Lines()[0].substr(0, 36), "|------------Track 00--------------|");
    EXPECT_EQ(Lines()[1].substr(0, 36), "1-------||------1819-----||-------36");
    EXPECT_EQ(FatLines.LineWidth, 1442);
}

TEST_F(FatEditorTest, TheTablesStandBitZeroFirstAndDifferencesAreMarked) {
    LoadFatEditor();
    EXPECT_EQ(Lines()[2].substr(0, 10), "1010000011");
    EXPECT_EQ(Lines()[3].substr(0, 10), "0110000011");
    EXPECT_EQ(Lines()[4].substr(0, 10), "||        ");
    EXPECT_EQ(Lines()[4].find('|', 2), std::string::npos);
}

TEST_F(FatEditorTest, SectorsOfALastByteThatIsNotWholeStayBlank) {
    GiveTables(5, 18, 360);  // 90 sectors, 11 bytes
    LoadFatEditor();
    for (const std::string& line : Lines()) EXPECT_EQ(line.size(), 90u);
    EXPECT_EQ(Lines()[2].substr(86), "11  ");
    Click(FatLines.LineStart + 88);
    Text().KeyPress('1');
    Press("cmdOK");
    EXPECT_EQ(Disk.FatBytes[11], '\xFF');  // was so, and is not looked at
    EXPECT_EQ(Disk.FatBytes.size(), 360u);
}

TEST_F(FatEditorTest, TracksOfFewSectorsHaveRulersThatEndInTime) {
    for (const int sectors : {1, 2, 5, 9, 10, 17, 19, 35}) {
        GiveTables(8, sectors, 360);
        LoadFatEditor();
        ASSERT_EQ(Lines().size(), 5u) << sectors;
        for (const std::string& line : Lines()) {
            EXPECT_EQ(line.size(), static_cast<std::size_t>(8 * sectors)) << sectors;
        }
    }
}

TEST_F(FatEditorTest, ItsTextsAreThoseOfTheDesign) {
    LoadFatEditor();
    const std::vector<std::pair<const char*, const char*>> texts = {
        {"Label1", "TRACK:....... SECTOR:.... ORIGINAL: CORRECT: ERROR:......"},
        {"Label2",
         "Change the Original       FOR COCO (Bit=0->Free Bit=1->Used)        FOR DRAGON "
         "(Bit=0->Used Bit=1->Free"},
        {"cmdOK", "Aceptar"},
        {"cmdCancel", "Cancelar"},
        {"cmdCopiar", "Copiar \"Correcto\" a \"Original\""}};
    for (const auto& [name, text] : texts) EXPECT_EQ(ControlOf(FatEditor, name).Text, text);
}

// Keys

TEST_F(FatEditorTest, OnlyFourKeysGoThroughInsideTheLine) {
    LoadFatEditor();
    Text().SelStart = 1500;
    for (int key = 1; key < 128; ++key) {
        const bool known = key == kKeyLeft || key == kKeyRight || key == kKeyHome || key == kKeyEnd;
        EXPECT_EQ(Text().Key(key), !known) << key;
    }
}

TEST_F(FatEditorTest, LeftAtTheStartAndRightAtTheEndAreSwallowed) {
    LoadFatEditor();
    Text().SelStart = 1444;
    EXPECT_TRUE(Text().Key(kKeyLeft));
    EXPECT_FALSE(Text().Key(kKeyRight));
    Text().SelStart = 1444 + 720;
    EXPECT_TRUE(Text().Key(kKeyRight));
    EXPECT_FALSE(Text().Key(kKeyLeft));
    EXPECT_FALSE(Text().Key(kKeyHome));
}

TEST_F(FatEditorTest, OutsideTheLineAllKeysAreSwallowed) {
    LoadFatEditor();
    const std::string before = Text().Text;
    for (const int place : {0, 1443, 1444 + 721, 3000}) {
        Text().SelStart = place;
        for (const int key : {kKeyLeft, kKeyRight, kKeyHome, kKeyEnd}) {
            EXPECT_TRUE(Text().Key(key)) << place;
        }
        Text().KeyPress('0');
        EXPECT_EQ(Text().SelStart, place);
    }
    EXPECT_EQ(Text().Text, before);
}

TEST_F(FatEditorTest, TypingReplacesTheCharacterBehindTheCaret) {
    LoadFatEditor();
    Text().KeyPress('0');
    Text().KeyPress('1');
    EXPECT_EQ(Lines()[2].substr(0, 8), "01100000");
    EXPECT_EQ(Text().SelStart, 1446);
    EXPECT_EQ(Lines()[3].substr(0, 8), "01100000");
}

TEST_F(FatEditorTest, OtherKeysThanZeroAndOneChangeNothing) {
    LoadFatEditor();
    const std::string before = Text().Text;
    for (int character = 0; character < 256; ++character) {
        if (character != '0' && character != '1') Text().KeyPress(character);
    }
    EXPECT_EQ(Text().Text, before);
    EXPECT_EQ(Text().SelStart, 1444);
}

TEST_F(FatEditorTest, TheLastSectorCanBeTypedAndTheLineBreakCannot) {
    LoadFatEditor();
    Text().SelStart = 1444 + 719;
    Text().KeyPress('0');
    EXPECT_EQ(Lines()[2].back(), '0');
    EXPECT_EQ(Text().SelStart, 1444 + 720);
    const std::string before = Text().Text;
    Text().KeyPress('0');
    EXPECT_EQ(Text().Text, before);
}

// The caret

TEST_F(FatEditorTest, AClickOnAnotherLineGoesToTheSameColumnOfTheThird) {
    LoadFatEditor();
    for (const int line : {0, 1, 2, 3, 4}) {
        Text().SelLength = 7;
        Click(line * 722 + 100);
        EXPECT_EQ(Text().SelStart, 1544) << line;
        EXPECT_EQ(Text().SelLength, 0);
    }
    Click(0);
    EXPECT_EQ(Text().SelStart, 1444);
    Click(720);  // the end of the first line
    EXPECT_EQ(Text().SelStart, 1444 + 720);
}

TEST_F(FatEditorTest, TheFocusBringsTheCaretToTheLinesStart) {
    LoadFatEditor();
    Click(1500);
    Text().GotFocus();
    EXPECT_EQ(Text().SelStart, 1444);
}

// Buttons

TEST_F(FatEditorTest, OkWithoutChangesStoresTheSameBits) {
    for (std::size_t place = 0; place < 360; ++place) {
        Disk.FatBytes[place] = static_cast<char>(place * 7);
    }
    const std::string before = Disk.FatBytes;
    const std::string image = Disk.ImageBytes;
    GiveTables(80, 36, 360);
    Disk.FatBytes = before;
    LoadFatEditor();
    Press("cmdOK");
    EXPECT_EQ(Disk.FatBytes, before);
    EXPECT_EQ(Disk.ImageBytes, image);
    EXPECT_FALSE(FatEditor.Open);
}

TEST_F(FatEditorTest, OkStoresTheThirdLineAndNothingInTheImage) {
    LoadFatEditor();
    const std::string image = Disk.ImageBytes;
    Click(1444 + 15);
    Text().KeyPress('0');
    Press("cmdOK");
    EXPECT_EQ(Disk.FatBytes[0], '\x05');
    EXPECT_EQ(Disk.FatBytes[1], '\x7F');
    EXPECT_EQ(Disk.FatBytes[90], '\xFF');  // beyond the 720 sectors
    EXPECT_EQ(Disk.ImageBytes, image);
}

TEST_F(FatEditorTest, CopyPutsTheFourthLineOverTheThird) {
    LoadFatEditor();
    Press("cmdCopiar");
    EXPECT_TRUE(FatEditor.Open);
    ASSERT_EQ(Lines().size(), 5u);
    EXPECT_EQ(Lines()[2], Lines()[3]);
    EXPECT_EQ(Lines()[4].substr(0, 2), "||");  // the marks stay
    EXPECT_EQ(Disk.FatBytes[0], '\x05');
    Press("cmdOK");
    EXPECT_EQ(Disk.FatBytes, Disk.FatComputed);
}

TEST_F(FatEditorTest, CancelClosesWithoutAChange) {
    LoadFatEditor();
    Text().KeyPress('0');
    Press("cmdCancel");
    EXPECT_FALSE(FatEditor.Open);
    EXPECT_EQ(Disk.FatBytes[0], '\x05');
}

// Without two tables

TEST_F(FatEditorTest, OnADecbDiskTheTextIsEmptyAndOkFailsBehindTheTable) {
    OpenDisk(Original);
    Disk.FatComputed.clear();
    LoadFatEditor();
    EXPECT_EQ(Text().Text, "");
    EXPECT_EQ(FatLines.LineWidth, 0);
    ASSERT_EQ(Disk.FatBytes.size(), 68u);
    EXPECT_EQ(FailureOf([] { Press("cmdOK"); }), kInvalidCall);
    EXPECT_EQ(Disk.FatBytes, std::string(68, '\0'));
    EXPECT_EQ(Disk.ImageBytes, Original);
    EXPECT_TRUE(FatEditor.Open);
}

TEST_F(FatEditorTest, TablesOfOtherLengthsAreNotCompared) {
    Disk.FatComputed.pop_back();
    LoadFatEditor();
    EXPECT_EQ(Text().Text, "");
    Disk.FatBytes.clear();
    Disk.FatComputed.clear();
    LoadFatEditor();
    EXPECT_EQ(Text().Text, "");
}

TEST_F(FatEditorTest, AnEmptyTextTakesNoKeysClicksOrCopies) {
    Disk.FatComputed.clear();
    LoadFatEditor();
    for (const int key : {kKeyLeft, kKeyRight, kKeyHome, kKeyEnd}) EXPECT_TRUE(Text().Key(key));
    Text().KeyPress('1');
    Click(0);
    Text().GotFocus();
    Press("cmdCopiar");
    EXPECT_EQ(Text().Text, "");
    EXPECT_EQ(Text().SelStart, 0);
}

TEST_F(FatEditorTest, WithoutADiskOkStoresNothing) {
    OpenDisk("");
    Disk.FatBytes.clear();
    Disk.FatComputed.clear();
    LoadFatEditor();
    EXPECT_EQ(Text().Text, "");
    Press("cmdOK");
    EXPECT_FALSE(FatEditor.Open);
    EXPECT_TRUE(Disk.FatBytes.empty());
}

TEST_F(FatEditorTest, ADiskBeyondItsTablesShowsTheErrorBoxAndNoEditor) {
    GiveTables(255, 36, 360);
    script_.Messages.clear();
    Screen.EditFat();
    EXPECT_EQ(MessageTexts(script_),
              Texts{"Run-time error '5':\r\n\r\nInvalid procedure call or argument"});
    EXPECT_TRUE(script_.ModalWindows.empty());
    EXPECT_FALSE(script_.Ended);
}

// The two ways in

TEST_F(FatEditorTest, TheButtonOpensItOnAnyFamily) {
    OpenDisk(Original);
    PrincipalControl("EditBat").Click();
    EXPECT_EQ(script_.ModalWindows, Texts{"FatEditor"});
}

TEST_F(FatEditorTest, YesToTheDifferencesOpensItFilled) {
    DragonBuilder disk;
    disk.File(0, "FILE    ", "BIN", {{40, 2}}, "bytes of a file" + std::string(400, 'x'));
    disk.BitmapByte(3, 0x0F);
    script_.Answers = {Answer::Yes};
    std::string marks;
    script_.OnModal = [&](const std::string&) { marks = Lines()[4].substr(24, 8); };
    OpenDisk(disk.Image());
    EXPECT_EQ(script_.ModalWindows, Texts{"FatEditor"});
    EXPECT_EQ(marks, "    ||||");
}

}  // namespace
}  // namespace brindlemoor::test
