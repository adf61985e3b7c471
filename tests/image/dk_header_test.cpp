#include "image/dk_header.h"

#include <gtest/gtest.h>

#include "support/disk_fixture.h"

namespace brindlemoor {
namespace {

using test::FailureOf;

struct VersionCase {
    int Byte;
    const char* Text;
};

class VersionByteTest : public testing::TestWithParam<VersionCase> {};

TEST_P(VersionByteTest, AVersionIsMajorSixteenthsAndMinorHundredths) {
    EXPECT_EQ(VersionText(GetParam().Byte), GetParam().Text);
    EXPECT_EQ(VersionByte(GetParam().Text), GetParam().Byte);
}

INSTANTIATE_TEST_SUITE_P(Rows, VersionByteTest,
                         testing::Values(VersionCase{0, "V0.00"}, VersionCase{0x13, "V1.03"},
                                         VersionCase{0x10, "V1.00"}, VersionCase{0x1F, "V1.15"},
                                         VersionCase{0xF0, "V15.00"}, VersionCase{255, "V15.15"}));

TEST(VersionByte, IsTheInverseForEveryByte) {
    for (int byte = 0; byte < 256; ++byte) EXPECT_EQ(VersionByte(VersionText(byte)), byte);
}

TEST(VersionByte, PassesOverTheFirstCharacterWhateverItIs) {
    EXPECT_EQ(VersionByte("x1.03"), 0x13);
    EXPECT_EQ(VersionByte("1.03"), 3);
    EXPECT_EQ(VersionByte(""), 0);
    EXPECT_EQ(VersionByte("V"), 0);
    EXPECT_EQ(VersionByte("Vx"), 0);
}

TEST(VersionByte, BeyondAByteFails) {
    EXPECT_EQ(FailureOf([] { VersionByte("V15.40"); }), 6);
    EXPECT_EQ(FailureOf([] { VersionByte("V-1"); }), 6);
    EXPECT_EQ(FailureOf([] { VersionByte("V" + std::string(400, '9')); }), 6);
}

struct NormalCase {
    const char* Typed;
    const char* Becomes;
};

class NormaliseVersionTest : public testing::TestWithParam<NormalCase> {};

TEST_P(NormaliseVersionTest, BringsAVersionIntoItsForm) {
    EXPECT_EQ(NormaliseVersion(GetParam().Typed), GetParam().Becomes);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, NormaliseVersionTest,
    testing::Values(NormalCase{"V1.99", "V1.15"}, NormalCase{"V16.00", "V15.40"},
                    NormalCase{"V15.41", "V15.40"}, NormalCase{"V15.40", "V15.15"},
                    NormalCase{"V15.15", "V15.15"}, NormalCase{"V1.16", "V1.15"},
                    NormalCase{"V1.15", "V1.15"}, NormalCase{"V1.03", "V1.03"},
                    NormalCase{"V-1", "V0.00"}, NormalCase{"V-0.05", "V0.00"},
                    NormalCase{"", "V0.00"}, NormalCase{"V", "V0.00"}, NormalCase{"Vx", "V0.00"},
                    NormalCase{"V 2.1", "V2.10"}, NormalCase{"2.1", "V0.10"},
                    NormalCase{"V1,03", "V1.00"}, NormalCase{"\xD1\x35.1", "V5.10"},
                    NormalCase{"V99999999999999999999999999999999999999999999", "V15.40"}));

TEST(DkHeaderOf, JoinsTheFieldsInTheirOrder) {
    DkHeaderFields fields;
    fields.Signature = "dk = VDK";
    fields.Length = 0x0110;
    fields.Version = "V1.00";
    fields.Compatibility = "V1.03";
    fields.SourceId = 80;
    fields.SourceVersion = "V2.04";
    fields.Tracks = 40;
    fields.Sides = 2;
    fields.Flags = 9;
    fields.Compression = 5;
    fields.NameLength = 4;
    fields.Name = "NAME";
    EXPECT_EQ(DkHeaderOf(fields), "dk\x10\x01\x10\x13P\x24\x28\x02\x09\x25NAME");
}

TEST(DkHeaderOf, ANumberThatItsFieldCannotHoldFails) {
    using Number = double DkHeaderFields::*;
    for (const Number number :
         {&DkHeaderFields::SourceId, &DkHeaderFields::Tracks, &DkHeaderFields::Sides,
          &DkHeaderFields::Flags, &DkHeaderFields::Compression}) {
        DkHeaderFields fields;
        for (const double value : {256.0, -1.0, 1e30}) {
            fields.*number = value;
            EXPECT_EQ(FailureOf([&fields] { DkHeaderOf(fields); }), 6) << value;
        }
        fields.*number = 255;
        EXPECT_EQ(FailureOf([&fields] { DkHeaderOf(fields); }), 0);
    }
    DkHeaderFields fields;
    fields.NameLength = 32;
    EXPECT_EQ(FailureOf([&fields] { DkHeaderOf(fields); }), 6);
    fields.NameLength = 31;
    fields.Length = 40000;
    EXPECT_EQ(FailureOf([&fields] { DkHeaderOf(fields); }), 6);
}

}  // namespace
}  // namespace brindlemoor
