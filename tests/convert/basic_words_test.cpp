#include "convert/basic_words.h"

#include <gtest/gtest.h>

#include <set>

#include "convert/basic_fixture.h"
#include "convert/basic_model.h"
#include "convert/text_to_basic.h"

namespace brindlemoor::test {
namespace {

void ExpectSameWords(const std::vector<std::string>& ours,
                     const std::vector<std::string>& printed) {
    EXPECT_EQ(ours.size(), printed.size());
    for (std::size_t place = 0; place < std::min(ours.size(), printed.size()); ++place) {
        EXPECT_EQ(ours[place], printed[place]) << "token " << place + kFirstToken;
    }
}

TEST(BasicWords, EveryTokenOfTheColorComputer) {
    BuildBasicWords();
    ExpectSameWords(CocoCommands, PrintedCommands(true));
    ExpectSameWords(CocoFunctions, PrintedFunctions(true));
    EXPECT_EQ(CocoCommands.size(), 121U);
    EXPECT_EQ(CocoFunctions.size(), 46U);
}

TEST(BasicWords, EveryTokenOfTheDragon) {
    BuildBasicWords();
    ExpectSameWords(DragonCommands, PrintedCommands(false));
    ExpectSameWords(DragonFunctions, PrintedFunctions(false));
    EXPECT_EQ(DragonCommands.size(), 104U);
    EXPECT_EQ(DragonFunctions.size(), 41U);
}

TEST(BasicWords, OnlyTheFunction0xA8OfTheColorComputerIsEmpty) {
    BuildBasicWords();
    EXPECT_EQ(CocoFunctions[0x28], "");
    int empty = 0;
    for (const auto* list : {&CocoCommands, &CocoFunctions, &DragonCommands, &DragonFunctions}) {
        for (const std::string& word : *list) empty += word.empty() ? 1 : 0;
    }
    EXPECT_EQ(empty, 1);
}

TEST(BasicWords, BothMachinesHaveTheWordsWithRulesInTheSamePlaces) {
    BuildBasicWords();
    for (const auto* list : {&CocoCommands, &DragonCommands}) {
        EXPECT_EQ((*list)[kRemWord], "REM");
        EXPECT_EQ((*list)[kTickWord], "'");
        EXPECT_EQ((*list)[kElseWord], "ELSE");
        EXPECT_EQ((*list)[kDataWord], "DATA");
        EXPECT_EQ((*list)[kPrintWord], "PRINT");
    }
}

TEST(BasicWords, AListIsBuiltWhereItIsFirstNeeded) {
    for (auto* list : {&CocoCommands, &CocoFunctions, &DragonCommands, &DragonFunctions}) {
        list->clear();
    }
    EXPECT_EQ(CommandsOf(kCocoBasic).size(), 121U);
    EXPECT_EQ(FunctionsOf(kDragonBasic).size(), 41U);
    BuildBasicWords();
    EXPECT_EQ(CommandsOf(kDragonBasic).size(), 104U);
    EXPECT_EQ(FunctionsOf(kCocoBasic).size(), 46U);
}

class WordUsageTest : public BasicTest {
  protected:
    void SetUp() override {
        BasicTest::SetUp();
        WordUsage = {};
    }
    void TearDown() override {
        WordUsage = {};
        BasicTest::TearDown();
    }

    /// The rows of a column that are not 0, with their counts.
    static std::vector<std::pair<std::size_t, int>> Used(BasicMachine machine) {
        std::vector<std::pair<std::size_t, int>> used;
        for (std::size_t row = 0; row < WordUsage.size(); ++row) {
            if (WordUsage[row][machine] != 0) used.emplace_back(row, WordUsage[row][machine]);
        }
        return used;
    }
};

using Counts = std::vector<std::pair<std::size_t, int>>;

TEST_F(WordUsageTest, ACommandCountsInItsRowAndAFunction128RowsBelow) {
    Text(CocoFile(TokenLine(10, Hex("87 80 87 FF80 FFAD F8"))));
    EXPECT_EQ(Used(kCocoBasic), (Counts{{0, 1}, {7, 2}, {120, 1}, {128, 1}, {173, 1}}));
    EXPECT_EQ(Used(kDragonBasic), Counts());
}

TEST_F(WordUsageTest, TheDragonCountsInItsOwnColumn) {
    Text(DragonFile(TokenLine(10, Hex("80 E7 FFA8"))));
    EXPECT_EQ(Used(kDragonBasic), (Counts{{0, 1}, {103, 1}, {168, 1}}));
    EXPECT_EQ(Used(kCocoBasic), Counts());
}

TEST_F(WordUsageTest, TheEmptyFunctionCountsAsDecoded) {
    EXPECT_EQ(Text(CocoFile(TokenLine(10, Hex("41 FFA8 42")))), "\r10 AB\r");
    EXPECT_EQ(Used(kCocoBasic), (Counts{{168, 1}}));
}

TEST_F(WordUsageTest, AWordBehindAHiddenColonAndAnErrorDoNotCount) {
    Text(CocoFile(TokenLine(10, Hex("3A84 3A83 F9 FFAE"))));
    EXPECT_EQ(Used(kCocoBasic), Counts());
    Text(CocoFile(TokenLine(10, Hex("84 83"))));
    EXPECT_EQ(Used(kCocoBasic), (Counts{{3, 1}, {4, 1}}));
}

TEST_F(WordUsageTest, WritingTokensCountsNothing) {
    Tokens("10 FOR I=1", 0);
    EXPECT_EQ(Used(kCocoBasic), Counts());
}

TEST_F(WordUsageTest, AFullCounterStaysFullAndTheProgramIsShown) {
    WordUsage[7][kCocoBasic] = 32766;
    const std::string file = CocoFile(TokenLine(10, Hex("87 87 87")));
    EXPECT_EQ(Text(file), "\r10 PRINTPRINTPRINT\r");
    EXPECT_EQ(Used(kCocoBasic), (Counts{{7, 32767}}));
    EXPECT_EQ(Text(file), "\r10 PRINTPRINTPRINT\r");
    EXPECT_EQ(Used(kCocoBasic), (Counts{{7, 32767}}));
}

}  // namespace
}  // namespace brindlemoor::test
