// The input is a list of things done to a disk: files written and deleted, the directory committed,
// the disk read again, and bytes of image and rows changed in between, as damaged disks have them.
//
//   0  1  family of the disk to begin with, modulo 4
//   1     operations, one after the other: a byte, modulo kOperations, and its arguments as told
//         at each of them

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "filesystems/commit.h"
#include "filesystems/commit_os9.h"
#include "filesystems/delete_file.h"
#include "filesystems/dragon_write.h"
#include "filesystems/write_file.h"
#include "read_as_disk.h"

namespace brindlemoor {

namespace {

constexpr std::size_t kDiskBytes = 161280;
constexpr int kMostOperations = 200;

/// An OS-9 disk may say that it is far larger than it is, and becomes so when it is committed. What
/// hundreds of megabytes would show, two do in a hundredth of the time.
constexpr std::int32_t kMostSectorsOfOs9 = 8192;
constexpr std::int32_t kTooManySectorsOfOs9 = 2097152;  ///< more than these fail at once

/// The bytes of the input, from the front on; zero bytes behind its end.
struct Input {
    const std::uint8_t* Next;
    std::size_t Left;

    int Byte() {
        if (Left == 0) return 0;
        --Left;
        return *Next++;
    }

    int Word() {
        const int low = Byte();
        return low + 256 * Byte();
    }

    /// A text behind its length.
    std::string Text() {
        const auto length = std::min(static_cast<std::size_t>(Byte()), Left);
        std::string text(Next, Next + length);
        Next += length;
        Left -= length;
        return text;
    }
};

void Put(std::string& image, std::size_t offset, const std::string& bytes) {
    image.replace(offset, bytes.size(), bytes);
}

std::string DecbDisk() {
    std::string image(kDiskBytes, '\0');
    Put(image, 17 * 18 * 256, std::string(18 * 256, '\xFF'));
    return image;
}

/// 35 tracks, with nothing in use but the tracks 16 and 20.
std::string DragonDisk() {
    std::string image(kDiskBytes, '\0');
    std::string directory(18 * 256, '\0');
    Put(directory, 0, std::string(180, '\xFF'));
    for (const int sector : {288, 360}) {
        for (int used = sector; used < sector + 18; ++used) {
            char& byte = directory[static_cast<std::size_t>(used / 8)];
            byte = static_cast<char>(byte & ~(1 << used % 8));
        }
    }
    Put(directory, 252, "\x23\x12\xDC\xED");
    Put(directory, 256, std::string(180, '\xFF'));
    for (std::size_t entry = 0; entry < 160; ++entry) {
        directory[512 + entry / 10 * 256 + entry % 10 * 25] = '\x89';
    }
    Put(image, 288 * 256, directory);
    Put(image, 360 * 256, directory);
    return image;
}

/// A root with the file "a" and the directory "d", which holds nothing but itself and the root.
std::string Os9Disk() {
    const auto entry = [](const std::string& name, int lsn) {
        std::string bytes = name + std::string(31 - name.size(), '\0');
        return bytes + static_cast<char>(lsn);
    };
    const auto descriptor = [](int attributes, int size, int segment) {
        std::string bytes(1, static_cast<char>(attributes));
        bytes += std::string("\0\0\x56\5\4\14\36\1\0\0\0", 11) + static_cast<char>(size);
        bytes += std::string("\x55\4\3\0\0", 5) + static_cast<char>(segment);
        return bytes + std::string("\0\1", 2);
    };
    std::string image(kDiskBytes, '\0');
    Put(image, 0, std::string("\0\2\x76\x12\0\x4F\0\1\0\0\2", 11));
    Put(image, 17, std::string("\0\x12", 2));
    Put(image, 512, descriptor(0xBF, 128, 3));
    Put(image, 768, entry(".\xAE", 2) + entry("\xAE", 2) + entry("\xE1", 4) + entry("\xE4", 6));
    Put(image, 1024, descriptor(0x1B, 100, 5));
    Put(image, 1536, descriptor(0xBF, 64, 7));
    Put(image, 1792, entry(".\xAE", 2) + entry("\xAE", 6));
    return image;
}

std::string FlexDisk() {
    std::string image(kDiskBytes, '\0');
    Put(image, 512 + 38, "\x22\x12");
    Put(image, 1024, std::string("\0\6", 2));
    Put(image, 1024 + 16, std::string("ONE\0\0\0\0\0TXT\0\0\1\1\1\1\0\1", 19));
    return image;
}

void WriteOne(Input& input) {
    const std::string name = input.Text();
    const bool overwrite = input.Byte() % 2 != 0;
    // Never empty: an empty file is loaded from the PC.
    std::string data(static_cast<std::size_t>(input.Word()) * 3 + 1,
                     static_cast<char>(input.Byte()));
    WriteFileToDisk(name, overwrite, data);
}

void DeleteOne(Input& input) {
    Disk.DirCount = input.Byte();
    DeleteDiskFile(std::nullopt, input.Byte() % 2 != 0);
}

void DeleteSelected(Input& input) {
    std::vector<int> rows;
    for (const char row : input.Text()) rows.push_back(static_cast<unsigned char>(row));
    Screen.SelectedRows = [rows] { return rows; };
    Platform.ShowMessage = [](const std::string&, const std::string&, Buttons, MessageIcon) {
        return Answer::Ok;
    };
    DeleteCommand();
    Platform = SilentPlatform();
}

void ChangeImage(Input& input) {
    const std::size_t offset = static_cast<std::size_t>(input.Word()) * 4;
    const std::string bytes = input.Text();
    if (offset + bytes.size() <= Disk.ImageBytes.size()) Put(Disk.ImageBytes, offset, bytes);
}

void CutImage(Input& input) {
    const std::size_t length = static_cast<std::size_t>(input.Word()) * 4;
    if (length < Disk.ImageBytes.size()) Disk.ImageBytes.resize(length);
}

void ChangeRow(Input& input) {
    DirEntry& row = DirTable[input.Byte()];
    row.Flags = static_cast<std::uint8_t>(input.Byte());
    row.ContinuationLink = static_cast<std::uint8_t>(input.Byte());
    row.FirstUnit = input.Word();
    row.LastGranuleSectors = static_cast<std::uint8_t>(input.Byte());
    row.TreeLevel = static_cast<std::int16_t>(input.Byte());
    row.Attributes = static_cast<std::uint8_t>(input.Byte());
    row.Chain = input.Text();
}

void Commit() {
    const bool large = Disk.DiskFamily == kOs9 && Disk.TotalSectors > kMostSectorsOfOs9 &&
                       Disk.TotalSectors <= kTooManySectorsOfOs9;
    if (!large) CommitDirectory();
}

void WriteTree(Input& input) {
    const int row = input.Byte();
    const std::int64_t position = std::int64_t{input.Word()} * 256 + 1;
    WriteOs9Tree(DirTable[row].Name, position, row, 0);
}

constexpr int kOperations = 10;

void Operate(Input& input) {
    switch (input.Byte() % kOperations) {
        case 0:
        case 1:
            return WriteOne(input);
        case 2:
            return DeleteOne(input);
        case 3:
            return DeleteSelected(input);
        case 4:
            return Commit();
        case 5:
            return ReadDisk();
        case 6:
            return ChangeImage(input);
        case 7:
            return CutImage(input);
        case 8:
            return ChangeRow(input);
        default:
            return WriteTree(input);
    }
}

/// Ends the run where the tables or the image left their bounds.
void Check(std::size_t before) {
    const bool rows = Disk.DirRows >= 0 && Disk.DirRows <= kDirTableRows;
    // Only OS-9's commit and a DECB disk's granules make an image longer.
    const bool mayGrow = Disk.DiskFamily == kOs9 || Disk.DiskFamily == kDecb;
    if (!rows || (!mayGrow && Disk.ImageBytes.size() > before)) std::abort();
    (void)FindFreeDragonEntry();
}

}  // namespace

}  // namespace brindlemoor

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace brindlemoor;
    constexpr std::array<std::string (*)(), 4> kDisks = {DecbDisk, DragonDisk, Os9Disk, FlexDisk};
    Input input{data, size};
    ReadAsDisk(kDisks[static_cast<std::size_t>(input.Byte() % 4)]());
    for (int step = 0; step < kMostOperations && input.Left > 0; ++step) {
        const std::size_t before = Disk.ImageBytes.size();
        // Failures are good ends of an operation, and the disk goes on as they leave it.
        (void)FailureOfStep([&input] { Operate(input); });
        Check(before);
    }
    return 0;
}
