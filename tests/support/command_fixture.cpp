#include "support/command_fixture.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "convert/file_commands.h"
#include "core/disk_state.h"
#include "image/modified_state.h"
#include "image/read_disk.h"
#include "support/disk_fixture.h"
#include "workbench/directory_grid.h"
#include "workbench/pc_pane.h"
#include "workbench/principal.h"

namespace brindlemoor::test {

namespace fs = std::filesystem;

std::string CocoTokens() {
    return {"\xFF\x00\x0E\x26\x07\x00\x0A\x9E\x00\x26\x0D\x00\x14\x41\x00\x00\x00", 17};
}

std::string DragonTokens() {
    return {
        "\x55\x01\x24\x01\x00\x0E\x8B\x8D\xAA\x24\x07\x00\x0A\xA0\x00\x24\x0D\x00\x14\x41\x00"
        "\x00\x00",
        23};
}

std::string TokensAsText() {
    return "\r10 CLS\r20 A\r";
}

std::string OtherText() {
    return "10 B\r";
}

std::string OtherCocoTokens() {
    return {"\xFF\x00\x08\x26\x07\x00\x0A\x42\x00\x00\x00", 11};
}

void CommandTest::SetUp() {
    for (const char* name : {"BRINDLEMOOR_EDITOR", "BRINDLEMOOR_HEXEDITOR", "BRINDLEMOOR_PAINT"}) {
        SetVariable(name, "");
    }
    WorkbenchTest::SetUp();
    Start();
}

void CommandTest::OpenDisk(const std::string& image) {
    Disk.ImageBytes = image;
    Disk.ImageOnOpen = image;
    ReadDisk();
    FillDirectoryGrid();
    RefreshModified();
    script_.Messages.clear();
}

void CommandTest::SelectFiles(const std::map<std::string, std::string>& files) {
    for (const auto& [name, bytes] : files) WriteTestFile(PcFolder, name, bytes);
    RefreshPcFiles();
    Control& list = PrincipalControl("File1");
    for (std::size_t item = 0; item < list.Items.size(); ++item) {
        list.ItemSelected[item] = files.count(list.Items[item]) > 0;
    }
}

void CommandTest::SelectRows(const std::vector<int>& rows) {
    ListDirec.RowSelected.assign(static_cast<std::size_t>(Disk.DirRows), false);
    for (const int row : rows) ListDirec.RowSelected.at(static_cast<std::size_t>(row)) = true;
}

void CommandTest::RunPc(int index) {
    PopupSide = kPcSide;
    RunFileCommand(index);
}

void CommandTest::RunDisk(int index) {
    PopupSide = kDiskSide;
    RunFileCommand(index);
}

std::string CommandTest::PcFile(const std::string& name) const {
    const std::string path = PcFolder + "/" + name;
    return fs::is_regular_file(path) ? FileBytes(path) : "(none)";
}

std::vector<std::string> CommandTest::PcFiles() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(PcFolder)) {
        names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::string CommandTest::LiveRows() {
    std::string names;
    for (int row = 0; row < Disk.DirRows; ++row) {
        if ((DirTable[row].Flags & kFlagDeleted) == 0) names += DirTable[row].FullName + " ";
    }
    return names;
}

void CommandTest::EditorWrites(const std::string& bytes) {
    script_.OnProgram = [bytes](const StartedProgram& program) {
        std::ofstream(program.Arguments.back(), std::ios::binary | std::ios::trunc) << bytes;
    };
}

}  // namespace brindlemoor::test
