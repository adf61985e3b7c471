#include "workbench/files_menu.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "image/modified_state.h"
#include "support/decb_builder.h"
#include "support/disk_fixture.h"
#include "support/faulty_files.h"
#include "support/workbench_fixture.h"
#include "workbench/file_dialog.h"
#include "workbench/new_disk.h"
#include "workbench/principal.h"

namespace brindlemoor::test {
namespace {

namespace fs = std::filesystem;
using Texts = std::vector<std::string>;

class FilesMenuTest : public WorkbenchTest {
  protected:
    void SetUp() override {
        WorkbenchTest::SetUp();
        WriteTestFile(PcFolder, "a.dsk", OneFileDisk());
        WriteTestFile(PcFolder, "z.txt", "a text");
        Start();
        script_.Messages.clear();
    }

    std::string Path(const std::string& name) const { return JoinPath(PcFolder, name); }

    static void Menu(int item) { MenuOf(Principal, "FilesMenu").Click(item); }

    void OpenDisk() {
        SelectPcFile(Path("a.dsk"));
        ASSERT_EQ(Disk.DirRows, 1);
    }

    static void ChangeDisk() {
        Disk.ImageBytes[9] = 'X';
        RefreshModified();
    }

    static std::string Selected() {
        const Control& files = PrincipalControl("File1");
        return files.ListIndex < 0 ? "" : files.Items[static_cast<std::size_t>(files.ListIndex)];
    }

    FileOperationsKept kept_;
};

// Open

TEST_F(FilesMenuTest, OpenPicksAFileAndOpensItAsAClick) {
    script_.Files = {Path("a.dsk")};
    Menu(2);
    ASSERT_EQ(script_.FileQuestions.size(), 1u);
    const FileQuestion& question = script_.FileQuestions[0];
    EXPECT_FALSE(question.Save);
    EXPECT_EQ(question.Folder, PcFolder);
    EXPECT_EQ(question.DefaultExt, "DSK");
    EXPECT_EQ(question.Title, "Seleccione el Archivo");
    EXPECT_EQ(question.Filter, "All files: *.*|*.*");
    EXPECT_EQ(question.Flags, 2050);
    EXPECT_EQ(Disk.DirRows, 1);
    EXPECT_EQ(Selected(), "a.dsk");
    EXPECT_EQ(PrincipalControl("FilePath").Text, Path("a.dsk"));
    EXPECT_EQ(PrincipalControl("PathDsk").Text, Path("a.dsk"));
}

TEST_F(FilesMenuTest, GivingTheDialogUpChangesNothing) {
    OpenDisk();
    for (const int item : {2, 6}) Menu(item);
    EXPECT_EQ(script_.FileQuestions.size(), 2u);
    EXPECT_EQ(PrincipalControl("PathDsk").Text, Path("a.dsk"));
    EXPECT_EQ(Disk.DirRows, 1);
}

TEST_F(FilesMenuTest, AFileOfAnotherFolderBringsItsFolderIntoThePane) {
    const std::string folder = Path("sub");
    fs::create_directories(folder);
    WriteTestFile(folder, "b.dsk", OneFileDisk());
    script_.Files = {JoinPath(folder, "b.dsk")};
    Menu(2);
    EXPECT_EQ(PrincipalControl("File1").Path, folder);
    EXPECT_EQ(PrincipalControl("Dir1").Path, folder);
    EXPECT_EQ(Selected(), "b.dsk");
}

TEST_F(FilesMenuTest, AFileThatTheListDoesNotShowLeavesTheClickToTheLastEntry) {
    script_.Files = {Path("not there.dsk")};
    Menu(2);
    EXPECT_EQ(Selected(), "z.txt");
    EXPECT_EQ(PrincipalControl("FilePath").Text, Path("not there.dsk"));
}

// ReOpen

TEST_F(FilesMenuTest, ReOpenDiscardsTheChangesWithoutAQuestion) {
    OpenDisk();
    ChangeDisk();
    EXPECT_TRUE(ItemOf(MenuOf(Principal, "FilesMenu"), 3).Enabled);
    EXPECT_TRUE(PrincipalControl("UndoBtn").Enabled);
    Menu(3);
    EXPECT_EQ(Disk.ImageBytes, OneFileDisk());
    EXPECT_FALSE(ItemOf(MenuOf(Principal, "FilesMenu"), 3).Enabled);
    EXPECT_FALSE(PrincipalControl("UndoBtn").Enabled);
    ChangeDisk();
    PrincipalControl("UndoBtn").Click();
    EXPECT_EQ(Disk.ImageBytes, OneFileDisk());
    EXPECT_TRUE(script_.Messages.empty());
}

TEST_F(FilesMenuTest, EscapeInTheGridIsTheUndoButton) {
    OpenDisk();
    ChangeDisk();
    ListDirec.Key(kKeyEscape);
    EXPECT_EQ(Disk.ImageBytes, OneFileDisk());
}

// Save

TEST_F(FilesMenuTest, SaveWritesTheImageAsItStandsAndOpensItAgain) {
    OpenDisk();
    ChangeDisk();
    DirTable[0].Name = "CHANGED ";
    const std::string image = Disk.ImageBytes;
    Menu(5);
    EXPECT_EQ(FileBytes(Path("a.dsk")), image);
    EXPECT_EQ(Disk.ImageModified, 0);
    EXPECT_FALSE(ItemOf(MenuOf(Principal, "FilesMenu"), 5).Enabled);
    EXPECT_EQ(ListDirec.BackColour, 16777215);
    EXPECT_EQ(DirTable[0].Name, "HELLO   ");  // read again
    EXPECT_EQ(Selected(), "a.dsk");
    EXPECT_TRUE(script_.Messages.empty());
}

TEST_F(FilesMenuTest, TheButtonWritesTheRowsFirst) {
    OpenDisk();
    DirTable[0].Name = "CHANGED ";
    PrincipalControl("SaveBtn").Click();
    EXPECT_EQ(FileBytes(Path("a.dsk")).substr(78848, 11), "CHANGED BAS");
    EXPECT_EQ(DirTable[0].Name, "CHANGED ");
    EXPECT_EQ(DirTable[0].Content, "bytes");
}

TEST_F(FilesMenuTest, ASaveThatFailsKeepsTheModifiedState) {
    OpenDisk();
    ChangeDisk();
    FileOperations = FailingAt(FileStep::Write);
    Menu(5);
    EXPECT_EQ(MessageTexts(script_), Texts{"Error!!! 28 No space left on device"});
    EXPECT_EQ(FileBytes(Path("a.dsk")), OneFileDisk());
    EXPECT_NE(Disk.ImageModified, 0);
    EXPECT_EQ(Disk.ImageBytes[9], 'X');
    EXPECT_TRUE(PrincipalControl("UndoBtn").Enabled);
}

TEST_F(FilesMenuTest, AfterAFailedSaveTheRowsInTheImageAreAnUnsavedChange) {
    OpenDisk();
    DirTable[0].Name = "CHANGED ";
    FileOperations = FailingAt(FileStep::Write);
    PrincipalControl("SaveBtn").Click();
    EXPECT_EQ(MessageTexts(script_), Texts{"Error!!! 28 No space left on device"});
    EXPECT_EQ(Disk.ImageBytes.substr(78848, 11), "CHANGED BAS");
    EXPECT_EQ(Disk.ImageModified, -1);
    EXPECT_TRUE(ItemOf(MenuOf(Principal, "FilesMenu"), 5).Enabled);
    EXPECT_TRUE(PrincipalControl("UndoBtn").Enabled);
    EXPECT_EQ(FileBytes(Path("a.dsk")), OneFileDisk());
}

TEST_F(FilesMenuTest, SaveWithoutADiskEndsInTheErrorMessage) {
    PrincipalControl("SaveBtn").Click();
    Menu(5);
    EXPECT_EQ(MessageTexts(script_), (Texts{"Error!!! 2 No such file or directory",
                                            "Error!!! 2 No such file or directory"}));
    EXPECT_TRUE(Disk.ImageBytes.empty());
}

TEST_F(FilesMenuTest, SaveAsWritesToTheChosenPathAndGoesOnThere) {
    OpenDisk();
    ChangeDisk();
    const std::string image = Disk.ImageBytes;
    script_.Files = {Path("copy.dsk")};
    Menu(6);
    ASSERT_EQ(script_.FileQuestions.size(), 1u);
    EXPECT_TRUE(script_.FileQuestions[0].Save);
    EXPECT_EQ(script_.FileQuestions[0].Flags, 2);
    EXPECT_EQ(script_.FileQuestions[0].Title, "Seleccione el Archivo");
    EXPECT_EQ(FileBytes(Path("copy.dsk")), image);
    EXPECT_EQ(FileBytes(Path("a.dsk")), OneFileDisk());
    EXPECT_EQ(PrincipalControl("PathDsk").Text, Path("copy.dsk"));
    EXPECT_EQ(Selected(), "copy.dsk");
    EXPECT_EQ(Disk.ImageModified, 0);
}

TEST_F(FilesMenuTest, SaveAsWithoutADiskAsksForNoFile) {
    script_.Files = {Path("a.dsk")};
    Menu(6);
    EXPECT_TRUE(script_.FileQuestions.empty());
    EXPECT_EQ(FileBytes(Path("a.dsk")), OneFileDisk());
}

TEST_F(FilesMenuTest, TheButtonAsksBeforeItBlanksAnOs9Disk) {
    OpenDisk();
    Disk.DiskFamily = kOs9;
    const std::string image = Disk.ImageBytes;
    PrincipalControl("SaveBtn").Click();
    ASSERT_EQ(script_.Messages.size(), 1u);
    EXPECT_NE(script_.Messages[0].Text.find("OS-9"), std::string::npos);
    EXPECT_EQ(Disk.ImageBytes, image);
    EXPECT_EQ(FileBytes(Path("a.dsk")), OneFileDisk());
}

TEST_F(FilesMenuTest, EverySavingAsksBeforeADmkFileLosesItsTracks) {
    const std::string file = TestData("decb/decb35-imgtool.dmk");
    WriteTestFile(PcFolder, "b.dmk", file);
    SelectPcFile(Path("b.dmk"));
    ASSERT_GT(Disk.DirRows, 0);
    const std::string image = Disk.ImageBytes;
    Menu(5);
    Menu(6);
    PrincipalControl("SaveBtn").Click();
    ASSERT_EQ(script_.Messages.size(), 3U);
    for (const auto& message : script_.Messages) {
        EXPECT_NE(message.Text.find("DMK"), std::string::npos);
        EXPECT_EQ(message.Choice, Buttons::OkCancel);
    }
    EXPECT_TRUE(script_.FileQuestions.empty());
    EXPECT_EQ(FileBytes(Path("b.dmk")), file);

    script_.Answers = {Answer::Ok};
    Menu(5);
    EXPECT_EQ(FileBytes(Path("b.dmk")), file.substr(0, 16) + image);
}

TEST_F(FilesMenuTest, RowsThatCannotBeWrittenIntoTheImageAreNotSaved) {
    OpenDisk();
    Disk.DiskFamily = kOs9;
    Disk.TotalSectors = -1;
    script_.Answers = {Answer::Ok};
    PrincipalControl("SaveBtn").Click();
    EXPECT_EQ(script_.Messages.size(), 2U);
    EXPECT_EQ(MessageTexts(script_).back(), "Run-time error '7':\r\n\r\nOut of memory");
    EXPECT_EQ(Disk.ImageBytes, OneFileDisk());
    EXPECT_EQ(FileBytes(Path("a.dsk")), OneFileDisk());
}

// Exit

TEST_F(FilesMenuTest, ExitLosesUnsavedChangesWithoutAQuestion) {
    OpenDisk();
    ChangeDisk();
    Menu(8);
    EXPECT_TRUE(script_.Closed);
    EXPECT_TRUE(script_.Messages.empty());
    EXPECT_EQ(FileBytes(Path("a.dsk")), OneFileDisk());
}

TEST_F(FilesMenuTest, TheSeparatorsDoNothing) {
    for (const int item : {1, 4, 7, 9, -1}) Menu(item);
    EXPECT_TRUE(script_.FileQuestions.empty());
    EXPECT_FALSE(script_.Closed);
}

// New

TEST_F(FilesMenuTest, NewMakesABlankDiskAndOpensIt) {
    script_.Files = {Path("blank.dsk")};
    Menu(0);
    EXPECT_EQ(script_.ModalWindows, Texts{"NewDisk"});
    ASSERT_EQ(script_.FileQuestions.size(), 1u);
    const FileQuestion& question = script_.FileQuestions[0];
    EXPECT_TRUE(question.Save);
    EXPECT_EQ(question.Title, "Crear archivo nuevo");
    EXPECT_EQ(question.DefaultExt, "DSK");
    EXPECT_EQ(question.FilterIndex, 2);
    const Control& patterns = PrincipalControl("DirPattern");
    EXPECT_EQ(question.Filter, FilterOf(patterns.Items[0]) + "|" + FilterOf(patterns.Items[1]) +
                                   "|" + FilterOf(patterns.Items[2]) + "|" +
                                   FilterOf(patterns.Items[5]));
    EXPECT_EQ(FileBytes(Path("blank.dsk")), std::string(161280, '\xFF'));
    EXPECT_EQ(Selected(), "blank.dsk");
    EXPECT_EQ(PrincipalControl("PathDsk").Text, Path("blank.dsk"));
    EXPECT_EQ(PrincipalControl("FilePath").Text, Path("blank.dsk"));
    EXPECT_EQ(Disk.DiskFamily, kDecb);
    EXPECT_EQ(Disk.DirRows, 0);
}

TEST_F(FilesMenuTest, NewFollowsTheDialog) {
    script_.OnModal = [](const std::string&) { ChooseOption(NewDisk, "VDiskF", 1); };
    script_.Files = {Path("blank.vdk")};
    Menu(0);
    EXPECT_EQ(script_.FileQuestions[0].DefaultExt, "VDK");
    EXPECT_EQ(script_.FileQuestions[0].FilterIndex, 3);
    EXPECT_EQ(FileBytes(Path("blank.vdk")).size(), 184336u);
    EXPECT_EQ(Disk.DiskFamily, kDragon);
    EXPECT_EQ(Disk.TrackCount, 40);
}

TEST_F(FilesMenuTest, ACancelledDialogOrFileDialogLeavesTheDiskUntouched) {
    OpenDisk();
    script_.OnModal = [](const std::string&) { ControlOf(NewDisk, "Cancelar").Click(); };
    Menu(0);
    EXPECT_TRUE(script_.FileQuestions.empty());
    script_.OnModal = nullptr;
    Menu(0);  // the mark of the last time is gone
    EXPECT_EQ(script_.FileQuestions.size(), 1u);
    EXPECT_EQ(Disk.ImageBytes, OneFileDisk());
    EXPECT_EQ(PrincipalControl("FilePath").Text, Path("a.dsk"));
}

TEST_F(FilesMenuTest, ANewFileThatCannotBeWrittenShowsTheErrorAndOpensNothing) {
    OpenDisk();
    FileOperations = FailingAt(FileStep::FlushToDisk);
    script_.Files = {Path("blank.dsk")};
    Menu(0);
    EXPECT_EQ(MessageTexts(script_), Texts{"Error!!! 28 No space left on device"});
    EXPECT_FALSE(fs::exists(Path("blank.dsk")));
    EXPECT_EQ(Disk.ImageBytes, OneFileDisk());
    EXPECT_EQ(PrincipalControl("PathDsk").Text, Path("a.dsk"));
}

// The dialog's own rules

TEST_F(FilesMenuTest, TheFileDialogFillsInWhatIsMissing) {
    std::string path = PcFolder;
    std::string name = "start.dsk";
    int filter = 1;
    script_.Files = {Path("sub/x.dsk")};
    EXPECT_EQ(FileDialog("A", path, name, {"VHD HardDisk", "", ""}, filter), Path("sub/x.dsk"));
    const FileQuestion& question = script_.FileQuestions[0];
    EXPECT_EQ(question.Title, "¿Seleccione el archivo?"_w);
    EXPECT_EQ(question.Filter, "Todos Los Archivos (*.*)|*.*");
    EXPECT_EQ(question.DefaultExt, "VHD");
    EXPECT_EQ(question.Name, "start.dsk");
    EXPECT_EQ(path, Path("sub"));
    EXPECT_EQ(name, "x.dsk");
    EXPECT_EQ(FileDialog("G", path, name, {}, filter, 7), "");
    EXPECT_EQ(script_.FileQuestions[1].Flags, 7);
    EXPECT_TRUE(script_.FileQuestions[1].Save);
    EXPECT_EQ(path, Path("sub"));
}

}  // namespace
}  // namespace brindlemoor::test
