#include "core/pc_folders.h"

#include <gtest/gtest.h>

#include <filesystem>
#ifndef _WIN32
#include <sys/stat.h>
#endif

#include "support/disk_fixture.h"

namespace brindlemoor {
namespace {

namespace fs = std::filesystem;

using test::FreshFolder;
using test::WriteTestFile;
using Texts = std::vector<std::string>;

// Patterns

TEST(PcPattern, AStarStandsForAnyCharactersAndAQuestionMarkForOne) {
    EXPECT_TRUE(MatchesPattern("GAME.DSK", "*.DSK"));
    EXPECT_TRUE(MatchesPattern(".DSK", "*.DSK"));
    EXPECT_TRUE(MatchesPattern("A.B.DSK", "*.DSK"));
    EXPECT_TRUE(MatchesPattern("A.DSK.DSK", "*.DSK"));
    EXPECT_FALSE(MatchesPattern("GAME.DSKX", "*.DSK"));
    EXPECT_FALSE(MatchesPattern("GAMEDSK", "*.DSK"));
    EXPECT_TRUE(MatchesPattern("GAME1.DSK", "GAME?.*"));
    EXPECT_FALSE(MatchesPattern("GAME.DSK", "GAME?.*"));
    EXPECT_FALSE(MatchesPattern("GAME12.DSK", "GAME?.*"));
    EXPECT_TRUE(MatchesPattern("ABCABD", "*ABD"));
    EXPECT_TRUE(MatchesPattern("abc", "***c**"));
    EXPECT_TRUE(MatchesPattern("", "*"));
}

TEST(PcPattern, OneOfSeveralPatternsIsEnough) {
    EXPECT_TRUE(MatchesOnePattern("a.vdk", "*.DSK;*.VDK"));
    EXPECT_TRUE(MatchesOnePattern("a.vdk", "*.DSK; *.VDK "));
    EXPECT_FALSE(MatchesOnePattern("a.txt", "*.DSK;*.VDK"));
    EXPECT_FALSE(MatchesOnePattern("a.txt", ""));
    EXPECT_FALSE(MatchesOnePattern("a.txt", ";"));
}

TEST(PcPattern, CaseDoesNotMatter) {
    EXPECT_TRUE(MatchesPattern("game.dsk", "*.DSK"));
    EXPECT_TRUE(MatchesPattern("GAME.DSK", "g*.dsk"));
}

TEST(PcPattern, StarDotStarMatchesNamesWithoutADotToo) {
    EXPECT_TRUE(MatchesPattern("README", "*.*"));
    EXPECT_FALSE(MatchesPattern("README", "*.*X"));
}

TEST(PcPattern, AnEmptyPatternMatchesNothing) {
    EXPECT_FALSE(MatchesPattern("A", ""));
    EXPECT_FALSE(MatchesPattern("", ""));
}

TEST(PcPattern, ManyStarsOnALongNameEndSoon) {
    const std::string name(4000, 'a');
    EXPECT_FALSE(MatchesPattern(name, "*a*a*a*a*a*a*a*a*a*a*b"));
}

// Lists

TEST(PcFolders, FilesAreListedByNameWithoutRegardToCase) {
    const std::string folder = FreshFolder();
    for (const char* name : {"b.dsk", "A.DSK", "C.dsk", "a.txt"}) WriteTestFile(folder, name, "");
    fs::create_directories(folder + "/sub.dsk");
    EXPECT_EQ(FilesIn(folder, "*.*"), (Texts{"A.DSK", "a.txt", "b.dsk", "C.dsk"}));
    EXPECT_EQ(FilesIn(folder, "*.dsk"), (Texts{"A.DSK", "b.dsk", "C.dsk"}));
}

#ifndef _WIN32
TEST(PcFolders, NamesThatDifferInCaseOnlyStandInOneOrder) {
    const std::string folder = FreshFolder();
    for (const char* name : {"one", "ONE", "One"}) WriteTestFile(folder, name, "");
    EXPECT_EQ(FilesIn(folder, "*"), (Texts{"ONE", "One", "one"}));
}
#endif

TEST(PcFolders, SeveralPatternsAreSeparatedBySemicolons) {
    const std::string folder = FreshFolder();
    for (const char* name : {"A.DSK", "B.VDK", "C.TXT"}) WriteTestFile(folder, name, "");
    EXPECT_EQ(FilesIn(folder, "*.DSK;*.VDK"), (Texts{"A.DSK", "B.VDK"}));
    EXPECT_EQ(FilesIn(folder, " *.TXT ; *.VDK "), (Texts{"B.VDK", "C.TXT"}));
    EXPECT_EQ(FilesIn(folder, "*.*;*.DSK").size(), 3U);
    EXPECT_TRUE(FilesIn(folder, "").empty());
    EXPECT_TRUE(FilesIn(folder, ";;").empty());
}

TEST(PcFolders, FoldersAreListedWithoutTheFiles) {
    const std::string folder = FreshFolder();
    fs::create_directories(folder + "/tapes");
    fs::create_directories(folder + "/Disks/deeper");
    WriteTestFile(folder, "A.DSK", "");
    EXPECT_EQ(FoldersIn(folder), (Texts{"Disks", "tapes"}));
}

TEST(PcFolders, HiddenNamesAreLeftOut) {
    const std::string folder = FreshFolder();
    fs::create_directories(folder + "/.cache");
    WriteTestFile(folder, ".hidden.dsk", "");
    EXPECT_TRUE(FoldersIn(folder).empty());
    EXPECT_TRUE(FilesIn(folder, "*.*").empty());
}

TEST(PcFolders, AFolderThatIsNotThereHasNothing) {
    const std::string folder = FreshFolder();
    const std::string file = WriteTestFile(folder, "A.DSK", "");
    for (const std::string& path : {folder + "/gone", file, std::string()}) {
        EXPECT_TRUE(FoldersIn(path).empty()) << path;
        EXPECT_TRUE(FilesIn(path, "*.*").empty()) << path;
    }
}

#ifndef _WIN32
TEST(PcFolders, PipesAreNotListedSinceReadingThemWouldWaitForEver) {
    const std::string folder = FreshFolder();
    ASSERT_EQ(mkfifo((folder + "/pipe.dsk").c_str(), 0600), 0);
    WriteTestFile(folder, "A.DSK", "");
    fs::create_symlink("A.DSK", folder + "/link.dsk");
    fs::create_symlink("pipe.dsk", folder + "/trap.dsk");
    EXPECT_EQ(FilesIn(folder, "*.dsk"), (Texts{"A.DSK", "link.dsk"}));
}
#endif

TEST(PcFolders, FoldersAndFilesAreToldApart) {
    const std::string folder = FreshFolder();
    const std::string file = WriteTestFile(folder, "A.DSK", "");
    EXPECT_TRUE(FolderExists(folder));
    EXPECT_FALSE(FolderExists(file));
    EXPECT_FALSE(FolderExists(folder + "/gone"));
    EXPECT_FALSE(FolderExists(""));
    EXPECT_TRUE(FileExists(file));
    EXPECT_FALSE(FileExists(folder));
    EXPECT_FALSE(FileExists(folder + "/gone"));
    EXPECT_FALSE(FileExists(file + "/below"));
    EXPECT_FALSE(FileExists(""));
}

// Paths

#ifndef _WIN32
TEST(PcPaths, TheFoldersAboveRunFromTheRootDown) {
    EXPECT_EQ(FoldersAbove("/home/ann"), (Texts{"/", "/home", "/home/ann"}));
    EXPECT_EQ(FoldersAbove("/home/ann/"), (Texts{"/", "/home", "/home/ann"}));
    EXPECT_EQ(FoldersAbove("/"), (Texts{"/"}));
    EXPECT_TRUE(FoldersAbove("").empty());
}

TEST(PcPaths, AFoldersWholePathRunsFromTheRootWithoutASeparatorAtItsEnd) {
    EXPECT_EQ(WholeFolderPath("/home/ann"), "/home/ann");
    EXPECT_EQ(WholeFolderPath("/home/ann//"), "/home/ann");
    EXPECT_EQ(WholeFolderPath("/home//ann/../bob/./x"), "/home/bob/x");
    EXPECT_EQ(WholeFolderPath("/"), "/");
    EXPECT_EQ(WholeFolderPath("/.."), "/");
    EXPECT_EQ(WholeFolderPath(""), "/");
}

TEST(PcPaths, ARelativeFolderStartsWhereTheProgramStands) {
    EXPECT_EQ(WholeFolderPath("sub/x"), (fs::current_path() / "sub/x").string());
    EXPECT_EQ(WholeFolderPath("."), fs::current_path().string());
}
#else
TEST(PcPaths, ADrivesLetterIsItsRoot) {
    EXPECT_EQ(WholeFolderPath("C:"), "C:\\");
    EXPECT_EQ(WholeFolderPath("C:\\disks\\"), "C:\\disks");
    EXPECT_EQ(FoldersAbove("C:\\disks"), (Texts{"C:\\", "C:\\disks"}));
}
#endif

}  // namespace
}  // namespace brindlemoor
