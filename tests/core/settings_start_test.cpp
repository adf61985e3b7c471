#include "core/settings_start.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "core/platform.h"
#include "core/runtime_failure.h"
#include "core/screen.h"
#include "core/settings.h"
#include "core/settings_text.h"
#include "support/disk_fixture.h"
#include "support/settings_fixture.h"

namespace brindlemoor {
namespace {

using test::FailureOf;
using test::SetVariable;

class StartTest : public test::SettingsTest {
  protected:
    void SetUp() override {
        SettingsTest::SetUp();
        Platform.ShowMessage = [this](const std::string& text, const std::string& title,
                                      Buttons buttons, MessageIcon) {
            ++Questions;
            QuestionText = text;
            QuestionTitle = title;
            QuestionButtons = buttons;
            return Reply;
        };
    }

    /// A settings file with few keys, as an older version wrote it.
    static std::string OldSettings() {
        return "[General]\r\nVersion=1.1.2\r\nCurrentLanguage=English\r\n[English]\r\nLabel1=old";
    }

    Answer Reply = Answer::Cancel;
    int Questions = 0;
    std::string QuestionText;
    std::string QuestionTitle;
    Buttons QuestionButtons = Buttons::Ok;
};

TEST_F(StartTest, WritesTheDefaultTextAtTheFirstStartAndAsksNothing) {
    EXPECT_TRUE(InitialiseSettings());
    EXPECT_EQ(Questions, 0);
    EXPECT_EQ(SettingsFile(), DefaultSettingsText());
    EXPECT_FALSE(HasFile("Brindlemoor.BAK"));
}

TEST_F(StartTest, FindsThePathOfTheSettingsFile) {
    InitialiseSettings();
    EXPECT_EQ(Disk.AppTitle, "Brindlemoor");
    EXPECT_EQ(Settings.SettingsPath, JoinPath(JoinPath(Base, "Brindlemoor"), "Brindlemoor.INI"));
}

TEST_F(StartTest, AnEmptyFileIsFilledWithoutAQuestion) {
    GiveSettings("");
    EXPECT_TRUE(InitialiseSettings());
    EXPECT_EQ(Questions, 0);
    EXPECT_EQ(SettingsFile(), DefaultSettingsText());
}

TEST_F(StartTest, LeavesAFileOfTheSameVersionUntouched) {
    const std::string mine = ReplaceText(DefaultSettingsText(), "Label1=Sector:", "Label1=mine");
    GiveSettings(mine);
    EXPECT_TRUE(InitialiseSettings());
    EXPECT_EQ(Questions, 0);
    EXPECT_EQ(SettingsFile(), mine);
}

TEST_F(StartTest, ReadsTheLanguageAndPutsItIntoEffect) {
    GiveSettings(
        ReplaceText(DefaultSettingsText(), "CurrentLanguage=English", "CurrentLanguage=Spanish"));
    EXPECT_TRUE(InitialiseSettings());
    EXPECT_EQ(Settings.CurrentLanguage, "Spanish");
    EXPECT_EQ(Settings.LanguageIndex, 1);
    EXPECT_EQ(MessageText(14), "Libre:");
}

TEST_F(StartTest, AsksAboutAFileOfAnotherVersion) {
    GiveSettings(OldSettings());
    EXPECT_FALSE(InitialiseSettings());
    const std::string& path = Settings.SettingsPath;
    EXPECT_EQ(Questions, 1);
    EXPECT_EQ(QuestionTitle, "Brindlemoor");
    EXPECT_EQ(QuestionButtons, Buttons::YesNoCancel);
    EXPECT_EQ(QuestionText,
              "Nueva versi\xF3n, se inicializar\xE1 el archivo: " + path +
                  "\r\nEl anterior ser\xE1 guardado como .BAK"
                  "\r\nPor si necesita alguna opci\xF3n modificada manualmente por Usted"
                  "\r\n"
                  "\r\nNew version, initialize the file: " +
                  path +
                  "\r\nThe former will be saved as .BAK"
                  "\r\nIf you need any settings changed manually by you");
}

TEST_F(StartTest, CancelEndsTheProgramAndChangesNothing) {
    GiveSettings(OldSettings());
    bool applied = false;
    Screen.SetGridHeaders = [&applied] { applied = true; };
    EXPECT_FALSE(InitialiseSettings());
    EXPECT_EQ(SettingsFile(), OldSettings());
    EXPECT_FALSE(HasFile("Brindlemoor.BAK"));
    EXPECT_FALSE(applied);
    EXPECT_EQ(Settings.CurrentLanguage, "");
}

TEST_F(StartTest, NoKeepsTheOldFileAndUsesItsKeys) {
    GiveSettings(OldSettings());
    Reply = Answer::No;
    std::string label;
    Screen.SetCaptionAndTag = [&label](const std::string& name, const std::string& text) {
        label = name + " " + text;
    };
    EXPECT_TRUE(InitialiseSettings());
    EXPECT_EQ(SettingsFile(), OldSettings());
    EXPECT_EQ(label, "Label1 old");
    EXPECT_FALSE(HasFile("Brindlemoor.BAK"));
}

TEST_F(StartTest, AfterNoTheQuestionComesAgain) {
    GiveSettings(OldSettings());
    Reply = Answer::No;
    InitialiseSettings();
    InitialiseSettings();
    EXPECT_EQ(Questions, 2);
}

TEST_F(StartTest, AfterNoAMissingKeyIsAdded) {
    GiveSettings("[General]\r\nVersion=0\r\nx=1");
    Reply = Answer::No;
    EXPECT_TRUE(InitialiseSettings());
    EXPECT_EQ(SettingsFile(), "[General]\r\nVersion=0\r\nx=1\r\nCurrentLanguage=");
    EXPECT_EQ(Settings.CurrentLanguage, "");
}

TEST_F(StartTest, YesKeepsACopyAndWritesTheDefaultText) {
    GiveSettings(OldSettings());
    Reply = Answer::Yes;
    EXPECT_TRUE(InitialiseSettings());
    EXPECT_EQ(SettingsFile(), DefaultSettingsText());
    EXPECT_EQ(SettingsFile("Brindlemoor.BAK"), OldSettings());
    EXPECT_EQ(Settings.CurrentLanguage, "English");
}

TEST_F(StartTest, YesReplacesAnOlderCopy) {
    GiveSettings(OldSettings());
    WriteFile("Brindlemoor.BAK", "older still");
    Reply = Answer::Yes;
    EXPECT_TRUE(InitialiseSettings());
    EXPECT_EQ(SettingsFile("Brindlemoor.BAK"), OldSettings());
}

TEST_F(StartTest, YesLeavesNothingOfALongerOldFile) {
    GiveSettings(OldSettings() + std::string(50000, 'x'));
    Reply = Answer::Yes;
    EXPECT_TRUE(InitialiseSettings());
    EXPECT_EQ(SettingsFile(), DefaultSettingsText());
}

TEST_F(StartTest, ACopyThatCannotBeMadeIsNoFailure) {
    GiveSettings(OldSettings());
    std::filesystem::create_directories(std::filesystem::path(Base) / "Brindlemoor" /
                                        "Brindlemoor.BAK" / "not empty");
    Reply = Answer::Yes;
    EXPECT_TRUE(InitialiseSettings());
    EXPECT_EQ(SettingsFile(), DefaultSettingsText());
}

// The version

TEST_F(StartTest, ComparesSixBytesOfTheVersion) {
    struct {
        const char* Text;
        int Questions;
    } const rows[] = {
        {"[General]\r\nVersion=1.1.3\r\nCurrentLanguage=\r\nx", 0},
        {"[General]\r\nCurrentLanguage=\r\nVersion=1.1.3", 0},  // no line end behind it
        {"[General]\r\nCurrentLanguage=\r\nVersion=1.1.3\r", 0},
        {"[General]\r\nCurrentLanguage=\r\nVersion=1.1.30\r\n", 1},
        {"[General]\r\nCurrentLanguage=\r\nVersion=1.1.34567\r\n", 1},
        {"[General]\r\nCurrentLanguage=\r\nVersion=1.1.3\n", 1},
        {"[General]\r\nCurrentLanguage=\r\nVersion=1.1.3 \r\n", 1},
        {"[General]\r\nCurrentLanguage=\r\nVersion=1.1.\r\n", 1},
        {"[General]\r\nCurrentLanguage=\r\nVersion=", 1},
        {"[General]\r\nCurrentLanguage=\r\nversion=1.1.3\r\n", 1},
        {"[General]\r\nCurrentLanguage=\r\nMyVersion=1.1.3\r\nVersion=1.1.2\r\n", 0},
        {"[General]\r\nCurrentLanguage=\r\nVersion=1.1.2\r\nVersion=1.1.3\r\n", 1},
        {"\r\n", 1},
    };
    for (const auto& row : rows) {
        Settings = SettingsState();
        Questions = 0;
        GiveSettings(row.Text);
        InitialiseSettings();
        EXPECT_EQ(Questions, row.Questions) << row.Text;
    }
}

/// Damaged files: cut anywhere they ask, and after each answer the program starts or fails in the
/// one way that a header without a line behind it has.
TEST_F(StartTest, AFileCutAnywhereIsAnsweredFor) {
    const std::string whole = DefaultSettingsText();
    Reply = Answer::No;
    for (std::size_t length = 1; length < whole.size(); length += 13) {
        Settings = SettingsState();
        GiveSettings(whole.substr(0, length));
        const int failure = FailureOf([] { InitialiseSettings(); });
        EXPECT_TRUE(failure == 0 || failure == kIndexRange || failure == kTypeMismatch)
            << length << ": " << failure;
    }
}

TEST_F(StartTest, AFileOfZeroBytesAsks) {
    GiveSettings(std::string(100000, '\0'));
    Reply = Answer::Yes;
    EXPECT_TRUE(InitialiseSettings());
    EXPECT_EQ(Questions, 1);
    EXPECT_EQ(SettingsFile("Brindlemoor.BAK"), std::string(100000, '\0'));
}

// The folder

TEST_F(StartTest, MakesTheFolderWithItsParents) {
    const std::string deep = JoinPath(Base, JoinPath("deep", "er"));
    SetVariable("appdata", deep);
    EXPECT_TRUE(InitialiseSettings());
    EXPECT_EQ(Settings.SettingsPath, JoinPath(JoinPath(deep, "Brindlemoor"), "Brindlemoor.INI"));
    EXPECT_EQ(ReadSettings(Settings.SettingsPath), DefaultSettingsText());
}

TEST_F(StartTest, AFileInPlaceOfTheFolderFails) {
    test::WriteTestFile(Base, "Brindlemoor", "a file");
    EXPECT_NE(FailureOf([] { InitialiseSettings(); }), 0);
}

TEST_F(StartTest, AFolderInPlaceOfTheFileFails) {
    GiveSettings("");
    std::filesystem::remove(Settings.SettingsPath);
    std::filesystem::create_directory(Settings.SettingsPath);
    EXPECT_NE(FailureOf([] { InitialiseSettings(); }), 0);
}

class BaseFolderTest : public test::SettingsTest {
  protected:
    void SetUp() override {
        SettingsTest::SetUp();
        for (const char* name : {"XDG_CONFIG_HOME", "HOME"}) {
            const char* value = std::getenv(name);
            Before.emplace_back(value == nullptr ? "" : value);
            SetVariable(name, "");
        }
        SetVariable("appdata", "");
    }

    void TearDown() override {
        SetVariable("XDG_CONFIG_HOME", Before[0]);
        SetVariable("HOME", Before[1]);
        SettingsTest::TearDown();
    }

    std::vector<std::string> Before;
};

TEST_F(BaseFolderTest, IsAppdataFirst) {
    SetVariable("HOME", "/home/me");
    SetVariable("XDG_CONFIG_HOME", "/config");
    SetVariable("appdata", "/appdata");
    EXPECT_EQ(SettingsBaseFolder(), "/appdata");
}

TEST_F(BaseFolderTest, IsTheConfigFolderNext) {
    SetVariable("HOME", "/home/me");
    SetVariable("XDG_CONFIG_HOME", "/config");
    EXPECT_EQ(SettingsBaseFolder(), "/config");
}

TEST_F(BaseFolderTest, IsConfigInTheHomeElse) {
    SetVariable("HOME", "/home/me");
    EXPECT_EQ(SettingsBaseFolder(), JoinPath("/home/me", ".config"));
    SetVariable("HOME", "");
    EXPECT_EQ(SettingsBaseFolder(), ".config");
}

}  // namespace
}  // namespace brindlemoor
