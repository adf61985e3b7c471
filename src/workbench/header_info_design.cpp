#include "workbench/header_info_design.h"

#include <array>
#include <string>
#include <utility>
#include <vector>

#include "core/numbers.h"
#include "workbench/control_design.h"

namespace brindlemoor {

namespace {

using enum ControlKind;

constexpr int kRowHeight = 32;
constexpr int kFieldHeight = 24;
constexpr int kLeftField = 144;   ///< where the fields of the first column begin
constexpr int kRightLabel = 388;  ///< and the labels and fields of the second
constexpr int kRightField = 520;
constexpr int kMargin = 12;
constexpr int kMostNameLetters = 31;  ///< five bits count them
constexpr int kFrameTop = 22;         ///< of what stands in a frame, below its title

struct FlagRow {
    const char* Caption;
    const char* Note;
};

constexpr std::array<FlagRow, kHeaderFlags> kFlagRows = {
    {{"Write protect", "Bit 0"},
     {"Lock (advisory)",
      "Bit 1: Lock Disk (Warning: No Open) Already Open in multi-task o network"},
     {"Lock (mandatory)", "Bit 2: Lock Disk (No Open) Already Open in multi-task o network"},
     {"Disk-set not last Disk", "Bit 3:  [0=last disk, 1=not last Disk]"}}};

/// The controls as they are added, each frame's numbered labels among them.
struct Design {
    Window Dialog;
    std::string Frame;
    int Labels = 0;

    void Add(Control control) { Dialog.Controls.push_back(Within(Frame, std::move(control))); }

    void AddLabel(Place place, const std::string& text) {
        Add(Designed("Label" + DecimalText(++Labels), Label, place, text));
    }

    /// A field with the caption that stands before it.
    void AddField(int labelLeft, const std::string& caption, Control field) {
        const int left = field.Left / kTwipsPerPixel;
        const int top = field.Top / kTwipsPerPixel;
        AddLabel({labelLeft, top, left - labelLeft - 4, kFieldHeight}, caption);
        Add(Spoken(caption, std::move(field)));
    }
};

int RowTop(int row) {
    return kFrameTop + row * kRowHeight;
}

Place LeftPlace(int row, int width) {
    return {kLeftField, RowTop(row), width, kFieldHeight};
}

Place RightPlace(int row, int width) {
    return {kRightField, RowTop(row), width, kFieldHeight};
}

void AddVersion(Design& design, int labelLeft, const std::string& caption, const std::string& name,
                Place place) {
    place.Width = 64;
    design.AddField(labelLeft, caption, Designed(name, TextBox, place));
    design.AddLabel({place.Left + 72, place.Top, 100, kFieldHeight}, "Max 15.15");
}

void AddHeaderFrame(Design& design) {
    design.Add(Designed("FrameHeader", Frame, {kMargin, 8, 716, 256}, "HEADER"));
    design.Frame = "FrameHeader";
    design.AddField(
        kMargin, "Signature:",
        DesignedList("Signature", LeftPlace(0, 160), {"dk = VDK", "DK = DOS ROM!"}, false));
    design.AddField(kRightLabel,
                    "Header length:", Designed("HeaderLength", TextBox, RightPlace(0, 64)));
    AddVersion(design, kMargin, "VDK version:", "Version", LeftPlace(1, 0));
    AddVersion(design, kRightLabel, "Compatibility:", "CompatibilityVersion", RightPlace(1, 0));
    design.AddField(kMargin, "Source ID:", Designed("ID", TextBox, LeftPlace(2, 48)));
    design.Add(
        Spoken("Source ID:",
               DesignedList("SourceID", {kLeftField + 56, RowTop(2), 172, kFieldHeight},
                            {"0 = created by hand", "1 = header stub", "2 = mkdsk.exe",
                             "3 = other tools", "P = PC-Dragon", "T = T3", ">126 = other emulator"},
                            false)));
    AddVersion(design, kRightLabel, "Source version:", "SourceVersion", RightPlace(2, 0));
    design.AddField(kMargin, "Number of tracks:",
                    DesignedList("Tracks", LeftPlace(3, 80), {"35", "40", "80"}, true));
    design.AddField(kRightLabel,
                    "Number of sides:", DesignedList("Sides", RightPlace(3, 80), {"1", "2"}, true));
    design.AddField(kMargin, "Compresion Bit 0-2 (0-5):",
                    Designed("Compresion", TextBox, {180, RowTop(4), 48, kFieldHeight}));
    design.AddField(kRightLabel, "Name length Bit 3-7 (0-31):",
                    Designed("DiskNameLength", TextBox, {572, RowTop(4), 48, kFieldHeight}));
    Control name = WithFont(Designed("DiskName", TextBox, LeftPlace(5, 300)), FontKind::Fixed);
    name.MaxLength = kMostNameLetters;
    design.AddField(kMargin, "Disk name:", name);
    design.AddField(
        kMargin, "Behind the name:",
        WithFont(Designed("CompresionVaribles", TextBox, LeftPlace(6, 556)), FontKind::Fixed));
    design.Dialog.Controls.back().ReadOnly = true;
}

void AddFlagsFrame(Design& design) {
    design.Frame.clear();
    design.Add(Designed("FrameFlags", Frame, {kMargin, 272, 716, 158}, "Flags"));
    design.Frame = "FrameFlags";
    design.AddField(kMargin, "Value::",
                    Designed("Flags", TextBox, {kLeftField + 40, kFrameTop, 48, kFieldHeight}));
    design.AddLabel({kLeftField + 100, kFrameTop, 440, kFieldHeight},
                    "Bits 4-7 = Unused in VDK v1.0");
    int top = kFrameTop + 30;
    for (int bit = 0; bit < kHeaderFlags; ++bit) {
        const FlagRow& row = kFlagRows[static_cast<std::size_t>(bit)];
        Control box = Designed("Check", CheckBox, {kMargin, top, 168, kFieldHeight}, row.Caption);
        box.Index = bit;
        box.ToolTip = row.Note;
        design.Add(box);
        design.AddLabel({kLeftField + 40, top, 528, kFieldHeight}, row.Note);
        top += 25;
    }
}

}  // namespace

Window DesignedHeaderInfo() {
    Design design;
    design.Dialog.Name = "HeaderInfo";
    design.Dialog.Caption = "Header Info";
    design.Dialog.Width = 740 * kTwipsPerPixel;
    design.Dialog.Height = 478 * kTwipsPerPixel;
    AddHeaderFrame(design);
    AddFlagsFrame(design);
    design.Frame.clear();
    Control accept = Designed("Aceptar", Button, {528, 442, 96, 28}, "Aceptar");
    accept.Default = true;
    design.Add(accept);
    design.Add(Designed("Cancelar", Button, {632, 442, 96, 28}, "Cancelar"));
    return std::move(design.Dialog);
}

}  // namespace brindlemoor
