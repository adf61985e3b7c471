#include "workbench/new_disk.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "core/numbers.h"
#include "workbench/control_design.h"

namespace brindlemoor {

Window NewDisk;
bool NewDiskCancelled = false;

namespace {

constexpr int kSectorsOfSide = 18;
constexpr std::array<const char*, 4> kDosCaptions = {"DECB Coco", "DragonDos 1.0", "OS9/NITROS9",
                                                     "FLEX"};
constexpr std::array<const char*, 4> kFormatCaptions = {"DSK-JVC", "VDK", "MDK", "VHD HardDisk"};
constexpr int kDragonFormat = 1;

/// A field with the numbers that it takes, and what stands in it instead of any other.
struct FieldRow {
    const char* Name;
    const char* Caption;
    std::vector<std::string> Items;
    int Least;
    int Most;
    const char* Standard;
};

const std::vector<FieldRow>& Fields() {
    static const std::vector<FieldRow> rows = [] {
        std::vector<std::string> interleaves;
        interleaves.reserve(kSectorsOfSide);
        for (int value = 0; value < kSectorsOfSide; ++value) {
            interleaves.push_back(DecimalText(value));
        }
        return std::vector<FieldRow>{
            {"Sides", "Heads (Sides):", {"1", "2"}, 1, 2, "1"},
            {"Tracks", "Tracks 35-255:", {"35", "40", "80"}, 35, 255, "35"},
            {"Sectors", "Sectors (1-255):", {"18", "36"}, 1, 255, "18"},
            {"Bytes",
             "Sector Bytes:",
             {"128", "256", "512", "1024", "2048", "4096", "8128"},
             256,
             256,
             "256"},
            {"Interleave", "Interleave:", interleaves, 0, 17, "6"},
            {"FirstSector", "First Sector:", {"0", "1"}, 0, 1, "1"},
        };
    }();
    return rows;
}

Control& Field(std::string_view name, int index = 0) {
    return ControlOf(NewDisk, name, index);
}

/// A field corrects itself; nothing is reported. Two sides have sectors twice as many.
void CheckField(const FieldRow& row) {
    Control& field = Field(row.Name);
    const double value = TypedNumber(field.Text);
    const bool sides = row.Name == std::string_view("Sides");
    const bool whole = !sides || value == 1 || value == 2;
    const bool fixed = row.Least == row.Most;  // takes no change at all
    if (value < row.Least || value > row.Most || !whole || fixed) SetText(field, row.Standard);
    if (sides) {
        const double count = TypedNumber(field.Text) * kSectorsOfSide;
        SetText(Field("Sectors"), DecimalText(static_cast<int>(count)));
    }
}

void DosChosen(int index) {
    if (index == 0) SetChecked(Field("Header"), false);
    if (index == 1) SetChecked(Field("Header"), true);
}

void FormatChosen(int index) {
    if (index > kDragonFormat) return;
    SetChecked(Field("Header"), index == kDragonFormat);
    ChooseOption(NewDisk, "DOS", index);
    SetText(Field("Tracks"), index == kDragonFormat ? "40" : "35");
}

/// The kinds of disk can be chosen only for a disk that is formatted, as the dialog has it.
void FormatChanged() {
    const bool enabled = Field("Format").Checked;
    Field("FrameDOS").Enabled = enabled;
    for (int index = 0; index < static_cast<int>(kDosCaptions.size()); ++index) {
        Field("DOS", index).Enabled = enabled;
    }
}

Control Option(const std::string& name, const std::string& frame, int index, const char* caption) {
    Control option = Within(
        frame, Designed(name, ControlKind::OptionButton, {12, 24 + index * 24, 160, 22}, caption));
    option.Index = index;
    option.Checked = index == 0;
    return option;
}

void AddFields() {
    int top = 12;
    int number = 1;
    for (const FieldRow& row : Fields()) {
        NewDisk.Controls.push_back(Designed("Label" + DecimalText(number++), ControlKind::Label,
                                            {12, top, 120, 24}, row.Caption));
        Control field = DesignedList(row.Name, {136, top, 90, 24}, row.Items, true);
        field.Text = row.Standard;
        for (std::size_t item = 0; item < row.Items.size(); ++item) {
            if (row.Items[item] == row.Standard) field.ListIndex = static_cast<int>(item);
        }
        NewDisk.Controls.push_back(field);
        top += 32;
    }
    NewDisk.Controls.push_back(
        Designed("Header", ControlKind::CheckBox, {12, top + 4, 100, 22}, "Header"));
    NewDisk.Controls.push_back(
        Designed("Format", ControlKind::CheckBox, {136, top + 4, 100, 22}, "Format"));
}

void AddOptions() {
    NewDisk.Controls.push_back(
        Designed("FrameVDF", ControlKind::Frame, {246, 8, 190, 128}, "Virtual Disk Format"));
    for (int index = 0; index < static_cast<int>(kFormatCaptions.size()); ++index) {
        NewDisk.Controls.push_back(
            Option("VDiskF", "FrameVDF", index, kFormatCaptions[static_cast<std::size_t>(index)]));
    }
    NewDisk.Controls.push_back(
        Designed("FrameDOS", ControlKind::Frame, {246, 144, 190, 128}, "DOS File System"));
    for (int index = 0; index < static_cast<int>(kDosCaptions.size()); ++index) {
        NewDisk.Controls.push_back(
            Option("DOS", "FrameDOS", index, kDosCaptions[static_cast<std::size_t>(index)]));
    }
}

void AddButtons() {
    Control accept = Designed("Aceptar", ControlKind::Button, {236, 284, 96, 28}, "Aceptar");
    accept.Default = true;
    NewDisk.Controls.push_back(accept);
    NewDisk.Controls.push_back(
        Designed("Cancelar", ControlKind::Button, {340, 284, 96, 28}, "Cancelar"));
}

void ConnectFields() {
    for (const FieldRow& row : Fields()) {
        Control& field = Field(row.Name);
        const auto check = [&row] { CheckField(row); };
        field.Change = check;
        field.Click = check;
        field.Leave = check;
    }
    Field("Format").Click = FormatChanged;
    for (int index = 0; index < static_cast<int>(kDosCaptions.size()); ++index) {
        Field("DOS", index).Click = [index] { DosChosen(index); };
        Field("VDiskF", index).Click = [index] { FormatChosen(index); };
    }
    Field("Aceptar").Click = [] { NewDisk.Open = false; };
    Field("Cancelar").Click = [] {
        NewDiskCancelled = true;
        NewDisk.Open = false;
    };
    NewDisk.Close = [] { NewDiskCancelled = true; };
}

int NumberIn(std::string_view name) {
    return WholeNumber16(TypedNumber(Field(name).Text));
}

}  // namespace

void BuildNewDisk() {
    NewDisk = Window();
    NewDisk.Name = "NewDisk";
    NewDisk.Caption = "NewDisk";
    NewDisk.Width = 448 * kTwipsPerPixel;
    NewDisk.Height = 324 * kTwipsPerPixel;
    AddFields();
    AddOptions();
    AddButtons();
    ConnectFields();
    FormatChanged();
    NewDiskCancelled = false;
}

BlankShape NewDiskShape() {
    BlankShape shape;
    shape.Sides = NumberIn("Sides");
    shape.Tracks = NumberIn("Tracks");
    shape.Sectors = NumberIn("Sectors");
    shape.SectorBytes = NumberIn("Bytes");
    shape.Header = Field("Header").Checked;
    shape.Dragon = NewDiskFormat() == kDragonFormat;
    return shape;
}

int NewDiskFormat() {
    int index = 0;
    while (index + 1 < static_cast<int>(kFormatCaptions.size()) &&
           !Field("VDiskF", index).Checked) {
        ++index;
    }
    return index;
}

const std::string& NewDiskFormatCaption() {
    return Field("VDiskF", NewDiskFormat()).Text;
}

}  // namespace brindlemoor
