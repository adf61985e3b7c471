#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace brindlemoor {

/// The values of `DiskState::DiskFamily`.
enum Family : std::uint16_t {
    kDecb = 0,           ///< Color Computer Disk BASIC, shown as "CoCo"
    kDragon = 1,         ///< Dragon DOS, "Dragon"
    kOs9 = 2,            ///< OS-9 and NitrOS-9, "OS9/NitrOS9"
    kFlex = 3,           ///< FLEX and UniFlex, "FLEX/UniFlex"
    kUndecided = 65535,  ///< only while an image is being recognised
};

/// Bytes in a sector, of every disk that is read.
inline constexpr int kSectorSize = 256;

/// Rows of the directory table: indices 0 to 1700.
inline constexpr int kDirTableRows = 1701;

/// Bits of `DirEntry::Flags`.
inline constexpr int kFlagDeleted = 0x80;
inline constexpr int kFlagContinued = 0x20;
inline constexpr int kFlagEndOfDirectory = 0x08;
inline constexpr int kFlagProtected = 0x02;
inline constexpr int kFlagContinuationEntry = 0x01;

/// Bit of `DirEntry::Attributes`: the row is a directory.
inline constexpr int kAttributeDirectory = 0x80;

/// One row of a disk's directory. Which fields a family uses, and for what, is told in
/// docs/formats; all are filled anew by every `ReadDisk`.
struct DirEntry {
    std::string Name;                   ///< file name, as the family pads it
    std::string Ext;                    ///< extension
    std::string FullName;               ///< the key of the row in all file operations
    std::uint8_t FileType = 0;          ///< 0 BASIC, 1 data, 2 machine language, 3 text
    std::string FormatChar;             ///< "B" binary, "A" ASCII, empty where the family has none
    std::uint8_t Flags = 0;             ///< kFlag... bits
    std::string Content;                ///< the file's bytes
    std::int32_t UnitCount = 0;         ///< granules (DECB, Dragon)
    std::string Chain;                  ///< 1 byte a granule, 3 an extent, 5 a segment
    std::int32_t SectorCount = 0;       ///< sectors used
    std::int64_t Size = 0;              ///< bytes of `Content` that count
    std::uint8_t ContinuationLink = 0;  ///< Dragon: row that continues this entry
    std::string BadSectorMark;          ///< DECB: not empty when a sector of the file is all 235
    std::int32_t FirstUnit = 0;         ///< first granule, sector or descriptor LSN
    std::int32_t LastSectorBytes = 0;   ///< bytes used in the last sector, 0 to 256
    std::uint8_t LastGranuleSectors = 0;  ///< DECB: sectors used in the last granule
    std::string DescriptorSector;         ///< OS-9: the file descriptor, 256 bytes
    std::uint8_t Attributes = 0;          ///< OS-9 FD.ATT; FLEX byte 11 of the slot
    std::int16_t OwnerId = 0;             ///< OS-9
    std::int16_t LinkCount = 0;           ///< OS-9 FD.LNK
    double ModifiedDate = 0;              ///< days since 30 December 1899
    double CreatedDate = 0;               ///< days since 30 December 1899
    std::int16_t TreeLevel = 0;           ///< OS-9: level in the tree, 0 for ROOT
};

/// All that is known about the one open disk.
struct DiskState {
    // The image itself
    std::string ImageBytes;   ///< every sector in logical order, headers removed; empty: no disk
    std::string ImageHeader;  ///< the container's header, cut from the file
    std::string ImageOnOpen;  ///< the file as last loaded or saved, header included
    std::string ImageFolder;  ///< folder of the image file
    std::string DiskName;     ///< name for the title line
    std::string PartPath;     ///< hard disk image that the disk is a part of
    std::int64_t PartOffset = 0;     ///< where the part begins there, 0-based, bytes
    std::int64_t PartLength = 0;     ///< bytes of the part; 0: the disk has a file of its own
    std::int16_t ImageModified = 0;  ///< -1 when the image differs from `ImageOnOpen`, else 0

    // Geometry
    std::uint16_t DiskFamily = kDecb;
    std::int16_t TrackCount = 0;
    std::int16_t SectorsPerTrack = 0;  ///< of the linear layout: 36 for two-sided Dragon disks
    std::int16_t SideCount = 0;        ///< not reset by `ReadDisk`
    std::int32_t TotalSectors = 0;

    // Allocation and totals
    std::string FatBytes;             ///< the allocation table as stored on the disk
    std::string FatComputed;          ///< Dragon: the bitmap rebuilt from the files
    std::int32_t MaxDirEntries = 0;   ///< directory slots
    std::int32_t TotalUnits = 0;      ///< sectors usable for files
    std::int32_t UsedSectors = 0;     ///< sum of `SectorCount` of all rows
    std::int64_t TotalFileBytes = 0;  ///< sum of `Size` of all rows, by `FillDirectoryGrid`
    std::int16_t DeletedCount = 0;
    std::int16_t ContinuationCount = 0;
    int DirCount = 0;  ///< the shared cursor into `DirTable`; -1 before the first disk
    int DirRows = 0;   ///< rows of `DirTable` in use

    // OS-9 identification sector
    std::int16_t Os9ClusterSize = 0;   ///< DD.BIT
    std::int16_t Os9RootLsn = 0;       ///< DD.DIR
    std::int32_t Os9Owner = 0;         ///< first byte of DD.OWN
    std::int16_t Os9DiskAttr = 0;      ///< DD.ATT
    std::int32_t Os9DiskId = 0;        ///< DD.DSK
    std::int16_t Os9Format = 0;        ///< DD.FMT
    std::int32_t Os9SectorsField = 0;  ///< DD.SPT
    std::string Os9Reserved;           ///< DD.RES, two bytes
    std::int32_t Os9BootLsn = 0;       ///< DD.BT
    std::int32_t Os9BootSize = 0;      ///< DD.BSZ
    std::string Os9Options;            ///< bytes 63 to 254 of LSN 0
    double DiskDate = 0;               ///< DD.DAT, or the date of FLEX's information record

    // FLEX
    std::string FlexDirectory;  ///< the directory's sectors without their link bytes

    // Shared with other units
    std::string PcFileBytes;            ///< the PC file selected, or a conversion's result
    std::string PcFileTypeText;         ///< "0" for a BASIC file of the PC, else "2"
    std::vector<std::string> Messages;  ///< the texts of the language in force, from index 0
    std::string AppTitle;               ///< title of the windows and message boxes
};

/// The directory rows, 0 to 1700. Any other index fails with 9.
class DirectoryTable {
  public:
    DirectoryTable() : rows_(kDirTableRows) {}

    DirEntry& operator[](std::int64_t row);

    /// Empties all rows.
    void Wipe();

    /// Exchanges all rows with those of `other`.
    void Swap(DirectoryTable& other) {
        rows_.swap(other.rows_);
        std::swap(touched_, other.touched_);
    }

  private:
    std::vector<DirEntry> rows_;
    std::size_t touched_ = 0;  ///< rows from here on were never asked for since the last wipe
};

extern DiskState Disk;
extern DirectoryTable DirTable;

/// `Disk.Messages[number]`, an empty text where the language in force has fewer.
std::string MessageText(int number);

/// The name under which a family is shown: "CoCo", "Dragon", "OS9/NitrOS9" or "FLEX/UniFlex".
std::string FamilyName(int family);

/// Clears what every reading of a disk starts without: counts, family, geometry, header, name and
/// date, and all rows of `DirTable`. `TotalUnits`, `FatBytes` and `SideCount` keep their values.
void ResetDisk();

}  // namespace brindlemoor
