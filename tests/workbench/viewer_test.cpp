#include "workbench/viewer.h"

#include <gtest/gtest.h>

#include "core/languages.h"
#include "core/runtime_failure.h"
#include "core/settings.h"
#include "support/disk_fixture.h"
#include "support/viewer_fixture.h"
#include "workbench/character_set.h"

namespace brindlemoor::test {
namespace {

using Texts = std::vector<std::string>;
using namespace std::string_literals;

std::string Bytes(std::initializer_list<int> values) {
    std::string bytes;
    for (const int value : values) bytes += static_cast<char>(value);
    return bytes;
}

/// "10 CLS" as a Color Computer keeps it, and as a Dragon does.
const std::string kCocoProgram = Bytes({255, 0, 8, 0x26, 0x07, 0, 10, 0x9E, 0, 0, 0});
const std::string kDragonProgram =
    Bytes({85, 1, 0x24, 0x01, 0, 8, 0x8B, 0x8D, 0xAA, 0x24, 0x07, 0, 10, 0xA0, 0, 0, 0});

struct KindCase {
    std::string Bytes;
    const char* Kind;
};

class FileKindTest : public ViewerTest, public testing::WithParamInterface<KindCase> {};

TEST_P(FileKindTest, IsNamedByTheFirstBytes) {
    View(GetParam().Bytes, kViewBinary);
    EXPECT_EQ(Kind(), GetParam().Kind);
}

std::string DragonFile(int type, int last, std::size_t size) {
    std::string bytes(size, '\0');
    bytes[0] = 85;
    bytes[1] = static_cast<char>(type);
    if (size > 8) bytes[8] = static_cast<char>(last);
    return bytes;
}

INSTANTIATE_TEST_SUITE_P(
    Rows, FileKindTest,
    testing::Values(KindCase{"\xFF", "COCO BAS (Compress-Tokenized)"},
                    KindCase{"\r10 CLS", "COCO-DRAGON BAS (ASCII)"},
                    KindCase{DragonFile(0, 170, 10), "DRAGON BAS (Compress-Tokenized)"},
                    KindCase{DragonFile(1, 170, 10), "DRAGON BAS (Compress-Tokenized)"},
                    KindCase{DragonFile(2, 170, 10), "DRAGON BIN"},
                    KindCase{DragonFile(3, 170, 10), ""}, KindCase{DragonFile(255, 170, 10), ""},
                    KindCase{DragonFile(1, 170, 9), ""},  // the length must be above 9
                    KindCase{DragonFile(1, 171, 10), ""}, KindCase{DragonFile(1, 170, 2), ""},
                    KindCase{"\0"s, "COCO BIN"}, KindCase{"10 CLS", ""}, KindCase{"\xEF", ""}));

TEST_F(ViewerTest, AnEmptyFileClearsThePictureAndLeavesTheKindAsItWas) {
    View("\0\1\2"s, kViewBinary);
    FillBox(PrincipalViewer.Surface, 0, 0, 5, 5, 0);
    Lines();
    View("", kViewBinary);
    EXPECT_EQ(Lines(), Texts{});
    EXPECT_EQ(PixelAt(PrincipalViewer.Surface, 3, 3), 0xFFFFFF);
    EXPECT_EQ(Kind(), "COCO BIN");
}

TEST_F(ViewerTest, DataIsCutAtCarriageReturnsAndBinariesEvery32Bytes) {
    View("ONE\rTWO\r", kViewData);
    EXPECT_EQ(Lines(), (Texts{"ONE", "TWO", ""}));
    const std::string bytes(40, 'X');
    View(bytes, kViewBinary);
    EXPECT_EQ(PrincipalViewer.ViewerText, bytes);
    // The picture shows ten cells and the start of the eleventh.
    EXPECT_EQ(Lines(), (Texts{std::string(11, 'X'), std::string(8, 'X'), ""}));
}

TEST_F(ViewerTest, TokensAreShownAsText) {
    View(kCocoProgram, kViewBasic);
    EXPECT_EQ(PrincipalViewer.ViewerText, "\r10 CLS\r");
    EXPECT_EQ(Lines(), (Texts{"", "10 CLS", ""}));
    View(kDragonProgram, kViewBasic);
    EXPECT_EQ(PrincipalViewer.ViewerText, "\r10 CLS\r");
    EXPECT_EQ(Disk.PcFileBytes, kDragonProgram);
}

TEST_F(ViewerTest, TheBasicViewTurnsWhatIsNotAsWantedAlready) {
    Choose("VerAsc", 1);  // tokens
    View("\r10 CLS\r", kViewData);
    EXPECT_EQ(PrincipalViewer.ViewerText, "\r10 CLS\r");
    ViewFile(PrincipalViewer, -1, kViewBasic);  // a text: the view follows to text
    EXPECT_EQ(PrincipalControl("VerAsc").ListIndex, 2);
    EXPECT_EQ(PrincipalViewer.ViewerText, "\r10 CLS\r");
    Choose("VerAsc", 1);
    EXPECT_EQ(PrincipalViewer.ViewerText, kCocoProgram);
    Choose("VerAsc", 0);
    EXPECT_EQ(PrincipalViewer.ViewerText, "\r10 CLS\r");
    View(kCocoProgram, kViewBasic);
    Choose("VerAsc", 1);
    EXPECT_EQ(PrincipalViewer.ViewerText, kCocoProgram);
    Choose("VerAsc", 2);
    EXPECT_EQ(PrincipalViewer.ViewerText, "\r10 CLS\r");
}

TEST_F(ViewerTest, AChosenProgramMovesTheBasicViewToItsKindUnlessThatIsAuto) {
    View(kCocoProgram, kViewBasic);
    EXPECT_EQ(PrincipalControl("VerAsc").ListIndex, 0);
    Choose("VerAsc", 2);
    View(kCocoProgram, kViewBasic);
    EXPECT_EQ(PrincipalControl("VerAsc").ListIndex, 1);
    EXPECT_EQ(PrincipalViewer.ViewerText, kCocoProgram);
    Choose("VerAsc", 2);
    View(kDragonProgram, kViewBasic);
    EXPECT_EQ(PrincipalControl("VerAsc").ListIndex, 1);
    View("10 CLS\r", kViewBasic);
    EXPECT_EQ(PrincipalControl("VerAsc").ListIndex, 2);
    View("\xFF", kViewBinary);  // no BASIC: stays
    EXPECT_EQ(PrincipalControl("VerAsc").ListIndex, 2);
}

TEST_F(ViewerTest, AViewThatFollowsTheKindIsNotStored) {
    Choose("VerAsc", 2);
    View(kCocoProgram, kViewBasic);
    EXPECT_EQ(PrincipalControl("VerAsc").ListIndex, 1);
    EXPECT_EQ(Stored("VerAscActual"), "2");
}

TEST_F(ViewerTest, TheBasicViewCanBeChosenOnlyForBasic) {
    for (const int mode : {1, 2, 3}) {
        View("10 CLS", mode);
        EXPECT_FALSE(PrincipalControl("VerAsc").Enabled) << mode;
    }
    View("10 CLS", kViewBasic);
    EXPECT_TRUE(PrincipalControl("VerAsc").Enabled);
}

TEST_F(ViewerTest, ADragonProgramWithoutTheEndOfItsHeadIsTurnedWithTheMessage) {
    std::string program = kDragonProgram;
    program[8] = 0;
    View(program, kViewBasic);
    EXPECT_EQ(Kind(), "");
    EXPECT_EQ(PrincipalViewer.ViewerText, "\r10 CLS\r");
    ASSERT_EQ(script_.Messages.size(), 1u);
    EXPECT_EQ(script_.Messages[0].Text.substr(0, 41), "El archivo no contiene &hAA en el Byte 9\r");
}

TEST_F(ViewerTest, AConversionThatFailsLeavesNothingToShowAndTheProgramGoesOn) {
    View(Bytes({255, 0x80, 0, 1, 2, 3}), kViewBasic);
    ASSERT_EQ(script_.Messages.size(), 1u);
    EXPECT_EQ(script_.Messages[0].Text.substr(0, 19), "Run-time error '5':");
    EXPECT_EQ(PrincipalViewer.ViewerText, "");
    EXPECT_FALSE(script_.Ended);
    EXPECT_EQ(Rows().Maximum, 0);
}

class ResizedWhileAMessageStandsTest : public ViewerTest {
  protected:
    /// A program with a byte that is no token: a message comes up while it is converted. Behind
    /// it, the window gets another size.
    void ViewWithMessage() {
        const auto answer = Platform.ShowMessage;
        Platform.ShowMessage = [this, answer](const std::string& text, const std::string& title,
                                              Buttons buttons, MessageIcon icon) {
            SetSize(PrincipalControl("Archivo"), 100 * kTwipsPerPixel, 38 * kTwipsPerPixel);
            answer(text, title, buttons, icon);
            Lines();
            return Answer::Ok;
        };
        View(program_, kViewBasic);
        ASSERT_EQ(script_.Messages.size(), 1u);
    }

    const std::string program_ =
        Bytes({255, 0, 49, 0x26, 0x40, 0, 10, 0x9E, 0xFA}) + std::string(40, 'A') + "\0\0\0"s;
};

TEST_F(ResizedWhileAMessageStandsTest, TheConvertedTextIsWhatIsCutIntoLines) {
    ViewWithMessage();
    EXPECT_EQ(PrincipalViewer.ViewerText.substr(0, 11), "\r10 CLSCLSA");
    EXPECT_EQ(Lines(), (Texts{"", "10 CLSCLSAAAA", ""}));
}

TEST_F(ResizedWhileAMessageStandsTest, ACocoMaxPictureIsStillTheFilesOwnBytes) {
    Choose("OpciónChar"_w, kCocoMaxPicture);
    ViewWithMessage();
    EXPECT_EQ(PrincipalViewer.ViewerText, program_.substr(kCocoMaxHead));
}

TEST_F(ViewerTest, CallsWithoutATypeUseTheOneBefore) {
    View("ONE\rTWO", kViewData);
    Disk.PcFileBytes = "A\rB";
    Lines();
    ViewFile(PrincipalViewer, -1);
    EXPECT_EQ(Lines(), (Texts{"A", "B"}));
    EXPECT_EQ(PrincipalViewer.ViewerMode, kViewData);
}

TEST_F(ViewerTest, ARedrawKeepsTheTextInView) {
    View("ONE", kViewData);
    Disk.PcFileBytes = "TWO";
    Lines();
    ViewFile(PrincipalViewer, 0);
    EXPECT_EQ(Lines()[0], "ONE");
}

TEST_F(ViewerTest, WhileBusyOnlyTheKindIsNamed) {
    View("ONE", kViewData);
    Lines();
    PrincipalViewer.ViewerBusy = true;
    View("\0TWO"s, kViewBinary);
    PrincipalViewer.ViewerBusy = false;
    EXPECT_EQ(Lines(), Texts{});
    EXPECT_EQ(Kind(), "COCO BIN");
    EXPECT_EQ(PrincipalViewer.ViewerText, "ONE");
}

TEST_F(ViewerTest, ATextWithHighBitsIsRepairedInPlace) {
    View(
        "\xEF"
        "AB\xC3"
        "D",
        kViewData);
    EXPECT_EQ(Disk.PcFileBytes, "o\rABC\rD");
    EXPECT_EQ(Lines(), (Texts{"o", "ABC", "D"}));
}

TEST_F(ViewerTest, ATextWithoutCarriageReturnsIsOneLine) {
    Choose("Anchos", 1);
    View("ONE\nTWO\nTHREE", kViewBinary);
    EXPECT_EQ(Lines(), (Texts{"ONE\nTWO\nTHR", ""}));
    EXPECT_EQ(Columns().Maximum, 13 - 10);
}

TEST_F(ViewerTest, TodoShows32000ColumnsInARow) {
    Choose("Anchos", 4);
    View(std::string(32000, 'A') + "B", kViewBinary);
    EXPECT_EQ(Lines(), (Texts{std::string(11, 'A'), "B", ""}));
    EXPECT_EQ(Columns().Maximum, 32000 - 10);
}

TEST_F(ViewerTest, ZoomBelow7PercentActsAs7) {
    for (const char* zoom : {"5%", "7%", "", "none", "-100%"}) {
        SetText(PrincipalControl("Zoom"), zoom);
        View("TEXT", kViewData);
        EXPECT_DOUBLE_EQ(PrincipalViewer.CellWidth, 0.56) << zoom;
        EXPECT_DOUBLE_EQ(PrincipalViewer.CellHeight, 0.84) << zoom;
    }
    SetText(PrincipalControl("Zoom"), "  50%");
    EXPECT_DOUBLE_EQ(PrincipalViewer.CellWidth, 4);
    EXPECT_DOUBLE_EQ(PrincipalViewer.CellHeight, 6);
}

TEST_F(ViewerTest, ZoomAbove2600PercentIsResetToThat) {
    SetText(PrincipalControl("Zoom"), "2600.5%");
    View("TEXT", kViewData);
    EXPECT_EQ(PrincipalControl("Zoom").Text, "2600%");
    EXPECT_DOUBLE_EQ(PrincipalViewer.CellWidth, 208);
    SetText(PrincipalControl("Zoom"), std::string(400, '9'));
    EXPECT_EQ(PrincipalControl("Zoom").Text, "2600%");
    SetText(PrincipalControl("Zoom"), "2599%");
    EXPECT_EQ(PrincipalControl("Zoom").Text, "2599%");
}

TEST_F(ViewerTest, BarsReachTheLastRowAndTheLastColumn) {
    std::string text;
    for (char line = 'A'; line <= 'H'; ++line)
        text += std::string(15, line) + (line < 'H' ? "\r" : "");
    View(text, kViewData);  // 8 lines of 15; 3 rows and 10 columns fit
    EXPECT_EQ(Rows().Maximum, 5);
    EXPECT_EQ(Rows().LargeChange, 3);
    EXPECT_EQ(Columns().Maximum, 5);
    EXPECT_EQ(Columns().LargeChange, 10);
    Lines();
    SetValue(Rows(), 5);
    EXPECT_EQ(Lines(),
              (Texts{std::string(11, 'F'), std::string(11, 'G'), std::string(11, 'H'), ""}));
    SetValue(Columns(), 5);
    EXPECT_EQ(Lines()[2], std::string(10, 'H'));
}

TEST_F(ViewerTest, ATextThatFitsHasNoScrollRange) {
    View("A\rB\rC", kViewData);
    EXPECT_EQ(Rows().Maximum, 0);
    EXPECT_EQ(Columns().Maximum, 0);
    View("A\rB\rC\rD", kViewData);
    EXPECT_EQ(Rows().Maximum, 1);
}

TEST_F(ViewerTest, FixedWidthsSkipTheHorizontalValueOnce) {
    SetText(PrincipalControl("Anchos"), "16");
    View("0123456789ABCDEFghijklmnopqrstuv", kViewBinary);
    Lines();
    SetValue(Columns(), 4);
    EXPECT_EQ(Lines(), (Texts{"456789ABCDE", "klmnopqrstu", "", ""}));
}

TEST_F(ViewerTest, RowsBeyond32767AreCutOffFromTheScrollRange) {
    SetText(PrincipalControl("Anchos"), "1");
    View(std::string(40000, 'X'), kViewBinary);
    EXPECT_EQ(Rows().Maximum, 32767 - 3);
    Choose("Anchos", 1);
    View(std::string(40000, '\r'), kViewBinary);
    EXPECT_EQ(Rows().Maximum, 32768 - 3);
    View(std::string(100000, '\r'), kViewBinary);
    EXPECT_EQ(Rows().Maximum, 32768 - 3);
    SetValue(Rows(), Rows().Maximum);
    Choose("Anchos", 4);
    View(std::string(100000, 'X'), kViewBinary);
    EXPECT_EQ(Columns().Maximum, 32000 - 10);
}

TEST_F(ViewerTest, AFileJustChosenIsShownFromItsStart) {
    View("A\rB\rC\rD\rE\rF", kViewData);
    SetValue(Rows(), 3);
    View("a\rb\rc\rd\re\rf", kViewData);
    EXPECT_EQ(Rows().Value, 0);
    EXPECT_EQ(Lines()[0], "a");
}

TEST_F(ViewerTest, BarsThatStandBeyondAShorterTextGoBack) {
    View("A\rB\rC\rD\rE\rF", kViewData);
    SetValue(Rows(), 3);
    Disk.PcFileBytes = "a\rb\rc\rd";
    ViewFile(PrincipalViewer, -1);
    EXPECT_EQ(Rows().Value, 1);
    Rows().Value = -7;
    ViewFile(PrincipalViewer, 0);
    EXPECT_EQ(Rows().Value, 0);
}

TEST_F(ViewerTest, LinesStandUnderEachOtherInCells) {
    View("A\rB", kViewData);
    ASSERT_EQ(script_.DrawnLines.size(), 2u);
    EXPECT_EQ(script_.DrawnLines[1].Left, 0);
    EXPECT_EQ(script_.DrawnLines[1].Top, 12);
    EXPECT_EQ(script_.DrawnLines[1].CellWidth, 8);
    EXPECT_EQ(script_.DrawnLines[1].CellHeight, 12);
}

/// The code that the cell at that place shows, -1 when it is none of the set.
int CodeAt(const Picture& picture, int column, int row) {
    for (int code = 0; code < 256; ++code) {
        bool same = true;
        for (int y = 0; y < 12 && same; ++y) {
            for (int x = 0; x < 8 && same; ++x) {
                same = PixelAt(picture, column * 8 + x, row * 12 + y) ==
                       PixelAt(CharacterSet(), code % 32 * 16 + 2 * x, code / 32 * 24 + 2 * y);
            }
        }
        if (same) return code;
    }
    return -1;
}

TEST_F(ViewerTest, CocoShowsEachByteAsItsCodeAndCocoBasTurnsTextIntoCodes) {
    Choose("OpciónChar"_w, kCocoCharacters);
    View("A1a\xB5", kViewBinary);
    EXPECT_EQ(CodeAt(PrincipalViewer.Surface, 0, 0), 'A');
    EXPECT_EQ(CodeAt(PrincipalViewer.Surface, 1, 0), '1');
    EXPECT_EQ(CodeAt(PrincipalViewer.Surface, 2, 0), 'a');
    EXPECT_EQ(CodeAt(PrincipalViewer.Surface, 3, 0), 0xB5);
    Choose("OpciónChar"_w, kCocoBasicCharacters);
    EXPECT_EQ(CodeAt(PrincipalViewer.Surface, 0, 0), 'A');
    EXPECT_EQ(CodeAt(PrincipalViewer.Surface, 1, 0), '1' + 64);
    EXPECT_EQ(CodeAt(PrincipalViewer.Surface, 2, 0), 1);
    EXPECT_EQ(CodeAt(PrincipalViewer.Surface, 3, 0), 0xB5);
    EXPECT_EQ(Lines(), Texts{});
}

TEST_F(ViewerTest, CocoMaxShowsFourDotsAByteBehindTheFirstFiveBytes) {
    Choose("OpciónChar"_w, kCocoMaxPicture);
    View("HEAD." + Bytes({0x1B}) + std::string(31, '\0') + Bytes({0xFF}), kViewBinary);
    const Picture& picture = PrincipalViewer.Surface;
    // Palette: black, red, blue, white as 0x00BBGGRR.
    EXPECT_EQ(PixelAt(picture, 1, 0), 0xFFFFFF);
    EXPECT_EQ(PixelAt(picture, 2, 0), 0);
    EXPECT_EQ(PixelAt(picture, 4, 0), 255);
    EXPECT_EQ(PixelAt(picture, 7, 0), 0xFF0000);
    EXPECT_EQ(PixelAt(picture, 9, 0), 0xFFFFFF);
    EXPECT_EQ(PixelAt(picture, 10, 0), 0);
    EXPECT_EQ(PixelAt(picture, 2, 1), 0xFFFFFF);  // the 33rd byte starts the second row
    EXPECT_EQ(PixelAt(picture, 10, 1), 0xFFFFFF);
    EXPECT_EQ(Rows().Maximum, 0);
    EXPECT_EQ(PrincipalViewer.ViewerText.size(), 33u);
}

TEST_F(ViewerTest, LeavingCocoMaxBringsTheWholeFileBack) {
    Choose("OpciónChar"_w, kCocoMaxPicture);
    View("HEAD.0123", kViewData);
    EXPECT_EQ(PrincipalViewer.ViewerText, "0123");
    Choose("OpciónChar"_w, kWindowsCharacters);
    EXPECT_EQ(PrincipalViewer.ViewerText, "HEAD.0123");
    EXPECT_EQ(Lines(), (Texts{"HEAD.0123", ""}));
}

TEST_F(ViewerTest, CharactersFromTheSettingsBringTheWholeFileBackAtTheNextDrawing) {
    Choose("OpciónChar"_w, kCocoMaxPicture);
    View("HEAD.0123", kViewData);
    ASSERT_EQ(PrincipalViewer.ViewerText, "0123");
    StoreSetting("OpciónCharActual"_w, "0");
    ChooseLanguage("English");
    ASSERT_EQ(PrincipalControl("OpciónChar"_w).ListIndex, kWindowsCharacters);
    ViewFile(PrincipalViewer, 0);
    EXPECT_EQ(PrincipalViewer.ViewerText, "HEAD.0123");
    EXPECT_EQ(Lines(), (Texts{"HEAD.0123", ""}));
}

TEST_F(ViewerTest, WithNoCharactersChosenThePictureStaysEmpty) {
    View("SOME TEXT", kViewData);
    Lines();
    Choose("OpciónChar"_w, -1);
    EXPECT_EQ(Lines(), Texts{});
    const Picture& picture = PrincipalViewer.Surface;
    for (int x = 0; x < picture.Width; ++x) EXPECT_EQ(PixelAt(picture, x, 5), 0xFFFFFF) << x;
}

TEST_F(ViewerTest, CocoMaxOfFiveBytesFallsBackToTheUsualWidths) {
    Choose("OpciónChar"_w, kCocoMaxPicture);
    Choose("Anchos", 1);
    View("A\rB\rC", kViewData);
    EXPECT_EQ(PrincipalViewer.ViewerText, "A\rB\rC");
    EXPECT_EQ(PrincipalViewer.CellHeight, 12);
    EXPECT_EQ(Rows().LargeChange, 2);
    View("A\rB\rCD", kViewData);
    EXPECT_EQ(PrincipalViewer.ViewerText, "D");
    EXPECT_EQ(PrincipalViewer.CellHeight, 1);
}

TEST_F(ViewerTest, EveryByteFileOfUpToTwoBytesIsShownInEveryWay) {
    for (int characters = 0; characters < 4; ++characters) {
        Choose("OpciónChar"_w, characters);
        for (int first = 0; first < 256; ++first) {
            for (const int second : {-1, 0, 1, 13, 85, 170, 239, 255}) {
                std::string bytes(1, static_cast<char>(first));
                if (second >= 0) bytes += static_cast<char>(second);
                for (const int mode : {0, 1, 2}) View(bytes, mode);
            }
        }
    }
    EXPECT_FALSE(script_.Ended);
}

}  // namespace
}  // namespace brindlemoor::test
