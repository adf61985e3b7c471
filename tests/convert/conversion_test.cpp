#include "convert/conversion.h"

#include <new>
#include <stdexcept>

#include "convert/basic.h"
#include "convert/basic_fixture.h"
#include "core/disk_state.h"
#include "core/runtime_failure.h"

namespace brindlemoor::test {
namespace {

using Texts = std::vector<std::string>;
using ConversionTest = BasicTest;

TEST_F(ConversionTest, AResultIsHandedOnWithoutAWord) {
    EXPECT_EQ(ConvertedOrNothing([] { return std::string("done"); }), "done");
    EXPECT_EQ(Shown(), Texts());
}

TEST_F(ConversionTest, AFailureIsShownInTheErrorBoxAndGivesNothing) {
    std::string text = "40000 CLS";
    EXPECT_EQ(ConvertedOrNothing([&] { return BasicConvert(text, false); }), "");
    EXPECT_EQ(text, "40000 CLS");
    text = Hex("FF 8000");
    EXPECT_EQ(ConvertedOrNothing([&] { return BasicConvert(text, false); }), "");
    EXPECT_EQ(text, Hex("FF 8000"));
    EXPECT_EQ(Shown(), (Texts{"Run-time error '6':\r\n\r\nOverflow",
                              "Run-time error '5':\r\n\r\nInvalid procedure call or argument"}));
    for (const ShownMessage& message : script_.Messages) {
        EXPECT_EQ(message.Title, "Brindlemoor");
        EXPECT_EQ(message.Choice, Buttons::Ok);
        EXPECT_EQ(message.Icon, MessageIcon::Critical);
    }
}

TEST_F(ConversionTest, WantOfMemoryIsAFailureToo) {
    EXPECT_EQ(ConvertedOrNothing([]() -> std::string { throw std::bad_alloc(); }), "");
    EXPECT_EQ(ConvertedOrNothing([]() -> std::string { throw std::length_error("long"); }), "");
    const std::string box = "Run-time error '7':\r\n\r\nOut of memory";
    EXPECT_EQ(Shown(), (Texts{box, box}));
}

TEST_F(ConversionTest, AnEmptyResultIsNoFailure) {
    GiveUpAtErrors();
    std::string data = CocoFile(TokenLine(10, "\xF9"));
    EXPECT_EQ(ConvertedOrNothing([&] { return BasicConvert(data, false); }), "");
    EXPECT_EQ(Shown(), Texts{"Position: 8 Command: 121 Max: 120"});
}

}  // namespace
}  // namespace brindlemoor::test
