#include "convert/cas_block.h"

#include "convert/basic_fixture.h"
#include "convert/tape_fixture.h"
#include "core/byte_helpers.h"
#include "core/runtime_failure.h"

namespace brindlemoor::test {
namespace {

using CasBlockTest = TapeTest;
using Texts = std::vector<std::string>;

const std::string kNoBlock = "No encuentro ningún Bloque"_w;
const std::string kBadBlock = "ERROR!!! en el chequeo del bloque";

/// Reads one block and cuts `stream`.
CasBlock Take(std::string& stream) {
    CasBlock block;
    block.Type = -7;
    block.Body = CasReadBlock(stream, block.Type);
    return block;
}

// Making blocks

TEST_F(CasBlockTest, ABlockHasSyncTypeLengthBodySumAndTrailer) {
    EXPECT_EQ(CasMakeBlock("AB", 1), Hex("55 3C 01 02 41 42 86 55"));
    EXPECT_EQ(CasMakeBlock("", 0xFF), Hex("55 3C FF 00 FF 55"));
    EXPECT_EQ(CasMakeBlock(Hex("FF FF"), 0), Hex("55 3C 00 02 FF FF 00 55"));
}

TEST_F(CasBlockTest, ABodyHasUpTo255Bytes) {
    EXPECT_EQ(CasMakeBlock(Counting(255), 1), TapeBlock(1, Counting(255)));
    EXPECT_EQ(FailureOf([] { CasMakeBlock(Counting(256), 1); }), kOverflow);
}

// Reading blocks

TEST_F(CasBlockTest, ABlockIsReadAndTheStreamCutToItsTrailer) {
    std::string stream = Leader(7) + TapeBlock(1, "body") + Leader(3) + "rest";
    const CasBlock block = Take(stream);
    EXPECT_EQ(block.Body, "body");
    EXPECT_EQ(block.Type, 1);
    EXPECT_EQ(stream, Leader(4) + "rest");
    EXPECT_EQ(Shown(), Texts());
}

TEST_F(CasBlockTest, TheTrailerIsPassedOverByTheNextSearch) {
    std::string stream = TapeBlock(0, "one") + TapeBlock(1, "two") + TapeBlock(0xFF, "");
    EXPECT_EQ(Take(stream).Body, "one");
    EXPECT_EQ(Take(stream).Body, "two");
    EXPECT_EQ(Take(stream).Type, kEndBlock);
    EXPECT_EQ(stream, "\x55");
    EXPECT_EQ(Shown(), Texts());
}

TEST_F(CasBlockTest, ATrailerMayBeTheFirstByteOfTheNextBlock) {
    std::string stream = TapeBlock(1, "one") + TapeBlock(1, "two").substr(1);
    EXPECT_EQ(Take(stream).Body, "one");
    EXPECT_EQ(Take(stream).Body, "two");
    EXPECT_EQ(Shown(), Texts());
}

TEST_F(CasBlockTest, OfAnEmptyBlockNothingMoreIsTested) {
    std::string stream = Hex("55 3C 01 00 99 77 AA");
    const CasBlock block = Take(stream);
    EXPECT_EQ(block.Body, "");
    EXPECT_EQ(block.Type, 1);
    EXPECT_EQ(stream, Hex("77 AA"));
    EXPECT_EQ(Shown(), Texts());
}

TEST_F(CasBlockTest, AWrongSumIsToldAndTheBodyKept) {
    std::string stream = Hex("55 3C 01 02 41 42 87 55");
    EXPECT_EQ(Take(stream).Body, "AB");
    EXPECT_EQ(Shown(), Texts{kBadBlock});
    EXPECT_EQ(script_.Messages[0].Choice, Buttons::Ok);
}

TEST_F(CasBlockTest, AWrongTrailerIsToldAndTheBodyKept) {
    std::string stream = Hex("55 3C 01 02 41 42 86 54");
    EXPECT_EQ(Take(stream).Body, "AB");
    EXPECT_EQ(stream, "\x54");
    EXPECT_EQ(Shown(), Texts{kBadBlock});
}

TEST_F(CasBlockTest, TypeAndLengthAreInTheSum) {
    for (const char* hex : {"55 3C 02 02 41 42 86 55", "55 3C 01 01 41 86 55"}) {
        std::string stream = Hex(hex);
        Take(stream);
    }
    EXPECT_EQ(Shown(), (Texts{kBadBlock, kBadBlock}));
}

TEST_F(CasBlockTest, AStreamThatEndsWithinABlockGivesWhatThereIs) {
    const std::string whole = TapeBlock(1, "body");
    for (std::size_t size = 4; size < whole.size(); ++size) {
        script_.Messages.clear();
        std::string stream = whole.substr(0, size);
        EXPECT_EQ(Take(stream).Body, std::string("body").substr(0, size - 4)) << size;
        EXPECT_EQ(Shown(), Texts{kBadBlock}) << size;
        EXPECT_EQ(stream, "") << size;
    }
}

TEST_F(CasBlockTest, WithoutALengthThereIsNoBlockButTheEnd) {
    for (const char* hex : {"55 3C", "55 3C 01"}) {
        std::string stream = Hex(hex);
        const CasBlock block = Take(stream);
        EXPECT_EQ(block.Type, kEndBlock);
        EXPECT_EQ(block.Body, "");
        EXPECT_EQ(stream, "");
    }
    EXPECT_EQ(Shown(), Texts());
}

TEST_F(CasBlockTest, WithoutASyncByteTheBytes1And2AreTakenForTypeAndLength) {
    std::string stream = Hex("AA 01 02 41 42 86 55 77");
    const CasBlock block = Take(stream);
    EXPECT_EQ(block.Type, 1);
    EXPECT_EQ(block.Body, "AB");
    EXPECT_EQ(stream, Hex("55 77"));
    EXPECT_EQ(Shown(), Texts{kNoBlock});
    EXPECT_EQ(script_.Messages[0].Choice, Buttons::Ok);
}

TEST_F(CasBlockTest, AStreamOfLessThanThreeBytesWithoutASyncByteIsTheEnd) {
    for (const char* hex : {"", "55", "55 00"}) {
        std::string stream = Hex(hex);
        EXPECT_EQ(Take(stream).Type, kEndBlock) << hex;
        EXPECT_EQ(stream, "") << hex;
    }
    EXPECT_EQ(Shown(), (Texts{kNoBlock, kNoBlock, kNoBlock}));
}

TEST_F(CasBlockTest, ASyncByteAloneIsNone) {
    std::string stream = Hex("3C 01 00 54 3C");
    EXPECT_EQ(Take(stream).Type, 1);
    EXPECT_EQ(Shown(), Texts{kNoBlock});
}

TEST_F(CasBlockTest, ReadingAtAnOffsetMovesItToTheTrailer) {
    const std::string stream = Leader(3) + TapeBlock(1, "one") + TapeBlock(2, "four");
    std::size_t offset = 0;
    EXPECT_EQ(ReadBlockAt(stream, offset).Body, "one");
    EXPECT_EQ(offset, 3U + 8U);
    EXPECT_EQ(ReadBlockAt(stream, offset).Body, "four");
    EXPECT_EQ(offset, stream.size() - 1);
    const CasBlock none = ReadBlockAt(stream, offset);
    EXPECT_FALSE(none.Found);
    EXPECT_EQ(offset, stream.size());
}

}  // namespace
}  // namespace brindlemoor::test
