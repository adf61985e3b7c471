#include "workbench/fat_editor.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "core/numbers.h"
#include "core/runtime_failure.h"
#include "workbench/control_design.h"

namespace brindlemoor {

Window FatEditor;
FatEditorLines FatLines;

namespace {

constexpr char kLineBreak[] = "\r\n";
constexpr int kLineBreakBytes = 2;
constexpr int kSectorsOfSide = 18;

Control& Field(const char* name) {
    return ControlOf(FatEditor, name);
}

int SectorsOfDisk() {
    return Disk.TrackCount * Disk.SectorsPerTrack;
}

/// Writes `text` over a track's part of a ruler from the 1-based `position` on, as far as it goes.
void PutInCell(std::string& cell, int position, std::string_view text) {
    auto place = static_cast<std::size_t>(std::max(position, 1)) - 1;
    for (const char character : text) {
        if (place < cell.size()) cell[place] = character;
        ++place;
    }
}

std::string EmptyCell(char first, char last) {
    std::string cell(static_cast<std::size_t>(std::max<int>(Disk.SectorsPerTrack, 0)), '-');
    if (cell.empty()) return cell;
    cell.front() = first;
    if (cell.size() > 1) cell.back() = last;
    return cell;
}

std::string TrackRuler() {
    std::string ruler;
    const int position = WholeNumber16(Disk.SectorsPerTrack / 2.0 - 4);
    for (int track = 0; track < Disk.TrackCount; ++track) {
        std::string cell = EmptyCell('|', '|');
        PutInCell(cell, position, Left("Track " + FormatNumber(track, "00"), 8));
        ruler += cell;
    }
    return ruler;
}

std::string SectorRuler() {
    std::string cell = EmptyCell('1', '-');
    PutInCell(cell, 17, "18");
    PutInCell(cell, 9, "||");
    if (Disk.SectorsPerTrack > kSectorsOfSide) {
        PutInCell(cell, 19, "19");
        PutInCell(cell, 26, "||");
        PutInCell(cell, 35, "36");
    }
    std::string ruler;
    for (int track = 0; track < Disk.TrackCount; ++track) ruler += cell;
    return ruler;
}

/// The lines of both tables and of their differences. The sectors of a last byte that is not whole
/// stay blank, so that all lines have the same length.
std::string TableLines() {
    std::string stored;
    std::string computed;
    std::string marks;
    const int sectors = SectorsOfDisk();
    for (int byte = 0; byte < sectors / 8; ++byte) {
        const std::string a = ByteToBits(ByteAt(Disk.FatBytes, byte));
        const std::string b = ByteToBits(ByteAt(Disk.FatComputed, byte));
        stored += a;
        computed += b;
        for (std::size_t bit = 0; bit < a.size(); ++bit) marks += a[bit] == b[bit] ? ' ' : '|';
    }
    for (std::string* line : {&stored, &computed, &marks}) {
        line->resize(static_cast<std::size_t>(sectors), ' ');
    }
    return JoinText({stored, computed, marks}, kLineBreak);
}

void LoadText() {
    FatLines = {};
    const bool comparable =
        !Disk.FatComputed.empty() && Disk.FatBytes.size() == Disk.FatComputed.size();
    if (!comparable || SectorsOfDisk() <= 0) return;
    FatEditorLines lines;
    lines.LineWidth = WholeNumber16(SectorsOfDisk() + kLineBreakBytes);
    lines.LineStart = WholeNumber16(2 * lines.LineWidth);
    Control& text = Field("Text");
    text.Text = JoinText({TrackRuler(), SectorRuler(), TableLines()}, kLineBreak);
    text.SelStart = lines.LineStart;
    FatLines = lines;
}

int EndOfThirdLine() {
    return FatLines.LineStart + FatLines.LineWidth - kLineBreakBytes;
}

/// The caret stays in the third line: from any other place it goes to the same column there.
void KeepCaretInLine() {
    Control& text = Field("Text");
    text.SelLength = 0;
    if (FatLines.LineWidth == 0) return;
    if (text.SelStart <= FatLines.LineStart || text.SelStart >= EndOfThirdLine()) {
        text.SelStart = text.SelStart % FatLines.LineWidth + FatLines.LineStart;
    }
}

/// True: the key does nothing.
bool KeyDown(int key) {
    const int caret = Field("Text").SelStart;
    if (caret < FatLines.LineStart || caret > EndOfThirdLine()) return true;
    if (key == kKeyLeft) return caret == FatLines.LineStart;
    if (key == kKeyRight) return caret == EndOfThirdLine();
    return key != kKeyHome && key != kKeyEnd;
}

void KeyPress(int character) {
    Control& text = Field("Text");
    const bool inside = text.SelStart >= FatLines.LineStart && text.SelStart < EndOfThirdLine();
    if (!inside || (character != '0' && character != '1')) return;
    std::string changed = text.Text;
    changed[static_cast<std::size_t>(text.SelStart)] = static_cast<char>(character);
    SetText(text, changed);
    ++text.SelStart;
    KeepCaretInLine();
}

void StoreThirdLine() {
    const std::string& text = Field("Text").Text;
    int byte = 0;
    for (int sector = 0; sector < SectorsOfDisk(); ++sector) {
        const int bit = sector % 8;
        if (ByteOr(text, FatLines.LineStart + sector, 0) == '1') byte += 1 << bit;
        if (bit != 7) continue;
        const auto place = static_cast<std::size_t>(sector) / 8;
        if (place >= Disk.FatBytes.size()) Fail(kInvalidCall);
        Disk.FatBytes[place] = static_cast<char>(byte);
        byte = 0;
    }
    FatEditor.Open = false;
}

/// Copies from the line feed in front of each line up to the end of the line.
void CopyFourthLine() {
    Control& text = Field("Text");
    if (FatLines.LineWidth == 0) return;
    const int before = FatLines.LineStart - 1;
    std::string changed = text.Text;
    const std::string line = CutBytes(changed, before + FatLines.LineWidth, FatLines.LineWidth);
    changed.replace(static_cast<std::size_t>(before), line.size(), line);
    SetText(text, changed);
}

void AddControls() {
    using enum ControlKind;
    std::vector<Control>& controls = FatEditor.Controls;
    controls.push_back(
        WithFont(Designed("Label1", Label, {8, 11, 104, 84},
                          "TRACK:....... SECTOR:.... ORIGINAL: CORRECT: ERROR:......"),
                 FontKind::Fixed));
    controls.back().WordWrap = true;
    controls.push_back(WithFont(Designed("Text", CaretText, {112, 8, 768, 94}), FontKind::Fixed));
    controls.push_back(
        Designed("Label2", Label, {8, 110, 872, 22},
                 "Change the Original       FOR COCO (Bit=0->Free Bit=1->Used)        "
                 "FOR DRAGON (Bit=0->Used Bit=1->Free"));
    controls.push_back(
        Designed("cmdCopiar", Button, {8, 140, 200, 28}, "Copiar \"Correcto\" a \"Original\""));
    controls.push_back(Designed("cmdOK", Button, {680, 140, 96, 28}, "Aceptar"));
    controls.push_back(Designed("cmdCancel", Button, {784, 140, 96, 28}, "Cancelar"));
}

void ConnectControls() {
    Control& text = Field("Text");
    text.Key = KeyDown;
    text.KeyPress = KeyPress;
    text.CaretPlaced = KeepCaretInLine;
    text.GotFocus = [] { Field("Text").SelStart = FatLines.LineStart; };
    Field("cmdOK").Click = StoreThirdLine;
    Field("cmdCopiar").Click = CopyFourthLine;
    Field("cmdCancel").Click = [] { FatEditor.Open = false; };
}

}  // namespace

void LoadFatEditor() {
    FatEditor = Window();
    FatEditor.Name = "FatEditor";
    FatEditor.Caption = "Fat Editor";
    FatEditor.Width = 888 * kTwipsPerPixel;
    FatEditor.Height = 176 * kTwipsPerPixel;
    AddControls();
    ConnectControls();
    LoadText();
}

}  // namespace brindlemoor
