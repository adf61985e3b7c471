#include "core/settings_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>

#include "core/byte_helpers.h"

namespace brindlemoor {
namespace {

std::vector<std::string> Lines() {
    return SplitText(DefaultSettingsText(), "\r\n");
}

/// The value of a key in a section; "?" where there is none.
std::string ValueOf(const std::string& section, const std::string& key) {
    bool inside = false;
    for (const std::string& line : Lines()) {
        if (line.substr(0, 1) == "[") inside = line == "[" + section + "]";
        if (inside && line.rfind(key + "=", 0) == 0) return line.substr(key.size() + 1);
    }
    return "?";
}

/// The lines of a section behind its header, each up to its "=".
std::vector<std::string> KeysOf(const std::string& section) {
    std::vector<std::string> keys;
    bool inside = false;
    for (const std::string& line : Lines()) {
        if (line.substr(0, 1) == "[") {
            inside = line == "[" + section + "]";
        } else if (inside) {
            keys.push_back(line.substr(0, line.find('=')));
        }
    }
    return keys;
}

/// FNV-1a, 64 bits.
std::uint64_t ChecksumOf(const std::string& bytes) {
    std::uint64_t checksum = 0xCBF29CE484222325U;
    for (const char byte : bytes) {
        checksum = (checksum ^ static_cast<unsigned char>(byte)) * 0x100000001B3U;
    }
    return checksum;
}

TEST(DefaultSettings, AreTheSameByteForByte) {
    const std::string text = DefaultSettingsText();
    EXPECT_EQ(text.size(), 8631U);
    EXPECT_EQ(ChecksumOf(text), 0xDDF480452A6255CAU);
}

TEST(DefaultSettings, HaveFourSectionsInOrder) {
    std::vector<std::string> headers;
    for (const std::string& line : Lines()) {
        if (line[0] == '[') headers.push_back(line);
    }
    EXPECT_EQ(headers,
              (std::vector<std::string>{"[General]", "[Audio Options]", "[English]", "[Spanish]"}));
    EXPECT_EQ(Lines().front(), "[General]");
}

TEST(DefaultSettings, HaveNoBlankLineAndNoLineEndAtTheEnd) {
    for (const std::string& line : Lines()) EXPECT_FALSE(Trim(line).empty());
    EXPECT_EQ(Lines().back(), "LabelOutput=Formato de Salida :");
}

TEST(DefaultSettings, EndEveryLineWithCrLfAndHoldNoLineMark) {
    const std::string text = DefaultSettingsText();
    EXPECT_EQ(text.find('|'), std::string::npos);
    EXPECT_EQ(std::count(text.begin(), text.end(), '\r'), 209);
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 209);
    EXPECT_EQ(Lines().size(), 210U);
}

TEST(DefaultSettings, SpellTheAlternateRowKeyWithASmallG) {
    EXPECT_EQ(ValueOf("General", "AlternateRowBackgroundColor"), "15138044");
    EXPECT_EQ(ValueOf("General", "AlternateRowBackGroundColor"), "?");
    EXPECT_EQ(ValueOf("General", "SectorErrorColor"), "13158655");
}

TEST(DefaultSettings, HoldTheGeneralKeysInOrder) {
    EXPECT_EQ(KeysOf("General"),
              (std::vector<std::string>{
                  "Languages", "CurrentLanguage", "Version", "AlternateRowBackgroundColor",
                  "SectorErrorColor", "ContinueDirEntryColor", "ColumnOrder", "ColumnWidths",
                  "'Visible Columns: CoCo, Dragon, Nitro, Flex", "VisibleColumns"}));
    EXPECT_EQ(ValueOf("General", "Version"), "1.1.3");
    EXPECT_EQ(ValueOf("General", "Languages"), "English,Spanish");
}

TEST(DefaultSettings, HoldTheAudioKeysInOrder) {
    EXPECT_EQ(
        KeysOf("Audio Options"),
        (std::vector<std::string>{"Show", "Output", "WavFormat", "SampleRate", "BitsPerSample",
                                  "NumChannels", "Volume", "Frec1200", "Frec2400", "SilenceStart",
                                  "SilenceHeader", "SilenceBlock"}));
    EXPECT_EQ(ValueOf("Audio Options", "SilenceHeader"), "500");
}

TEST(DefaultSettings, HaveEighteenColumnsInEveryList) {
    EXPECT_EQ(SplitText(ValueOf("General", "ColumnOrder"), ",").size(), 18U);
    EXPECT_EQ(SplitText(ValueOf("General", "ColumnWidths"), ",").size(), 18U);
    EXPECT_EQ(SplitText(ValueOf("English", "ColumnsHeader"), ",").size(), 18U);
    EXPECT_EQ(SplitText(ValueOf("Spanish", "ColumnsHeader"), ",").size(), 18U);
    EXPECT_EQ(SplitText(ValueOf("English", "ColumnsMenu"), ",").size(), 18U);
    for (const std::string& family : SplitText(ValueOf("General", "VisibleColumns"), ",")) {
        EXPECT_EQ(family.size(), 18U);
    }
}

TEST(DefaultSettings, HaveTheSameKeysInBothLanguages) {
    std::vector<std::string> english = KeysOf("English");
    std::vector<std::string> spanish = KeysOf("Spanish");
    const auto isComment = [](const std::string& line) { return line[0] == '\''; };
    english.erase(std::remove_if(english.begin(), english.end(), isComment), english.end());
    spanish.erase(std::remove_if(spanish.begin(), spanish.end(), isComment), spanish.end());
    EXPECT_EQ(english, spanish);
    EXPECT_EQ(english.size(), 89U);
}

TEST(DefaultSettings, OrderTheKeysOfALanguage) {
    const std::vector<std::string> keys = KeysOf("English");
    EXPECT_EQ(keys[0], "'You can create more languages");
    EXPECT_EQ(keys[1], "MainMenu");
    const auto follows = [&keys](const std::string& first, const std::string& second) {
        const auto found = std::find(keys.begin(), keys.end(), first);
        return found != keys.end() && found + 1 != keys.end() && *(found + 1) == second;
    };
    EXPECT_TRUE(follows("ConvMenu", "ColumnsHeader"));
    EXPECT_TRUE(follows("ColumnsHeader", "Label1"));
    EXPECT_TRUE(follows("VerContinuaciones", "Mensaje00"));
    EXPECT_TRUE(follows("Mensaje21", "'Can create more Pattern separated by commas"));
    EXPECT_TRUE(follows("'Can create more Pattern separated by commas", "Mensaje22"));
    EXPECT_TRUE(follows("Mensaje40", "DirPattern"));
    EXPECT_TRUE(follows("DirPattern", "VerAsc"));
    EXPECT_TRUE(follows("VerAsc", "Anchos"));
    EXPECT_TRUE(follows("Anchos", "'--------------Audio Convert-----------"));
    EXPECT_TRUE(follows("'--------------Audio Convert-----------", "Show"));
}

TEST(DefaultSettings, HaveAShorterConversionMenuInSpanish) {
    const auto english = SplitText(ValueOf("English", "ConvMenu"), ",");
    const auto spanish = SplitText(ValueOf("Spanish", "ConvMenu"), ",");
    ASSERT_EQ(english.size(), 11U);
    ASSERT_EQ(spanish.size(), 10U);
    EXPECT_EQ(english[9], "-");
    EXPECT_EQ(english[10], "DSK <-> VDK");
    EXPECT_EQ(spanish[9], "DSK <-> VDK");
}

TEST(DefaultSettings, KeepTheOdditiesOfTheTexts) {
    EXPECT_EQ(ValueOf("Spanish", "Mensaje06"),
              "Mensaje06=Por favor introduzca algún texto en la celda."_w);
    EXPECT_EQ(ValueOf("English", "Mensaje13"), " Deleted");
    EXPECT_EQ(ValueOf("Spanish", "Mensaje13"), "Borrados");
    EXPECT_EQ(ValueOf("English", "Mensaje02"), "File: ");
    EXPECT_EQ(ValueOf("Spanish", "Mensaje03"), "El archivo no existe");
    EXPECT_EQ(ValueOf("English", "Mensaje26"), "Error in Destoken Comamnd, Position: ");
    EXPECT_EQ(ValueOf("Spanish", "LabelSilenceHeader"), "Despúes de Cabezera:"_w);
    EXPECT_EQ(KeysOf("Spanish")[0], "'Usted puede crear mas idionas");
}

TEST(DefaultSettings, KeepEmptyMessages) {
    for (const char* key :
         {"Mensaje11", "Mensaje19", "Mensaje20", "Mensaje21", "Mensaje22", "Mensaje39"}) {
        EXPECT_EQ(ValueOf("English", key), "") << key;
        EXPECT_EQ(ValueOf("Spanish", key), "") << key;
    }
}

TEST(DefaultSettings, WriteSpanishLettersAsSingleBytes) {
    EXPECT_EQ(SplitText(ValueOf("Spanish", "LanguageMenu"), ",")[1], "Espa\xF1ol");
    EXPECT_EQ(ValueOf("English", "Mensaje00"),
              "The file: []\xAC"
              "Already exist, overwrite? or rename");
}

}  // namespace
}  // namespace brindlemoor
