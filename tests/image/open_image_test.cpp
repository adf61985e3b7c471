#include "image/open_image.h"

#include <new>

#include "core/disk_state.h"
#include "core/runtime_failure.h"
#include "core/screen.h"
#include "support/decb_builder.h"
#include "support/disk_fixture.h"

namespace brindlemoor::test {
namespace {

class OpenImageTest : public DiskTest {
  protected:
    void SetUp() override {
        DiskTest::SetUp();
        folder_ = FreshFolder();
        Disk.Messages.assign(161, "");
        Disk.Messages[4] = "lose any changes?";
        Screen.PcListFolder = [this] { return folder_; };
        Screen.PcListName = [this] { return name_; };
        Screen.SetFilePath = [this](const std::string& path) { filePath_ = path; };
        Screen.PathDskText = [this] { return pathDsk_; };
        Screen.SetPathDsk = [this](const std::string& path) { pathDsk_ = path; };
        Screen.ViewFile = [this](int newFile, int mode) {
            calls_.emplace_back("view");
            viewed_ = {newFile, mode};
        };
        Screen.KeepSectorView = [this] { return [this] { calls_.emplace_back("fields"); }; };
        Screen.GiveUpColumnSort = [this] { calls_.emplace_back("sort"); };
        Screen.PaintTrackBlock = [this](int row) { calls_.push_back("map" + std::to_string(row)); };
        Screen.FillDirectoryGrid = [this] { calls_.emplace_back("grid"); };
        Screen.DrawSectorMap = [this](int mark) {
            calls_.push_back("sector" + std::to_string(mark));
        };
    }

    /// Clicks a file of that name and these bytes.
    void Click(const std::string& name, const std::string& bytes) {
        WriteTestFile(folder_, name, bytes);
        name_ = name;
        calls_.clear();
        OpenImageFromList();
    }

    std::string folder_;
    std::string name_;
    std::string filePath_;
    std::string pathDsk_;
    std::vector<int> viewed_;
    std::vector<std::string> calls_;
};

const std::vector<std::string> kOnlyViewed = {"view"};
const std::vector<std::string> kOpened = {"view", "sort", "map-1", "grid", "sector-1"};

TEST_F(OpenImageTest, AClickOpensAnImageInThisOrder) {
    Click("a.dsk", OneFileDisk());
    EXPECT_EQ(calls_, kOpened);
    EXPECT_EQ(filePath_, folder_ + "/a.dsk");
    EXPECT_EQ(pathDsk_, folder_ + "/a.dsk");
    EXPECT_EQ(Disk.ImageFolder, folder_);
    EXPECT_EQ(Disk.ImageBytes, OneFileDisk());
    EXPECT_EQ(Disk.ImageOnOpen, OneFileDisk());
    EXPECT_EQ(Disk.PcFileBytes, OneFileDisk());
    EXPECT_EQ(Disk.DirRows, 1);
    // The file's name is only there until the disk's own name is read.
    EXPECT_EQ(Disk.DiskName, "");
}

TEST_F(OpenImageTest, TheExtensionsThatAreImages) {
    for (const char* name : {"a.DSK", "a.dsk", "a.vdk", "a.OS9", "a.vhd", "a.dmk", "diskK.V"}) {
        EXPECT_TRUE(HasImageExtension(name)) << name;
        Click(name, OneFileDisk());
        EXPECT_EQ(calls_, kOpened) << name;
    }
    for (const char* name : {"a.cas", "a.wav", "a.jvc", "a.bas", "a.dsk.old"}) {
        EXPECT_FALSE(HasImageExtension(name)) << name;
        Click(name, OneFileDisk());
        EXPECT_EQ(calls_, kOnlyViewed) << name;
        EXPECT_EQ(Disk.DirRows, 1);
    }
}

TEST_F(OpenImageTest, ANameOfOneOrTwoLettersIsSearchedForAsItIs) {
    Click("K", OneFileDisk());
    EXPECT_EQ(calls_, kOpened);
    Click("Z", OneFileDisk());
    EXPECT_EQ(calls_, kOnlyViewed);
}

TEST_F(OpenImageTest, ThePcFilesTypeIsBasicByItsName) {
    Click("a.bas", "x");
    EXPECT_EQ(Disk.PcFileTypeText, "0");
    EXPECT_EQ(viewed_, (std::vector<int>{-1, 0}));
    Click("a.bin", "x");
    EXPECT_EQ(Disk.PcFileTypeText, "2");
    EXPECT_EQ(viewed_, (std::vector<int>{-1, 2}));
}

TEST_F(OpenImageTest, AnImageBelow78336BytesIsReportedAndTheOpenOneStays) {
    Click("good.dsk", OneFileDisk());
    Click("short.dsk", std::string(78335, '\0'));
    EXPECT_EQ(Shown(), std::vector<std::string>{"Disco Virtual muy peque\xF1o, como para leer el "
                                                "Directorio"});
    EXPECT_EQ(calls_, kOnlyViewed);
    EXPECT_EQ(Disk.DirRows, 1);
    EXPECT_EQ(pathDsk_, folder_ + "/good.dsk");
    EXPECT_EQ(Disk.PcFileBytes.size(), 78335U);
}

TEST_F(OpenImageTest, AnImageOf78336BytesOpens) {
    Click("short.dsk", std::string(78336, '\0'));
    EXPECT_EQ(calls_, kOpened);
    EXPECT_EQ(Shown(), std::vector<std::string>{
                           "Error!!!...Archivo muy peque\xF1o para leer FAT o No existe FAT"});
    EXPECT_EQ(Disk.DirRows, 0);
}

TEST_F(OpenImageTest, AnEmptyFileIsTooShort) {
    Click("empty.dsk", "");
    EXPECT_EQ(Shown().size(), 1U);
    EXPECT_EQ(Disk.ImageBytes, "");
}

TEST_F(OpenImageTest, UnsavedChangesAreAskedForAndCancelKeepsThem) {
    Click("good.dsk", OneFileDisk());
    Disk.ImageBytes[0] = 'x';
    Disk.ImageModified = -1;
    script_.Answers = {Answer::Cancel, Answer::Ok};
    Click("next.dsk", DecbBuilder().Image());
    EXPECT_EQ(script_.Messages[0].Text, "lose any changes?");
    EXPECT_EQ(script_.Messages[0].Choice, Buttons::OkCancel);
    EXPECT_EQ(Disk.ImageBytes[0], 'x');
    EXPECT_EQ(Disk.ImageModified, -1);
    EXPECT_EQ(calls_, kOnlyViewed);
    Click("next.dsk", DecbBuilder().Image());
    EXPECT_EQ(Disk.DirRows, 0);
    EXPECT_EQ(Disk.ImageModified, 0);
    EXPECT_EQ(calls_, kOpened);
}

TEST_F(OpenImageTest, AFileThatIsGoneShowsTheErrorAndTheDiskStays) {
    Click("good.dsk", OneFileDisk());
    name_ = "gone.dsk";
    calls_.clear();
    OpenImageFromList();
    EXPECT_EQ(Shown(), std::vector<std::string>{"Error!!! 2 No such file or directory"});
    EXPECT_EQ(calls_, kOnlyViewed);  // the viewer is emptied
    EXPECT_EQ(Disk.ImageBytes, OneFileDisk());
    EXPECT_EQ(Disk.DirRows, 1);
    EXPECT_EQ(pathDsk_, folder_ + "/good.dsk");
    // The bytes of the file viewed before are not taken for those of this one.
    EXPECT_EQ(Disk.PcFileBytes, "");
}

TEST_F(OpenImageTest, ADiskThatTheViewerRepairsAsATextIsOpenedAsItWasRead) {
    std::string image = OneFileDisk();
    image[0] = '\xEF';
    image[1] = '\xC1';
    Screen.ViewFile = [](int, int) { Disk.PcFileBytes = "o\rA\r"; };
    Click("odd.dsk", image);
    EXPECT_TRUE(Disk.ImageBytes == image);
    EXPECT_TRUE(Disk.ImageOnOpen == image);
    EXPECT_EQ(Disk.DirRows, 1);
}

TEST_F(OpenImageTest, AFailureWhileReadingBringsTheOldDiskBack) {
    Click("good.dsk", OneFileDisk());
    const std::string header = "old header";
    Disk.ImageHeader = header;
    // A "dk" image of a JVC name whose header says no sides: its reader divides by zero.
    std::string bad(20, '\0');
    bad.replace(0, 3, "dk\x14");
    bad.replace(12, 5, "A.JVC");
    std::string fields = {18, 0, 1, 1, 0};
    fields.resize(161280, '\0');
    fields[11] = static_cast<char>(5 * 8);
    Click("bad.dsk", bad + fields);
    EXPECT_EQ(Shown(), std::vector<std::string>{"Run-time error '11':\r\n\r\nDivision by zero"});
    EXPECT_EQ(Disk.ImageBytes, OneFileDisk());
    EXPECT_EQ(Disk.ImageOnOpen, OneFileDisk());
    EXPECT_EQ(Disk.ImageHeader, header);
    EXPECT_EQ(Disk.DirRows, 1);
    EXPECT_EQ(DirTable[0].Content, "bytes");
    EXPECT_EQ(pathDsk_, folder_ + "/good.dsk");
    EXPECT_EQ(Disk.PcFileBytes, bad + fields);
    EXPECT_EQ(calls_,
              (std::vector<std::string>{"view", "sort", "fields", "map-1", "grid", "sector-1"}));
}

TEST_F(OpenImageTest, AFailedReadingKeepsTheChangesThatTheUserAgreedToLose) {
    Click("good.dsk", OneFileDisk());
    Disk.ImageBytes[0] = 'x';
    Disk.ImageModified = -1;
    script_.Answers = {Answer::Ok};
    Screen.FillDirectoryGrid = [this] {
        calls_.emplace_back("grid");
        if (calls_.size() < 5) throw RuntimeFailure{13, "Type mismatch"};
    };
    Click("next.dsk", DecbBuilder().Image());
    EXPECT_EQ(Disk.ImageModified, -1);
    EXPECT_EQ(Disk.ImageBytes[0], 'x');
    EXPECT_EQ(script_.Messages.back().Title, "Brindlemoor");
}

TEST_F(OpenImageTest, MemoryThatIsNotThereIsAFailureLikeOthers) {
    Click("good.dsk", OneFileDisk());
    int fills = 0;
    Screen.FillDirectoryGrid = [&fills] {
        if (++fills == 1) throw std::bad_alloc();
    };
    Click("next.dsk", DecbBuilder().Image());
    EXPECT_EQ(Shown(), std::vector<std::string>{"Run-time error '7':\r\n\r\nOut of memory"});
    EXPECT_EQ(Disk.DirRows, 1);
}

TEST_F(OpenImageTest, RandomBytesUnderEveryImageExtensionDoNoHarm) {
    for (const char* name : {"r.dsk", "r.vdk", "r.os9", "r.vhd", "r.dmk"}) {
        for (unsigned seed = 0; seed < 5; ++seed) {
            Click(name, Pattern(78336 + seed * 30001, seed));
            EXPECT_LE(Disk.DirRows, kDirTableRows);
        }
    }
}

}  // namespace
}  // namespace brindlemoor::test
