#include "core/external_program.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "core/settings.h"
#include "platform/scripted/scripted_platform.h"
#include "support/settings_fixture.h"

namespace brindlemoor::test {
namespace {

using Texts = std::vector<std::string>;

struct RoleCase {
    ProgramRole Role;
    const char* Variable;
};
constexpr RoleCase kRoles[] = {{ProgramRole::TextEditor, "BRINDLEMOOR_EDITOR"},
                               {ProgramRole::HexEditor, "BRINDLEMOOR_HEXEDITOR"},
                               {ProgramRole::Painter, "BRINDLEMOOR_PAINT"}};

class ExternalProgramTest : public SettingsTest {
  protected:
    void SetUp() override {
        SettingsTest::SetUp();
        for (const RoleCase& role : kRoles) SetVariable(role.Variable, "");
        Platform = ScriptedPlatform(script_);
    }
    void TearDown() override {
        for (const RoleCase& role : kRoles) SetVariable(role.Variable, "");
        SettingsTest::TearDown();
    }

    /// From now on these programs alone are there.
    void Install(const Texts& programs) {
        script_.IsInstalled = [programs](const std::string& program) {
            return std::find(programs.begin(), programs.end(), program) != programs.end();
        };
    }

    Script script_;
};

TEST_F(ExternalProgramTest, EachRoleHasItsOwnUsualPrograms) {
    EXPECT_EQ(ProgramsFor(ProgramRole::TextEditor).at(1), (ProgramCall{"gedit", {}}));
    EXPECT_EQ(ProgramsFor(ProgramRole::HexEditor).at(1), (ProgramCall{"ghex", {}}));
    EXPECT_EQ(ProgramsFor(ProgramRole::Painter).at(1), (ProgramCall{"mtpaint", {}}));
}

TEST_F(ExternalProgramTest, TheFirstInstalledOneIsStarted) {
    Install({"mousepad", "gedit"});
    EXPECT_TRUE(StartExternalProgram(ProgramRole::TextEditor, "/pc/A.BAS"));
    ASSERT_EQ(script_.Programs.size(), 1U);
    EXPECT_EQ(script_.Programs[0].Program, "gedit");
    EXPECT_EQ(script_.Programs[0].Arguments, Texts{"/pc/A.BAS"});
    EXPECT_TRUE(script_.Messages.empty());
}

TEST_F(ExternalProgramTest, TheUsersOwnComesFirstInEachRole) {
    for (const RoleCase& role : kRoles) {
        SetVariable(role.Variable, "/opt/mine");
        script_.Programs.clear();
        EXPECT_TRUE(StartExternalProgram(role.Role, "/pc/A"));
        ASSERT_EQ(script_.Programs.size(), 1U);
        EXPECT_EQ(script_.Programs[0].Program, "/opt/mine");
        EXPECT_TRUE(HasExternalProgram(role.Role));
    }
}

TEST_F(ExternalProgramTest, AVariableOfOneRoleSaysNothingOfTheOthers) {
    SetVariable("BRINDLEMOOR_EDITOR", "mine");
    EXPECT_EQ(ProgramsFor(ProgramRole::TextEditor).front().Program, "mine");
    EXPECT_NE(ProgramsFor(ProgramRole::HexEditor).front().Program, "mine");
    EXPECT_NE(ProgramsFor(ProgramRole::Painter).front().Program, "mine");
}

TEST_F(ExternalProgramTest, AVariableMayHoldArguments) {
    Install({"code", "gedit"});
    SetVariable("BRINDLEMOOR_EDITOR", "  code  --new-window -w ");
    EXPECT_TRUE(StartExternalProgram(ProgramRole::TextEditor, "/pc/A.BAS"));
    EXPECT_EQ(script_.Programs[0].Program, "code");
    EXPECT_EQ(script_.Programs[0].Arguments, (Texts{"--new-window", "-w", "/pc/A.BAS"}));
}

TEST_F(ExternalProgramTest, AVariableMayBeAPathWithBlanks) {
    Install({"/opt/my editor", "/opt/my"});
    SetVariable("BRINDLEMOOR_EDITOR", "/opt/my editor");
    EXPECT_TRUE(StartExternalProgram(ProgramRole::TextEditor, "/pc/A.BAS"));
    EXPECT_EQ(script_.Programs[0].Program, "/opt/my editor");
}

TEST_F(ExternalProgramTest, BlanksAloneChooseNothing) {
    SetVariable("BRINDLEMOOR_EDITOR", "   ");
    EXPECT_NE(ProgramsFor(ProgramRole::TextEditor).front().Program, "");
}

TEST_F(ExternalProgramTest, AnOwnProgramThatIsNotThereGivesWayToTheUsualOnes) {
    Install({"gedit"});
    SetVariable("BRINDLEMOOR_EDITOR", "mistyped");
    EXPECT_TRUE(StartExternalProgram(ProgramRole::TextEditor, "/pc/A.BAS"));
    EXPECT_EQ(script_.Programs[0].Program, "gedit");
}

TEST_F(ExternalProgramTest, NoneFoundNamesTheVariable) {
    Install({});
    for (const RoleCase& role : kRoles) {
        script_.Messages.clear();
        EXPECT_FALSE(HasExternalProgram(role.Role));
        EXPECT_FALSE(StartExternalProgram(role.Role, "/pc/A.BAS"));
        ASSERT_EQ(script_.Messages.size(), 2U);
        for (const ShownMessage& message : script_.Messages) {
            EXPECT_NE(message.Text.find(role.Variable), std::string::npos) << message.Text;
            EXPECT_EQ(message.Choice, Buttons::Ok);
        }
    }
    EXPECT_TRUE(script_.Programs.empty());
}

TEST_F(ExternalProgramTest, TheMessageSpeaksTheLanguageInForce) {
    Install({});
    HasExternalProgram(ProgramRole::Painter);
    Settings.LanguageIndex = 1;
    HasExternalProgram(ProgramRole::Painter);
    EXPECT_EQ(script_.Messages[0].Text,
              "No program that paints pictures was found.\r\n\r\nInstall one, or name your own in "
              "the environment variable BRINDLEMOOR_PAINT.");
    EXPECT_EQ(script_.Messages[1].Text,
              "No se encontr\xF3 ning\xFAn programa que pinte im\xE1genes.\r\n\r\nInstale uno, o "
              "escriba el suyo en la variable de entorno BRINDLEMOOR_PAINT.");
}

TEST_F(ExternalProgramTest, AProgramThatDoesNotStartGivesWayToTheNextAndTheLastIsTold) {
    script_.ProgramsStart = false;
    EXPECT_FALSE(StartExternalProgram(ProgramRole::TextEditor, "/pc/A.BAS"));
    EXPECT_EQ(script_.Programs.size(), ProgramsFor(ProgramRole::TextEditor).size());
    EXPECT_EQ(script_.Messages.size(), 1U);
}

TEST_F(ExternalProgramTest, APathIsGivenWholeSoThatADashIsNoOption) {
    StartExternalProgram(ProgramRole::TextEditor, "-rf");
    EXPECT_EQ(script_.Programs[0].Arguments,
              Texts{(std::filesystem::current_path() / "-rf").string()});
}

TEST_F(ExternalProgramTest, ANameThatAShellWouldReadIsOneArgument) {
    for (const char* path : {"/pc/$(rm).BAS", "/pc/a b;c.BAS", "/pc/\"'`.BAS"}) {
        script_.Programs.clear();
        StartExternalProgram(ProgramRole::TextEditor, path);
        EXPECT_EQ(script_.Programs[0].Arguments, Texts{path});
    }
}

}  // namespace
}  // namespace brindlemoor::test
