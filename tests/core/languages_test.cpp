#include "core/languages.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>

#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "core/runtime_failure.h"
#include "core/screen.h"
#include "core/settings.h"
#include "core/settings_text.h"
#include "support/disk_fixture.h"
#include "support/settings_fixture.h"

namespace brindlemoor {
namespace {

using test::FailureOf;

/// Writes down, as one text a call, what is asked of the main window.
class LanguageTest : public test::SettingsTest {
  protected:
    void SetUp() override {
        SettingsTest::SetUp();
        RecordTexts();
        RecordSettings();
    }

    void RecordTexts() {
        Screen.SetCaptionAndTag = [this](const std::string& name, const std::string& text) {
            Note("caption " + name + ": " + text);
        };
        Screen.SetListItems = [this](const std::string& name,
                                     const std::vector<std::string>& items) {
            Note("list " + name + ": " + JoinText(items, "|"));
        };
        Screen.SetMenuItems = [this](const std::string& name,
                                     const std::vector<std::string>& items) {
            Note("menu " + name + ": " + JoinText(items, "|"));
        };
        Screen.SetLanguageMenu = [this](const std::vector<std::string>& names,
                                        const std::vector<std::string>& captions,
                                        const std::string& language) {
            Note("languages " + JoinText(names, "|") + ": " + JoinText(captions, "|") + ": " +
                 language);
        };
    }

    void RecordSettings() {
        Screen.SetControlIndex = [this](const std::string& name, int index) {
            Note("index " + name + ": " + std::to_string(index));
        };
        Screen.SetControlText = [this](const std::string& name, const std::string& text) {
            Note("text " + name + ": " + text);
        };
        Screen.SetAlternateRowColour = [this](std::int32_t colour) {
            Note("colour " + std::to_string(colour));
        };
        Screen.SetGridHeaders = [this] { Note("headers"); };
        Screen.FillDirectoryGrid = [this] { Note("fill"); };
    }

    void Note(const std::string& call) {
        Calls.push_back(call);
        BusyDuring.push_back(WindowBusy);
    }

    /// Applies `language` from a file of that text, and returns what was asked of the window
    /// before the headers were set.
    std::vector<std::string> Apply(const std::string& text, const std::string& language = "En") {
        GiveSettings(text);
        Calls.clear();
        BusyDuring.clear();
        ApplyLanguage(language);
        EXPECT_FALSE(Calls.empty());
        EXPECT_EQ(Calls.back(), "headers");
        return {Calls.begin(), Calls.end() - 1};
    }

    bool Called(const std::string& call) const {
        return std::find(Calls.begin(), Calls.end(), call) != Calls.end();
    }

    std::vector<std::string> Calls;
    std::vector<bool> BusyDuring;
};

using Texts = std::vector<std::string>;

// The built-in languages

TEST_F(LanguageTest, EnglishFillsAllMessages) {
    Apply(DefaultSettingsText(), "English");
    ASSERT_EQ(Disk.Messages.size(), 161U);
    EXPECT_EQ(MessageText(0),
              "The file: []\xAC"
              "Already exist, overwrite? or rename");
    EXPECT_EQ(MessageText(6), "Please enter some text in cell.");
    EXPECT_EQ(MessageText(7), "0=BASIC,1=BASIC data,2=Machine lenguage,3=Data text editor");
    EXPECT_EQ(MessageText(13), " Deleted");
    EXPECT_EQ(MessageText(22), "");
    EXPECT_EQ(MessageText(40), "To");
    EXPECT_EQ(MessageText(41), "");
}

TEST_F(LanguageTest, SpanishFillsAllMessages) {
    Apply(DefaultSettingsText(), "Spanish");
    EXPECT_EQ(MessageText(6), "Mensaje06=Por favor introduzca algún texto en la celda."_w);
    EXPECT_EQ(MessageText(13), "Borrados");
    EXPECT_EQ(MessageText(26), "Error en Destoken Comando, Posición: "_w);
    EXPECT_EQ(MessageText(40), "a");
}

TEST_F(LanguageTest, EnglishSetsCaptionsMenusAndLists) {
    Apply(DefaultSettingsText(), "English");
    EXPECT_TRUE(Called("caption Label3: CoCo Directory:"));
    EXPECT_TRUE(Called("caption VerBorrados: View # Deleted"));
    EXPECT_TRUE(Called("menu FilesMenu: New|-|Open|ReOpen (Undo)|-|Save|Save As...|-|Exit"));
    EXPECT_TRUE(Called("languages English|Spanish: English|Spanish: English"));
    EXPECT_TRUE(Called("list VerAsc: Auto|Compressed|ASC CoCo"));
    EXPECT_TRUE(Called("list Anchos: Auto|lines (13)|lines (13 + 10)|lines (0)|All|32|256"));
    EXPECT_EQ(Calls.size(), 8U + 14U + 3U + 1U);
}

TEST_F(LanguageTest, SpanishSetsOneItemFewerInTheConversionMenu) {
    Apply(DefaultSettingsText(), "English");
    EXPECT_TRUE(
        Called("menu ConvMenu: BAS ASCII<->BAS (Token/Compress)|BAS (CR)<->BAS (CRLF)|-|-> "
               ".BAS.DAT.BIN.TXT"
               "|-> CAS|-> WAV|-> Audio|-|CCC <-> PAK|-|DSK <-> VDK"));
    Apply(DefaultSettingsText(), "Spanish");
    EXPECT_TRUE(
        Called("menu ConvMenu: BAS ASCII<->BAS (Token/Compr.)|BAS (CR)<->BAS (CRLF)|-|-> ORIGINAL"
               "|-> CAS|-> WAV|-> Audio|-|CCC <-> PAK|DSK <-> VDK"));
    EXPECT_TRUE(Called("languages English|Spanish: Ingles|Espa\xF1ol: Spanish"));
}

TEST_F(LanguageTest, BothSetTheSameControls) {
    const auto namesOf = [](const Texts& calls) {
        Texts names;
        for (const std::string& call : calls) names.push_back(call.substr(0, call.find(':')));
        return names;
    };
    const Texts english = namesOf(Apply(DefaultSettingsText(), "English"));
    EXPECT_EQ(namesOf(Apply(DefaultSettingsText(), "Spanish")), english);
}

TEST_F(LanguageTest, TheBuiltInTextFillsTheColumnLists) {
    Apply(DefaultSettingsText(), "Spanish");
    ASSERT_EQ(Settings.ColumnOrderList.size(), 18U);
    ASSERT_EQ(Settings.ColumnWidthList.size(), 18U);
    ASSERT_EQ(Settings.VisibleColumnsList.size(), 4U);
    ASSERT_EQ(Settings.ColumnHeaderList.size(), 18U);
    EXPECT_EQ(Settings.ColumnOrderList[17], "18");
    EXPECT_EQ(Settings.ColumnWidthList[0], "65");
    EXPECT_EQ(Settings.VisibleColumnsList[3], "110010111111100101");
    EXPECT_EQ(Settings.ColumnHeaderList[17], "Secuencia de Granulos o Sectores   ");
}

TEST_F(LanguageTest, TheBuiltInTextLeavesTheAlternateRowColourOfTheDesign) {
    Apply(DefaultSettingsText(), "English");
    const auto& colours = Settings.ColourOptions;
    EXPECT_EQ(colours[kAlternateRowColour].Name, "");
    EXPECT_EQ(colours[kAlternateRowColour].Value, 0);
    EXPECT_EQ(colours[kAlternateRowColour].Default, 0);
    EXPECT_EQ(colours[kSectorErrorColour].Name, "SectorErrorColor");
    EXPECT_EQ(colours[kSectorErrorColour].Value, 13158655);
    EXPECT_EQ(colours[kSectorErrorColour].Default, 13158655);
    EXPECT_EQ(colours[kContinuationColour].Name, "ContinueDirEntryColor");
    EXPECT_EQ(colours[kContinuationColour].Value, 13158600);
    EXPECT_FALSE(Called("colour 15138044"));
}

TEST_F(LanguageTest, TheAudioWindowsTextsAreNotApplied) {
    Apply(DefaultSettingsText(), "English");
    for (const std::string& call : Calls) {
        EXPECT_EQ(call.find("LabelVolume"), std::string::npos) << call;
        EXPECT_EQ(call.find("caption Show"), std::string::npos) << call;
    }
}

// The walk

TEST_F(LanguageTest, OnlyTheSectionAskedForCounts) {
    EXPECT_EQ(Apply("[Es]\r\nLabel1=uno\r\n[En]\r\nLabel1=one\r\n[Fr]\r\nLabel1=un"),
              (Texts{"caption Label1: one"}));
}

TEST_F(LanguageTest, AHeaderIsComparedByItsBeginning) {
    EXPECT_EQ(Apply("[En] old\r\nLabel1=one"), (Texts{"caption Label1: one"}));
}

TEST_F(LanguageTest, ASectionThatIsNotThereChangesNoText) {
    EXPECT_TRUE(Apply(DefaultSettingsText(), "French").empty());
    EXPECT_EQ(MessageText(0), "");
}

TEST_F(LanguageTest, CommentsAndEmptyLinesAreSkipped) {
    EXPECT_EQ(Apply("[En]\r\n'Label1=one\r\n\r\nLabel2=two\r\n"), (Texts{"caption Label2: two"}));
}

TEST_F(LanguageTest, ALineThatHoldsAudioConvertEndsTheAppliedPart) {
    EXPECT_EQ(Apply("[En]\r\nLabel1=one\r\nLabel2=the Audio Converter\r\nLabel3=three"),
              (Texts{"caption Label1: one"}));
}

TEST_F(LanguageTest, TheValueIsAllBehindTheFirstEqualSign) {
    EXPECT_EQ(Apply("[En]\r\nLabel1=a=b=c\r\nLabel2==\r\nLabel3="),
              (Texts{"caption Label1: a=b=c", "caption Label2: =", "caption Label3: "}));
}

TEST_F(LanguageTest, ALineWithoutAnEqualSignHasAnEmptyValue) {
    EXPECT_EQ(Apply("[En]\r\nLabel1\r\nMensaje\r\nMensaje00=one"), (Texts{"caption Label1: "}));
    EXPECT_EQ(MessageText(0), "");
    EXPECT_EQ(MessageText(1), "one");
}

TEST_F(LanguageTest, ASectionThatComesTwiceIsAppliedTwice) {
    EXPECT_EQ(Apply("[En]\r\nLabel1=one\r\nMensaje00=a\r\n[En]\r\nLabel1=two\r\nMensaje00=b"),
              (Texts{"caption Label1: one", "caption Label1: two"}));
    EXPECT_EQ(MessageText(0), "a");
    EXPECT_EQ(MessageText(1), "b");
}

TEST_F(LanguageTest, ReadsTheFileByItselfAndNotTheCache) {
    GiveSettings("[En]\r\nLabel1=old");
    std::string value;
    IniValue("En", "Label1", value, "");
    EXPECT_EQ(Apply("[En]\r\nLabel1=new"), (Texts{"caption Label1: new"}));
    IniValue("En", "Label1", value, "");
    EXPECT_EQ(value, "old");
}

TEST_F(LanguageTest, WritesNothing) {
    Apply(DefaultSettingsText(), "Spanish");
    EXPECT_EQ(SettingsFile(), DefaultSettingsText());
    EXPECT_EQ(Settings.SettingsCacheMark, "");
}

// Messages

TEST_F(LanguageTest, MessagesGoByTheirCountAndNotTheirNumber) {
    Apply("[En]\r\nMensaje05=a\r\nMensaje00=b\r\nMensajeX=c");
    EXPECT_EQ(MessageText(0), "a");
    EXPECT_EQ(MessageText(1), "b");
    EXPECT_EQ(MessageText(2), "c");
}

TEST_F(LanguageTest, AKeyLeftOutMovesLaterMessagesDown) {
    Apply(ReplaceText(DefaultSettingsText(), "Mensaje01=Continue with the other files?\r\n", ""),
          "English");
    EXPECT_EQ(MessageText(1), "File: ");
    EXPECT_EQ(MessageText(39), "To");
}

TEST_F(LanguageTest, EmptyMessagesCount) {
    Apply("[En]\r\nMensaje00=\r\nMensaje01=b");
    EXPECT_EQ(MessageText(0), "");
    EXPECT_EQ(MessageText(1), "b");
}

TEST_F(LanguageTest, MessagesThatTheNewLanguageLacksStay) {
    Apply("[En]\r\nMensaje00=a\r\nMensaje01=b\r\n[Es]\r\nMensaje00=z", "En");
    Apply("[En]\r\nMensaje00=a\r\nMensaje01=b\r\n[Es]\r\nMensaje00=z", "Es");
    EXPECT_EQ(MessageText(0), "z");
    EXPECT_EQ(MessageText(1), "b");
}

TEST_F(LanguageTest, MoreThan161MessagesFailWith9) {
    std::string text = "[En]";
    for (int i = 0; i < 161; ++i) text += "\r\nMensaje=" + std::to_string(i);
    Apply(text);
    EXPECT_EQ(MessageText(160), "160");
    GiveSettings(text + "\r\nMensaje=161");
    EXPECT_EQ(FailureOf([] { ApplyLanguage("En"); }), kIndexRange);
}

// Keys of a language section

TEST_F(LanguageTest, ItemsAreSplitAtCommas) {
    EXPECT_EQ(Apply("[En]\r\nVerAsc=a,,c\r\nPopMenu=-,b\r\nDirPattern="),
              (Texts{"list VerAsc: a||c", "menu PopMenu: -|b", "list DirPattern: "}));
}

TEST_F(LanguageTest, APartOfAComboBoxNameIsTakenForAComboBox) {
    EXPECT_EQ(Apply("[En]\r\nAsc=a,b\r\n=c"), (Texts{"list Asc: a|b", "list : c"}));
}

TEST_F(LanguageTest, AKeyThatHoldsMenuIsAMenu) {
    EXPECT_EQ(Apply("[En]\r\nMenuPop=a\r\nmenu=b"), (Texts{"menu MenuPop: a", "caption menu: b"}));
}

TEST_F(LanguageTest, KeysAreComparedExactly) {
    EXPECT_EQ(Apply("[En]\r\ncolumnsheader=a\r\nlanguageMenu=b\r\nmensaje00=c"),
              (Texts{"caption columnsheader: a", "menu languageMenu: b", "caption mensaje00: c"}));
    EXPECT_TRUE(Settings.ColumnHeaderList.empty());
}

TEST_F(LanguageTest, TheLanguageMenuTakesItsNamesFromLanguages) {
    EXPECT_EQ(Apply("[General]\r\nLanguages=Es,En\r\n[En]\r\nLanguageMenu=Spanish,English"),
              (Texts{"languages Es|En: Spanish|English: En"}));
    EXPECT_EQ(Settings.LanguageIndex, 1);
}

TEST_F(LanguageTest, ALanguageThatLanguagesLacksKeepsTheIndex) {
    Settings.LanguageIndex = 1;
    Apply("[General]\r\nLanguages=Es,Fr\r\n[En]\r\nLanguageMenu=a,b");
    EXPECT_EQ(Settings.LanguageIndex, 1);
}

// Settings

TEST_F(LanguageTest, StoredChoicesAreRestored) {
    EXPECT_EQ(Apply("[General]\r\nMuestraActual=3\r\nAnchoActual=40\r\nVerAscActual=1\r\n"
                    "Opci\xF3nCharActual=2"),
              (Texts{"index DirPattern: 3", "text Anchos: 40", "index VerAsc: 1",
                     "index Opci\xF3nChar: 2"}));
}

TEST_F(LanguageTest, SettingsCountInEverySection) {
    const Texts calls = Apply(
        "ColumnOrder=3\r\n[Audio Options]\r\nColumnWidths=1,2\r\n[Es]\r\nVerAscActual=0\r\n"
        "'--Audio Convert--\r\nVisibleColumns=1");
    EXPECT_EQ(calls, (Texts{"index VerAsc: 0"}));
    EXPECT_EQ(Settings.ColumnOrderList, (Texts{"3"}));
    EXPECT_EQ(Settings.ColumnWidthList, (Texts{"1", "2"}));
    EXPECT_EQ(Settings.VisibleColumnsList, (Texts{"1"}));
}

TEST_F(LanguageTest, ASettingInsideTheLanguageIsAlsoTakenForAControl) {
    EXPECT_EQ(Apply("[En]\r\nAnchoActual=5"), (Texts{"text Anchos: 5", "caption AnchoActual: 5"}));
}

TEST_F(LanguageTest, ColoursSetNameValueAndDefault) {
    EXPECT_EQ(Apply("[General]\r\nAlternateRowBackGroundColor=255\r\nSectorErrorColor=1\r\n"
                    "ContinueDirEntryColor=2"),
              (Texts{"colour 255"}));
    const auto& colours = Settings.ColourOptions;
    EXPECT_EQ(colours[kAlternateRowColour].Name, "AlternateRowBackGroundColor");
    EXPECT_EQ(colours[kAlternateRowColour].Value, 255);
    EXPECT_EQ(colours[kAlternateRowColour].Default, 15138044);
    EXPECT_EQ(colours[kSectorErrorColour].Value, 1);
    EXPECT_EQ(colours[kSectorErrorColour].Default, 13158655);
    EXPECT_EQ(colours[kContinuationColour].Value, 2);
    EXPECT_EQ(colours[kContinuationColour].Default, 13158600);
}

TEST_F(LanguageTest, ALineWithAnEmptyKeyOutsideTheLanguageIsPassedOver) {
    EXPECT_TRUE(Apply("[General]\r\n=0\r\n[En]").empty());
}

TEST_F(LanguageTest, AColourOrIndexThatIsNoNumberFailsWith13) {
    for (const char* line : {"SectorErrorColor=red", "AlternateRowBackGroundColor=",
                             "MuestraActual=", "VerAscActual=1x", "Opci\xF3nCharActual=a"}) {
        GiveSettings(std::string("[General]\r\n") + line);
        EXPECT_EQ(FailureOf([] { ApplyLanguage("En"); }), kTypeMismatch) << line;
    }
}

TEST_F(LanguageTest, ANumberThatIsTooLargeFailsWith6) {
    for (const char* line : {"SectorErrorColor=4294967295", "VerAscActual=40000"}) {
        GiveSettings(std::string("[General]\r\n") + line);
        EXPECT_EQ(FailureOf([] { ApplyLanguage("En"); }), kOverflow) << line;
    }
}

// The busy flag

TEST_F(LanguageTest, TheWindowIsBusyUntilTheHeadersAreSet) {
    Apply("[General]\r\nVerAscActual=1\r\n[En]\r\nLabel1=one");
    EXPECT_EQ(Calls, (Texts{"index VerAsc: 1", "caption Label1: one", "headers"}));
    EXPECT_EQ(BusyDuring, (std::vector<bool>{true, true, false}));
    EXPECT_FALSE(WindowBusy);
}

TEST_F(LanguageTest, AFailureOfTheWindowLeavesItNotBusy) {
    GiveSettings("[En]\r\nNoSuchControl=one\r\nLabel1=two");
    Screen.SetCaptionAndTag = [](const std::string&, const std::string&) {
        Fail(kControlNotFound);
    };
    EXPECT_EQ(FailureOf([] { ApplyLanguage("En"); }), kControlNotFound);
    EXPECT_FALSE(WindowBusy);
    EXPECT_TRUE(Calls.empty());
}

TEST_F(LanguageTest, AFileThatCannotBeReadFailsWithTheSystemsNumber) {
    Settings.SettingsPath = Base + "/missing";
    EXPECT_EQ(FailureOf([] { ApplyLanguage("En"); }), ENOENT);
    EXPECT_FALSE(WindowBusy);
}

TEST_F(LanguageTest, ADamagedFileDoesNoHarm) {
    EXPECT_TRUE(Apply("").empty());
    EXPECT_TRUE(Apply(std::string(5000, '\0')).empty());
    EXPECT_TRUE(Apply("[").empty());
    EXPECT_TRUE(Apply("[En]").empty());
    EXPECT_EQ(Apply("[En]\r\n" + std::string(3, '\0')).size(), 1U);
    EXPECT_TRUE(Apply("[General]\nLabel1=one\n[En]\nLabel1=two").empty());
}

// Choosing a language

TEST_F(LanguageTest, ChoosingStoresTheLanguageAndRebuildsTheGrid) {
    GiveSettings(DefaultSettingsText());
    ChooseLanguage("Spanish");
    EXPECT_EQ(Settings.CurrentLanguage, "Spanish");
    EXPECT_EQ(Settings.LanguageIndex, 1);
    EXPECT_EQ(MessageText(12), "Archivos:");
    EXPECT_EQ(SettingsFile(), ReplaceText(DefaultSettingsText(), "CurrentLanguage=English",
                                          "CurrentLanguage=Spanish"));
    ASSERT_GE(Calls.size(), 2U);
    EXPECT_EQ(Calls[Calls.size() - 2], "headers");
    EXPECT_EQ(Calls.back(), "fill");
}

TEST_F(LanguageTest, ALanguageThatFailsIsNotStored) {
    GiveSettings("[General]\r\nCurrentLanguage=Es\r\nVerAscActual=x\r\n[En]\r\nLabel1=one");
    EXPECT_EQ(FailureOf([] { ChooseLanguage("En"); }), kTypeMismatch);
    EXPECT_NE(SettingsFile().find("CurrentLanguage=Es"), std::string::npos);
    EXPECT_FALSE(Called("fill"));
}

TEST_F(LanguageTest, AHandMadeLanguageCanTakeAnOthersPlace) {
    const std::string text = ReplaceText(
        ReplaceText(DefaultSettingsText(), "Languages=English,Spanish", "Languages=English,French"),
        "[Spanish]", "[French]");
    GiveSettings(text);
    ChooseLanguage("French");
    EXPECT_EQ(Settings.LanguageIndex, 1);
    EXPECT_TRUE(Called("languages English|French: Ingles|Espa\xF1ol: French"));
}

}  // namespace
}  // namespace brindlemoor
