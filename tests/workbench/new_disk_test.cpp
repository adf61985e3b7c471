#include "workbench/new_disk.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace brindlemoor {
namespace {

class NewDiskTest : public testing::Test {
  protected:
    void SetUp() override { BuildNewDisk(); }
    void TearDown() override { NewDisk = Window(); }

    static Control& Field(const std::string& name, int index = 0) {
        return ControlOf(NewDisk, name, index);
    }
    static void Type(const std::string& name, const std::string& text) {
        SetText(Field(name), text);
    }
    static std::string Text(const std::string& name) { return Field(name).Text; }
};

TEST_F(NewDiskTest, StartsAsAStandardDiskOfDiskBasic) {
    const std::vector<std::pair<std::string, std::string>> defaults = {
        {"Sides", "1"},   {"Tracks", "35"},    {"Sectors", "18"},
        {"Bytes", "256"}, {"Interleave", "6"}, {"FirstSector", "1"}};
    for (const auto& [name, text] : defaults) EXPECT_EQ(Text(name), text) << name;
    EXPECT_FALSE(Field("Header").Checked);
    EXPECT_FALSE(Field("Format").Checked);
    EXPECT_TRUE(Field("VDiskF", 0).Checked);
    EXPECT_TRUE(Field("DOS", 0).Checked);
    EXPECT_EQ(NewDiskFormat(), 0);
    const BlankShape shape = NewDiskShape();
    EXPECT_EQ(shape.Tracks * shape.Sectors * shape.SectorBytes * shape.Sides, 161280);
}

TEST_F(NewDiskTest, ItsTextsAreThoseOfTheDesign) {
    EXPECT_EQ(Text("Label1"), "Heads (Sides):");
    EXPECT_EQ(Text("Label2"), "Tracks 35-255:");
    EXPECT_EQ(Text("Label3"), "Sectors (1-255):");
    EXPECT_EQ(Text("Label4"), "Sector Bytes:");
    EXPECT_EQ(Text("Label5"), "Interleave:");
    EXPECT_EQ(Text("Label6"), "First Sector:");
    EXPECT_EQ(Text("FrameDOS"), "DOS File System");
    EXPECT_EQ(Text("FrameVDF"), "Virtual Disk Format");
    const char* const formats[] = {"DSK-JVC", "VDK", "MDK", "VHD HardDisk"};
    const char* const systems[] = {"DECB Coco", "DragonDos 1.0", "OS9/NITROS9", "FLEX"};
    for (int index = 0; index < 4; ++index) {
        EXPECT_EQ(Field("VDiskF", index).Text, formats[index]);
        EXPECT_EQ(Field("DOS", index).Text, systems[index]);
    }
    EXPECT_EQ(Field("Bytes").Items,
              (std::vector<std::string>{"128", "256", "512", "1024", "2048", "4096", "8128"}));
    EXPECT_EQ(Field("Interleave").Items.size(), 18u);
}

struct FieldCase {
    const char* Name;
    const char* Typed;
    const char* Becomes;
};

class FieldCheckTest : public NewDiskTest, public testing::WithParamInterface<FieldCase> {};

TEST_P(FieldCheckTest, AFieldCorrectsItselfWhenItsTextChanges) {
    Type(GetParam().Name, GetParam().Typed);
    EXPECT_EQ(Text(GetParam().Name), GetParam().Becomes);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, FieldCheckTest,
    testing::Values(FieldCase{"Sides", "2", "2"}, FieldCase{"Sides", "3", "1"},
                    FieldCase{"Sides", "0", "1"}, FieldCase{"Sides", "1.5", "1"},
                    FieldCase{"Sides", "", "1"}, FieldCase{"Tracks", "34", "35"},
                    FieldCase{"Tracks", "36", "36"}, FieldCase{"Tracks", "255", "255"},
                    FieldCase{"Tracks", "256", "35"}, FieldCase{"Tracks", "40 tracks", "40 tracks"},
                    FieldCase{"Tracks", "x", "35"}, FieldCase{"Sectors", "0", "18"},
                    FieldCase{"Sectors", "1", "1"}, FieldCase{"Sectors", "255", "255"},
                    FieldCase{"Sectors", "256", "18"}, FieldCase{"Bytes", "512", "256"},
                    FieldCase{"Bytes", "256 ", "256"}, FieldCase{"Interleave", "0", "0"},
                    FieldCase{"Interleave", "17", "17"}, FieldCase{"Interleave", "18", "6"},
                    FieldCase{"Interleave", "-1", "6"}, FieldCase{"FirstSector", "0", "0"},
                    FieldCase{"FirstSector", "2", "1"},
                    FieldCase{"Tracks", "99999999999999999999999999999999999999999", "35"}));

TEST_F(NewDiskTest, BytesCannotBePickedEither) {
    ClickListEntry(Field("Bytes"), 3);
    EXPECT_EQ(Text("Bytes"), "256");
    EXPECT_EQ(NewDiskShape().SectorBytes, 256);
}

TEST_F(NewDiskTest, AFieldIsCheckedWhenItIsLeftToo) {
    Field("Tracks").Text = "999";
    Field("Tracks").Leave();
    EXPECT_EQ(Text("Tracks"), "35");
}

TEST_F(NewDiskTest, TwoSidesTurnTheSectorsTo36) {
    ClickListEntry(Field("Sides"), 1);
    EXPECT_EQ(Text("Sectors"), "36");
    Type("Sectors", "20");
    Field("Sides").Leave();
    EXPECT_EQ(Text("Sectors"), "36");
    Type("Sides", "7");
    EXPECT_EQ(Text("Sectors"), "18");
}

TEST_F(NewDiskTest, TheFormatsSteerTheOtherFields) {
    ChooseOption(NewDisk, "VDiskF", 1);
    EXPECT_TRUE(Field("Header").Checked);
    EXPECT_TRUE(Field("DOS", 1).Checked);
    EXPECT_FALSE(Field("DOS", 0).Checked);
    EXPECT_EQ(Text("Tracks"), "40");
    EXPECT_TRUE(NewDiskShape().Dragon);
    EXPECT_TRUE(NewDiskShape().Header);
    ChooseOption(NewDisk, "VDiskF", 2);
    EXPECT_TRUE(Field("Header").Checked);
    EXPECT_EQ(Text("Tracks"), "40");
    EXPECT_FALSE(NewDiskShape().Dragon);
    EXPECT_EQ(NewDiskFormatCaption(), "MDK");
    ChooseOption(NewDisk, "VDiskF", 0);
    EXPECT_FALSE(Field("Header").Checked);
    EXPECT_TRUE(Field("DOS", 0).Checked);
    EXPECT_EQ(Text("Tracks"), "35");
}

TEST_F(NewDiskTest, TheSystemsSetAndClearTheHeader) {
    ChooseOption(NewDisk, "DOS", 1);
    EXPECT_TRUE(Field("Header").Checked);
    ChooseOption(NewDisk, "DOS", 2);
    EXPECT_TRUE(Field("Header").Checked);
    ChooseOption(NewDisk, "DOS", 0);
    EXPECT_FALSE(Field("Header").Checked);
}

TEST_F(NewDiskTest, TheSystemsCanBeChosenOnlyForAFormattedDisk) {
    for (const bool formatted : {false, true, false}) {
        SetChecked(Field("Format"), formatted);
        EXPECT_EQ(Field("FrameDOS").Enabled, formatted);
        for (int index = 0; index < 4; ++index) {
            EXPECT_EQ(Field("DOS", index).Enabled, formatted);
        }
    }
}

TEST_F(NewDiskTest, TheButtonsCloseItAndOnlyOneOfThemCancels) {
    NewDisk.Open = true;
    Field("Aceptar").Click();
    EXPECT_FALSE(NewDisk.Open);
    EXPECT_FALSE(NewDiskCancelled);
    NewDisk.Open = true;
    Field("Cancelar").Click();
    EXPECT_FALSE(NewDisk.Open);
    EXPECT_TRUE(NewDiskCancelled);
    NewDiskCancelled = false;
    NewDisk.Close();
    EXPECT_TRUE(NewDiskCancelled);
}

}  // namespace
}  // namespace brindlemoor
