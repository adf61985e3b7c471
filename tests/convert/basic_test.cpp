#include "convert/basic.h"

#include <gtest/gtest.h>

#include "convert/basic_fixture.h"
#include "core/disk_state.h"
#include "core/runtime_failure.h"

namespace brindlemoor::test {
namespace {

using BasicConvertTest = BasicTest;

TEST_F(BasicConvertTest, NothingGivesNothing) {
    std::string data;
    EXPECT_EQ(BasicConvert(data, false), "");
    EXPECT_EQ(BasicConvert(data, true), "");
    EXPECT_EQ(data, "");
}

TEST_F(BasicConvertTest, TheFirstByteDecidesTheDirection) {
    for (int first = 0; first < 256; ++first) {
        const std::string data = std::string(1, static_cast<char>(first)) + "0 CLS";
        const bool tokens = first == 0xFF || first == 0x55;
        EXPECT_EQ(Tokens(data, kDecb).front() == '\r', tokens) << first;
    }
}

TEST_F(BasicConvertTest, LineFeedsMeanNothingToTokens) {
    std::string data = "10 CLS\r20 END";
    EXPECT_EQ(BasicConvert(data, true), BasicConvert(data, false));
}

TEST_F(BasicConvertTest, AFailureLeavesTheDataAsItWas) {
    for (const std::string& text : {std::string("40000 CLS\r\n"),
                                    "10 " + std::string(30000, 'A') + "\r", Hex("FF 8000 41")}) {
        std::string data = text;
        EXPECT_NE(FailureOf([&] { BasicConvert(data, false); }), 0);
        EXPECT_EQ(data, text);
    }
}

}  // namespace
}  // namespace brindlemoor::test
