#include "core/settings.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>
#include <filesystem>

#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "core/runtime_failure.h"
#include "core/settings_text.h"
#include "support/disk_fixture.h"
#include "support/file_size_limit.h"
#include "support/settings_fixture.h"

namespace brindlemoor {
namespace {

using test::FailureOf;

class IniValueTest : public test::SettingsTest {
  protected:
    /// Reads a key, with the text that stands for it when it is missing.
    std::string Read(const std::string& section, const std::string& key,
                     const std::string& initial = "") {
        std::string value = initial;
        Line = IniValue(section, key, value, "");
        return value;
    }

    void Store(const std::string& section, const std::string& key, std::string value) {
        Line = IniValue(section, key, value, "G");
    }

    int Line = -1;  ///< what the last call returned
};

// Reading

TEST_F(IniValueTest, ReadsAKeyOfItsSection) {
    GiveSettings("[A]\r\nx=1\r\n[B]\r\nx=2\r\ny=3");
    EXPECT_EQ(Read("B", "x"), "2");
    EXPECT_EQ(Line, 3);
    EXPECT_EQ(Read("A", "x"), "1");
    EXPECT_EQ(Line, 1);
    EXPECT_EQ(Read("B", "y"), "3");
    EXPECT_EQ(Line, 4);
}

TEST_F(IniValueTest, ReadingAKeyThatIsThereWritesNothing) {
    GiveSettings("[A]\r\nx=1");
    Read("A", "x");
    WriteFile("Brindlemoor.INI", "changed behind its back");
    Read("A", "x");
    EXPECT_EQ(SettingsFile(), "changed behind its back");
}

TEST_F(IniValueTest, AReadIgnoresTheInitialValueOfAKeyThatIsThere) {
    GiveSettings("[A]\r\nx=");
    EXPECT_EQ(Read("A", "x", "initial"), "");
}

TEST_F(IniValueTest, ComparesNamesExactly) {
    GiveSettings("[General]\r\nName=1\r\nname=2\r\nNames=3\r\n[general]\r\nName=4");
    EXPECT_EQ(Read("General", "name"), "2");
    EXPECT_EQ(Read("General", "Names"), "3");
    EXPECT_EQ(Read("general", "Name"), "4");
}

TEST_F(IniValueTest, ComparesAHeaderByItsBeginningOnly) {
    GiveSettings("[A] and more\r\nx=1");
    EXPECT_EQ(Read("A", "x"), "1");
}

TEST_F(IniValueTest, AValueMayHoldEqualSigns) {
    GiveSettings("[A]\r\nx=0=BASIC,1=data\r\ny=1");
    EXPECT_EQ(Read("A", "x"), "0=BASIC,1=data");
    Store("A", "y", "a=b=c");
    EXPECT_EQ(SettingsFile(), "[A]\r\nx=0=BASIC,1=data\r\ny=a=b=c");
    EXPECT_EQ(Read("A", "y"), "a=b=c");
}

TEST_F(IniValueTest, ReadsTheFileOnceARun) {
    GiveSettings("[A]\r\nx=1");
    EXPECT_TRUE(Settings.SettingsCacheMark.empty());
    Read("A", "x");
    EXPECT_EQ(Settings.SettingsCacheMark, "I");
    WriteFile("Brindlemoor.INI", "[A]\r\nx=2");
    EXPECT_EQ(Read("A", "x"), "1");
}

TEST_F(IniValueTest, GivesTheLineBeforeTheOtherWavSettings) {
    GiveSettings(DefaultSettingsText());
    EXPECT_EQ(Read("Audio Options", "WavFormat"), "1");
    const auto line = static_cast<std::size_t>(Line);
    EXPECT_EQ(Settings.SettingsLines[line + 1], "SampleRate=44100");
    EXPECT_EQ(Settings.SettingsLines[line + 9], "SilenceBlock=0");
}

TEST_F(IniValueTest, FindsAKeyBehindItsSectionsHeaderComingAgain) {
    GiveSettings("[A]\r\nx=1\r\n[A]\r\ny=2");
    EXPECT_EQ(Read("A", "y"), "2");
    EXPECT_EQ(Line, 3);
}

// Writing

TEST_F(IniValueTest, ModeGReplacesTheValueAndWritesTheFile) {
    GiveSettings("[A]\r\nx=1\r\ny=2\r\n");
    Store("A", "x", "new");
    EXPECT_EQ(Line, 1);
    EXPECT_EQ(SettingsFile(), "[A]\r\nx=new\r\ny=2\r\n");
}

TEST_F(IniValueTest, AnyOtherModeReplacesTheLineOnly) {
    GiveSettings("[A]\r\nx=1");
    std::string value = "2";
    IniValue("A", "x", value, "S");
    EXPECT_EQ(Settings.SettingsLines[1], "x=2");
    EXPECT_EQ(SettingsFile(), "[A]\r\nx=1");
}

TEST_F(IniValueTest, AShorterFileLeavesNothingOfTheLongerOne) {
    GiveSettings("[A]\r\nx=" + std::string(5000, 'z'));
    Store("A", "x", "");
    EXPECT_EQ(SettingsFile(), "[A]\r\nx=");
}

TEST_F(IniValueTest, WritesBytesAsTheyAre) {
    GiveSettings("[A]\r\nOpci\xF3nCharActual=1");
    Store("A", "OpciónCharActual"_w, "\xE9\xFF");
    EXPECT_EQ(SettingsFile(), "[A]\r\nOpci\xF3nCharActual=\xE9\xFF");
}

TEST_F(IniValueTest, StoreSettingWritesAKeyOfGeneral) {
    GiveSettings("[General]\r\nx=1\r\n[Audio Options]");
    StoreSetting("x", "2");
    StoreSetting("y", "3");
    EXPECT_EQ(SettingsFile(), "[General]\r\nx=2\r\ny=3\r\n[Audio Options]");
}

// A key that is missing

TEST_F(IniValueTest, AMissingKeyIsMadeInFrontOfTheNextSection) {
    GiveSettings("[A]\r\nx=1\r\n[B]\r\ny=2");
    EXPECT_EQ(Read("A", "new", "initial"), "initial");
    EXPECT_EQ(Line, 2);
    EXPECT_EQ(SettingsFile(), "[A]\r\nx=1\r\nnew=initial\r\n[B]\r\ny=2");
}

TEST_F(IniValueTest, AMissingKeyIsMadeAtTheEndOfTheFile) {
    GiveSettings("[A]\r\nx=1");
    Store("A", "y", "2");
    EXPECT_EQ(Line, 2);
    EXPECT_EQ(SettingsFile(), "[A]\r\nx=1\r\ny=2");
}

TEST_F(IniValueTest, AMissingKeyIsWrittenInEveryMode) {
    for (const char* mode : {"", "G", "S"}) {
        Settings = SettingsState();
        GiveSettings("[A]\r\nx=1");
        std::string value = "v";
        IniValue("A", "new", value, mode);
        EXPECT_EQ(SettingsFile(), "[A]\r\nx=1\r\nnew=v") << mode;
        EXPECT_EQ(value, "v") << mode;
    }
}

TEST_F(IniValueTest, AKeyMadeByAReadIsThereAtTheNextRead) {
    GiveSettings("[A]\r\nx=1");
    Read("A", "new", "first");
    EXPECT_EQ(Read("A", "new", "second"), "first");
}

TEST_F(IniValueTest, ABlankLineEndsASection) {
    GiveSettings("[A]\r\nx=1\r\n  \r\ny=2\r\n[B]\r\nz=3");
    EXPECT_EQ(Read("A", "y", "new"), "new");
    EXPECT_EQ(Line, 2);
    EXPECT_EQ(SettingsFile(), "[A]\r\nx=1\r\ny=new\r\n  \r\ny=2\r\n[B]\r\nz=3");
}

TEST_F(IniValueTest, AKeyOfAnEmptySectionStandsDirectlyBehindItsHeader) {
    GiveSettings("[A]\r\n[B]\r\nz=3");
    Store("A", "x", "1");
    EXPECT_EQ(SettingsFile(), "[A]\r\nx=1\r\n[B]\r\nz=3");
}

TEST_F(IniValueTest, AFileThatEndsWithALineEndGetsTheKeyInFrontOfItsEmptyLine) {
    GiveSettings("[A]\r\nx=1\r\n");
    Store("A", "y", "2");
    EXPECT_EQ(SettingsFile(), "[A]\r\nx=1\r\ny=2\r\n");
}

TEST_F(IniValueTest, AMissingKeyOverwritesTheSharedCursor) {
    GiveSettings("[A]\r\nx=1");
    Disk.DirCount = 77;
    Read("A", "x");
    EXPECT_EQ(Disk.DirCount, 77);
    Read("A", "y");
    EXPECT_EQ(Disk.DirCount, 2);
    Read("B", "z");
    EXPECT_EQ(Disk.DirCount, 4);
}

TEST_F(IniValueTest, AMissingSectionIsNotRebuilt) {
    GiveSettings("[A]\r\nx=1");
    Store("B", "y", "2");
    EXPECT_EQ(Line, 2);
    EXPECT_EQ(SettingsFile(), "[A]\r\nx=1\r\ny=2\r\n");
    EXPECT_EQ(Settings.SettingsLines, (std::vector<std::string>{"[A]", "x=1", "y=2", ""}));
}

TEST_F(IniValueTest, AKeyWithoutItsSectionIsMadeAgainAtEveryCall) {
    GiveSettings("[A]\r\nx=1");
    Store("B", "y", "2");
    Store("B", "y", "3");
    EXPECT_EQ(SettingsFile(), "[A]\r\nx=1\r\ny=2\r\n\r\ny=3\r\n");
}

TEST_F(IniValueTest, AnEmptyFileGetsTheKeyAsItsFirstLine) {
    GiveSettings("");
    EXPECT_EQ(Read("A", "x", "1"), "1");
    EXPECT_EQ(Line, 0);
    EXPECT_EQ(SettingsFile(), "x=1\r\n");
    EXPECT_EQ(Disk.DirCount, 1);
}

TEST_F(IniValueTest, AHeaderAsTheVeryLastLineFailsWith9) {
    GiveSettings("[A]\r\nx=1\r\n[B]");
    EXPECT_EQ(FailureOf([this] { Read("B", "y"); }), kIndexRange);
    EXPECT_EQ(SettingsFile(), "[A]\r\nx=1\r\n[B]");
    EXPECT_EQ(Read("A", "x"), "1");
}

TEST_F(IniValueTest, AnEmptyKeyIsALineThatBeginsWithAnEqualSign) {
    GiveSettings("[General]\r\nx=1\r\n[B]\r\ny=2");
    StoreSetting("", "0");
    StoreSetting("", "5");
    EXPECT_EQ(SettingsFile(), "[General]\r\nx=1\r\n=5\r\n[B]\r\ny=2");
}

// Failures and damage

TEST_F(IniValueTest, AFileThatIsNotThereFailsWithTheSystemsNumber) {
    GiveSettings("[A]\r\nx=1");
    std::filesystem::remove(Settings.SettingsPath);
    EXPECT_EQ(FailureOf([this] { Read("A", "x"); }), ENOENT);
    EXPECT_TRUE(Settings.SettingsCacheMark.empty());
}

TEST_F(IniValueTest, AFileThatCannotBeWrittenFailsWithTheSystemsNumber) {
    GiveSettings("[A]\r\nx=1");
    Read("A", "x");
    Settings.SettingsPath = Base + "/no such folder/Brindlemoor.INI";
    EXPECT_EQ(FailureOf([this] { Store("A", "x", "2"); }), ENOENT);
}

TEST_F(IniValueTest, AFolderInPlaceOfTheFileFails) {
    EXPECT_NE(FailureOf([this] { ReadSettings(Base); }), 0);
    EXPECT_NE(FailureOf([this] { OpenOrMakeSettings(Base); }), 0);
    EXPECT_NE(FailureOf([this] { WriteSettings(Base, "x"); }), 0);
}

TEST_F(IniValueTest, AFullDiskFailsAndKeepsTheFile) {
    GiveSettings("[A]\r\nx=1");
    const test::FileSizeLimit limit(4096);
    EXPECT_EQ(FailureOf([] { WriteSettings(Settings.SettingsPath, std::string(100000, 'x')); }),
              EFBIG);
    EXPECT_EQ(SettingsFile(), "[A]\r\nx=1");
}

TEST_F(IniValueTest, AFailureHasTheSystemsText) {
    try {
        ReadSettings(Base + "/missing");
        FAIL();
    } catch (const RuntimeFailure& failure) {
        EXPECT_EQ(failure.Text, std::strerror(ENOENT));
    }
}

TEST_F(IniValueTest, OpenOrMakeSettingsMakesAnEmptyFile) {
    const std::string path = JoinPath(Base, "new");
    EXPECT_EQ(OpenOrMakeSettings(path), "");
    EXPECT_TRUE(std::filesystem::exists(path));
    WriteSettings(path, "text");
    EXPECT_EQ(OpenOrMakeSettings(path), "text");
}

/// A file cut short at any byte gives a value or the one failure that a last header has.
TEST_F(IniValueTest, AFileCutAnywhereDoesNoHarm) {
    const std::string whole = "[A]\r\nx=1\r\n[B]\r\ny=2\r\n";
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        Settings = SettingsState();
        GiveSettings(whole.substr(0, length));
        const int failure = FailureOf([this] { Read("B", "y", "made"); });
        const bool headerIsLast = length == 13 || length == 14;
        EXPECT_EQ(failure, headerIsLast ? kIndexRange : 0) << length;
    }
}

TEST_F(IniValueTest, AFileOfZeroBytesIsOneLine) {
    GiveSettings(std::string(3000, '\0'));
    EXPECT_EQ(Read("General", "x", "1"), "1");
    EXPECT_EQ(SettingsFile(), std::string(3000, '\0') + "\r\nx=1\r\n");
}

TEST_F(IniValueTest, LinesWithoutAnEqualSignAreNoKeys) {
    GiveSettings("[A]\r\nx\r\nx y\r\nx=1");
    EXPECT_EQ(Read("A", "x"), "1");
    EXPECT_EQ(Line, 3);
}

TEST_F(IniValueTest, AHugeFileIsReadWhole) {
    std::string text = "[A]";
    for (int i = 0; i < 200000; ++i)
        text += "\r\nkey" + std::to_string(i) + "=" + std::to_string(i);
    GiveSettings(text);
    EXPECT_EQ(Read("A", "key199999"), "199999");
    EXPECT_EQ(Line, 200000);
}

TEST(ProgramVersion, IsMajorMinorRevisionWithoutPadding) {
    EXPECT_EQ(ProgramVersion(), "1.1.3");
}

}  // namespace
}  // namespace brindlemoor
