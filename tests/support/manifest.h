#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace brindlemoor::test {

// What independent tools read from the images of tests/data: the rows of its tables, whose columns
// tests/data/README.md explains. A number that the table leaves empty is kNoNumber.

inline constexpr std::int64_t kNoNumber = -1;

/// A part of a chain: a granule and the bytes in it, or a first sector and a number of sectors.
struct ChainPart {
    std::int64_t First = 0;
    std::int64_t Count = 0;
    bool operator==(const ChainPart&) const = default;
};

/// A row of images.txt.
struct ImageFacts {
    std::string Image;  ///< path inside tests/data
    std::int64_t Size = 0;
    std::string Sha256;
    std::string Family;     ///< "DECB", "Dragon", "OS9" or "tape"
    std::string Container;  ///< "JVC", "JVC with header", "VDK", "DMK", "CAS" or "WAV"
    std::int64_t Tracks = kNoNumber;
    std::int64_t Sides = kNoNumber;
    std::int64_t Sectors = kNoNumber;
    std::int64_t HeaderBytes = kNoNumber;
    std::int64_t Files = 0;
    std::int64_t FreeBytes = kNoNumber;
    std::vector<std::string> Deleted;  ///< "NAME.EXT", not to be listed
};

/// A row of decb_manifest.txt.
struct DecbFacts {
    std::string Image;
    std::string Name;
    std::string Ext;
    std::int64_t Size = 0;
    std::string Sha256;
    std::int64_t TypeCode = 0;  ///< 0 BASIC, 1 data, 2 machine language, 3 text
    std::string Flag;           ///< "B" or "A"
    std::int64_t Granules = 0;
    std::int64_t FirstGranule = 0;
    std::int64_t LastSectorBytes = 0;
    std::vector<ChainPart> Chain;  ///< granule, bytes in it
    std::string SameAs;            ///< what the file's bytes equal; may be empty
};

/// A row of decb_damaged_manifest.txt.
struct DamagedFacts {
    std::string Image;
    std::string Name;
    std::string Ext;
    bool Hurt = false;      ///< the change made to the disk lies in this file's chain
    std::int64_t Size = 0;  ///< this and the next two: before the change
    std::string Sha256;
    std::vector<std::int64_t> Chain;
    std::vector<std::int64_t> ChainNow;  ///< granules up to the fault
};

/// A row of dragon_manifest.txt.
struct DragonFacts {
    std::string Image;
    std::string Name;
    std::string Ext;
    std::int64_t Size = 0;
    std::string Sha256;
    bool Protected = false;
    std::int64_t Type = kNoNumber;  ///< this and the next three: the file's own 9-byte header
    std::int64_t Load = kNoNumber;
    std::int64_t Length = kNoNumber;
    std::int64_t Exec = kNoNumber;
    std::vector<ChainPart> Extents;     ///< first sector (0-based), sectors
    std::vector<std::int64_t> Entries;  ///< directory entries (0-based) that the file takes
    std::string SameAs;
};

/// A row of os9_manifest.txt.
struct Os9Facts {
    std::string Image;
    bool Directory = false;
    std::string Path;  ///< from the root, parts divided by "/"
    std::string Name;
    std::int64_t Size = 0;
    std::string Sha256;  ///< empty for a directory
    std::string Attributes;
    std::string Owner;
    std::string Modified;  ///< "yyyy/mm/dd hhmm"
    std::int64_t FdSector = 0;
    std::vector<ChainPart> Segments;  ///< first LSN, sectors
    std::string SameAs;
};

/// A row of tape_manifest.txt.
struct TapeFacts {
    std::string Image;
    std::int64_t Rate = kNoNumber;  ///< samples per second of a WAV
    std::string Name;
    std::int64_t Type = 0;
    std::int64_t Ascii = 0;
    std::int64_t Gap = 0;
    std::int64_t Exec = 0;
    std::int64_t Load = 0;
    std::string NameBlock;  ///< the 15 bytes in hexadecimal
    std::int64_t DataBlocks = 0;
    std::int64_t Size = 0;
    std::string Sha256;
    std::string SameAs;
};

/// The tables, whole, in file order. They throw std::runtime_error on a file that is missing or
/// whose columns are not the ones expected, so that no test runs on an empty table unnoticed.
std::vector<ImageFacts> ReadImageTable();
std::vector<DecbFacts> ReadDecbTable();
std::vector<DamagedFacts> ReadDamagedTable();
std::vector<DragonFacts> ReadDragonTable();
std::vector<Os9Facts> ReadOs9Table();
std::vector<TapeFacts> ReadTapeTable();

/// The rows of `table` that belong to one image.
template <typename Facts>
std::vector<Facts> RowsOf(const std::vector<Facts>& table, const std::string& image) {
    std::vector<Facts> rows;
    for (const Facts& row : table) {
        if (row.Image == image) rows.push_back(row);
    }
    return rows;
}

/// The full path of a file of tests/data.
std::string TestDataPath(const std::string& file);

/// The bytes of a file of tests/data. Throws std::runtime_error when it cannot be read.
std::string ReadTestData(const std::string& file);

}  // namespace brindlemoor::test
