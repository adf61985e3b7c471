#include "workbench/header_info.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "image/modified_state.h"
#include "image/read_disk.h"
#include "support/workbench_fixture.h"
#include "workbench/principal.h"

namespace brindlemoor::test {
namespace {

using Texts = std::vector<std::string>;

/// "dk", length 20, version 0x12, compatible 0x13, id 80, its version 0x21, 40 tracks, 2 sides,
/// flags 9, compression 3 and a name of 8 letters.
const std::string kHeader = std::string("dk\x14\0\x12\x13P\x21\x28\x02\x09\x43", 12) + "MY DISK!";

class HeaderInfoTest : public WorkbenchTest {
  protected:
    void SetUp() override {
        WorkbenchTest::SetUp();
        Start();
        Disk.ImageBytes = std::string(1000, 'b');
        Disk.ImageHeader = kHeader;
        Disk.ImageOnOpen = Disk.ImageHeader + Disk.ImageBytes;
        script_ = Script();
    }

    /// Opens the dialog over `header`.
    static void Open(const std::string& header = kHeader) {
        Disk.ImageHeader = header;
        OpenHeaderInfo();
        HeaderInfo.Open = true;
    }

    static Control& Field(const std::string& name, int index = 0) {
        return ControlOf(HeaderInfo, name, index);
    }
    static std::string Text(const std::string& name) { return Field(name).Text; }
    static void Type(const std::string& name, const std::string& text) {
        SetText(Field(name), text);
    }
    static void Leave(const std::string& name) { Field(name).Leave(); }
    static void Accept() { Field("Aceptar").Click(); }

    static std::string Checks() {
        std::string checks;
        for (int bit = 0; bit < 4; ++bit) checks += Field("Check", bit).Checked ? '1' : '0';
        return checks;
    }
};

TEST_F(HeaderInfoTest, ItsTextsAreThoseOfTheDesign) {
    Open();
    Texts labels;
    for (const Control& control : HeaderInfo.Controls) {
        if (control.Kind == ControlKind::Label) labels.push_back(control.Text);
    }
    for (const char* text :
         {"Signature:", "Header length:", "VDK version:", "Compatibility:", "Source ID:",
          "Source version:", "Number of tracks:", "Number of sides:", "Compresion Bit 0-2 (0-5):",
          "Name length Bit 3-7 (0-31):", "Bits 4-7 = Unused in VDK v1.0", "Value::", "Bit 0",
          "Bit 1: Lock Disk (Warning: No Open) Already Open in multi-task o network",
          "Bit 2: Lock Disk (No Open) Already Open in multi-task o network",
          "Bit 3:  [0=last disk, 1=not last Disk]"}) {
        EXPECT_EQ(std::count(labels.begin(), labels.end(), text), 1) << text;
    }
    EXPECT_EQ(std::count(labels.begin(), labels.end(), "Max 15.15"), 3);
    EXPECT_EQ(Text("FrameHeader"), "HEADER");
    EXPECT_EQ(Text("FrameFlags"), "Flags");
    EXPECT_EQ(Field("Signature").Items, (Texts{"dk = VDK", "DK = DOS ROM!"}));
    EXPECT_EQ(Field("SourceID").Items,
              (Texts{"0 = created by hand", "1 = header stub", "2 = mkdsk.exe", "3 = other tools",
                     "P = PC-Dragon", "T = T3", ">126 = other emulator"}));
    EXPECT_EQ(Field("Tracks").Items.back(), "80");
    const char* const captions[] = {"Write protect", "Lock (advisory)", "Lock (mandatory)",
                                    "Disk-set not last Disk"};
    for (int bit = 0; bit < 4; ++bit) EXPECT_EQ(Field("Check", bit).Text, captions[bit]);
}

TEST_F(HeaderInfoTest, OneByteIsShownAsBothVersions) {
    Open();
    EXPECT_EQ(Text("Version"), "V1.03");
    EXPECT_EQ(Text("CompatibilityVersion"), "V1.03");
    Accept();
    EXPECT_EQ(Disk.ImageHeader.substr(4, 2), "\x13\x13");
}

TEST_F(HeaderInfoTest, ShowsTheFieldsOfTheHeader) {
    Open(kHeader + "rest");
    EXPECT_EQ(Field("Signature").ListIndex, 0);
    EXPECT_EQ(Text("Signature"), "dk = VDK");
    EXPECT_EQ(Text("HeaderLength"), "20");
    EXPECT_EQ(Text("ID"), "80");
    EXPECT_EQ(Field("SourceID").ListIndex, 4);
    EXPECT_EQ(Text("SourceVersion"), "V2.01");
    EXPECT_EQ(Text("Tracks"), "40");
    EXPECT_EQ(Text("Sides"), "2");
    EXPECT_EQ(Text("Flags"), "9");
    EXPECT_EQ(Checks(), "1001");
    EXPECT_EQ(Text("Compresion"), "3");
    EXPECT_EQ(Text("DiskNameLength"), "8");
    EXPECT_EQ(Text("DiskName"), "MY DISK!");
    EXPECT_EQ(Text("CompresionVaribles"), "rest");
}

TEST_F(HeaderInfoTest, AnUntouchedHeaderKeepsAllButTheFirstVersion) {
    Open();
    Accept();
    std::string expected = kHeader;
    expected[4] = '\x13';
    EXPECT_EQ(Disk.ImageHeader, expected);
    EXPECT_FALSE(HeaderInfo.Open);
    EXPECT_TRUE(script_.Messages.empty());
    EXPECT_EQ(Disk.ImageBytes, std::string(1000, 'b'));
}

TEST_F(HeaderInfoTest, TheLengthFollowsTheNameThatIsWritten) {
    std::string header = kHeader.substr(0, 12);
    header[3] = '\x01';  // 276 bytes, and no name
    header[11] = '\x03';
    Open(header + std::string(264, 'v'));
    EXPECT_EQ(Text("HeaderLength"), "12");
    Accept();
    EXPECT_EQ(Disk.ImageHeader.size(), 12u);
    EXPECT_EQ(Disk.ImageHeader.substr(2, 2), std::string("\x0C\0", 2));
}

TEST_F(HeaderInfoTest, ANameThatIsCutOffCountsAsFarAsItGoes) {
    Open(kHeader.substr(0, 15));
    EXPECT_EQ(Text("DiskName"), "MY ");
    EXPECT_EQ(Text("DiskNameLength"), "3");
    EXPECT_EQ(Text("HeaderLength"), "15");
    EXPECT_EQ(Text("CompresionVaribles"), "");
}

struct SignatureCase {
    const char* Letters;
    int Item;
    const char* Written;
};

TEST_F(HeaderInfoTest, AnUnknownSignatureIsShownAndBecomesTheSecondItem) {
    for (const SignatureCase& row : {SignatureCase{"dk", 0, "dk"}, SignatureCase{"DK", 1, "DK"},
                                     SignatureCase{"Dk", -1, "DK"}}) {
        Open(row.Letters + kHeader.substr(2));
        EXPECT_EQ(Field("Signature").ListIndex, row.Item) << row.Letters;
        if (row.Item < 0) {
            EXPECT_EQ(Text("Signature"), row.Letters);
        }
        Accept();
        EXPECT_EQ(Disk.ImageHeader.substr(0, 2), row.Written);
    }
}

TEST_F(HeaderInfoTest, AClickOnTheSignatureSelectsTheFirstItemWhenNoneIs) {
    Open("xx" + kHeader.substr(2));
    Field("Signature").MouseDown(MouseAt());
    EXPECT_EQ(Field("Signature").ListIndex, 0);
    SetListIndex(Field("Signature"), 1);
    Field("Signature").MouseDown(MouseAt());
    EXPECT_EQ(Field("Signature").ListIndex, 1);
}

TEST_F(HeaderInfoTest, AShortHeaderShowsNothingAndGetsTheStandardsWithoutAQuestion) {
    Open();  // what was shown before is gone
    Open(kHeader.substr(0, 11));
    for (const char* name : {"Signature", "HeaderLength", "Version", "CompatibilityVersion", "ID",
                             "SourceVersion", "Tracks", "Sides", "Flags", "Compresion",
                             "DiskNameLength", "DiskName", "CompresionVaribles"}) {
        EXPECT_EQ(Text(name), "") << name;
    }
    EXPECT_EQ(Field("SourceID").ListIndex, -1);
    EXPECT_EQ(Checks(), "0000");
    Accept();
    EXPECT_TRUE(script_.Messages.empty());
    EXPECT_EQ(Disk.ImageHeader, std::string("DK\x0C\0\0\0\0\0\x28\x01\0\0", 12));
    EXPECT_FALSE(HeaderInfo.Open);
}

TEST_F(HeaderInfoTest, ADiskWithoutAHeaderGetsOneOnlyOnRequest) {
    for (const Answer answer : {Answer::Cancel, Answer::Ok}) {
        Open("");
        script_.Answers = {answer};
        Accept();
        ASSERT_FALSE(script_.Messages.empty());
        EXPECT_EQ(script_.Messages.back().Text, "Desea crearle un encabezado a este disco?");
        EXPECT_EQ(script_.Messages.back().Choice, Buttons::OkCancel);
        EXPECT_EQ(Disk.ImageHeader.size(), answer == Answer::Ok ? 12u : 0u);
        EXPECT_FALSE(HeaderInfo.Open);
    }
    EXPECT_EQ(script_.Messages.size(), 2u);
}

TEST_F(HeaderInfoTest, CancelChangesNothing) {
    Open();
    Type("DiskName", "OTHER");
    Field("Cancelar").Click();
    EXPECT_EQ(Disk.ImageHeader, kHeader);
    EXPECT_FALSE(HeaderInfo.Open);
}

TEST_F(HeaderInfoTest, TheNameSetsBothLengths) {
    Open();
    Type("DiskName", "TEN LETTER");
    EXPECT_EQ(Text("HeaderLength"), "22");
    EXPECT_EQ(Text("DiskNameLength"), "10");
    Accept();
    EXPECT_EQ(Disk.ImageHeader.substr(2, 2), std::string("\x16\0", 2));
    EXPECT_EQ(ByteAt(Disk.ImageHeader, 11), 80 + 3);
    EXPECT_EQ(Disk.ImageHeader.substr(12), "TEN LETTER");
    Open();
    Type("DiskName", "");
    EXPECT_EQ(Text("HeaderLength"), "12");
    EXPECT_EQ(Text("DiskNameLength"), "0");
    Accept();
    EXPECT_EQ(Disk.ImageHeader.size(), 12u);
}

TEST_F(HeaderInfoTest, AnAccentedNameIsWrittenByteForByte) {
    Open();
    Type("DiskName", "Año"_w);
    Accept();
    EXPECT_EQ(Disk.ImageHeader.substr(12), "A\xF1o");
    EXPECT_EQ(ByteAt(Disk.ImageHeader, 11), 24 + 3);
}

TEST_F(HeaderInfoTest, ANameTooLongForItsLengthIsRefused) {
    Open();
    EXPECT_EQ(Field("DiskName").MaxLength, 31);
    Type("DiskName", std::string(32, 'N'));
    Accept();
    EXPECT_EQ(MessageTexts(script_), Texts{"Run-time error '6':\r\n\r\nOverflow"});
    EXPECT_EQ(Disk.ImageHeader, kHeader);
    EXPECT_TRUE(HeaderInfo.Open);
    Type("DiskName", std::string(31, 'N'));
    Accept();
    EXPECT_EQ(Disk.ImageHeader.substr(12), std::string(31, 'N'));
}

struct FlagsCase {
    const char* Typed;
    const char* Text;
    const char* Checks;
};

TEST_F(HeaderInfoTest, TheBoxesFollowTheFlags) {
    Open();
    for (const FlagsCase& row :
         {FlagsCase{"9", "9", "1001"}, FlagsCase{"16", "15", "1111"}, FlagsCase{"0", "0", "0000"},
          FlagsCase{"15", "15", "1111"}, FlagsCase{"", "", "0000"},
          FlagsCase{"6 of them", "6 of them", "0110"}, FlagsCase{"-1", "-1", "0000"},
          FlagsCase{"\xE1", "\xE1", "0000"},
          FlagsCase{"99999999999999999999999999999999999", "15", "1111"}}) {
        Type("Flags", row.Typed);
        EXPECT_EQ(Text("Flags"), row.Text);
        EXPECT_EQ(Checks(), row.Checks) << row.Typed;
    }
}

TEST_F(HeaderInfoTest, TheFlagsAreTheSumOfTheBoxes) {
    Open();
    SetChecked(Field("Check", 0), false);
    EXPECT_EQ(Text("Flags"), "8");
    SetChecked(Field("Check", 1), true);
    SetChecked(Field("Check", 2), true);
    EXPECT_EQ(Text("Flags"), "14");
    EXPECT_EQ(Checks(), "0111");
    Accept();
    EXPECT_EQ(ByteAt(Disk.ImageHeader, 10), 14);
}

struct IdCase {
    const char* Typed;
    const char* Text;
    int Item;
};

TEST_F(HeaderInfoTest, TheItemFollowsTheIdThatIsLeft) {
    Open();
    for (const IdCase& row :
         {IdCase{"0", "0", 0}, IdCase{"3", "3", 3}, IdCase{"4", "4", -1}, IdCase{"5", "5", -1},
          IdCase{"6", "6", -1}, IdCase{"80", "80", 4}, IdCase{"84", "84", 5},
          IdCase{"126", "126", -1}, IdCase{"127", "127", 6}, IdCase{"255", "255", 6},
          IdCase{"256", "255", 6}, IdCase{"99999999999999999999999999999999999", "255", 6},
          IdCase{"", "", 0}, IdCase{"x", "x", 0}, IdCase{"-1", "-1", -1}}) {
        Type("ID", row.Typed);
        Leave("ID");
        EXPECT_EQ(Text("ID"), row.Text) << row.Typed;
        EXPECT_EQ(Field("SourceID").ListIndex, row.Item) << row.Typed;
    }
}

TEST_F(HeaderInfoTest, TheIdFollowsTheItemThatIsLeft) {
    Open();
    const char* const ids[] = {"0", "1", "2", "3", "80", "84", "127"};
    for (int item = 0; item < 7; ++item) {
        ClickListEntry(Field("SourceID"), item);
        Leave("SourceID");
        EXPECT_EQ(Text("ID"), ids[item]);
    }
    Type("ID", "200");
    Leave("SourceID");
    EXPECT_EQ(Text("ID"), "200");  // another emulator already
    Type("ID", "300");
    Leave("SourceID");
    EXPECT_EQ(Text("ID"), "255");
    Type("ID", "50");
    SetListIndex(Field("SourceID"), -1);
    Leave("SourceID");
    EXPECT_EQ(Text("ID"), "50");
}

TEST_F(HeaderInfoTest, AnIdWithoutAnItemSelectsNone) {
    std::string header = kHeader;
    for (const auto& [id, item] : {std::pair{4, -1}, {7, -1}, {79, -1}, {84, 5}, {127, 6}}) {
        header[6] = static_cast<char>(id);
        Open(header);
        EXPECT_EQ(Field("SourceID").ListIndex, item) << id;
        Accept();
        EXPECT_EQ(ByteAt(Disk.ImageHeader, 6), id);
    }
}

TEST_F(HeaderInfoTest, AVersionThatIsLeftIsBroughtIntoItsForm) {
    Open();
    for (const char* name : {"Version", "CompatibilityVersion", "SourceVersion"}) {
        Type(name, "V1.99");
        EXPECT_EQ(Text(name), "V1.99");
        Leave(name);
        EXPECT_EQ(Text(name), "V1.15");
        Type(name, "V16.00");
        Leave(name);
        EXPECT_EQ(Text(name), "V15.40");
    }
}

TEST_F(HeaderInfoTest, AVersionBeyondAByteIsRefused) {
    Open();
    Type("Version", "V16.00");
    Leave("Version");
    Accept();
    EXPECT_EQ(MessageTexts(script_), Texts{"Run-time error '6':\r\n\r\nOverflow"});
    EXPECT_EQ(Disk.ImageHeader, kHeader);
    EXPECT_TRUE(HeaderInfo.Open);
}

TEST_F(HeaderInfoTest, NoTextInAnyFieldDoesHarm) {
    for (const char* name :
         {"HeaderLength", "Version", "CompatibilityVersion", "ID", "SourceVersion", "Tracks",
          "Sides", "Flags", "Compresion", "DiskNameLength", "DiskName"}) {
        for (const std::string& text :
             {std::string(), std::string("x"), std::string("\xE1\xF1\xFC"), std::string("-5"),
              std::string("1.5"), std::string("300"), std::string(400, '9'),
              std::string(400, 'y')}) {
            Open();
            script_ = Script();
            Type(name, text);
            if (Field(name).Leave) Leave(name);
            Accept();
            const bool refused = !script_.Messages.empty();
            EXPECT_EQ(HeaderInfo.Open, refused) << name << " " << text;
            EXPECT_EQ(Disk.ImageHeader == kHeader, refused) << name << " " << text;
            EXPECT_GE(Disk.ImageHeader.size(), 12u);
        }
    }
}

TEST_F(HeaderInfoTest, TheMenuFillsItAndShowsTheChangeAfterwards) {
    RefreshModified();
    EXPECT_EQ(Disk.ImageModified, 0);
    script_.OnModal = [](const std::string& window) {
        EXPECT_EQ(window, "HeaderInfo");
        EXPECT_EQ(Text("DiskName"), "MY DISK!");
        Type("DiskName", "NEW");
        Accept();
    };
    MenuOf(Principal, "OptionsMenu").Click(2);
    EXPECT_EQ(script_.ModalWindows, Texts{"HeaderInfo"});
    EXPECT_EQ(Disk.ImageModified, -1);
    EXPECT_EQ(Disk.ImageBytes, std::string(1000, 'b'));
}

TEST_F(HeaderInfoTest, TheFieldsHaveNoSayInHowTheDiskIsRead) {
    const std::string sectors(161280, 'b');
    for (const auto& [tracks, sides] : {std::pair{"40", "2"}, {"80", "1"}, {"255", "255"}}) {
        Open();
        Type("Tracks", tracks);
        Type("Sides", sides);
        Accept();
        Disk.ImageBytes = Disk.ImageHeader + sectors;
        Disk.SideCount = 0;
        ReadDisk();
        EXPECT_EQ(Disk.TrackCount, 35) << tracks;
        EXPECT_EQ(Disk.SideCount, 1) << sides;
        EXPECT_EQ(Disk.ImageBytes, sectors);
    }
}

TEST_F(HeaderInfoTest, FieldsSayTheirCaptionsToAScreenReader) {
    Open();
    for (const Control& control : HeaderInfo.Controls) {
        const bool field =
            control.Kind == ControlKind::TextBox || control.Kind == ControlKind::ComboBox;
        EXPECT_EQ(field, !control.AccessibleName.empty()) << control.Name;
    }
    EXPECT_EQ(Field("Flags").AccessibleName, "Value");
}

}  // namespace
}  // namespace brindlemoor::test
