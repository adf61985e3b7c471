#include "support/sha256.h"

#include <gtest/gtest.h>

namespace brindlemoor::test {
namespace {

TEST(Sha256, OfNothing) {
    EXPECT_EQ(Sha256(""), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
}

TEST(Sha256, OfOneBlock) {
    EXPECT_EQ(Sha256("abc"), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
}

// 56 bytes: the length no longer fits behind the message and takes a block of its own.
TEST(Sha256, OfAMessageWhoseLengthFallsIntoTheNextBlock) {
    EXPECT_EQ(Sha256("abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq"),
              "248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1");
}

TEST(Sha256, OfTwoBlocks) {
    EXPECT_EQ(Sha256("abcdefghbcdefghicdefghijdefghijkefghijklfghijklmghijklmnhijklmno"
                     "ijklmnopjklmnopqklmnopqrlmnopqrsmnopqrstnopqrstu"),
              "cf5b16a778af8380036ce59e7b0492370b249b11e8f07a51afac45037afee9d1");
}

TEST(Sha256, OfAMillionLetters) {
    EXPECT_EQ(Sha256(std::string(1'000'000, 'a')),
              "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0");
}

TEST(Sha256, OfBytesAbove127AndZero) {
    EXPECT_EQ(Sha256(std::string("\xbd", 1)),
              "68325720aabd7c82f30f554b313d0570c95accbb7dc4b5aae11204c08ffe732b");
    EXPECT_EQ(Sha256(std::string(4, '\0')),
              "df3f619804a92fdb4057192dc43dd748ea778adc52bc498ce80524c014b81119");
}

}  // namespace
}  // namespace brindlemoor::test
