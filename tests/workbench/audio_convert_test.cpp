#include "workbench/audio_convert.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "convert/wav_writer.h"
#include "core/byte_helpers.h"
#include "core/settings.h"
#include "support/workbench_fixture.h"
#include "workbench/principal.h"

namespace brindlemoor::test {
namespace {

using Texts = std::vector<std::string>;

const Texts kComboBoxes = {"Output",        "WavFormat",   "SampleRate", "BitsPerSample",
                           "NumChannels",   "Frec1200",    "Frec2400",   "SilenceStart",
                           "SilenceHeader", "SilenceBlock"};

/// A started program. `Open` shows the dialog as the menu does.
class AudioConvertTest : public WorkbenchTest {
  protected:
    void SetUp() override {
        WorkbenchTest::SetUp();
        Start();
    }
    void TearDown() override {
        AudioConvert = Window();
        WorkbenchTest::TearDown();
    }

    static void Open() {
        OpenAudioConvert();
        AudioConvert.Open = true;
    }

    /// The dialog over settings in memory alone, of which these are the lines behind the section.
    static void OpenWith(const Texts& lines, const std::string& language = "English") {
        OpenAudioConvert();
        Settings.CurrentLanguage = language;
        Texts& kept = Settings.SettingsLines;
        std::size_t first = 0;
        while (first < kept.size() && kept[first] != "[English]") ++first;
        kept.resize(first);
        kept.insert(kept.end(), lines.begin(), lines.end());
        Open();
    }

    static Control& Of(const std::string& name) { return ControlOf(AudioConvert, name); }
    static std::string Text(const std::string& name) { return Of(name).Text; }
    static void Type(const std::string& name, const std::string& text) { SetText(Of(name), text); }
    static void Press(const std::string& name) { Raise(Of(name).Click); }

    /// The section "Audio Options" of the settings file, line by line.
    Texts Section() const {
        Texts lines;
        bool inside = false;
        for (const std::string& line : SplitText(SettingsFile(), "\r\n")) {
            if (line.compare(0, 1, "[") == 0) inside = line == "[Audio Options]";
            if (inside) lines.push_back(line);
        }
        return lines;
    }
};

// The table of controls

TEST_F(AudioConvertTest, ItsControlsHaveTheNamesOfTheKeysAndOfTheTexts) {
    Open();
    using enum ControlKind;
    const std::map<ControlKind, Texts> names = {
        {ComboBox, kComboBoxes},
        {CheckBox, {"Show"}},
        {Slider, {"Volumen"}},
        {TextBox, {"BlockAlin", "ByteRate", "Size", "Increment"}},
        {Button, {"Default", "Ok", "Cancel"}},
        {Frame, {"WAV", "Frequencies", "Silences"}},
        {Label,
         {"LabelOutput", "LabelVolume", "LabelWavFormat", "LabelSampleRate", "LabelBitsPerSample",
          "LabelNumChannels", "LabelBlockAlining", "LabelByteRate", "LabelSize", "LabelZeros1200",
          "LabelOnes2400", "LabelSilenceStart", "LabelSilenceHeader", "LabelSilenceBlock",
          "LabelIncrement"}}};
    std::size_t count = 0;
    for (const auto& [kind, ofKind] : names) {
        for (const std::string& name : ofKind) EXPECT_EQ(Of(name).Kind, kind) << name;
        count += ofKind.size();
    }
    EXPECT_EQ(AudioConvert.Controls.size(), count);
}

TEST_F(AudioConvertTest, TheListsHaveTheirItemsAndTakeFreeText) {
    Open();
    const std::map<std::string, Texts> items = {
        {"Output", {"WAV", "AUDIO"}},
        {"WavFormat", {"1 = PCM"}},
        {"SampleRate", {"44100 (Default)", "22050", "11025"}},
        {"BitsPerSample", {"8 (Default)", "16"}},
        {"NumChannels", {"1 - Mono (Default)", "2 - Stereo"}},
        {"Frec1200", {"1200 (Default)", "1100", "1094.68085106384 Empirical Toolshed"}},
        {"Frec2400",
         {"2400 (Default)", "2200", "2100", "2004.54545454545 Empirical Toolshed", "2000"}},
        {"SilenceStart", {"0", "500", "2000"}},
        {"SilenceHeader", {"500", "0"}},
        {"SilenceBlock", {"0", "3"}}};
    for (const auto& [name, ofList] : items) {
        EXPECT_EQ(Of(name).Items, ofList) << name;
        EXPECT_TRUE(Of(name).Editable) << name;
    }
    EXPECT_EQ(Of("Frec1200").ItemTags, (Texts{"1200", "1100", "1094"}));
    EXPECT_EQ(Of("Frec2400").ItemTags, (Texts{"2400", "2200", "2100", "2004", "2000"}));
}

TEST_F(AudioConvertTest, TheBoxesOfResultsOnlyShow) {
    Open();
    for (const char* name : {"BlockAlin", "ByteRate", "Size", "Increment"}) {
        EXPECT_TRUE(Of(name).ReadOnly) << name;
    }
}

TEST_F(AudioConvertTest, TheVolumeEndsBelow146) {
    Open();
    EXPECT_EQ(Of("Volumen").Minimum, 0);
    EXPECT_EQ(Of("Volumen").Maximum, 145);
    EXPECT_NO_THROW(GenerateWave(36.75, Of("Volumen").Maximum));
    SetValue(Of("Volumen"), 120);
    EXPECT_EQ(Of("Volumen").ToolTip, "120");
}

TEST_F(AudioConvertTest, EnterIsOk) {
    Open();
    for (const Control& control : AudioConvert.Controls) {
        EXPECT_EQ(control.Default, control.Name == "Ok") << control.Name;
    }
}

TEST_F(AudioConvertTest, EveryFieldIsNamedByItsLabel) {
    Settings.CurrentLanguage = "Spanish";
    Open();
    EXPECT_EQ(Of("Output").AccessibleName, "Formato de Salida :");
    EXPECT_EQ(Of("Volumen").AccessibleName, "Volumen:");
    EXPECT_EQ(Of("ByteRate").AccessibleName, "Bytes X Seg:");
    EXPECT_EQ(Of("Frec2400").AccessibleName, "Unos (1):");
    EXPECT_EQ(Of("SilenceHeader").AccessibleName, "Despúes de Cabezera:"_w);
    for (const std::string& name : kComboBoxes) EXPECT_NE(Of(name).AccessibleName, "") << name;
}

// Opening

TEST_F(AudioConvertTest, TheOptionsMenuOpensItWithItsValues) {
    std::string shown;
    script_.OnModal = [&shown](const std::string& window) {
        shown = window + " " + Text("SampleRate") + " " + Text("ByteRate");
    };
    MenuOf(Principal, "OptionsMenu").Click(4);
    EXPECT_EQ(shown, "AudioConvert 44100 44100");
    EXPECT_EQ(AudioConvert.Name, "AudioConvert");
}

TEST_F(AudioConvertTest, ANewSettingsFileShowsItsValues) {
    Open();
    const Texts values = {"WAV", "1", "44100", "8", "1", "1200", "2400", "0", "500", "0"};
    for (std::size_t i = 0; i < values.size(); ++i) {
        EXPECT_EQ(Text(kComboBoxes[i]), values[i]) << kComboBoxes[i];
    }
}

TEST_F(AudioConvertTest, EveryComboBoxShowsWhatTheSettingsHaveForIt) {
    for (const std::string& name : kComboBoxes) {
        std::string value = "7 of " + name + "=x";
        IniValue("Audio Options", name, value, "G");
    }
    Open();
    for (const std::string& name : kComboBoxes) EXPECT_EQ(Text(name), "7 of " + name + "=x");
    EXPECT_EQ(Text("BlockAlin"), "6.125");  // 7 * 7 / 8
    EXPECT_EQ(Text("ByteRate"), "42.875");
}

TEST_F(AudioConvertTest, ShowAndVolumenAreNeitherLoadedNorStored) {
    std::string value = "True";
    IniValue("Audio Options", "Show", value, "G");
    value = "120";
    IniValue("Audio Options", "Volume", value, "G");
    Open();
    EXPECT_FALSE(Of("Show").Checked);
    EXPECT_EQ(Of("Volumen").Value, 110);
    SetValue(Of("Volumen"), 130);
    Press("Ok");
    EXPECT_EQ(Stored("Show"), "True");  // the first of the file; the languages have their own
    EXPECT_EQ(Stored("Volume"), "120");
    EXPECT_EQ(Stored("Volumen"), "(none)");
    Open();
    EXPECT_EQ(Of("Volumen").Value, 110);
}

TEST_F(AudioConvertTest, AMissingKeyComesIntoBeingWithTheValueOfTheDesign) {
    GiveDefaultSettings("\r\nFrec1200=1200\r\n", "\r\n");
    BuildAgain();
    Start();
    Open();
    EXPECT_EQ(Text("Frec1200"), "1200 (Default)");
    EXPECT_EQ(Stored("Frec1200"), "1200 (Default)");
    EXPECT_EQ(Section().back(), "Frec1200=1200 (Default)");
}

TEST_F(AudioConvertTest, EveryOpeningStartsFromTheSettings) {
    Open();
    Type("SampleRate", "22050");
    SetChecked(Of("Show"), true);
    SetValue(Of("Volumen"), 5);
    Press("Cancel");
    Open();
    EXPECT_EQ(Text("SampleRate"), "44100");
    EXPECT_EQ(Text("ByteRate"), "44100");
    EXPECT_FALSE(Of("Show").Checked);
    EXPECT_EQ(Of("Volumen").Value, 110);
}

// Captions

TEST_F(AudioConvertTest, TheCaptionsAreThoseOfTheLanguage) {
    const std::vector<std::tuple<const char*, const char*, const char*>> rows = {
        {"Show", "Show Menu before convert?", "Mostrar este menú al convertir?"},
        {"Cancel", "Cancel", "Cancelar"},
        {"Ok", "Ok", "Aceptar"},
        {"Default", "Default", "Predeterminado"},
        {"Frequencies", "frequencies", "Frecuencias"},
        {"LabelZeros1200", "Zeros (0):", "Ceros (0):"},
        {"LabelOnes2400", "Ones (1):", "Unos (1):"},
        {"WAV", "WAV Format", "Formato WAV"},
        {"LabelSampleRate", "Sample Rate:", "Muestras X Seg:"},
        {"LabelBitsPerSample", "Bits per Sample:", "Bits X Muestra:"},
        {"LabelNumChannels", "Num Channels:", "Canales:"},
        {"LabelByteRate", "Byte Rate:", "Bytes X Seg:"},
        {"LabelBlockAlining", "Block Alining:", "Alineac/Bloque:"},
        {"LabelWavFormat", "WAV Format:", "Formato WAV:"},
        {"Silences", "Silences", "Silencios"},
        {"LabelIncrement", "Increment in Bytes :", "Incremento en Bytes :"},
        {"LabelSilenceBlock", "Before each block:", "Antes de cada bloque:"},
        {"LabelSilenceHeader", "After Header :", "Despúes de Cabezera:"},
        {"LabelSilenceStart", "At the beginning:", "Al comienzo:"},
        {"LabelSize", "Size Approx for 1 minute :", "Tamaño aprox para 1 minuto :"},
        {"LabelVolume", "Volume:", "Volumen:"},
        {"LabelOutput", "Output :", "Formato de Salida :"},
    };
    Open();
    for (const auto& [name, english, spanish] : rows) EXPECT_EQ(Text(name), english);
    Press("Cancel");
    MenuOf(Principal, "LanguageMenu").Click(1);
    Open();
    for (const auto& [name, english, spanish] : rows) EXPECT_EQ(Text(name), Windows1252(spanish));
}

TEST_F(AudioConvertTest, WithoutTextsTheDesignsCaptionsStay) {
    OpenWith({"[English]", "Ok=Fine"});
    EXPECT_EQ(Text("Show"), "Mostrar este menú al convertir"_w);
    EXPECT_EQ(Text("Ok"), "Aceptar");
    EXPECT_EQ(Text("LabelSize"), "Tamaño aprox para 1 minuto :"_w);
}

TEST_F(AudioConvertTest, CaptionsStandBehindTheLineThatHoldsAudioConvert) {
    OpenWith({"[English]", "Ok=early", "Cancel=early", "the Audio Converter", "Ok=late"});
    EXPECT_EQ(Text("Ok"), "late");
    EXPECT_EQ(Text("Cancel"), "Cancelar");
}

TEST_F(AudioConvertTest, AnEmptyLineEndsTheCaptions) {
    OpenWith({"[English]", "'Audio Convert", "Ok=one", "", "Ok=two", "'Audio Convert", "Ok=three"});
    EXPECT_EQ(Text("Ok"), "one");
    // In front of the comment it ends the language as well.
    OpenWith({"[English]", "", "'Audio Convert", "Ok=one"});
    EXPECT_EQ(Text("Ok"), "Aceptar");
    // A blank is no empty line.
    OpenWith({"[English]", "'Audio Convert", " ", "Ok=one"});
    EXPECT_EQ(Text("Ok"), "one");
}

TEST_F(AudioConvertTest, TheNextSectionEndsTheCaptions) {
    OpenWith({"[English]", "'Audio Convert", "Ok=one", "[Other]", "'Audio Convert", "Ok=two"});
    EXPECT_EQ(Text("Ok"), "one");
    OpenWith({"[English]", "'Audio Convert", "Ok=one", "[any line like this", "Ok=two"});
    EXPECT_EQ(Text("Ok"), "one");
    OpenWith({"[English]", "'Audio Convert", "Ok=one", "[English]", "Ok=two", "'Audio Convert",
              "Cancel=three"});
    EXPECT_EQ(Text("Ok"), "one");
    EXPECT_EQ(Text("Cancel"), "three");
}

TEST_F(AudioConvertTest, TheLineOfTheLanguageMustBeItsHeaderWhole) {
    for (const char* header : {"[English] ", "[english]", " [English]", "English", "[Spanish]"}) {
        OpenWith({header, "'Audio Convert", "Ok=one"});
        EXPECT_EQ(Text("Ok"), "Aceptar") << header;
    }
    OpenWith({"[Klingon]", "'Audio Convert", "Ok=one"}, "Klingon");
    EXPECT_EQ(Text("Ok"), "one");
}

TEST_F(AudioConvertTest, ACaptionIsAllBehindTheFirstEqualsSign) {
    OpenWith({"[English]", "'Audio Convert", "Ok=a=b", "Cancel=", "default=any case"});
    EXPECT_EQ(Text("Ok"), "a=b");
    EXPECT_EQ(Text("Cancel"), "");
    EXPECT_EQ(Text("Default"), "any case");
}

TEST_F(AudioConvertTest, KeysThatNameNoCaptionAreNotForThisWindow) {
    OpenWith({"[English]", "'Audio Convert", "'Ok=comment", "Nothing=x", "no key", "=x",
              "SampleRate=x", "ByteRate=x", "Volumen=x"});
    EXPECT_EQ(Text("Ok"), "Aceptar");
    EXPECT_EQ(Text("SampleRate"), "44100");
    EXPECT_EQ(Text("ByteRate"), "44100");
    EXPECT_EQ(Text("Volumen"), "");
}

// Derived fields

struct DerivedCase {
    const char* Rate;
    const char* Bits;
    const char* Channels;
    const char* BlockAlin;
    const char* ByteRate;
};

class DerivedFieldsTest : public AudioConvertTest,
                          public testing::WithParamInterface<DerivedCase> {};

TEST_P(DerivedFieldsTest, AreMadeOfTheLeadingNumbers) {
    Open();
    Type("SampleRate", GetParam().Rate);
    Type("BitsPerSample", GetParam().Bits);
    Type("NumChannels", GetParam().Channels);
    EXPECT_EQ(Text("BlockAlin"), GetParam().BlockAlin);
    EXPECT_EQ(Text("ByteRate"), GetParam().ByteRate);
    EXPECT_EQ(Text("Size"), "");
    EXPECT_EQ(Text("Increment"), "");
}

INSTANTIATE_TEST_SUITE_P(Rows, DerivedFieldsTest,
                         testing::Values(DerivedCase{"44100 (Default)", "8 (Default)",
                                                     "1 - Mono (Default)", "1", "44100"},
                                         DerivedCase{"44100", "16", "2 - Stereo", "4", "176400"},
                                         DerivedCase{"22050", "16", "1", "2", "44100"},
                                         DerivedCase{"11025", "12", "1", "1.5", "16537.5"},
                                         DerivedCase{"48000 Hz", " 8", "1", "1", "48000"},
                                         DerivedCase{"fast", "8", "1", "1", "0"},
                                         DerivedCase{"44100", "", "2", "0", "0"},
                                         DerivedCase{"44100", "8", "-1", "-1", "-44100"}));

TEST_F(AudioConvertTest, EndlessDigitsDoNotEndTheProgram) {
    Open();
    const std::string digits(500, '9');
    for (const char* name : {"SampleRate", "BitsPerSample", "NumChannels"}) {
        EXPECT_NO_THROW(Type(name, digits)) << name;
    }
    EXPECT_NE(Text("ByteRate"), "");
}

TEST_F(AudioConvertTest, PickedItemsCountAsTypedOnesDo) {
    Open();
    ClickListEntry(Of("NumChannels"), 1);
    EXPECT_EQ(Text("BlockAlin"), "2");
    EXPECT_EQ(Text("ByteRate"), "88200");
    ClickListEntry(Of("BitsPerSample"), 1);
    EXPECT_EQ(Text("BlockAlin"), "4");
    ClickListEntry(Of("SampleRate"), 2);
    EXPECT_EQ(Text("ByteRate"), "44100");
}

TEST_F(AudioConvertTest, NoOtherFieldChangesADerivedOne) {
    Open();
    Of("BlockAlin").Text = "kept";
    Of("ByteRate").Text = "kept";
    for (const std::string& name : kComboBoxes) {
        if (name == "SampleRate" || name == "BitsPerSample" || name == "NumChannels") continue;
        Type(name, "1100");
        ClickListEntry(Of(name), 0);
        EXPECT_EQ(Text("BlockAlin"), "kept") << name;
        EXPECT_EQ(Text("ByteRate"), "kept") << name;
    }
    SetValue(Of("Volumen"), 1);
    EXPECT_EQ(Text("ByteRate"), "kept");
}

// The buttons

TEST_F(AudioConvertTest, OkStoresEveryComboBoxAndCloses) {
    Open();
    for (const std::string& name : kComboBoxes) Type(name, "my " + name);
    Press("Ok");
    EXPECT_FALSE(AudioConvert.Open);
    EXPECT_EQ(Section(),
              (Texts{"[Audio Options]", "Show=False", "Output=my Output", "WavFormat=my WavFormat",
                     "SampleRate=my SampleRate", "BitsPerSample=my BitsPerSample",
                     "NumChannels=my NumChannels", "Volume=110", "Frec1200=my Frec1200",
                     "Frec2400=my Frec2400", "SilenceStart=my SilenceStart",
                     "SilenceHeader=my SilenceHeader", "SilenceBlock=my SilenceBlock"}));
}

TEST_F(AudioConvertTest, AFreeValueIsStoredAsTypedAndAnItemWhole) {
    Open();
    Type("SampleRate", "48000 of mine ");
    ClickListEntry(Of("Frec2400"), 3);
    Press("Ok");
    EXPECT_EQ(Stored("SampleRate"), "48000 of mine ");
    EXPECT_EQ(Stored("Frec2400"), "2004.54545454545 Empirical Toolshed");
    Open();
    EXPECT_EQ(Text("SampleRate"), "48000 of mine ");
    EXPECT_EQ(Text("ByteRate"), "48000");
}

TEST_F(AudioConvertTest, CancelAndClosingStoreNothing) {
    const std::string before = SettingsFile();
    Open();
    for (const std::string& name : kComboBoxes) Type(name, "1");
    Press("Cancel");
    EXPECT_FALSE(AudioConvert.Open);
    Open();
    for (const std::string& name : kComboBoxes) Type(name, "1");
    Raise(AudioConvert.Close);
    EXPECT_EQ(SettingsFile(), before);
}

TEST_F(AudioConvertTest, DefaultTakesTheFirstItemsAndStoresNothingUntilOk) {
    const std::string before = SettingsFile();
    Open();
    for (const std::string& name : kComboBoxes) Type(name, "1");
    SetValue(Of("Volumen"), 3);
    SetChecked(Of("Show"), true);
    Press("Default");
    EXPECT_TRUE(AudioConvert.Open);
    for (const std::string& name : kComboBoxes) {
        EXPECT_EQ(Text(name), Of(name).Items.front()) << name;
        EXPECT_EQ(Of(name).ListIndex, 0) << name;
    }
    EXPECT_EQ(Of("Volumen").Value, 110);
    EXPECT_TRUE(Of("Show").Checked);
    EXPECT_EQ(Text("BlockAlin"), "1");
    EXPECT_EQ(Text("ByteRate"), "44100");
    EXPECT_EQ(SettingsFile(), before);
    Press("Ok");
    EXPECT_EQ(Stored("SampleRate"), "44100 (Default)");
    EXPECT_EQ(Stored("WavFormat"), "1 = PCM");
    EXPECT_EQ(Stored("Frec1200"), "1200 (Default)");
    EXPECT_EQ(Stored("NumChannels"), "1 - Mono (Default)");
}

TEST_F(AudioConvertTest, DefaultPressedAgainMendsWhatWasTypedOverAnItem) {
    Open();
    Press("Default");
    Type("SampleRate", "5");
    Press("Default");
    EXPECT_EQ(Text("SampleRate"), "44100 (Default)");
}

// What the tape makes of it

class AudioConvertTapeTest : public AudioConvertTest {
  protected:
    /// The WAV file of a short tape with the values that Ok stores.
    static std::string Stored(const std::map<std::string, std::string>& typed) {
        Open();
        Type("SilenceStart", "1");
        for (const auto& [name, text] : typed) Type(name, text);
        Press("Ok");
        return CasToWav(std::string(300, '\x55'));
    }
};

TEST_F(AudioConvertTapeTest, ValuesAreReadAsTheNumbersAtTheirStart) {
    const std::string usual = Stored({});
    EXPECT_EQ(Stored({{"SampleRate", "44100 (Default)"},
                      {"BitsPerSample", "8 (Default)"},
                      {"NumChannels", "1 - Mono (Default)"},
                      {"Frec1200", "1200 (Default)"},
                      {"Frec2400", "2400 (Default)"}}),
              usual);
    EXPECT_NE(Stored({{"SampleRate", "22050"}}), usual);
}

TEST_F(AudioConvertTapeTest, TheFileSaysWhatTheDerivedFieldsShowed) {
    const std::string file =
        Stored({{"SampleRate", "22050"}, {"BitsPerSample", "16"}, {"NumChannels", "2 - Stereo"}});
    EXPECT_EQ(Text("ByteRate"), "88200");
    EXPECT_EQ(BytesToNumber(file.substr(28, 4), ""), 88200);
    EXPECT_EQ(Text("BlockAlin"), "4");
    EXPECT_EQ(BytesToNumber(file.substr(32, 2), ""), 4);
}

TEST_F(AudioConvertTapeTest, OutputAndSilenceBlockAreStoredAndReadByNoConversion) {
    const std::string usual = Stored({});
    EXPECT_EQ(Stored({{"Output", "AUDIO"}, {"SilenceBlock", "3"}}), usual);
    EXPECT_EQ(AudioConvertTest::Stored("Output"), "AUDIO");
    EXPECT_EQ(AudioConvertTest::Stored("SilenceBlock"), "3");
}

}  // namespace
}  // namespace brindlemoor::test
