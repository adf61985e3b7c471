#include "image/pc_file.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "core/disk_state.h"
#include "support/decb_builder.h"
#include "support/disk_fixture.h"
#include "support/faulty_files.h"
#include "support/file_size_limit.h"

namespace brindlemoor::test {
namespace {

namespace fs = std::filesystem;

class PcFileTest : public DiskTest {
  protected:
    void SetUp() override {
        DiskTest::SetUp();
        folder_ = FreshFolder();
        Disk.Messages.assign(161, "");
        Disk.Messages[0] =
            "The file: []\xAC"
            "Already exist, overwrite? or rename";
        Disk.Messages[2] = "File: ";
        Disk.Messages[3] = " not exist, create?";
    }

    std::vector<std::string> FilesInFolder() const {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(folder_)) {
            names.push_back(entry.path().filename().string());
        }
        std::sort(names.begin(), names.end());
        return names;
    }

    std::string folder_;
    std::string data_;
};

/// A file of `size` bytes that takes no room, with `text` at `offset`.
std::string SparseFile(const std::string& folder, long long size, long long offset,
                       const std::string& text) {
    const std::string path = WriteTestFile(folder, "big.vhd", "");
    fs::resize_file(path, static_cast<std::uintmax_t>(size));
    std::fstream file(path, std::ios::in | std::ios::out | std::ios::binary);
    file.seekp(offset);
    file << text;
    return path;
}

TEST_F(PcFileTest, AFileIsReadWhole) {
    std::string path = WriteTestFile(folder_, "a.dsk", Pattern(100000, 1));
    EXPECT_TRUE(LoadPcFile("A", path, data_, 0));
    EXPECT_EQ(data_, Pattern(100000, 1));
    path = WriteTestFile(folder_, "empty", "");
    EXPECT_TRUE(LoadPcFile("A", path, data_, 0));
    EXPECT_EQ(data_, "");
    EXPECT_TRUE(Shown().empty());
}

TEST_F(PcFileTest, AFileThatIsGoneIsReportedAndNotMade) {
    std::string path = folder_ + "/gone.dsk";
    data_ = "as it was";
    EXPECT_FALSE(LoadPcFile("A", path, data_, 0));
    EXPECT_EQ(Shown(), std::vector<std::string>{"Error!!! 2 No such file or directory"});
    EXPECT_EQ(data_, "as it was");
    EXPECT_TRUE(FilesInFolder().empty());
}

TEST_F(PcFileTest, AFolderOrAPipeIsReportedAndNeverOpened) {
    std::string path = folder_;
    EXPECT_FALSE(LoadPcFile("A", path, data_, 0));
    EXPECT_EQ(Shown(), std::vector<std::string>{"Error!!! 21 Is a directory"});
    path = folder_ + "/pipe.dsk";
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    EXPECT_FALSE(LoadPcFile("A", path, data_, 0));
    EXPECT_EQ(Shown().size(), 2U);
}

TEST_F(PcFileTest, AFileWithoutPermissionIsReported) {
    std::string path = WriteTestFile(folder_, "secret.dsk", "bytes");
    fs::permissions(path, fs::perms::none);
    const bool readable = access(path.c_str(), R_OK) == 0;  // the superuser reads everything
    EXPECT_EQ(LoadPcFile("A", path, data_, 0), readable);
    EXPECT_EQ(Shown().size(), readable ? 0U : 1U);
}

TEST_F(PcFileTest, CharactersThatDisksAllowAndPcsDoNotAreReplaced) {
    std::string path = folder_ + "/A<B>C*D.BAS";
    data_ = "new";
    EXPECT_TRUE(WritePcFile(path, data_, 3));
    EXPECT_EQ(path, folder_ + "/A-B-CAD.BAS");
    EXPECT_EQ(FileBytes(path), "new");
}

TEST_F(PcFileTest, ExactlyTheLimitIsReadWithoutAQuestion) {
    std::string path = SparseFile(folder_, kHardDiskLimit, kHardDiskLimit - 3, "end");
    EXPECT_TRUE(LoadPcFile("A", path, data_, 0));
    EXPECT_EQ(data_.size(), static_cast<std::size_t>(kHardDiskLimit));
    EXPECT_EQ(data_.substr(data_.size() - 3), "end");
    EXPECT_TRUE(script_.Prompts.empty());
}

TEST_F(PcFileTest, OneByteMoreAsksForTheDriveAndEnterTakesTheOs9Part) {
    std::string path = SparseFile(folder_, kHardDiskLimit + 1, 0, "OS9");
    script_.Texts = {""};
    EXPECT_TRUE(LoadPcFile("A", path, data_, 0));
    ASSERT_EQ(script_.Prompts.size(), 1U);
    EXPECT_EQ(script_.Prompts[0].Prompt,
              "Seleccione la unidad: DECB 0-255 o [ENTER] para OS9/NITROS9");
    EXPECT_EQ(script_.Prompts[0].Title, "Brindlemoor");
    EXPECT_EQ(script_.Prompts[0].Suggestion, "");
    EXPECT_EQ(data_.size(), 44533120U);
    EXPECT_EQ(data_.substr(0, 3), "OS9");
}

TEST_F(PcFileTest, ADriveNumberTakesThatVirtualDriveAndIsRemembered) {
    const long long drive12 = kHardDiskLimit + 12 * kVirtualDriveBytes;
    std::string path =
        SparseFile(folder_, kHardDiskLimit + 256 * kVirtualDriveBytes, drive12, "drive twelve");
    script_.Texts = {"12ABC", "255"};
    EXPECT_TRUE(LoadPcFile("A", path, data_, 0));
    EXPECT_EQ(data_.size(), 161280U);
    EXPECT_EQ(data_.substr(0, 12), "drive twelve");
    EXPECT_EQ(VhdReply, "12ABC");
    EXPECT_TRUE(LoadPcFile("A", path, data_, 0));
    EXPECT_EQ(script_.Prompts[1].Suggestion, "12ABC");
    EXPECT_EQ(data_.size(), 161280U);
}

TEST_F(PcFileTest, TheDriveQuestionRepeatsUntilTheNumberIsInRange) {
    std::string path =
        SparseFile(folder_, kHardDiskLimit + kVirtualDriveBytes, kHardDiskLimit, "drive zero");
    script_.Texts = {"256", "-1", "zero"};
    EXPECT_TRUE(LoadPcFile("A", path, data_, 0));
    EXPECT_EQ(script_.Prompts.size(), 3U);
    EXPECT_EQ(script_.Prompts[2].Suggestion, "-1");
    // No leading number is drive 0.
    EXPECT_EQ(data_.substr(0, 10), "drive zero");
}

TEST_F(PcFileTest, ADriveBehindTheFilesEndGivesWhatThereIs) {
    std::string path = SparseFile(folder_, kHardDiskLimit + 100, kHardDiskLimit, "part");
    script_.Texts = {"0", "9"};
    EXPECT_TRUE(LoadPcFile("A", path, data_, 0));
    EXPECT_EQ(data_.size(), 100U);
    EXPECT_TRUE(LoadPcFile("A", path, data_, 0));
    EXPECT_EQ(data_, "");
}

TEST_F(PcFileTest, WritingWithoutQuestionsReplacesTheFileAndKeepsItsPermissions) {
    std::string path = WriteTestFile(folder_, "a.dsk", "old and longer");
    fs::permissions(path, fs::perms::owner_read | fs::perms::owner_write);
    data_ = "new";
    EXPECT_TRUE(WritePcFile(path, data_, kSkipCreateQuestion | kSkipOverwriteQuestion));
    EXPECT_EQ(FileBytes(path), "new");
    EXPECT_EQ(fs::status(path).permissions(), fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(FilesInFolder(), std::vector<std::string>{"a.dsk"});
    EXPECT_TRUE(Shown().empty());
    EXPECT_TRUE(script_.Prompts.empty());
}

TEST_F(PcFileTest, OverwritingAsksWithThePathAsDefault) {
    std::string path = WriteTestFile(folder_, "a.dsk", "old");
    const std::string asked = path;
    data_ = "new";
    script_.Texts = {path};
    EXPECT_TRUE(WritePcFile(path, data_, kSkipCreateQuestion));
    ASSERT_EQ(script_.Prompts.size(), 1U);
    EXPECT_EQ(script_.Prompts[0].Prompt,
              "The file: " + asked + "\r\nAlready exist, overwrite? or rename");
    EXPECT_EQ(script_.Prompts[0].Suggestion, asked);
    EXPECT_EQ(FileBytes(path), "new");
}

TEST_F(PcFileTest, AnEmptyAnswerGivesUpAndKeepsTheFile) {
    std::string path = WriteTestFile(folder_, "a.dsk", "old");
    const std::string kept = path;
    data_ = "new";
    EXPECT_FALSE(WritePcFile(path, data_, kSkipCreateQuestion));
    EXPECT_EQ(path, "");
    EXPECT_EQ(FileBytes(kept), "old");
}

TEST_F(PcFileTest, AnotherNameIsTakenWithoutFurtherTestAndTheOldFileStays) {
    std::string path = WriteTestFile(folder_, "a.dsk", "old a");
    const std::string other = WriteTestFile(folder_, "b.dsk", "old b");
    const std::string kept = path;
    data_ = "new";
    script_.Texts = {other};
    EXPECT_TRUE(WritePcFile(path, data_, kSkipCreateQuestion));
    EXPECT_EQ(path, other);
    EXPECT_EQ(FileBytes(other), "new");
    EXPECT_EQ(FileBytes(kept), "old a");
    EXPECT_EQ(script_.Prompts.size(), 1U);
}

TEST_F(PcFileTest, APathThatHoldsBracketsIsAskedForAsItIs) {
    std::string path = WriteTestFile(folder_, "a[]\xAC.dsk", "old");
    const std::string asked = path;
    data_ = "new";
    script_.Texts = {path};
    EXPECT_TRUE(WritePcFile(path, data_, kSkipCreateQuestion));
    EXPECT_EQ(script_.Prompts[0].Prompt,
              "The file: " + asked + "\r\nAlready exist, overwrite? or rename");
}

TEST_F(PcFileTest, CreatingAsksAndCancelGivesUp) {
    std::string path = folder_ + "/new.dsk";
    const std::string wanted = path;
    data_ = "new";
    script_.Answers = {Answer::Cancel, Answer::Ok};
    EXPECT_FALSE(WritePcFile(path, data_, kSkipOverwriteQuestion));
    EXPECT_EQ(path, "");
    ASSERT_EQ(script_.Messages.size(), 1U);
    EXPECT_EQ(script_.Messages[0].Text, "File: " + wanted + " not exist, create?");
    EXPECT_EQ(script_.Messages[0].Choice, Buttons::OkCancel);
    EXPECT_EQ(script_.Messages[0].Icon, MessageIcon::Question);
    EXPECT_TRUE(FilesInFolder().empty());
    path = wanted;
    EXPECT_TRUE(WritePcFile(path, data_, kSkipOverwriteQuestion));
    EXPECT_EQ(FileBytes(wanted), "new");
}

TEST_F(PcFileTest, AFileToOverwriteCountsAsMissingForTheSecondQuestion) {
    std::string path = WriteTestFile(folder_, "a.dsk", "old");
    const std::string kept = path;
    data_ = "new";
    script_.Texts = {path};
    script_.Answers = {Answer::Cancel};
    EXPECT_FALSE(WritePcFile(path, data_, 0));
    EXPECT_EQ(script_.Messages.size(), 1U);
    EXPECT_EQ(FileBytes(kept), "old");  // it stands until the new bytes do
}

TEST_F(PcFileTest, AFailedWriteLeavesTheOldFileAndNoOther) {
    std::string path = folder_ + "/sub/a.dsk";
    data_ = "new";
    EXPECT_FALSE(WritePcFile(path, data_, 3));
    EXPECT_EQ(Shown(), std::vector<std::string>{"Error!!! 2 No such file or directory"});
    fs::create_directory(folder_ + "/a.dsk");
    path = folder_ + "/a.dsk";
    EXPECT_FALSE(WritePcFile(path, data_, 3));
    EXPECT_TRUE(fs::is_directory(folder_ + "/a.dsk"));
    EXPECT_EQ(FilesInFolder(), std::vector<std::string>{"a.dsk"});
}

TEST_F(PcFileTest, AWriteThatFailsHalfWayLeavesTheOldFileAndNoOther) {
    std::string path = WriteTestFile(folder_, "a.dsk", "old");
    data_ = Pattern(100000, 1);
    const FileSizeLimit limit(4096);
    EXPECT_FALSE(WritePcFile(path, data_, 3));
    EXPECT_EQ(Shown(), std::vector<std::string>{"Error!!! 27 File too large"});
    EXPECT_EQ(FileBytes(path), "old");
    EXPECT_EQ(FilesInFolder(), std::vector<std::string>{"a.dsk"});
}

TEST_F(PcFileTest, OneOfManyFilesIsFlushedByItselfOnlyUnderAnotherNameThatTheUserGave) {
    const FileOperationsKept kept;
    int flushed = 0;
    FileOperations =
        Watching([&flushed](FileStep step) { flushed += step == FileStep::FlushFolder ? 1 : 0; });
    std::string path = folder_ + "/a.dsk";
    data_ = "new";
    EXPECT_TRUE(WritePcFile(path, data_, kSkipCreateQuestion | kFlushWithOthers));
    EXPECT_EQ(flushed, 0);
    script_.Texts = {folder_ + "/b.dsk"};
    EXPECT_TRUE(WritePcFile(path, data_, kSkipCreateQuestion | kFlushWithOthers));
    EXPECT_EQ(flushed, 1);
    EXPECT_EQ(FileBytes(folder_ + "/b.dsk"), "new");
}

TEST_F(PcFileTest, AFlushOfManyFilesThatFailsIsTold) {
    const FileOperationsKept kept;
    FileOperations.FlushFileSystem = [](const std::string&) {
        return std::make_error_code(std::errc::no_space_on_device);
    };
    FlushPcFolder(folder_);
    EXPECT_EQ(Shown(), std::vector<std::string>{"Error!!! 28 No space left on device"});
    EXPECT_EQ(script_.Busy, (std::vector<bool>{true, false}));
}

TEST_F(PcFileTest, AnEmptyPathShowsTheErrorAndWritesNothing) {
    std::string path;
    data_ = "new";
    EXPECT_FALSE(WritePcFile(path, data_, 3));
    EXPECT_EQ(Shown(), std::vector<std::string>{"Error!!! 2 No such file or directory"});
}

TEST_F(PcFileTest, APathWithAZeroByteIsRefusedBothWays) {
    WriteTestFile(folder_, "a", "somebody's");
    std::string path = folder_ + std::string("/a\0b", 4);
    data_ = "new";
    EXPECT_FALSE(WritePcFile(path, data_, 3));
    EXPECT_FALSE(LoadPcFile("A", path, data_, 0));
    EXPECT_EQ(Shown(), (std::vector<std::string>{"Error!!! 22 Invalid argument",
                                                 "Error!!! 22 Invalid argument"}));
    EXPECT_EQ(FileBytes(folder_ + "/a"), "somebody's");
    EXPECT_EQ(FilesInFolder(), std::vector<std::string>{"a"});
}

TEST_F(PcFileTest, ANumberTooLargeForADriveIsAskedForAgain) {
    std::string path = SparseFile(folder_, kHardDiskLimit + kVirtualDriveBytes, 0, "");
    script_.Texts = {std::string(400, '9'), "0"};
    EXPECT_TRUE(LoadPcFile("A", path, data_, 0));
    EXPECT_EQ(script_.Prompts.size(), 2U);
    EXPECT_EQ(data_.size(), 161280U);
}

TEST_F(PcFileTest, WritingThroughALinkKeepsTheLink) {
    const std::string target = WriteTestFile(folder_, "real.dsk", "old");
    fs::create_symlink(target, folder_ + "/link.dsk");
    std::string path = folder_ + "/link.dsk";
    data_ = "new";
    EXPECT_TRUE(WritePcFile(path, data_, 3));
    EXPECT_TRUE(fs::is_symlink(folder_ + "/link.dsk"));
    EXPECT_EQ(FileBytes(target), "new");
}

}  // namespace
}  // namespace brindlemoor::test
