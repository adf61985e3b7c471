#include "workbench/acerca.h"

#include <gtest/gtest.h>

#include "core/byte_helpers.h"
#include "core/settings.h"
#include "support/workbench_fixture.h"
#include "workbench/principal.h"

namespace brindlemoor {
namespace {

class AcercaTest : public test::WorkbenchTest {
  protected:
    void SetUp() override {
        WorkbenchTest::SetUp();
        BuildAcerca();
    }

    void TearDown() override {
        Acerca = {};
        WorkbenchTest::TearDown();
    }

    static Control& Named(const char* name) { return ControlOf(Acerca, name); }
};

TEST_F(AcercaTest, WebPageAndMailStandInTwoFieldsThatCanOnlyBeRead) {
    EXPECT_EQ(Named("Text1").Text, kMakersPage);
    EXPECT_NE(Named("Text2").Text.find('@'), std::string::npos);
    for (const Control& control : Acerca.Controls) {
        const bool field = control.Kind == ControlKind::TextBox;
        EXPECT_EQ(field, control.Name == "Text1" || control.Name == "Text2") << control.Name;
        EXPECT_EQ(control.ReadOnly, field) << control.Name;
    }
}

TEST_F(AcercaTest, TheLabelsAreTheseInEveryLanguage) {
    Start();
    for (const int language : {0, 1}) {
        MenuOf(Principal, "LanguageMenu").Click(language);
        EXPECT_EQ(Named("Label1").Text, "Desarrollo y programación por:"_w);
        EXPECT_EQ(Named("Label3").Text, "Web (Blog):");
        EXPECT_EQ(Named("Label4").Text, "Email: ");
    }
}

TEST_F(AcercaTest, TheVersionIsThatOfTheProgram) {
    EXPECT_EQ(Named("Version").Text, "Version: " + ProgramVersion());
}

TEST_F(AcercaTest, NothingInItHasCode) {
    for (const Control& control : Acerca.Controls) {
        EXPECT_FALSE(control.Click) << control.Name;
        EXPECT_FALSE(control.Change) << control.Name;
    }
}

TEST_F(AcercaTest, EverythingStandsInsideTheWindow) {
    for (const Control& control : Acerca.Controls) {
        EXPECT_GE(control.Left, 0) << control.Name;
        EXPECT_GE(control.Top, 0) << control.Name;
        EXPECT_LE(control.Left + control.Width, Acerca.Width) << control.Name;
        EXPECT_LE(control.Top + control.Height, Acerca.Height) << control.Name;
    }
}

TEST_F(AcercaTest, BuiltTwiceItHasItsControlsOnce) {
    const std::size_t count = Acerca.Controls.size();
    BuildAcerca();
    EXPECT_EQ(Acerca.Controls.size(), count);
}

}  // namespace
}  // namespace brindlemoor
