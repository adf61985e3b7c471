#include "workbench/audio_convert.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/byte_helpers.h"
#include "core/numbers.h"
#include "core/settings.h"
#include "workbench/control_design.h"

namespace brindlemoor {

Window AudioConvert;

namespace {

const std::string kSection = "Audio Options";

/// The comment line in front of this window's texts in a language section.
constexpr std::string_view kTextsBegin = "Audio Convert";

constexpr char kTitle[] = "Audio";

/// The middle of the waves, whose amplitude is 110. Above 145 a sample would not fit a byte.
constexpr int kUsualVolume = 110;
constexpr int kHighestVolume = 145;
constexpr int kVolumePage = 10;

/// The background of what cannot be typed into: the window's.
constexpr std::int32_t kResultColour = 0xEBEEEC;

// Pixels
constexpr int kWindowWidth = 868;
constexpr int kWindowHeight = 356;
constexpr int kRowHeight = 24;
constexpr int kRowPitch = 32;
constexpr int kButtonHeight = 28;

/// A group of rows: the frame around it, and where labels and fields stand in it.
struct GroupRow {
    const char* Frame;  ///< its name; empty for the row above the frames
    const char* Caption;
    Place At;
    int LabelLeft;
    int LabelWidth;
    int FieldLeft;
    int FieldWidth;
    int FirstTop;
};

// The rows of the frames on the right stand beside rows of the frame on the left.
constexpr GroupRow kOutputGroup = {"", "", {}, 24, 194, 222, 150, 14};
constexpr GroupRow kVolumeGroup = {"", "", {}, 408, 160, 572, 272, 14};
constexpr GroupRow kWavGroup = {"WAV", "Formato WAV", {12, 48, 372, 256}, 12, 194, 210, 150, 28};
constexpr GroupRow kFrequencyGroup = {
    "Frequencies", "Frecuencias", {396, 48, 460, 92}, 12, 160, 176, 272, 28};
constexpr GroupRow kSilenceGroup = {"Silences", "Silencios", {396, 144, 460, 160}, 12, 160, 176,
                                    272,        28};

/// A label and the field that it names. The field is a combo box that takes free text where it has
/// items, and a box that only shows where it has none.
struct FieldRow {
    const char* Label;
    const char* Caption;
    const char* Field;
    std::vector<std::string> Items;
    const char* Standard;
    std::vector<std::string> ItemTags = {};
};

const FieldRow kVolume = {"LabelVolume", "Volumen:", "Volumen", {}, ""};

const std::vector<FieldRow> kOutput = {
    {"LabelOutput", "Formato de Salida :", "Output", {"WAV", "AUDIO"}, "WAV"}};

const std::vector<FieldRow> kWavFields = {
    {"LabelWavFormat", "Formato WAV:", "WavFormat", {"1 = PCM"}, "1"},
    {"LabelSampleRate",
     "Muestras X Seg:",
     "SampleRate",
     {"44100 (Default)", "22050", "11025"},
     "44100"},
    {"LabelBitsPerSample", "Bits X Muestra:", "BitsPerSample", {"8 (Default)", "16"}, "8"},
    {"LabelNumChannels", "Canales:", "NumChannels", {"1 - Mono (Default)", "2 - Stereo"}, "1"},
    {"LabelBlockAlining", "Alineac/Bloque:", "BlockAlin", {}, ""},
    {"LabelByteRate", "Bytes X Seg:", "ByteRate", {}, ""},
    {"LabelSize", "Tamaño aprox para 1 minuto :", "Size", {}, ""},
};

const std::vector<FieldRow> kFrequencyFields = {
    {"LabelZeros1200",
     "Ceros (0):",
     "Frec1200",
     {"1200 (Default)", "1100", "1094.68085106384 Empirical Toolshed"},
     "1200 (Default)",
     {"1200", "1100", "1094"}},
    {"LabelOnes2400",
     "Unos (1):",
     "Frec2400",
     {"2400 (Default)", "2200", "2100", "2004.54545454545 Empirical Toolshed", "2000"},
     "2400 (Default)",
     {"2400", "2200", "2100", "2004", "2000"}},
};

const std::vector<FieldRow> kSilenceFields = {
    {"LabelSilenceStart", "Al comienzo:", "SilenceStart", {"0", "500", "2000"}, "0"},
    {"LabelSilenceHeader", "Despúes de Cabezera:", "SilenceHeader", {"500", "0"}, "500"},
    {"LabelSilenceBlock", "Antes de cada bloque:", "SilenceBlock", {"0", "3"}, "0"},
    {"LabelIncrement", "Incremento en Bytes :", "Increment", {}, ""},
};

Control& Field(std::string_view name) {
    return ControlOf(AudioConvert, name);
}

// The table of controls

void Add(const GroupRow& group, Control control) {
    AudioConvert.Controls.push_back(Within(group.Frame, std::move(control)));
}

void AddLabel(const GroupRow& group, const FieldRow& row, int top) {
    Add(group,
        Designed(row.Label, ControlKind::Label,
                 {group.LabelLeft, top, group.LabelWidth, kRowHeight}, Windows1252(row.Caption)));
}

Control DesignedField(const FieldRow& row, Place place) {
    if (row.Items.empty()) {
        Control box = Designed(row.Field, ControlKind::TextBox, place);
        box.ReadOnly = true;
        box.BackColour = kResultColour;
        return box;
    }
    Control list = DesignedList(row.Field, place, row.Items, true);
    list.ItemTags = row.ItemTags;
    list.Text = row.Standard;
    return list;
}

void AddGroup(const GroupRow& group, const std::vector<FieldRow>& rows) {
    if (*group.Frame != '\0') {
        AudioConvert.Controls.push_back(
            Designed(group.Frame, ControlKind::Frame, group.At, group.Caption));
    }
    int top = group.FirstTop;
    for (const FieldRow& row : rows) {
        AddLabel(group, row, top);
        Add(group, DesignedField(row, {group.FieldLeft, top, group.FieldWidth, kRowHeight}));
        top += kRowPitch;
    }
}

void AddVolume() {
    const GroupRow& group = kVolumeGroup;
    AddLabel(group, kVolume, group.FirstTop);
    Control slider = Designed(kVolume.Field, ControlKind::Slider,
                              {group.FieldLeft, group.FirstTop, group.FieldWidth, kRowHeight});
    slider.Maximum = kHighestVolume;
    slider.LargeChange = kVolumePage;
    slider.Value = kUsualVolume;
    Add(group, slider);
}

void AddFoot() {
    constexpr int kTop = kWindowHeight - 12 - kButtonHeight;
    AudioConvert.Controls.push_back(Designed("Show", ControlKind::CheckBox,
                                             {12, kTop, 320, kButtonHeight},
                                             "Mostrar este menú al convertir"_w));
    AudioConvert.Controls.push_back(Designed("Default", ControlKind::Button,
                                             {484, kTop, 140, kButtonHeight}, "Predeterminado"));
    Control accept =
        Designed("Ok", ControlKind::Button, {644, kTop, 100, kButtonHeight}, "Aceptar");
    accept.Default = true;
    AudioConvert.Controls.push_back(accept);
    AudioConvert.Controls.push_back(
        Designed("Cancel", ControlKind::Button, {756, kTop, 100, kButtonHeight}, "Cancelar"));
}

// What the dialog does

/// The increment of the silences is nothing, and the size of a minute goes nowhere: the boxes
/// `Size` and `Increment` stay blank.
void ShowDerived() {
    const double blockAlign =
        TypedNumber(Field("NumChannels").Text) * TypedNumber(Field("BitsPerSample").Text) / 8;
    SetText(Field("BlockAlin"), FormatNumber(blockAlign, ""));
    const double byteRate = blockAlign * TypedNumber(Field("SampleRate").Text);
    SetText(Field("ByteRate"), FormatNumber(byteRate, ""));
}

void ShowVolume() {
    Control& slider = Field("Volumen");
    slider.ToolTip = DecimalText(slider.Value);
}

/// Runs `step` for every combo box, in the order of the table. The check box and the slider are
/// none, so they are neither loaded nor stored.
template <typename Step>
void ForEachComboBox(Step step) {
    for (Control& control : AudioConvert.Controls) {
        if (control.Kind == ControlKind::ComboBox) step(control);
    }
}

void Store() {
    ForEachComboBox([](const Control& combo) {
        std::string value = combo.Text;
        IniValue(kSection, combo.Name, value, "G");
    });
    AudioConvert.Open = false;
}

void SetStandard() {
    ForEachComboBox([](Control& combo) { SetListIndex(combo, 0); });
    SetValue(Field("Volumen"), kUsualVolume);
}

void Connect() {
    for (const char* name : {"SampleRate", "BitsPerSample", "NumChannels"}) {
        Field(name).Change = ShowDerived;
        Field(name).Click = ShowDerived;
    }
    Field("Volumen").Change = ShowVolume;
    Field("Ok").Click = Store;
    Field("Cancel").Click = [] { AudioConvert.Open = false; };
    Field("Default").Click = SetStandard;
}

// Opening

void LoadValues() {
    ForEachComboBox([](Control& combo) {
        std::string value = combo.Text;
        IniValue(kSection, combo.Name, value, "");
        SetText(combo, value);
    });
}

bool HasCaption(const Control& control) {
    switch (control.Kind) {
        case ControlKind::Label:
        case ControlKind::Button:
        case ControlKind::CheckBox:
        case ControlKind::Frame:
            return true;
        default:
            return false;
    }
}

/// Keys that name nothing with a caption are passed over.
void SetCaption(const std::string& line) {
    const std::size_t equals = line.find('=');
    if (equals == std::string::npos) return;
    Control* control = FindControl(AudioConvert, line.substr(0, equals));
    if (control != nullptr && HasCaption(*control)) SetText(*control, line.substr(equals + 1));
}

/// Takes the captions from the language section of the settings, where they stand behind a comment
/// line. An empty line ends them, as does the next section.
void LoadCaptions() {
    enum class Where { Outside, InLanguage, InTexts };
    const std::string header = "[" + Settings.CurrentLanguage + "]";
    Where where = Where::Outside;
    for (const std::string& line : Settings.SettingsLines) {
        if (line.empty() || line.front() == '[') where = Where::Outside;
        if (line == header) where = Where::InLanguage;
        if (where == Where::InLanguage && line.find(kTextsBegin) != std::string::npos) {
            where = Where::InTexts;
        }
        if (where == Where::InTexts) SetCaption(line);
    }
}

/// A screen reader says of a field what its label shows.
void NameFields() {
    for (std::size_t i = 1; i < AudioConvert.Controls.size(); ++i) {
        const Control& before = AudioConvert.Controls[i - 1];
        Control& control = AudioConvert.Controls[i];
        const bool named = before.Kind == ControlKind::Label && control.Kind != ControlKind::Label;
        if (named) control.AccessibleName = before.Text;
    }
}

void BuildTable() {
    AudioConvert = Window();
    AudioConvert.Name = "AudioConvert";
    AudioConvert.Caption = kTitle;
    AudioConvert.Width = kWindowWidth * kTwipsPerPixel;
    AudioConvert.Height = kWindowHeight * kTwipsPerPixel;
    AddGroup(kOutputGroup, kOutput);
    AddVolume();
    AddGroup(kWavGroup, kWavFields);
    AddGroup(kFrequencyGroup, kFrequencyFields);
    AddGroup(kSilenceGroup, kSilenceFields);
    AddFoot();
}

}  // namespace

void OpenAudioConvert() {
    BuildTable();
    Connect();
    LoadValues();
    LoadCaptions();
    NameFields();
    ShowDerived();
    ShowVolume();
}

}  // namespace brindlemoor
