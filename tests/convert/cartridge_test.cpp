#include "convert/cartridge.h"

#include <random>

#include "convert/basic_fixture.h"
#include "convert/conversion.h"
#include "convert/tape_fixture.h"
#include "core/runtime_failure.h"

namespace brindlemoor::test {
namespace {

using CartridgeTest = TapeTest;
using Texts = std::vector<std::string>;

std::string Converted(const std::string& data, std::string path) {
    return CartConvert(data, path);
}

std::string PathAfter(const std::string& data, std::string path) {
    CartConvert(data, path);
    return path;
}

/// The frame around a ROM, with that length field.
std::string Pak(const std::string& rom, const std::string& length) {
    return Hex("C000") + length + rom + Hex("C000") + std::string(33, '\0');
}

TEST_F(CartridgeTest, ARomIsPutIntoTheFrame) {
    EXPECT_EQ(Converted("ROM", "A.CCC"), Pak("ROM", Hex("0300")));
    EXPECT_EQ(Converted("", "A.CCC"), Pak("", Hex("0000")));
    EXPECT_EQ(Converted(Counting(0x2000), "A.CCC"), Pak(Counting(0x2000), Hex("0020")));
    EXPECT_EQ(Converted("ROM", "A.CCC").size(), 3U + 39U);
}

TEST_F(CartridgeTest, TheLengthKeepsItsLow16Bits) {
    EXPECT_EQ(Converted(Counting(65535), "A.CCC"), Pak(Counting(65535), Hex("FFFF")));
    EXPECT_EQ(Converted(Counting(65536), "A.CCC"), Pak(Counting(65536), Hex("0000")));
    EXPECT_EQ(Converted(Counting(0x12345), "A.CCC"), Pak(Counting(0x12345), Hex("4523")));
}

TEST_F(CartridgeTest, AnyOtherNameIsThatOfAPak) {
    const std::string pak = Pak("ROM", Hex("0300"));
    for (const char* path : {"A.PAK", "A.ROM", "A", "", "CCC.PAK", "A.CCCC.", "CC"}) {
        EXPECT_EQ(Converted(pak, path), "ROM") << path;
    }
}

TEST_F(CartridgeTest, TheLastThreeLettersDecideInAnyCase) {
    for (const char* path : {"A.CCC", "A.ccc", "A.CcC", "CCC", "DACCC", "A.B.cCC"}) {
        EXPECT_EQ(Converted("ROM", path).size(), 42U) << path;
    }
}

TEST_F(CartridgeTest, FrameAndLengthFieldOfAPakAreNotLookedAt) {
    EXPECT_EQ(Converted(std::string(4, 'x') + "ROM" + std::string(35, 'y'), "A.PAK"), "ROM");
    for (const char* length : {"0000", "FFFF", "0100"}) {
        EXPECT_EQ(Converted(Pak("ROM", Hex(length)), "A.PAK"), "ROM");
    }
}

TEST_F(CartridgeTest, APakOfTheFrameAloneIsEmptyAndAShorterOneFails) {
    EXPECT_EQ(Converted(std::string(39, '\0'), "A.PAK"), "");
    for (std::size_t size = 0; size < 39; ++size) {
        std::string path = "A.PAK";
        EXPECT_EQ(FailureOf([&] { CartConvert(std::string(size, '\0'), path); }), kInvalidCall);
        EXPECT_EQ(path, "A.PAK");
    }
    std::string path = "A.PAK";
    EXPECT_EQ(ConvertedOrNothing([&] { return CartConvert("short", path); }), "");
    EXPECT_EQ(Shown(), Texts{"Run-time error '5':\r\n\r\nInvalid procedure call or argument"});
}

TEST_F(CartridgeTest, TheExtensionIsThatOfTheOtherForm) {
    const std::string pak = Pak("ROM", Hex("0300"));
    EXPECT_EQ(PathAfter("ROM", "C:\\CARTS\\A.CCC"), "C:\\CARTS\\A.PAK");
    EXPECT_EQ(PathAfter("ROM", "A.B.ccc"), "A.B.PAK");
    EXPECT_EQ(PathAfter(pak, "A.PAK"), "A.CCC");
    EXPECT_EQ(PathAfter(pak, "A.ROM"), "A.CCC");
    EXPECT_EQ(PathAfter(pak, "A."), "A.CCC");
}

TEST_F(CartridgeTest, APathWithoutADotStays) {
    EXPECT_EQ(PathAfter("ROM", "ACCC"), "ACCC");
    EXPECT_EQ(PathAfter(Pak("ROM", Hex("0300")), "A"), "A");
}

TEST_F(CartridgeTest, ThereAndBackGivesTheSameBytes) {
    for (const std::size_t size : {0U, 1U, 39U, 8192U, 65536U, 70000U}) {
        std::string path = "A.CCC";
        const std::string pak = CartConvert(Counting(size), path);
        EXPECT_EQ(CartConvert(pak, path), Counting(size));
        EXPECT_EQ(path, "A.CCC");
    }
}

TEST_F(CartridgeTest, TenThousandSpoiledFilesDoNoHarm) {
    std::mt19937 random(20261121);
    const std::string good = Pak(Counting(60), Hex("3C00"));
    for (int round = 0; round < 10'000; ++round) {
        std::string data = good.substr(0, random() % (good.size() + 1));
        for (std::size_t i = random() % 8; i > 0 && !data.empty(); --i) {
            data[random() % data.size()] = static_cast<char>(random());
        }
        if (data.size() < 39) {
            EXPECT_EQ(FailureOf([&] { Converted(data, "A.PAK"); }), kInvalidCall);
        } else {
            EXPECT_EQ(Converted(data, "A.PAK"), data.substr(4, data.size() - 39));
        }
    }
}

}  // namespace
}  // namespace brindlemoor::test
