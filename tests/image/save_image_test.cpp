#include "image/save_image.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "core/disk_state.h"
#include "core/screen.h"
#include "filesystems/write_file.h"
#include "image/hard_disk_part.h"
#include "image/modified_state.h"
#include "image/open_image.h"
#include "image/pc_file.h"
#include "support/decb_builder.h"
#include "support/disk_fixture.h"
#include "support/faulty_files.h"

namespace brindlemoor::test {
namespace {

namespace fs = std::filesystem;

class SaveImageTest : public DiskTest {
  protected:
    void SetUp() override {
        DiskTest::SetUp();
        folder_ = FreshFolder();
        Disk.Messages.assign(161, "");
        Screen.PcListFolder = [this] { return folder_; };
        Screen.PcListName = [this] { return name_; };
        Screen.PathDskText = [this] { return pathDsk_; };
        Screen.SetPathDsk = [this](const std::string& path) { pathDsk_ = path; };
        Screen.PaintTrackBlock = [this](int) { calls_.emplace_back("map"); };
        Screen.FillDirectoryGrid = [this] { calls_.emplace_back("grid"); };
        Screen.DrawSectorMap = [this](int) { calls_.emplace_back("sector"); };
    }

    void Open(const std::string& name, const std::string& bytes) {
        WriteTestFile(folder_, name, bytes);
        name_ = name;
        OpenImageFromList();
        calls_.clear();
    }

    std::string Path(const std::string& name) const { return folder_ + "/" + name; }

    bool Save(std::string path) { return SaveImage(path); }

    FileOperationsKept kept_;
    std::string folder_;
    std::string name_;
    std::string pathDsk_;
    std::vector<std::string> calls_;
};

TEST_F(SaveImageTest, TheImageIsWrittenAndStandsForTheFileFromThenOn) {
    Open("a.dsk", OneFileDisk());
    Disk.ImageBytes[5] = 'X';
    RefreshModified();
    EXPECT_NE(Disk.ImageModified, 0);
    EXPECT_TRUE(Save(Path("a.dsk")));
    EXPECT_EQ(FileBytes(Path("a.dsk")), Disk.ImageBytes);
    EXPECT_EQ(Disk.ImageOnOpen, Disk.ImageBytes);
    RefreshModified();
    EXPECT_EQ(Disk.ImageModified, 0);
    EXPECT_TRUE(Shown().empty());
}

TEST_F(SaveImageTest, ADkHeaderGoesThroughByteForByte) {
    std::string header(12, '\x07');
    header.replace(0, 4, std::string("dk\x0C\x00", 4));
    Open("a.vdk", header + OneFileDisk());
    ASSERT_EQ(Disk.ImageHeader, header);
    Disk.ImageBytes[5] = 'X';
    EXPECT_TRUE(Save(Path("a.vdk")));
    EXPECT_EQ(FileBytes(Path("a.vdk")), header + Disk.ImageBytes);
    EXPECT_EQ(Disk.ImageOnOpen, header + Disk.ImageBytes);
}

TEST_F(SaveImageTest, AChangedHeaderIsAnUnsavedChangeUntilItIsChangedBack) {
    std::string header(12, '\x07');
    header.replace(0, 4, std::string("dk\x0C\x00", 4));
    Open("a.vdk", header + OneFileDisk());
    RefreshModified();
    EXPECT_EQ(Disk.ImageModified, 0);
    Disk.ImageHeader[5] = 'X';
    RefreshModified();
    EXPECT_EQ(Disk.ImageModified, -1);
    Disk.ImageHeader[5] = '\x07';
    RefreshModified();
    EXPECT_EQ(Disk.ImageModified, 0);
    Disk.ImageHeader.clear();
    RefreshModified();
    EXPECT_EQ(Disk.ImageModified, -1);
}

TEST_F(SaveImageTest, AnEmptyPathEndsInTheErrorMessageAndNothingIsWritten) {
    Open("a.dsk", OneFileDisk());
    Disk.ImageBytes[5] = 'X';
    EXPECT_FALSE(Save(""));
    EXPECT_EQ(Shown(), std::vector<std::string>{"Error!!! 2 No such file or directory"});
    EXPECT_EQ(Disk.ImageOnOpen, OneFileDisk());
    EXPECT_EQ(FileBytes(Path("a.dsk")), OneFileDisk());
}

TEST_F(SaveImageTest, ANameWithAnAsteriskIsSavedWithAnA) {
    Open("a.dsk", OneFileDisk());
    std::string path = Path("b*.dsk");
    EXPECT_TRUE(SaveImage(path));
    EXPECT_EQ(path, Path("bA.dsk"));
    EXPECT_EQ(FileBytes(Path("bA.dsk")), OneFileDisk());
}

TEST_F(SaveImageTest, AFailureOfAnyStepLeavesFileAndStateAsTheyWere) {
    Open("a.dsk", OneFileDisk());
    Disk.ImageBytes[5] = 'X';
    RefreshModified();
    for (const FileStep step : kAllFileSteps) {
        if (step == FileStep::FlushFolder) continue;
        script_.Messages.clear();
        FileOperations = FailingAt(step);
        EXPECT_FALSE(Save(Path("a.dsk")));
        EXPECT_EQ(Shown(), std::vector<std::string>{"Error!!! 28 No space left on device"});
        EXPECT_EQ(FileBytes(Path("a.dsk")), OneFileDisk());
        EXPECT_EQ(Disk.ImageOnOpen, OneFileDisk());
        EXPECT_NE(Disk.ImageModified, 0);
    }
}

TEST_F(SaveImageTest, AFolderThatVanishedShowsTheError) {
    Open("a.dsk", OneFileDisk());
    EXPECT_FALSE(Save(Path("gone/a.dsk")));
    EXPECT_EQ(Shown(), std::vector<std::string>{"Error!!! 2 No such file or directory"});
}

TEST_F(SaveImageTest, ReOpenBringsTheFileBackAndReadsItAgain) {
    Open("a.dsk", OneFileDisk());
    Disk.ImageBytes.assign(Disk.ImageBytes.size(), 'Z');
    Disk.DirRows = 0;
    ReOpenImage();
    EXPECT_EQ(Disk.ImageBytes, OneFileDisk());
    EXPECT_EQ(Disk.DirRows, 1);
    EXPECT_EQ(DirTable[0].Content, "bytes");
    EXPECT_EQ(calls_, (std::vector<std::string>{"map", "grid", "sector"}));
}

TEST_F(SaveImageTest, ReOpenTakesTheHeaderOffAgain) {
    std::string header(12, '\0');
    header.replace(0, 4, std::string("dk\x0C\x00", 4));
    Open("a.vdk", header + OneFileDisk());
    Disk.ImageBytes[3] = 'Q';
    ReOpenImage();
    EXPECT_EQ(Disk.ImageHeader, header);
    EXPECT_EQ(Disk.ImageBytes, OneFileDisk());
}

TEST_F(SaveImageTest, ReOpenOfAnUnchangedImageShowsItsMessagesAgain) {
    std::string image = DecbBuilder().File(0, "HELLO", "BAS", 0, 0, {3}, "bytes").Fat(3, 9).Image();
    Open("a.dsk", image);
    const std::vector<std::string> before = Shown();
    ASSERT_FALSE(before.empty());
    script_.Messages.clear();
    ReOpenImage();
    EXPECT_EQ(Shown(), before);
}

class HardDiskSaveTest : public SaveImageTest {
  protected:
    /// A hard disk image with a disk of Disk BASIC as its drive 1, other bytes around it.
    void OpenDriveOne() {
        drive_ = OneFileDisk();
        const std::string path = WriteTestFile(folder_, "hd.vhd", "first bytes");
        fs::resize_file(path, static_cast<std::uintmax_t>(kOffset + 2 * kVirtualDriveBytes));
        Put(kOffset - 4, "BEFO");
        Put(kOffset, drive_);
        Put(kOffset + kVirtualDriveBytes, "BEHIND");
        script_.Texts = {"1"};
        name_ = "hd.vhd";
        OpenImageFromList();
        ASSERT_EQ(Disk.DirRows, 1);
    }

    void Put(long long offset, const std::string& bytes) const {
        std::FILE* file = std::fopen(Path("hd.vhd").c_str(), "r+b");
        ASSERT_NE(file, nullptr);
        std::fseek(file, static_cast<long>(offset), SEEK_SET);
        std::fwrite(bytes.data(), 1, bytes.size(), file);
        std::fclose(file);
    }

    std::string BytesAt(long long offset, std::size_t count) const {
        std::string bytes(count, '\0');
        std::FILE* file = std::fopen(Path("hd.vhd").c_str(), "rb");
        std::fseek(file, static_cast<long>(offset), SEEK_SET);
        bytes.resize(std::fread(bytes.data(), 1, count, file));
        std::fclose(file);
        return bytes;
    }

    static constexpr long long kOffset = kHardDiskLimit + kVirtualDriveBytes;
    std::string drive_;
};

TEST_F(HardDiskSaveTest, AVirtualDriveGoesBackIntoItsPlaceAndTheRestStays) {
    OpenDriveOne();
    Disk.ImageBytes[7] = 'X';
    const auto size = fs::file_size(Path("hd.vhd"));
    EXPECT_TRUE(Save(Path("hd.vhd")));
    EXPECT_EQ(fs::file_size(Path("hd.vhd")), size);
    EXPECT_EQ(BytesAt(kOffset, Disk.ImageBytes.size()), Disk.ImageBytes);
    EXPECT_EQ(BytesAt(kOffset - 4, 4), "BEFO");
    EXPECT_EQ(BytesAt(kOffset + kVirtualDriveBytes, 6), "BEHIND");
    EXPECT_EQ(BytesAt(0, 11), "first bytes");
    EXPECT_EQ(Disk.ImageOnOpen, Disk.ImageBytes);
}

TEST_F(HardDiskSaveTest, ThroughAnotherNameOfTheSameFileToo) {
    OpenDriveOne();
    fs::create_symlink("hd.vhd", Path("link.vhd"));
    Disk.ImageBytes[7] = 'X';
    EXPECT_TRUE(Save(Path("link.vhd")));
    EXPECT_EQ(BytesAt(kOffset, Disk.ImageBytes.size()), Disk.ImageBytes);
    EXPECT_EQ(BytesAt(kOffset + kVirtualDriveBytes, 6), "BEHIND");
}

TEST_F(HardDiskSaveTest, UnderAnotherNameTheDriveBecomesAFileOfItsOwn) {
    OpenDriveOne();
    EXPECT_TRUE(Save(Path("drive1.dsk")));
    EXPECT_EQ(FileBytes(Path("drive1.dsk")), drive_);
}

TEST_F(HardDiskSaveTest, MoreBytesThanThePartHoldsAreRefused) {
    OpenDriveOne();
    Disk.ImageBytes += 'X';
    script_.Messages.clear();
    EXPECT_FALSE(Save(Path("hd.vhd")));
    EXPECT_EQ(Shown(), std::vector<std::string>{"Error!!! 22 Invalid argument"});
    EXPECT_EQ(BytesAt(kOffset + kVirtualDriveBytes, 6), "BEHIND");
}

TEST_F(HardDiskSaveTest, ADriveWhoseLastGranuleIsTakenGoesBackIntoItsPlace) {
    OpenDriveOne();
    std::string data(36 * 2304 - 1, 'D');  // the granules from 32 to 67
    WriteFileToDisk("LONG.BIN", false, data);
    ASSERT_EQ(Disk.ImageBytes.size(), static_cast<std::size_t>(kVirtualDriveBytes) + 1);
    script_.Messages.clear();
    EXPECT_TRUE(Save(Path("hd.vhd")));
    EXPECT_EQ(Shown(), std::vector<std::string>{});
    EXPECT_EQ(BytesAt(kOffset, kVirtualDriveBytes), Disk.ImageBytes.substr(0, kVirtualDriveBytes));
    EXPECT_EQ(BytesAt(kOffset + kVirtualDriveBytes, 6), "BEHIND");
    RefreshModified();
    EXPECT_EQ(Disk.ImageModified, 0);
}

TEST_F(HardDiskSaveTest, AFailureLeavesTheWholeHardDiskAlone) {
    OpenDriveOne();
    Disk.ImageBytes[7] = 'X';
    FileOperations = FailingAt(FileStep::Write);
    EXPECT_FALSE(Save(Path("hd.vhd")));
    EXPECT_EQ(BytesAt(kOffset, drive_.size()), drive_);
}

/// The system's own files give fewer bytes than their size says, as a failing disk does.
TEST_F(HardDiskSaveTest, AHardDiskThatCannotBeReadWholeIsNotWritten) {
    Disk.PartOffset = 0;
    Disk.PartLength = 1;
    EXPECT_EQ(ReplaceHardDiskPart("/sys/kernel/fscaps", "x"), std::errc::io_error);
}

TEST_F(HardDiskSaveTest, ADiskOpenedNextIsAFileOfItsOwnAgain) {
    OpenDriveOne();
    Open("a.dsk", OneFileDisk());
    EXPECT_EQ(Disk.PartLength, 0);
}

}  // namespace
}  // namespace brindlemoor::test
