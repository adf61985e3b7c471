#include "image/containers.h"

#include "core/disk_state.h"
#include "core/runtime_failure.h"
#include "support/decb_builder.h"
#include "support/disk_fixture.h"

namespace brindlemoor::test {
namespace {

class ContainersTest : public DiskTest {
  protected:
    /// Takes the container off `file`.
    void Remove(const std::string& file) {
        Disk = DiskState();
        Disk.ImageBytes = file;
        RemoveContainer();
    }
};

/// A "dk" header of `length` bytes whose length field says `field`, with a disk name.
std::string DkHeader(int length, int field, const std::string& name) {
    std::string header(static_cast<std::size_t>(length), '\0');
    header[0] = 'd';
    header[1] = 'k';
    header[2] = static_cast<char>(field % 256);
    header[3] = static_cast<char>(field / 256);
    header.replace(12, name.size(), name);
    return header;
}

TEST_F(ContainersTest, ABareImageIsLeftAsItIs) {
    const std::string image = DecbBuilder().Image();
    Remove(image);
    EXPECT_EQ(Disk.ImageHeader, "");
    EXPECT_EQ(Disk.ImageBytes, image);
}

TEST_F(ContainersTest, TheDkHeaderIsCutInAnyCase) {
    for (const char* mark : {"dk", "DK", "Dk", "dK"}) {
        std::string header = DkHeader(20, 20, "");
        header.replace(0, 2, mark);
        Remove(header + DecbBuilder().Image());
        EXPECT_EQ(Disk.ImageHeader, header);
        EXPECT_EQ(Disk.ImageBytes, DecbBuilder().Image());
    }
}

TEST_F(ContainersTest, ADkHeaderBelow12BytesCountsAs12) {
    const std::string header = DkHeader(12, 5, "");
    Remove(header + Pattern(1000, 1));
    EXPECT_EQ(Disk.ImageHeader, header);
    EXPECT_EQ(Disk.ImageBytes, Pattern(1000, 1));
}

TEST_F(ContainersTest, TheDkLengthIsLowByteFirst) {
    Remove(DkHeader(0x0201, 0x0201, "") + Pattern(1000, 1));
    EXPECT_EQ(Disk.ImageHeader.size(), 0x0201U);
}

TEST_F(ContainersTest, ADkLengthOf32768AndMoreIsNegativeAndCountsAs12) {
    for (const int field : {0x8000, 0xFFFF}) {
        Remove(DkHeader(12, field, "") + Pattern(70000, 1));
        EXPECT_EQ(Disk.ImageHeader.size(), 12U);
    }
    Remove(DkHeader(0x7FFF, 0x7FFF, "") + Pattern(1000, 1));
    EXPECT_EQ(Disk.ImageHeader.size(), 0x7FFFU);
}

TEST_F(ContainersTest, TracksAndSidesOfADkImageAreReadBehindItsHeader) {
    std::string header = DkHeader(12, 12, "");
    header[7] = 40;
    header[8] = 2;
    std::string image = Pattern(1000, 1);
    image[7] = 80;
    image[8] = 1;
    Remove(header + image);
    EXPECT_EQ(Disk.TrackCount, 80);
    EXPECT_EQ(Disk.SideCount, 1);
    image[7] = 36;
    image[8] = 3;
    Remove(header + image);
    EXPECT_EQ(Disk.TrackCount, 35);
    EXPECT_EQ(Disk.SideCount, 1);
    image[7] = 40;
    image[8] = 2;
    Remove(header + image);
    EXPECT_EQ(Disk.TrackCount, 40);
    EXPECT_EQ(Disk.SideCount, 2);
}

TEST_F(ContainersTest, TheNameLengthIsReadBehindTheHeaderAndTheNameInIt) {
    std::string image(1000, '\0');
    image[11] = 5 * 8 + 3;  // five letters, compression code 3
    Remove(DkHeader(30, 30, "DISKNAME") + image);
    EXPECT_EQ(Disk.DiskName, "DISKN");
}

TEST_F(ContainersTest, AnImageThatIsAllHeaderEndsEmpty) {
    Remove(DkHeader(20, 1000, ""));
    EXPECT_EQ(Disk.ImageHeader.size(), 20U);
    EXPECT_EQ(Disk.ImageBytes, "");
}

/// A "dk" image named as a JVC one, whose bytes behind the header are `fields`.
std::string JvcInDk(int length, const std::string& extension, std::string fields) {
    fields.resize(1000, '\0');
    fields[11] = static_cast<char>(5 * 8);
    return DkHeader(length, length, "A" + extension) + fields;
}

TEST_F(ContainersTest, JvcFieldsAreReadOnlyForADkImageOfThatName) {
    const std::string fields = {18, 2, 1, 1, 0};
    for (const char* extension : {".JVC", ".JV1", ".JV3"}) {
        Remove(JvcInDk(20, extension, fields));
        EXPECT_EQ(Disk.SectorsPerTrack, 18) << extension;
        EXPECT_EQ(Disk.SideCount, 2);
        EXPECT_EQ(Disk.ImageHeader.size(), 20U);
        EXPECT_EQ(Disk.ImageHeader.substr(0, 5), fields);
        EXPECT_EQ(Disk.ImageBytes.size(), 980U);
        EXPECT_EQ(Disk.TrackCount, 0);  // the header's length is all that counts as a size
    }
    EXPECT_TRUE(Shown().empty());
    Remove(JvcInDk(20, ".jvc", fields));
    EXPECT_EQ(Disk.ImageHeader.substr(0, 2), "dk");
    EXPECT_EQ(Disk.SectorsPerTrack, 0);
    Remove(JvcInDk(20, ".JVC", {17, 2, 1, 1, 0}));
    EXPECT_EQ(Disk.SectorsPerTrack, 0);
}

TEST_F(ContainersTest, AnotherSectorSizeIsReportedAndReadingGoesOn) {
    Remove(JvcInDk(20, ".JVC", {18, 1, 2, 1, 0}));
    EXPECT_EQ(Shown(), std::vector<std::string>{"Solo se aceptan Sectores de 256 bytes"});
    EXPECT_EQ(Disk.ImageBytes.size(), 980U);
}

TEST_F(ContainersTest, JvcTracksComeFromTheHeadersLengthAlone) {
    // A header of 9 * 256 + 20 bytes: 2304 bytes of "disk", sectors of 128 bytes in nines.
    std::string fields = {18, 1, 0, 1, 0};
    Remove(JvcInDk(9 * 256 + 20, ".JVC", fields));
    EXPECT_EQ(Disk.TrackCount, 1);  // 2304 / (128 * 18)
    EXPECT_EQ(Disk.ImageHeader.size(), 20U);
    fields[4] = 1;
    fields[1] = 1;
    Remove(JvcInDk(9 * 256 + 20, ".JVC", fields));
    EXPECT_EQ(Disk.TrackCount, 1);  // 2304 / (128 * 18 + 1), rounded
}

TEST_F(ContainersTest, AJvcHeaderWithoutSidesFailsByDivision) {
    EXPECT_EQ(FailureOf([this] {
                  Remove(JvcInDk(20, ".JVC", {18, 0, 1, 1, 0}));
              }),
              kDivisionByZero);
    // A header of four bytes or fewer names no geometry at all.
    EXPECT_EQ(FailureOf([this] {
                  Remove(JvcInDk(256 + 4, ".JVC", {18, 1, 1, 1, 0}));
              }),
              kDivisionByZero);
}

constexpr int kSkew[18] = {0, 7, 14, 3, 10, 17, 6, 4, 1, 8, 9, 5, 11, 12, 13, 2, 15, 16};

/// A DMK file of `tracks` tracks whose sector S of track T is filled with T and ends in S.
std::string DmkFile(int tracks, int firstByte) {
    std::string file(16, '\0');
    file[0] = static_cast<char>(firstByte);
    file[1] = static_cast<char>(tracks);
    for (int track = 0; track < tracks; ++track) {
        std::string bytes(6400, 'N');
        for (int sector = 0; sector < 18; ++sector) {
            std::string data(256, static_cast<char>(track));
            data[255] = static_cast<char>(sector);
            bytes.replace(static_cast<std::size_t>(216 + 338 * kSkew[sector]), 256, data);
        }
        bytes.replace(0, 128, std::string(128, '\0'));
        file += bytes;
    }
    return file;
}

TEST_F(ContainersTest, ADmkFileBecomesPlainSectorsInLogicalOrder) {
    const std::string file = DmkFile(35, 0);
    Remove(file);
    EXPECT_EQ(Disk.ImageHeader, file.substr(0, 16));
    ASSERT_EQ(Disk.ImageBytes.size(), 161280U);
    for (int sector = 0; sector < 35 * 18; ++sector) {
        const auto offset = static_cast<std::size_t>(sector) * 256;
        ASSERT_EQ(Disk.ImageBytes[offset], static_cast<char>(sector / 18));
        ASSERT_EQ(Disk.ImageBytes[offset + 255], static_cast<char>(sector % 18));
    }
    EXPECT_EQ(Disk.TrackCount, 35);
}

TEST_F(ContainersTest, AFileIsKnownAsDmkByWhatBecomesSectors) {
    EXPECT_TRUE(IsDmkFile(DmkFile(35, 0)));
    EXPECT_FALSE(IsDmkFile(DmkFile(35, 255)));
    Remove(DmkFile(35, 0));
    EXPECT_FALSE(IsDmkFile(Disk.ImageHeader + Disk.ImageBytes));
    EXPECT_FALSE(IsDmkFile(""));
}

TEST_F(ContainersTest, ADmkFileOf40TracksLosesTheRest) {
    Remove(DmkFile(40, 0));
    EXPECT_EQ(Disk.ImageBytes.size(), 161280U);
    EXPECT_EQ(Disk.TrackCount, 40);
}

TEST_F(ContainersTest, AShortDmkFileGivesFewerBytes) {
    Remove(DmkFile(35, 0).substr(0, 16 + 6400 * 20 + 1000));
    EXPECT_LT(Disk.ImageBytes.size(), 161280U);
    EXPECT_GT(Disk.ImageBytes.size(), 20U * 18 * 256);
}

TEST_F(ContainersTest, AWriteProtectedDmkFileIsReadBare) {
    const std::string file = DmkFile(35, 255);
    Remove(file);
    EXPECT_EQ(Disk.ImageHeader, "");
    EXPECT_EQ(Disk.ImageBytes, file);
}

TEST_F(ContainersTest, OneByteThatIsNoGapIsNoDmk) {
    std::string file = DmkFile(35, 0);
    file[144 + 31] = 'O';
    Remove(file);
    EXPECT_EQ(Disk.ImageBytes, file);
}

}  // namespace
}  // namespace brindlemoor::test
