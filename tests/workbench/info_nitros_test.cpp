#include "workbench/info_nitros.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "image/modified_state.h"
#include "support/os9_builder.h"
#include "support/workbench_fixture.h"
#include "workbench/principal.h"

namespace brindlemoor::test {
namespace {

using Texts = std::vector<std::string>;

/// An identification sector whose every field differs from the others.
std::string Sector() {
    Os9Builder disk;
    disk.Number(0, 3, 1260).Number(3, 1, 18).Number(4, 2, 65535).Number(6, 2, 40000);
    disk.Number(8, 3, 70000).Number(11, 2, 258).Number(13, 1, 0x81).Number(14, 2, 999);
    disk.Number(16, 1, 0x83).Number(17, 2, 36).Number(19, 2, 0).Number(21, 3, 16777215);
    disk.Number(24, 2, 1000).Put(26, std::string("\x7C\2\x1D\14\36", 5)).DiskName("VOLUMEN1");
    return disk.Image();
}

class InfoNitrosTest : public WorkbenchTest {
  protected:
    void SetUp() override {
        WorkbenchTest::SetUp();
        Start();
        script_ = Script();
    }

    /// Opens the dialog over a disk.
    static void Open(const std::string& image, Family family = kOs9) {
        Disk.ImageBytes = image;
        Disk.ImageOnOpen = image;
        Disk.DiskFamily = family;
        LoadInfoDialog();
        InfoNitros.Open = true;
    }

    static Control& Field(int index) { return ControlOf(InfoNitros, "Text", index); }
    static std::string Text(int index) { return Field(index).Text; }
    static void Type(int index, const std::string& text) { SetText(Field(index), text); }
    static Control& Part(const std::string& name, int index = 0) {
        return ControlOf(InfoNitros, name, index);
    }
    static std::string Letters() { return Part("Attr").Text; }

    static std::string Checks(const std::string& name, int count) {
        std::string checks;
        for (int bit = 0; bit < count; ++bit) checks += Part(name, bit).Checked ? '1' : '0';
        return checks;
    }

    /// The numbers, from 0, of the image's bytes that differ from `before`.
    static std::vector<std::size_t> ChangedBytes(const std::string& before) {
        std::vector<std::size_t> changed;
        EXPECT_EQ(Disk.ImageBytes.size(), before.size());
        for (std::size_t i = 0; i < before.size(); ++i) {
            if (Disk.ImageBytes[i] != before[i]) changed.push_back(i);
        }
        return changed;
    }
};

TEST_F(InfoNitrosTest, ItsTextsAreThoseOfTheDesign) {
    Open(Sector());
    const Texts labels = {"Number of Sectors on Media (TOT) :",
                          "Track Size (in sectors) (TKS) :",
                          "Number of Bytes in the Allocation Bit Map (MAP) :",
                          "Number of Sectors per Cluster (BIT) :",
                          "Starting Sector of the Root Directory (DIR) :",
                          "Owner’s User Number (OWN) :"_w,
                          "Disk Attributes (ATT) :",
                          "Disk Identification (for Internal Use) (DSK) :",
                          "Disk Format, Density, Number of Sides (FMT) :",
                          "Number of Sectors Per Track (SPT) :",
                          "Reserved Data for Future Use (Not Used) (RES) :",
                          "Starting Sector of the Boot Strap File (BT ) :",
                          "Size of the Boot Strap file (in Bytes) (BSZ) :",
                          "Date And Time of Creation (Y:M:D:H:M) (DAT) :",
                          "Volume Name (NAM) :",
                          "Path Descriptor Options (OPT) :",
                          "Media Integrity (SYN) :",
                          "Map Starting Sector (MLS) :",
                          "Media Logical Sector Size (LSZ) :",
                          "Sector 0 Version ID (S0V) :"};
    for (int index = 0; index < 20; ++index) {
        EXPECT_EQ(Part("Label1", index).Text, labels[static_cast<std::size_t>(index)]);
        EXPECT_FALSE(Field(index).AccessibleName.empty());
    }
    EXPECT_EQ(Part("Label2").Text, "<-----");
    EXPECT_EQ(Part("Label3").Text, "<-----");
    EXPECT_EQ(Part("Label4").Text, "Which the Last Character Hasthe Most Significant Bit Set");
    EXPECT_EQ(Part("Frame1").Text, "Disk Attibutes :");
    EXPECT_EQ(Part("Frame2").Text, "Media Attributes");
    const Texts boxes = {"Bit 0 Read",        "Bit 1 Write",        "Bit 2 Execute",
                         "Bit 3 Public read", "Bit 4 Public write", "Bit 5 Public execute",
                         "Bit 6 Single user", "Bit 7 Directory"};
    for (int bit = 0; bit < 8; ++bit) {
        EXPECT_EQ(Part("Att", bit).Text, boxes[static_cast<std::size_t>(bit)]);
    }
    const Texts formats = {"Bit 0 Number of sides:", "Bit 1 Density:", "Bit 2 Track density:"};
    for (int bit = 0; bit < 3; ++bit) {
        EXPECT_EQ(Part("DiskFormat", bit).Text, formats[static_cast<std::size_t>(bit)]);
    }
    const Texts notes = {"0 = Single Side   1 side",
                         "1 = Double Side 2 sides",
                         "0 = Single  (40 Track)",
                         "1 = Double (80 Track)",
                         "0 = Single   (48 tracks per inch)",
                         "1 = Double (96 tracks per inch)"};
    for (int line = 0; line < 6; ++line) {
        EXPECT_EQ(Part("Label5", line).Text, notes[static_cast<std::size_t>(line)]);
    }
}

TEST_F(InfoNitrosTest, ShowsTheSectorFieldByField) {
    Open(Sector());
    const Texts texts = {
        "1,260",    "18",  "65,535", "40,000", "70,000",     "258",   "129",
        "999",      "131", "36",     "",       "16,777,215", "1,000", "29/02/2024 12:30",
        "VOLUMEN1", "",    "",       "",       "",           ""};
    for (int index = 0; index < 20; ++index) {
        EXPECT_EQ(Text(index), texts[static_cast<std::size_t>(index)]) << index;
    }
    EXPECT_EQ(Checks("Att", 8), "10000001");
    EXPECT_EQ(Letters(), "rD");
    EXPECT_EQ(Checks("DiskFormat", 3), "110");
}

TEST_F(InfoNitrosTest, ASmallTotalHasNoSeparator) {
    Open(Os9Builder().Number(0, 3, 630).Image());
    EXPECT_EQ(Text(0), "630");
}

TEST_F(InfoNitrosTest, AnUntouchedSectorKeepsEveryByte) {
    const std::string image = Sector();
    Open(image);
    AcceptInfoDialog();
    EXPECT_TRUE(ChangedBytes(image).empty());
    EXPECT_FALSE(InfoNitros.Open);
    EXPECT_TRUE(script_.Messages.empty());
}

TEST_F(InfoNitrosTest, EveryFieldIsWrittenInItsOwnBytes) {
    struct Row {
        int Index;
        const char* Typed;
        std::size_t Offset;
        std::string Bytes;
    };
    const std::vector<Row> rows = {
        {0, "66,051", 0, "\1\2\3"},
        {1, "7", 3, "\7"},
        {2, "258", 4, "\1\2"},
        {3, "65535", 6, "\xFF\xFF"},
        {4, "16777215", 8, "\xFF\xFF\xFF"},
        {5, "", 11, std::string(2, '\0')},
        {6, "255", 13, "\xFF"},
        {7, "513", 14, "\2\1"},
        {8, "4", 16, "\4"},
        {9, "x", 17, std::string(2, '\0')},
        {10, "1", 19, std::string("\0\1", 2)},
        {11, "1", 21, std::string("\0\0\1", 3)},
        {12, "65,536", 24, "\xFF\xFF"},
        {13, "02/01/1970", 26, std::string("\x46\1\2\0\0", 5)},
        {13, "02/01/2069 23:59", 26, "\xA9\1\2\x17\x3B"},
        {13, "  ", 26, std::string(5, '\0')},
        {14, "NEW", 31, "NE\xD7"},
    };
    for (const Row& row : rows) {
        std::string expected = Sector();
        Open(expected);
        Type(row.Index, row.Typed);
        AcceptInfoDialog();
        expected.replace(row.Offset, row.Bytes.size(), row.Bytes);
        EXPECT_TRUE(ChangedBytes(expected).empty()) << row.Index << " " << row.Typed;
    }
}

TEST_F(InfoNitrosTest, AShorterNameLeavesTheRestOfTheOldOne) {
    Open(Sector());
    Type(14, "ABC");
    AcceptInfoDialog();
    EXPECT_EQ(Disk.ImageBytes.substr(31, 8), "AB\xC3UMEN\xB1");
    Open(Sector());
    Type(14, "");
    AcceptInfoDialog();
    EXPECT_EQ(Disk.ImageBytes.substr(31, 8), "VOLUMEN\xB1");
}

TEST_F(InfoNitrosTest, ALongNameEndsWithItsField) {
    const std::string image = Sector();
    Open(image);
    EXPECT_EQ(Field(14).MaxLength, 32);
    Type(14, std::string(31, 'N') + "M");
    AcceptInfoDialog();
    EXPECT_EQ(Disk.ImageBytes.substr(31, 33), std::string(31, 'N') + "\xCD" + image[63]);
    Type(14, std::string(400, 'L'));
    AcceptInfoDialog();
    EXPECT_EQ(Disk.ImageBytes.substr(31, 33), std::string(32, 'L') + image[63]);
}

TEST_F(InfoNitrosTest, AnAccentedNameIsWrittenByteForByte) {
    Open(Sector());
    Type(14, "AÑO"_w);
    AcceptInfoDialog();
    EXPECT_EQ(Disk.ImageBytes.substr(31, 3), "A\xD1\xCF");
}

TEST_F(InfoNitrosTest, ANumberBeyondItsBytesBecomesTheLargest) {
    Open(Sector());
    struct Row {
        int Index;
        const char* Typed;
        const char* Becomes;
    };
    for (const Row& row :
         {Row{1, "300", "255"}, Row{1, "255", "255"}, Row{1, "256", "255"},
          Row{2, "65536", "65,535"}, Row{2, "65535", "65535"}, Row{0, "16777216", "16,777,215"},
          Row{0, "9999999999999999", "16,777,215"}, Row{7, "1.0", "1.0"}, Row{1, "2.5.6", "255"},
          Row{1, "1,2", "1,2"}, Row{15, "1", ""}, Row{15, "x", "x"}}) {
        Type(row.Index, row.Typed);
        EXPECT_EQ(Text(row.Index), row.Becomes) << row.Typed;
    }
}

TEST_F(InfoNitrosTest, ANumberBelow0EmptiesItsField) {
    Open(Sector());
    for (const int index : {0, 1, 6, 8, 12}) {
        Type(index, "-5");
        EXPECT_EQ(Text(index), "");
        Type(index, "-");
        EXPECT_EQ(Text(index), "-");
    }
    EXPECT_EQ(Checks("Att", 8), "00000000");
    EXPECT_EQ(Letters(), "");
}

TEST_F(InfoNitrosTest, OnlyTenCharactersOfANumberCount) {
    Open(Sector());
    Type(0, "0000000001999");
    AcceptInfoDialog();
    EXPECT_EQ(Disk.ImageBytes.substr(0, 3), std::string("\0\0\1", 3));
}

TEST_F(InfoNitrosTest, TheAttributesNumberSetsItsBoxes) {
    Open(Sector());
    Type(6, "255");
    EXPECT_EQ(Checks("Att", 8), "11111111");
    EXPECT_EQ(Letters(), "rweRWESD");
    EXPECT_EQ(Text(6), "255");
    Type(6, "300");
    EXPECT_EQ(Text(6), "255");
    Type(6, "");
    EXPECT_EQ(Checks("Att", 8), "00000000");
    EXPECT_EQ(Letters(), "");
    EXPECT_EQ(Text(6), "");
}

TEST_F(InfoNitrosTest, TheAttributesBoxesSetTheNumber) {
    Open(Os9Builder().Byte(13, 0).Image());
    EXPECT_EQ(Checks("Att", 8), "00000000");
    SetChecked(Part("Att", 7), true);
    EXPECT_EQ(Text(6), "128");
    EXPECT_EQ(Letters(), "D");
    SetChecked(Part("Att", 1), true);
    SetChecked(Part("Att", 3), true);
    EXPECT_EQ(Text(6), "138");
    EXPECT_EQ(Letters(), "wRD");
    AcceptInfoDialog();
    EXPECT_EQ(ByteAt(Disk.ImageBytes, 13), 138);
}

TEST_F(InfoNitrosTest, TheFormatsBoxesAndNumberFollowEachOther) {
    Open(Sector());
    Type(8, "5");
    EXPECT_EQ(Checks("DiskFormat", 3), "101");
    SetChecked(Part("DiskFormat", 0), false);
    EXPECT_EQ(Text(8), "4");
    SetChecked(Part("DiskFormat", 1), true);
    EXPECT_EQ(Text(8), "6");
    AcceptInfoDialog();
    EXPECT_EQ(ByteAt(Disk.ImageBytes, 16), 6);
}

TEST_F(InfoNitrosTest, BitsOfTheFormatWithoutABoxStayUntilABoxIsClicked) {
    Open(Sector());
    AcceptInfoDialog();
    EXPECT_EQ(ByteAt(Disk.ImageBytes, 16), 0x83);
    Type(8, "9");
    EXPECT_EQ(Text(8), "9");
    SetChecked(Part("DiskFormat", 1), true);
    EXPECT_EQ(Text(8), "3");
}

TEST_F(InfoNitrosTest, ADateThatCannotBeUnderstoodWritesNothing) {
    const std::string image = Sector();
    for (const char* date :
         {"yesterday", "31/02/2024", "1/2/2024", "01/13/2024", "01-01-2024", "01/01/24",
          "01/01/2024 24:00", "01/01/2024 10:60", "01/01/2024 10", "\xE1", "01/01/2024  10:00",
          "01/01/0099", "29/02/2024 12:30 29/02/2024 12:30"}) {
        Open(image);
        script_ = Script();
        Type(0, "1");
        Type(13, date);
        AcceptInfoDialog();
        EXPECT_EQ(MessageTexts(script_), Texts{"Run-time error '13':\r\n\r\nType mismatch"})
            << date;
        EXPECT_TRUE(ChangedBytes(image).empty()) << date;
        EXPECT_TRUE(InfoNitros.Open) << date;
        EXPECT_FALSE(script_.Ended);
    }
    Type(13, "01/01/2024");  // put right, it is written
    AcceptInfoDialog();
    EXPECT_EQ(Disk.ImageBytes.substr(0, 3), std::string("\0\0\1", 3));
    EXPECT_FALSE(InfoNitros.Open);
}

TEST_F(InfoNitrosTest, AYearThatAByteCannotHoldBecomesABlankDate) {
    for (const char* date : {"31/12/1899", "01/01/2156"}) {
        Open(Sector());
        Type(13, date);
        AcceptInfoDialog();
        EXPECT_EQ(Disk.ImageBytes.substr(26, 5), std::string(5, '\0')) << date;
    }
}

TEST_F(InfoNitrosTest, AnImpossibleDateOfTheDiskIsBlank) {
    Open(Os9Builder().Put(26, "\x63\x0D\x2D\x63\x63").Image());
    EXPECT_EQ(Text(13), "");
}

TEST_F(InfoNitrosTest, WhatTheDiskHoldsIsShownAsItIs) {
    Open(Os9Builder().DiskName("-5 DISK").Image());
    EXPECT_EQ(Text(14), "-5 DISK");
    const std::string image = Disk.ImageBytes;
    AcceptInfoDialog();
    EXPECT_TRUE(ChangedBytes(image).empty());
}

TEST_F(InfoNitrosTest, AnotherFamilysDiskShowsNothingAndGetsZeroBytes) {
    const std::string image(1000, 'b');
    for (const Family family : {kDecb, kDragon, kFlex}) {
        Open(Sector());  // what was shown before is gone
        Open(image, family);
        for (int index = 0; index < 20; ++index) EXPECT_EQ(Text(index), "") << index;
        EXPECT_EQ(Checks("Att", 8), "00000000");
        AcceptInfoDialog();
        EXPECT_EQ(Disk.ImageBytes, std::string(31, '\0') + image.substr(31));
        EXPECT_FALSE(InfoNitros.Open);
    }
}

TEST_F(InfoNitrosTest, AShortImageIsFilledAsFarAsItGoes) {
    const std::string whole = Sector();
    for (std::size_t size = 0; size < 70; ++size) {
        Open(whole.substr(0, size));
        AcceptInfoDialog();
        EXPECT_EQ(Disk.ImageBytes.size(), size);
        EXPECT_FALSE(InfoNitros.Open);
        Open(std::string(size, 'b'), kDecb);
        AcceptInfoDialog();
        const std::size_t zeros = std::min<std::size_t>(size, 31);
        EXPECT_EQ(Disk.ImageBytes, std::string(zeros, '\0') + std::string(size - zeros, 'b'));
    }
}

TEST_F(InfoNitrosTest, WithNoDiskThereIsNothingToWrite) {
    Open("");
    Type(0, "1");
    Type(14, "NAME");
    AcceptInfoDialog();
    EXPECT_TRUE(Disk.ImageBytes.empty());
    EXPECT_FALSE(InfoNitros.Open);
}

TEST_F(InfoNitrosTest, NoTextInAnyFieldWritesBeyondItsBytes) {
    const std::string image = Sector();
    constexpr std::size_t kEnds[] = {3,  4,  6,  8,  11, 13, 14, 16, 17, 19,
                                     21, 24, 26, 31, 63, 63, 63, 63, 63, 63};
    for (int index = 0; index < 20; ++index) {
        for (const std::string& text :
             {std::string(), std::string("x"), std::string("\xE1\xF1\xFC"), std::string("-5"),
              std::string("1.5"), std::string(400, '9'), std::string(400, 'y'),
              std::string(40, '\0')}) {
            Open(image);
            Type(index, text);
            AcceptInfoDialog();
            const std::size_t begin = index == 0 ? 0 : kEnds[index - 1];
            for (const std::size_t changed : ChangedBytes(image)) {
                EXPECT_GE(changed, begin) << index << " " << text;
                EXPECT_LT(changed, kEnds[index]) << index << " " << text;
            }
        }
    }
}

TEST_F(InfoNitrosTest, CancelChangesNothing) {
    const std::string image = Sector();
    Open(image);
    Type(0, "1");
    Part("Cancelar").Click();
    EXPECT_TRUE(ChangedBytes(image).empty());
    EXPECT_FALSE(InfoNitros.Open);
}

TEST_F(InfoNitrosTest, TheMenuFillsItAndShowsTheChangeAfterwards) {
    Open(Sector());
    RefreshModified();
    EXPECT_EQ(Disk.ImageModified, 0);
    script_.OnModal = [](const std::string& window) {
        EXPECT_EQ(window, "InfoNitros");
        EXPECT_EQ(Text(14), "VOLUMEN1");
        Type(0, "1");
        Part("Aceptar").Click();
    };
    MenuOf(Principal, "OptionsMenu").Click(3);
    EXPECT_EQ(script_.ModalWindows, Texts{"InfoNitros"});
    EXPECT_EQ(Disk.ImageModified, -1);
}

}  // namespace
}  // namespace brindlemoor::test
