#include "workbench/viewer_lines.h"

#include <gtest/gtest.h>

namespace brindlemoor {
namespace {

struct RuleCase {
    int Index;
    const char* Text;
    int Mode;
    int BasicView;
    std::string Separator;
    int Width;
};

class LineRuleTest : public testing::TestWithParam<RuleCase> {};

TEST_P(LineRuleTest, FollowsTheEntryTheTypeAndTheBasicView) {
    const RuleCase& row = GetParam();
    const LineRule rule = LineRuleOf(row.Index, row.Text, row.Mode, row.BasicView);
    EXPECT_EQ(rule.Separator, row.Separator);
    if (row.Separator.empty()) {
        EXPECT_EQ(rule.Width, row.Width);
    }
}

const std::string kZero(1, '\0');

INSTANTIATE_TEST_SUITE_P(Rows, LineRuleTest,
                         testing::Values(
                             // Auto: lines for data, and for BASIC unless its tokens are shown
                             RuleCase{0, "Auto", 1, 0, "\r", 0}, RuleCase{0, "Auto", 1, 1, "\r", 0},
                             RuleCase{0, "Auto", 0, 0, "\r", 0}, RuleCase{0, "Auto", 0, 2, "\r", 0},
                             RuleCase{0, "Auto", 0, 1, "", 32}, RuleCase{0, "Auto", 2, 0, "", 32},
                             RuleCase{0, "Auto", 3, 0, "", 32}, RuleCase{0, "Auto", -1, 0, "", 32},
                             // by separator
                             RuleCase{1, "", 2, 0, "\r", 0}, RuleCase{2, "", 2, 0, "\r\n", 0},
                             RuleCase{3, "", 2, 0, kZero, 0},
                             // by width
                             RuleCase{4, "Todo", 0, 0, "", 32000}, RuleCase{5, "32", 2, 0, "", 32},
                             RuleCase{6, "256", 2, 0, "", 256}, RuleCase{5, "256", 2, 0, "", 256},
                             RuleCase{-1, "64", 0, 0, "", 64},
                             RuleCase{-1, " 17 columns", 0, 0, "", 17},
                             RuleCase{-1, "0", 0, 0, "", 32}, RuleCase{-1, "-5", 0, 0, "", 32},
                             RuleCase{-1, "", 0, 0, "", 32}, RuleCase{-1, "wide", 0, 0, "", 32},
                             RuleCase{-1, "0.4", 0, 0, "", 32},
                             RuleCase{-1, "99999999999", 0, 0, "", 32767},
                             RuleCase{-1, "1e9", 0, 0, "", 1}));

TEST(CutIntoLinesTest, NSeparatorsGiveOneLineMore) {
    const std::string text = "\rONE\r\rTHREE\r";
    const ViewedLines cut = CutIntoLines(text, "\r");
    EXPECT_EQ(cut.Lines, (std::vector<std::string_view>{"", "ONE", "", "THREE", ""}));
    EXPECT_EQ(cut.Count, 5);
    EXPECT_EQ(cut.Longest, 5);
    EXPECT_EQ(cut.Separator, "\r");
}

TEST(CutIntoLinesTest, ATextWithoutTheSeparatorIsOneLine) {
    const std::string text = "ONE\nTWO";
    EXPECT_EQ(CutIntoLines(text, "\r").Lines, (std::vector<std::string_view>{text}));
}

TEST(CutIntoLinesTest, AnEmptyTextHasNoLine) {
    const ViewedLines cut = CutIntoLines("", "\r");
    EXPECT_EQ(cut.Count, 0);
    EXPECT_EQ(cut.Longest, 0);
}

TEST(CutIntoLinesTest, ASeparatorOfTwoBytesIsTakenWhole) {
    const std::string text = "A\rB\r\nC\n";
    EXPECT_EQ(CutIntoLines(text, "\r\n").Lines, (std::vector<std::string_view>{"A\rB", "C\n"}));
}

TEST(CutIntoLinesTest, LinesBeyondTheScrollBarAreCountedButNotKept) {
    const std::string text(200000, '\r');
    const ViewedLines cut = CutIntoLines(text, "\r");
    EXPECT_EQ(cut.Count, 200001);
    EXPECT_GT(cut.Lines.size(), static_cast<std::size_t>(kMostViewerCells));
    EXPECT_LT(cut.Lines.size(), 100000u);
}

TEST(CutIntoLinesTest, TheLongestLineCountsToWhereColumnsEndAlsoBeyondTheLinesKept) {
    std::string text(200000, '\r');
    text += std::string(1000, 'X');
    EXPECT_EQ(CutIntoLines(text, "\r").Longest, 1000);
    EXPECT_EQ(CutIntoLines(std::string(100000, 'X'), "\r").Longest, 32767);
}

}  // namespace
}  // namespace brindlemoor
