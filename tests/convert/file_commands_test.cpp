#include "convert/file_commands.h"

#include <gtest/gtest.h>

#include <deque>
#include <filesystem>
#include <map>
#include <vector>

#include "core/byte_helpers.h"
#include "core/numbers.h"
#include "core/screen.h"
#include "support/command_fixture.h"
#include "support/decb_builder.h"
#include "support/disk_fixture.h"
#include "workbench/directory_grid.h"
#include "workbench/principal.h"

namespace brindlemoor::test {
namespace {

using Bytes = std::map<std::string, std::string>;

/// Every command with its effects written down in short:
///   +NAME =NAME -NAME   a file of the PC came, changed, went
///   row+NAME row-NAME   a live row of that name came, went
///   view, start, ask, tell   the window `Archivos`, a program, a box with a choice, one without
class CommandTable : public CommandTest {
  protected:
    void SetUp() override {
        CommandTest::SetUp();
        DecbBuilder disk;
        disk.File(0, "P       ", "BAS", 0, 0, {5}, CocoTokens());
        disk.File(1, "Q       ", "BAS", 0, 0, {6}, CocoTokens());
        OpenDisk(disk.Image());
        SelectFiles({{"A.BAS", CocoTokens()}, {"B.BAS", CocoTokens()}});
        Screen.ShowDetached = [this](const std::string&, const std::string&, int) { ++views_; };
    }

    Bytes FilesNow() const {
        Bytes files;
        for (const std::string& name : PcFiles()) files[name] = PcFile(name);
        return files;
    }

    void Note(const std::string& effect, std::size_t count = 1) {
        for (; count > 0; --count) effects_ += effect + " ";
    }

    void NoteFiles(const Bytes& before, const Bytes& now) {
        for (const auto& [name, bytes] : now) {
            const auto old = before.find(name);
            if (old == before.end()) Note("+" + name);
            if (old != before.end() && old->second != bytes) Note("=" + name);
        }
        for (const auto& [name, bytes] : before) {
            if (now.count(name) == 0) Note("-" + name);
        }
    }

    static std::map<std::string, int> RowsNow() {
        std::map<std::string, int> rows;
        for (const std::string& name : SplitText(LiveRows(), " ")) ++rows[name];
        rows.erase("");
        return rows;
    }

    void NoteRows(std::map<std::string, int> before, std::map<std::string, int> now) {
        for (const auto& [name, count] : now) {
            if (count > before[name]) Note("row+" + name);
        }
        for (const auto& [name, count] : before) {
            if (count > now[name]) Note("row-" + name);
        }
    }

    /// The effects of a command on the selection as it stands.
    std::string EffectsOf(std::int16_t side, int index) {
        const Bytes files = FilesNow();
        const auto rows = RowsNow();
        effects_.clear();
        views_ = 0;
        PopupSide = side;
        RunFileCommand(index);
        Note("view", static_cast<std::size_t>(views_));
        Note("start", script_.Programs.size());
        for (const ShownMessage& message : script_.Messages) {
            Note(message.Choice == Buttons::Ok ? "tell" : "ask");
        }
        NoteFiles(files, FilesNow());
        NoteRows(rows, RowsNow());
        return effects_;
    }

    /// Selects the first `count` of both lists.
    static void Select(std::size_t count) {
        auto& files = PrincipalControl("File1").ItemSelected;
        for (std::size_t item = 0; item < files.size(); ++item) files[item] = item < count;
        for (std::size_t row = 0; row < ListDirec.RowSelected.size(); ++row) {
            ListDirec.RowSelected[row] = row < count;
        }
    }

    std::string effects_;
    int views_ = 0;
};

struct CommandRow {
    std::int16_t Side;
    int Index;
    const char* One;  ///< effects on the first file
    const char* Two;  ///< on both
};

std::string RowName(const testing::TestParamInfo<CommandRow>& info) {
    const std::string index = DecimalText(info.param.Index + 1000).substr(1);
    return (info.param.Side == kPcSide ? "Pc" : "Disk") + index;
}

class EveryCommand : public CommandTable, public testing::WithParamInterface<CommandRow> {};

TEST_P(EveryCommand, WithNothingSelectedDoesNothing) {
    Select(0);
    const std::string image = Disk.ImageBytes;
    EXPECT_EQ(EffectsOf(GetParam().Side, GetParam().Index), "");
    EXPECT_EQ(Disk.ImageBytes, image);
}

TEST_P(EveryCommand, WorksOnOneFile) {
    Select(1);
    const bool edit = GetParam().Side == kDiskSide && GetParam().Index == kEditCommand;
    script_.Answers = edit ? std::deque<Answer>{Answer::Yes, Answer::Yes, Answer::Ok}
                           : std::deque<Answer>{Answer::Ok};
    EXPECT_EQ(EffectsOf(GetParam().Side, GetParam().Index), GetParam().One);
}

TEST_P(EveryCommand, WorksOnEverySelectedFile) {
    Select(2);
    script_.OnMessage = [this](const ShownMessage&) { script_.Answers = {Answer::Ok}; };
    script_.Answers = {Answer::Ok};
    EXPECT_EQ(EffectsOf(GetParam().Side, GetParam().Index), GetParam().Two);
}

INSTANTIATE_TEST_SUITE_P(PcFiles, EveryCommand,
                         testing::ValuesIn(std::vector<CommandRow>{
                             {kPcSide, -1, "", ""},
                             {kPcSide, 0, "view ", "view view "},
                             {kPcSide, 1, "start ", "start start "},
                             {kPcSide, 2, "start ", "start start "},
                             {kPcSide, 3, "start ", "start start "},
                             {kPcSide, 4, "", ""},
                             {kPcSide, 5, "", ""},
                             {kPcSide, 6, "row+A.BAS ", "row+A.BAS row+B.BAS "},
                             {kPcSide, 7, "ask -A.BAS ", "ask -A.BAS -B.BAS "},
                             {kPcSide, 8, "", ""},
                             {kPcSide, 19, "", ""},
                             {kPcSide, 20, "=A.BAS ", "=A.BAS =B.BAS "},
                             {kPcSide, 21, "", ""},
                             {kPcSide, 22, "", ""},
                             {kPcSide, 23, "+A. ", "+A. +B. "},
                             {kPcSide, 24, "tell ", "tell tell "},
                             {kPcSide, 25, "tell ", "tell tell "},
                             {kPcSide, 26, "=A.BAS ", "=A.BAS =B.BAS "},
                             {kPcSide, 27, "=A.BAS ", "=A.BAS =B.BAS "},
                             {kPcSide, 28, "", ""},
                             {kPcSide, 29, "", ""},
                             {kPcSide, 30, "", ""},
                             {kPcSide, 31, "", ""},
                             {kPcSide, 101, "", ""},
                             {kPcSide, 107, "", ""}}),
                         RowName);

// The text of a program stops the tape, so that 23 tells and stores nothing. 24 is the plain change
// of BASIC, in place; 20 stores without deleting. Of two programs to edit, the box that is answered
// with Cancel ends the run.
INSTANTIATE_TEST_SUITE_P(DiskFiles, EveryCommand,
                         testing::ValuesIn(std::vector<CommandRow>{
                             {kDiskSide, -1, "", ""},
                             {kDiskSide, 0, "view ", "view view "},
                             {kDiskSide, 1, "start ask ask tell ", "ask "},
                             {kDiskSide, 2, "start tell ", "start start tell tell "},
                             {kDiskSide, 3, "start tell row+P.TMP ",
                              "start start tell tell row+P.TMP row+Q.TMP "},
                             {kDiskSide, 4, "", ""},
                             {kDiskSide, 5, "", ""},
                             {kDiskSide, 6, "+P.BAS ", "+P.BAS +Q.BAS "},
                             {kDiskSide, 7, "ask row-P.BAS ", "ask row-P.BAS row-Q.BAS "},
                             {kDiskSide, 8, "", ""},
                             {kDiskSide, 19, "", ""},
                             {kDiskSide, 20, "row+P.BAS ", "row+P.BAS row+Q.BAS "},
                             {kDiskSide, 21, "", ""},
                             {kDiskSide, 22, "", ""},
                             {kDiskSide, 23, "tell ", "tell tell "},
                             {kDiskSide, 24, "", ""},
                             {kDiskSide, 25, "", ""},
                             {kDiskSide, 26, "", ""},
                             {kDiskSide, 27, "", ""},
                             {kDiskSide, 28, "", ""},
                             {kDiskSide, 29, "", ""},
                             {kDiskSide, 30, "", ""},
                             {kDiskSide, 31, "", ""},
                             {kDiskSide, 101, "", ""}}),
                         RowName);

// The words of the menus

TEST_F(CommandTable, TheCommandsAreTiedToThePlacesAndNotToTheWords) {
    Menu& conversions = MenuOf(Principal, "ConvMenu");
    ASSERT_EQ(conversions.Items.size(), 11U);
    for (MenuItem& item : conversions.Items) item.Tag = item.Caption = "word";
    Select(1);
    PopupSide = kPcSide;
    conversions.Click(3);
    EXPECT_EQ(PcFile("A.").substr(0, 5), "UUUUU");
    conversions.Click(8);
    conversions.Click(10);
    EXPECT_TRUE(script_.Messages.empty());
    SelectFiles({{"A.BAS", CocoTokens()}});
    conversions.Click(0);
    EXPECT_EQ(PcFile("A.BAS"), TokensAsText());
}

// The run

TEST_F(CommandTable, TheSelectionIsTakenOnceAtTheStart) {
    Select(2);
    int fills = 0;
    Screen.FillDirectoryGrid = [&fills] {
        ++fills;
        FillDirectoryGrid();
        ListDirec.RowSelected.assign(ListDirec.RowSelected.size(), false);
    };
    EXPECT_EQ(EffectsOf(kDiskSide, 24), "");
    EXPECT_EQ(fills, 2);
    EXPECT_EQ(DirTable[0].Content, TokensAsText());
    EXPECT_EQ(DirTable[1].Content, TokensAsText());
}

TEST_F(CommandTable, ACommandOnADeletedRowIsSkippedInSilence) {
    Select(2);
    DirTable[0].Flags = kFlagDeleted;
    for (const int index : {0, 1, 2, 6, 20, 23, 24}) {
        script_.Messages.clear();
        script_.Programs.clear();
        DirTable[1].Flags = kFlagDeleted;
        EXPECT_EQ(EffectsOf(kDiskSide, index), "") << index;
    }
    EXPECT_EQ(EffectsOf(kDiskSide, 7), "");
}

TEST_F(CommandTable, ARowThatARunFillsIsNoneOfItsFiles) {
    DirTable[1].Flags = kFlagDeleted;  // selected, and filled by what 20 makes of the other
    Select(2);
    EXPECT_EQ(EffectsOf(kDiskSide, 20), "row+P.BAS ");
    EXPECT_EQ(DirTable[1].Content, TokensAsText());
}

TEST_F(CommandTable, TheFileListIsReadAnewBehindTheLastRow) {
    Select(2);
    int lists = 0;
    Screen.RefreshPcFiles = [&lists] { ++lists; };
    EffectsOf(kDiskSide, 0);
    EXPECT_EQ(lists, 1);
    EffectsOf(kDiskSide, 6);
    EXPECT_EQ(lists, 2);
    Select(0);
    EffectsOf(kDiskSide, 6);
    EXPECT_EQ(lists, 2);
}

TEST_F(CommandTable, AFileThatIsGoneShowsTheErrorAndTheNextIsTaken) {
    Select(2);
    std::filesystem::remove(PcFolder + "/A.BAS");
    EXPECT_EQ(EffectsOf(kPcSide, 6), "tell row+B.BAS ");
    EXPECT_EQ(MessageTexts(script_),
              std::vector<std::string>{"Error!!! 2 No such file or directory"});
}

TEST_F(CommandTable, TheModifiedStateIsShownBehindEachWrite) {
    Select(1);
    EXPECT_EQ(Disk.ImageModified, 0);
    EffectsOf(kPcSide, 6);
    EXPECT_EQ(Disk.ImageModified, -1);
    EXPECT_TRUE(PrincipalControl("UndoBtn").Enabled);
    Disk.ImageModified = 0;
    Select(1);
    script_.Answers = {Answer::Ok};
    EffectsOf(kDiskSide, 7);
    EXPECT_EQ(Disk.ImageModified, -1);
}

// View

struct Seen {
    std::string Caption;
    std::string Bytes;
    int Mode;
    bool operator==(const Seen&) const = default;
};

class ViewCommandTest : public CommandTable {
  protected:
    void SetUp() override {
        CommandTable::SetUp();
        Screen.ShowDetached = [this](const std::string& caption, const std::string& bytes,
                                     int mode) {
            seen_.push_back({caption, bytes, mode});
        };
    }

    std::vector<Seen> seen_;
};

TEST_F(ViewCommandTest, ShowsEachSelectedFileOfThePcUnderItsPath) {
    SelectFiles({{"A.BAS", "10 CLS"}, {"C.TXT", "other"}});
    RunPc(kViewCommand);
    EXPECT_EQ(seen_, (std::vector<Seen>{{PcFolder + "/A.BAS", "10 CLS", 0},
                                        {PcFolder + "/C.TXT", "other", 2}}));
    EXPECT_EQ(Disk.PcFileBytes, "other");
}

TEST_F(ViewCommandTest, ShowsEachSelectedRowUnderThePathThatItWouldHave) {
    DirTable[1].FullName = "Q/Q.DAT  ";
    DirTable[1].FileType = 1;
    SelectRows({0, 1});
    RunDisk(kViewCommand);
    EXPECT_EQ(seen_, (std::vector<Seen>{{PcFolder + "/P.BAS", CocoTokens(), 0},
                                        {PcFolder + "/Q-Q.DAT", CocoTokens(), 1}}));
    EXPECT_EQ(Disk.DirCount, 1);
}

}  // namespace
}  // namespace brindlemoor::test
