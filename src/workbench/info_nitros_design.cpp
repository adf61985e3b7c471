#include "workbench/info_nitros_design.h"

#include <array>
#include <cstddef>
#include <string>
#include <utility>

#include "core/byte_helpers.h"
#include "workbench/control_design.h"

namespace brindlemoor {

namespace {

using enum ControlKind;

constexpr int kMargin = 12;
constexpr int kRowHeight = 28;
constexpr int kFieldHeight = 24;
constexpr int kLabelWidth = 304;
constexpr int kFieldLeft = kMargin + kLabelWidth + 4;
constexpr int kNumberWidth = 88;
constexpr int kDateWidth = 136;
constexpr int kNameWidth = 272;
constexpr int kFrameLeft = 612;
constexpr int kFrameWidth = 260;
constexpr int kBoxHeight = 22;
constexpr int kFirstFieldWithoutBytes = 15;

constexpr std::array<const char*, kInfoFields> kLabels = {
    "Number of Sectors on Media (TOT) :",
    "Track Size (in sectors) (TKS) :",
    "Number of Bytes in the Allocation Bit Map (MAP) :",
    "Number of Sectors per Cluster (BIT) :",
    "Starting Sector of the Root Directory (DIR) :",
    "Owner’s User Number (OWN) :",
    "Disk Attributes (ATT) :",
    "Disk Identification (for Internal Use) (DSK) :",
    "Disk Format, Density, Number of Sides (FMT) :",
    "Number of Sectors Per Track (SPT) :",
    "Reserved Data for Future Use (Not Used) (RES) :",
    "Starting Sector of the Boot Strap File (BT ) :",
    "Size of the Boot Strap file (in Bytes) (BSZ) :",
    "Date And Time of Creation (Y:M:D:H:M) (DAT) :",
    "Volume Name (NAM) :",
    "Path Descriptor Options (OPT) :",
    "Media Integrity (SYN) :",
    "Map Starting Sector (MLS) :",
    "Media Logical Sector Size (LSZ) :",
    "Sector 0 Version ID (S0V) :",
};

constexpr std::array<const char*, kAttributeBits> kAttributes = {
    "Bit 0 Read",         "Bit 1 Write",          "Bit 2 Execute",     "Bit 3 Public read",
    "Bit 4 Public write", "Bit 5 Public execute", "Bit 6 Single user", "Bit 7 Directory"};

/// A bit of the disk's format, and what it says when it is 0 and 1.
struct FormatRow {
    const char* Caption;
    const char* Clear;
    const char* Set;
};

constexpr std::array<FormatRow, kFormatBits> kFormats = {
    {{"Bit 0 Number of sides:", "0 = Single Side   1 side", "1 = Double Side 2 sides"},
     {"Bit 1 Density:", "0 = Single  (40 Track)", "1 = Double (80 Track)"},
     {"Bit 2 Track density:", "0 = Single   (48 tracks per inch)",
      "1 = Double (96 tracks per inch)"}}};

int RowTop(int row) {
    return kMargin + row * kRowHeight;
}

int FieldWidth(int index) {
    if (index == kNameField) return kNameWidth;
    return index == kDateField ? kDateWidth : kNumberWidth;
}

Control Field(int index, const std::string& caption) {
    Control field =
        Designed("Text", TextBox, {kFieldLeft, RowTop(index), FieldWidth(index), kFieldHeight});
    field.Index = index;
    field.Font = FontKind::Fixed;
    field.Enabled = index < kFirstFieldWithoutBytes;
    if (index == kNameField) field.MaxLength = kVolumeNameWidth;
    return Spoken(caption, field);
}

Control Caption(int index, const std::string& caption) {
    Control label =
        Designed("Label1", Label, {kMargin, RowTop(index), kLabelWidth, kFieldHeight}, caption);
    label.Index = index;
    return label;
}

/// Points from a number to the frame of its check boxes.
Control Arrow(const std::string& name, int index) {
    const int left = kFieldLeft + kNumberWidth + 100;
    return Designed(name, Label, {left, RowTop(index), 48, kFieldHeight}, "<-----");
}

/// The attributes as letters, beside their number.
Control AttributeLetters() {
    Control letters = WithFont(
        Designed("Attr", TextBox,
                 {kFieldLeft + kNumberWidth + 8, RowTop(kAttributesField), 84, kFieldHeight}),
        FontKind::Fixed);
    letters.ReadOnly = true;
    return Spoken("Attr", letters);
}

void AddFields(Window& dialog) {
    for (int index = 0; index < kInfoFields; ++index) {
        const std::string caption = Windows1252(kLabels[static_cast<std::size_t>(index)]);
        dialog.Controls.push_back(Caption(index, caption));
        dialog.Controls.push_back(Field(index, caption));
        if (index == kAttributesField) dialog.Controls.push_back(AttributeLetters());
    }
    dialog.Controls.push_back(Arrow("Label2", kAttributesField));
    dialog.Controls.push_back(Arrow("Label3", kFormatField));
    Control note = Designed("Label4", Label, {kFrameLeft, RowTop(kNameField) + 4, kFrameWidth, 36},
                            "Which the Last Character Hasthe Most Significant Bit Set");
    note.WordWrap = true;
    dialog.Controls.push_back(note);
}

void AddAttributes(Window& dialog) {
    dialog.Controls.push_back(
        Designed("Frame1", Frame, {kFrameLeft, 2, kFrameWidth, 202}, "Disk Attibutes :"));
    for (int bit = 0; bit < kAttributeBits; ++bit) {
        Control box = Designed("Att", CheckBox, {12, 22 + bit * kBoxHeight, 230, kBoxHeight},
                               kAttributes[static_cast<std::size_t>(bit)]);
        box.Index = bit;
        dialog.Controls.push_back(Within("Frame1", box));
    }
}

void AddFormats(Window& dialog) {
    constexpr int kLineHeight = 17;
    dialog.Controls.push_back(
        Designed("Frame2", Frame, {kFrameLeft, 206, kFrameWidth, 196}, "Media Attributes"));
    int top = 22;
    for (int bit = 0; bit < kFormatBits; ++bit) {
        const FormatRow& row = kFormats[static_cast<std::size_t>(bit)];
        Control box = Designed("DiskFormat", CheckBox, {12, top, 230, kBoxHeight}, row.Caption);
        box.Index = bit;
        dialog.Controls.push_back(Within("Frame2", box));
        top += kBoxHeight;
        int line = 0;
        for (const char* text : {row.Clear, row.Set}) {
            Control note = Designed("Label5", Label, {34, top, 220, kLineHeight}, text);
            note.Index = bit * 2 + line++;
            dialog.Controls.push_back(Within("Frame2", note));
            top += kLineHeight;
        }
    }
}

void AddButtons(Window& dialog) {
    const int top = RowTop(kInfoFields) - 32;
    Control accept =
        Designed("Aceptar", Button, {kFrameLeft + kFrameWidth - 200, top, 96, 28}, "Aceptar");
    accept.Default = true;
    dialog.Controls.push_back(accept);
    dialog.Controls.push_back(
        Designed("Cancelar", Button, {kFrameLeft + kFrameWidth - 96, top, 96, 28}, "Cancelar"));
}

}  // namespace

Window DesignedInfoNitros() {
    Window dialog;
    dialog.Name = "InfoNitros";
    dialog.Caption = "Info OS9/NitrOS-9";
    dialog.Width = (kFrameLeft + kFrameWidth + kMargin) * kTwipsPerPixel;
    dialog.Height = (RowTop(kInfoFields) + kMargin - 4) * kTwipsPerPixel;
    AddFields(dialog);
    AddAttributes(dialog);
    AddFormats(dialog);
    AddButtons(dialog);
    return dialog;
}

}  // namespace brindlemoor
