#include "workbench/colour_options.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "core/numbers.h"
#include "core/platform.h"
#include "core/settings.h"
#include "workbench/control_design.h"
#include "workbench/principal.h"

namespace brindlemoor {

Window Opciones;

namespace {

constexpr int kTitleMessage = 30;
constexpr int kFirstLabelMessage = 36;
constexpr int kColours = 3;

constexpr std::array<const char*, kColours> kDesignLabels = {
    "Color de las filas alternantes:", "Color de error:", "Color de Continuaciones:"};

/// `OptionsBusy` is the window's flag that keeps the change routine of the boxes quiet while the
/// program writes in them.
bool optionsBusy = false;

Control& Part(std::string_view name, int index = 0) {
    return ControlOf(Opciones, name, index);
}

ColourOption& OptionOf(int index) {
    return Settings.ColourOptions[static_cast<std::size_t>(index)];
}

/// White on a dark colour, black on a light one; green counts most for the eye, blue least.
std::int32_t ReadableOn(std::int32_t colour) {
    if (colour == kNoColour) return kNoColour;
    const int red = colour & 0xFF;
    const int green = colour >> 8 & 0xFF;
    const int blue = colour >> 16 & 0xFF;
    const bool light = red * 299 + green * 587 + blue * 114 > 128 * 1000;
    return light ? 0 : 0xFFFFFF;
}

void ShowColour(int index, std::int32_t colour) {
    Control& box = Part("Color", index);
    optionsBusy = true;
    SetText(box, DecimalText(colour));
    optionsBusy = false;
    box.BackColour = colour;
    box.ForeColour = ReadableOn(colour);
}

/// Stores what the option holds, which is not what was chosen: no routine moves that there, so
/// that the file's own colours come back at the next start.
void StoreOption(int index) {
    StoreSetting(OptionOf(index).Name, DecimalText(OptionOf(index).Value));
}

/// The button's click, and any change of the box by the user.
void AskForColour(int index) {
    if (optionsBusy) return;
    const std::int32_t colour = Platform.ChooseColour(Part("Color", index).BackColour);
    ShowColour(index, colour);
    if (index == kAlternateRowColour) ListDirec.AlternateRowBackColour = colour;
    StoreOption(index);
}

void UseDefaults() {
    for (int index = 0; index < kColours; ++index) {
        ShowColour(index, OptionOf(index).Default);
        StoreOption(index);
    }
    ListDirec.AlternateRowBackColour =
        WholeNumber32(TextAsNumber(Part("Color", kAlternateRowColour).Text));
}

void Caption(int index, const std::string& text) {
    Part("Label", index).Text = text;
    for (const char* name : {"Color", "BtnColores"}) {
        Control& control = Part(name, index);
        control = Spoken(text, control);
    }
}

}  // namespace

void BuildColourOptions() {
    using enum ControlKind;
    Opciones = Window();
    Opciones.Name = "Opciones";
    Opciones.Caption = "Opciones";
    Opciones.Width = 460 * kTwipsPerPixel;
    Opciones.Height = 146 * kTwipsPerPixel;
    for (int index = 0; index < kColours; ++index) {
        const int top = 12 + index * 34;
        for (Control control :
             {Designed("Label", Label, {12, top, 288, 26}),
              WithFont(Designed("Color", TextBox, {304, top, 100, 26}), FontKind::Fixed),
              Designed("BtnColores", Button, {410, top, 38, 26}, "...")}) {
            control.Index = index;
            Opciones.Controls.push_back(control);
        }
        Caption(index, kDesignLabels[static_cast<std::size_t>(index)]);
        Part("Color", index).Change = [index] { AskForColour(index); };
        Part("BtnColores", index).Click = [index] { AskForColour(index); };
    }
    Opciones.Controls.push_back(Designed("Normal", Button, {304, 114, 144, 28}, "Normal"));
    Part("Normal").Click = UseDefaults;
}

void OpenColourOptions() {
    Opciones.Caption = MessageText(kTitleMessage);
    for (int index = 0; index < kColours; ++index) {
        Caption(index, MessageText(kFirstLabelMessage + index));
        ShowColour(index, OptionOf(index).Value);
    }
}

}  // namespace brindlemoor
