#include "workbench/help_text.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "core/byte_helpers.h"
#include "core/platform.h"
#include "core/settings.h"
#include "support/disk_fixture.h"
#include "support/workbench_fixture.h"
#include "workbench/control.h"
#include "workbench/principal.h"

namespace brindlemoor {
namespace {

namespace fs = std::filesystem;

class HelpTextTest : public test::WorkbenchTest {
  protected:
    /// Makes a file of that name in a folder beside the PC's, and returns its path.
    std::string Make(const std::string& folder, const std::string& name) const {
        fs::create_directories(PcFolder + "/" + folder);
        return test::WriteTestFile(PcFolder + "/" + folder, name, "help");
    }
};

TEST_F(HelpTextTest, TheWorkingFolderComesFirst) {
    script_.ProgramFolder = PcFolder + "/usr/bin";
    const std::string installed = Make("usr/share/brindlemoor/help", "Brindlemoor English");
    Make("usr/bin", "other");
    EXPECT_TRUE(fs::equivalent(HelpTextPath("English"), installed));
    const std::string beside = Make("usr/bin/help", "Brindlemoor English");
    EXPECT_EQ(HelpTextPath("English"), beside);
    const std::string below = Make("help", "Brindlemoor English");
    EXPECT_EQ(HelpTextPath("English"), below);
    test::WriteTestFile(PcFolder, "Brindlemoor English", "help");
    EXPECT_EQ(HelpTextPath("English"), PcFolder + "/Brindlemoor English");
}

TEST_F(HelpTextTest, NamesAreFoundInUtf8AndInWindows1252) {
    const std::string utf8 = Make("help", "Brindlemoor Español");
    EXPECT_EQ(HelpTextPath("Español"_w), utf8);
    fs::remove(utf8);
    const std::string windows = Make("help", "Brindlemoor Español"_w);
    EXPECT_EQ(HelpTextPath("Español"_w), windows);
}

TEST_F(HelpTextTest, ATextThatIsNowhereKeepsItsBareName) {
    EXPECT_EQ(HelpTextPath("English"), "Brindlemoor English");
}

TEST_F(HelpTextTest, BothLanguagesOfTheMenuHaveTheirText) {
    Start();
    const fs::path folder = fs::path(BRINDLEMOOR_HELP);
    fs::copy(folder, PcFolder + "/help");
    for (int language = 0; language < 2; ++language) {
        MenuOf(Principal, "LanguageMenu").Click(language);
        const MenuItem& item = ItemOf(MenuOf(Principal, "LanguageMenu"), language);
        EXPECT_TRUE(fs::is_regular_file(HelpTextPath(item.Caption))) << language;
    }
}

}  // namespace
}  // namespace brindlemoor
