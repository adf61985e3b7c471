#include "core/bitmap.h"

#include <gtest/gtest.h>

namespace brindlemoor {
namespace {

std::string Bytes(std::initializer_list<int> values) {
    std::string bytes;
    for (const int value : values) bytes += static_cast<char>(value);
    return bytes;
}

/// One call, with all that it may change.
struct Call {
    std::string Bitmap;
    int Start = 1;
    std::string Mode;
    int Run = 1;
    int End = -1;

    int Do() { return BitmapOp(Bitmap, Start, End, Mode, Run); }
};

// Range

TEST(BitmapOp, AStartBehindTheBitmapGivesMinus1AndSetsEnd) {
    for (const char* mode : {"?", "0", "1", "R", "S", "P1", "A1", "X", ""}) {
        Call call{std::string(8, '\xFF'), 65, mode};
        EXPECT_EQ(call.Do(), -1) << mode;
        EXPECT_EQ(call.End, 64) << mode;
        EXPECT_EQ(call.Bitmap, std::string(8, '\xFF')) << mode;
    }
}

TEST(BitmapOp, AnEndOf0BecomesTheLengthInBits) {
    Call call{Bytes({0, 0x80}), 16, "?"};
    call.End = 0;
    EXPECT_EQ(call.Do(), 1);
    EXPECT_EQ(call.End, 16);
}

TEST(BitmapOp, AnEndThatIsGivenStays) {
    Call call{Bytes({0xFF}), 4, "?"};
    call.End = 3;
    EXPECT_EQ(call.Do(), -1);
    EXPECT_EQ(call.End, 3);
}

TEST(BitmapOp, AnEndBehindTheBitmapIsOutOfRange) {
    Call call{std::string(8, '\0'), 1, "S"};
    call.End = 65;
    EXPECT_EQ(call.Do(), -1);
    EXPECT_EQ(call.Bitmap, std::string(8, '\0'));
    call.End = 64;
    EXPECT_EQ(call.Do(), 0);
}

TEST(BitmapOp, AStartBelow0IsOutOfRange) {
    Call call{Bytes({0xFF}), -1, "R"};
    EXPECT_EQ(call.Do(), -1);
    EXPECT_EQ(call.Bitmap, Bytes({0xFF}));
}

TEST(BitmapOp, Start0ChangesAndTestsNothing) {
    for (const char* mode : {"?", "S", "R", "S-", "?-"}) {
        Call call{Bytes({0x55}), 0, mode, 3};
        EXPECT_EQ(call.Do(), 0) << mode;
        EXPECT_EQ(call.Bitmap, Bytes({0x55})) << mode;
    }
}

TEST(BitmapOp, AnEmptyBitmapHasNoBit) {
    Call call{"", 1, "?"};
    EXPECT_EQ(call.Do(), -1);
    EXPECT_EQ(call.End, 0);
}

TEST(BitmapOp, AnUnknownModeGivesMinus2OnlyInRange) {
    for (const char* mode : {"X", "2", "-", ""}) {
        Call inside{Bytes({0}), 8, mode};
        EXPECT_EQ(inside.Do(), -2) << mode;
        Call outside{Bytes({0}), 9, mode};
        EXPECT_EQ(outside.Do(), -1) << mode;
    }
}

TEST(BitmapOp, UpperCasesTheModeInPlace) {
    Call call{Bytes({0}), 1, "s-"};
    call.Do();
    EXPECT_EQ(call.Mode, "S-");
    EXPECT_EQ(call.Bitmap, Bytes({0x80}));
}

// Test, reset, set

TEST(BitmapOp, CountsBitsFromTheBottom) {
    Call low{Bytes({1}), 1, "?"};
    EXPECT_EQ(low.Do(), 1);
    Call high{Bytes({128}), 1, "?"};
    EXPECT_EQ(high.Do(), 0);
    Call second{Bytes({0, 4}), 11, "?"};
    EXPECT_EQ(second.Do(), 1);
}

TEST(BitmapOp, CountsBitsFromTheTopWithMinus) {
    Call high{Bytes({128}), 1, "?-"};
    EXPECT_EQ(high.Do(), 1);
    Call low{Bytes({1}), 1, "?-"};
    EXPECT_EQ(low.Do(), 0);
    Call second{Bytes({0, 0x20}), 11, "?-"};
    EXPECT_EQ(second.Do(), 1);
}

TEST(BitmapOp, TestChangesNothing) {
    Call call{Bytes({0xA5, 0x5A}), 3, "?"};
    call.Do();
    EXPECT_EQ(call.Bitmap, Bytes({0xA5, 0x5A}));
    EXPECT_EQ(call.Start, 3);
}

TEST(BitmapOp, SetsARunAcrossBytes) {
    for (const char* mode : {"S", "1"}) {
        Call call{Bytes({0, 0, 0}), 7, mode, 4};
        call.Do();
        EXPECT_EQ(call.Bitmap, Bytes({0xC0, 0x03, 0})) << mode;
        EXPECT_EQ(call.Start, 7);
    }
}

TEST(BitmapOp, SetsARunFromTheTop) {
    for (const char* mode : {"S-", "1-"}) {
        Call call{Bytes({0, 0, 0}), 7, mode, 4};
        call.Do();
        EXPECT_EQ(call.Bitmap, Bytes({0x03, 0xC0, 0})) << mode;
    }
}

TEST(BitmapOp, ClearsARun) {
    for (const char* mode : {"R", "0", "r"}) {
        Call call{Bytes({0xFF, 0xFF}), 2, mode, 8};
        call.Do();
        EXPECT_EQ(call.Bitmap, Bytes({0x01, 0xFE})) << mode;
    }
}

TEST(BitmapOp, ARunDefaultsToOneBit) {
    std::string bitmap = Bytes({0});
    int start = 3;
    int end = -1;
    std::string mode = "S";
    EXPECT_EQ(BitmapOp(bitmap, start, end, mode), 2);
    EXPECT_EQ(bitmap, Bytes({4}));
}

TEST(BitmapOp, ARunOf0ChangesNothing) {
    for (const char* mode : {"R", "S"}) {
        Call call{Bytes({0xA5}), 1, mode, 0};
        EXPECT_EQ(call.Do(), 0) << mode;
        EXPECT_EQ(call.Bitmap, Bytes({0xA5})) << mode;
    }
}

TEST(BitmapOp, ARunBelow0ChangesOneBit) {
    Call call{Bytes({0}), 1, "S", -5};
    EXPECT_EQ(call.Do(), 0);
    EXPECT_EQ(call.Bitmap, Bytes({1}));
}

TEST(BitmapOp, ARunThatCrossesEndChangesTheBitsUpToItAndGivesMinus1) {
    Call call{Bytes({0, 0}), 6, "S", 10};
    call.End = 8;
    EXPECT_EQ(call.Do(), -1);
    EXPECT_EQ(call.Bitmap, Bytes({0xE0, 0}));
    Call atEnd{Bytes({0xFF}), 7, "R", 3};
    EXPECT_EQ(atEnd.Do(), -1);
    EXPECT_EQ(atEnd.Bitmap, Bytes({0x3F}));
}

TEST(BitmapOp, ARunUpToEndIsWhole) {
    Call call{Bytes({0, 0}), 9, "S-", 8};
    EXPECT_EQ(call.Do(), 0);
    EXPECT_EQ(call.Bitmap, Bytes({0, 0xFF}));
}

TEST(BitmapOp, SetAndResetGiveTheBitWithinItsByte) {
    Call bottom{Bytes({0, 0}), 11, "S"};
    EXPECT_EQ(bottom.Do(), 2);
    Call top{Bytes({0, 0}), 11, "S-"};
    EXPECT_EQ(top.Do(), 5);
}

/// Every bit of a bitmap, against a plain list of bits.
TEST(BitmapOp, AgreesWithAListOfBits) {
    for (const bool fromTop : {false, true}) {
        const std::string order = fromTop ? "-" : "";
        for (int first = 1; first <= 32; ++first) {
            for (int run = 1; first + run - 1 <= 32; ++run) {
                Call set{std::string(4, '\0'), first, "S" + order, run};
                ASSERT_NE(set.Do(), -1);
                for (int bit = 1; bit <= 32; ++bit) {
                    Call test{set.Bitmap, bit, "?" + order};
                    ASSERT_EQ(test.Do(), bit >= first && bit < first + run ? 1 : 0);
                }
                Call reset{set.Bitmap, first, "R" + order, run};
                ASSERT_NE(reset.Do(), -1);
                ASSERT_EQ(reset.Bitmap, std::string(4, '\0'));
            }
        }
    }
}

// Searches

TEST(BitmapOp, SearchForwardBeginsBehindStartAndStoresTheBit) {
    Call call{Bytes({0x03}), 1, "P1"};
    EXPECT_EQ(call.Do(), 2);
    EXPECT_EQ(call.Start, 2);
}

TEST(BitmapOp, SearchForwardAdvancesByTwo) {
    Call missed{Bytes({0x04}), 1, "P1"};  // looks at bits 2, 4, 6 and 8
    EXPECT_EQ(missed.Do(), -1);
    EXPECT_EQ(missed.Start, 1);
    Call met{Bytes({0x08}), 1, "P1"};
    EXPECT_EQ(met.Do(), 4);
}

TEST(BitmapOp, SearchForwardSkipsWholeBytes) {
    Call set{Bytes({0, 0, 0, 1}), 0, "P1"};
    EXPECT_EQ(set.Do(), 25);
    Call clear{Bytes({255, 255, 0xFE}), 0, "P0"};
    EXPECT_EQ(clear.Do(), 17);
}

TEST(BitmapOp, SearchForwardFindsNothingBehindEnd) {
    Call call{Bytes({0, 0, 1}), 0, "P1"};
    call.End = 16;
    EXPECT_EQ(call.Do(), -1);
    Call all{std::string(4, '\0'), 0, "P1"};
    EXPECT_EQ(all.Do(), -1);
}

TEST(BitmapOp, SearchForwardTouchesNoBit) {
    Call call{Bytes({0x10}), 0, "p1"};
    call.Do();
    EXPECT_EQ(call.Bitmap, Bytes({0x10}));
}

TEST(BitmapOp, SearchBackwardGoesDownToTheFirstBit) {
    Call call{Bytes({0x02, 0, 0}), 24, "A1"};
    EXPECT_EQ(call.Do(), 2);
    EXPECT_EQ(call.Start, 2);
    Call clear{Bytes({0xFE, 255}), 16, "A0"};
    EXPECT_EQ(clear.Do(), 1);
}

TEST(BitmapOp, SearchBackwardLooksAtStartFirst) {
    Call call{Bytes({0x18}), 5, "A1"};
    EXPECT_EQ(call.Do(), 5);
}

TEST(BitmapOp, SearchBackwardFindsNothing) {
    Call call{Bytes({0, 0xF0}), 12, "A1"};
    EXPECT_EQ(call.Do(), -1);
    EXPECT_EQ(call.Start, 12);
}

}  // namespace
}  // namespace brindlemoor
