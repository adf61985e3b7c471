#include "support/write_fixture.h"

#include <algorithm>

#include "core/disk_state.h"
#include "core/numbers.h"
#include "core/screen.h"
#include "filesystems/write_file.h"
#include "support/sha256.h"

namespace brindlemoor::test {

void WriteTest::SetUp() {
    DiskTest::SetUp();
    fills_ = 0;
    Disk.Messages.resize(41);
    Disk.Messages[0] =
        "The file: []\xAC"
        "Already exist, overwrite? or rename";
    Disk.Messages[9] = "Delete the file: ";
    Disk.Messages[10] = "Delete this files: ";
    Disk.Messages[15] = " FREE BYTES";
    Disk.Messages[16] = "No entry free";
    Disk.Messages[17] = "No granules free";
    Disk.Messages[18] =
        "[]|[]|Requested [] in disk [] = [] Sectors\xAC"
        "Free [] = []|Insufficient [] = []";
    Screen.PathDskText = [] { return std::string("C:\\DISKS\\TEST.DSK"); };
    Screen.FillDirectoryGrid = [this] {
        ++fills_;
        Disk.DirCount = Disk.DirRows;
    };
}

void WriteTest::Write(const std::string& path, const std::string& data, bool overwrite) {
    left_ = data;
    WriteFileToDisk(path, overwrite, left_);
}

void WriteTest::ExpectOneMessage(const std::string& text, MessageIcon icon) const {
    ASSERT_EQ(script_.Messages.size(), 1U);
    const ShownMessage& message = script_.Messages[0];
    EXPECT_EQ(message.Text, text);
    EXPECT_EQ(message.Title, "Brindlemoor");
    EXPECT_EQ(message.Choice, Buttons::Ok);
    EXPECT_EQ(message.Icon, icon);
}

std::string DiskFingerprint() {
    std::string text = Disk.ImageBytes + "|" + Disk.FatBytes + "|" + Disk.PcFileTypeText;
    for (const std::int64_t value : std::vector<std::int64_t>{
             Disk.DirRows, Disk.DirCount, Disk.DeletedCount, Disk.UsedSectors}) {
        text += "|" + DecimalText(value);
    }
    for (int row = 0; row < Disk.DirRows + 2 && row < kDirTableRows; ++row) {
        const DirEntry& entry = DirTable[row];
        for (const std::string& field : {entry.Name, entry.Ext, entry.FullName, entry.FormatChar,
                                         entry.Content, entry.Chain, entry.BadSectorMark}) {
            text += "|" + field;
        }
        for (const std::int64_t value : std::vector<std::int64_t>{
                 entry.FileType, entry.Flags, entry.UnitCount, entry.SectorCount, entry.Size,
                 entry.FirstUnit, entry.LastSectorBytes, entry.LastGranuleSectors}) {
            text += "|" + DecimalText(value);
        }
    }
    return Sha256(text);
}

std::string RowNames() {
    std::string names;
    for (int row = 0; row < Disk.DirRows; ++row) names += DirTable[row].FullName + " ";
    return names;
}

std::string ChainText(int row) {
    std::string text;
    for (const char byte : DirTable[row].Chain) {
        text += DecimalText(static_cast<unsigned char>(byte)) + " ";
    }
    return text;
}

testing::AssertionResult ImageIs(const std::string& expected) {
    const std::string& image = Disk.ImageBytes;
    if (image == expected) return testing::AssertionSuccess();
    const auto place = std::mismatch(image.begin(), image.end(), expected.begin(), expected.end());
    const auto offset = place.first - image.begin();
    return testing::AssertionFailure()
           << "differs from byte " << offset << " on (sector " << offset / kSectorSize
           << "): " << testing::PrintToString(image.substr(static_cast<std::size_t>(offset), 32))
           << " and not "
           << testing::PrintToString(expected.substr(static_cast<std::size_t>(offset), 32))
           << "; lengths " << image.size() << " and " << expected.size();
}

std::string ImagePart(std::size_t offset, std::size_t length) {
    return Disk.ImageBytes.substr(offset, length);
}

}  // namespace brindlemoor::test
