#include "workbench/info_nitros.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <string>
#include <string_view>

#include "core/byte_helpers.h"
#include "core/dates.h"
#include "core/disk_state.h"
#include "core/failure_box.h"
#include "core/numbers.h"
#include "core/runtime_failure.h"
#include "filesystems/os9_text.h"
#include "workbench/info_nitros_design.h"

namespace brindlemoor {

Window InfoNitros;

namespace {

/// Bytes of each field, one behind the other from byte 0 of the image on. The last five fields
/// have none.
constexpr std::array<int, kInfoFields> kWidths = {3, 1, 2, 2, 3,  2, 1, 2, 1, 2,
                                                  2, 3, 2, 5, 32, 0, 0, 0, 0, 0};
constexpr int kDateWidth = 5;
constexpr int kNumberWidth = 3;  ///< a field of that width or less holds a number

constexpr const char* kNumberPattern = "###,###";
constexpr std::string_view kAttributeLetters = "rweRWESD";

/// Check boxes are being brought in line with their number: that is no click of the user's, and
/// the number keeps the bits that have no box.
bool followingNumber = false;

Control& Field(int index) {
    return ControlOf(InfoNitros, "Text", index);
}

int WidthOf(int index) {
    return kWidths.at(static_cast<std::size_t>(index));
}

double FirstBeyond(int width) {
    return std::pow(256.0, width);
}

/// The number that a text stands for: of its first ten characters, without commas and points.
double NumberOf(const std::string& text) {
    constexpr int kCharactersRead = 10;
    const std::string number = ReplaceText(Left(text, kCharactersRead), ",", "");
    return LeadingNumber(ReplaceText(number, ".", ""));
}

void CheckBits(const char* name, int count, int value) {
    followingNumber = true;
    for (int bit = 0; bit < count; ++bit) {
        SetChecked(ControlOf(InfoNitros, name, bit), (value >> bit & 1) != 0);
    }
    followingNumber = false;
}

int SumOfBits(const char* name, int count) {
    int value = 0;
    for (int bit = 0; bit < count; ++bit) {
        if (ControlOf(InfoNitros, name, bit).Checked) value |= 1 << bit;
    }
    return value;
}

void ShowAttributeLetters() {
    std::string letters;
    for (int bit = 0; bit < kAttributeBits; ++bit) {
        if (!ControlOf(InfoNitros, "Att", bit).Checked) continue;
        letters += kAttributeLetters[static_cast<std::size_t>(bit)];
    }
    SetText(ControlOf(InfoNitros, "Attr"), letters);
}

/// What a field shows for its bytes, of which a short image has fewer. A number is unsigned.
std::string TextOfBytes(std::string bytes, int width) {
    if (width == kDateWidth) {
        double date = 0;
        return bytes.empty() ? std::string() : Os9DateBytes(bytes, date);
    }
    if (width > kNumberWidth) return Os9NameText(bytes);
    return FormatNumber(BigEndian(std::string(1, '\0') + bytes), kNumberPattern);
}

/// The number of a field as it can be written: within what its bytes hold.
double NumberToWrite(int index) {
    return std::clamp(NumberOf(Field(index).Text), 0.0, FirstBeyond(WidthOf(index)) - 1);
}

std::string BytesOfDate(const std::string& text) {
    if (Trim(text).empty()) return std::string(kDateWidth, '\0');
    return Os9DateField(DateOfText(text), kDateWidth);
}

std::string BytesOfField(int index) {
    const int width = WidthOf(index);
    if (width == 0) return {};
    if (width == kDateWidth) return BytesOfDate(Field(index).Text);
    if (width > kNumberWidth) return Os9NameText(Field(index).Text);
    return Right(NumberToBytes(NumberToWrite(index), kNumberWidth, "I"), width);
}

/// `sector` with the fields' bytes over its own. Of a field with fewer bytes than its width, such
/// as a shorter name, the old bytes stay behind them.
std::string WithFields(std::string sector) {
    std::size_t position = 0;
    for (int index = 0; index < kInfoFields; ++index) {
        const auto width = static_cast<std::size_t>(WidthOf(index));
        const std::string bytes = BytesOfField(index);
        for (std::size_t i = 0; i < std::min(bytes.size(), width); ++i) {
            if (position + i < sector.size()) sector[position + i] = bytes[i];
        }
        position += width;
    }
    return sector;
}

void ConnectControls() {
    for (int index = 0; index < kInfoFields; ++index) {
        Field(index).Change = [index] { InfoFieldChanged(index); };
    }
    for (int bit = 0; bit < kAttributeBits; ++bit) {
        ControlOf(InfoNitros, "Att", bit).Click = AttributesClicked;
    }
    for (int bit = 0; bit < kFormatBits; ++bit) {
        ControlOf(InfoNitros, "DiskFormat", bit).Click = FormatClicked;
    }
    ControlOf(InfoNitros, "Aceptar").Click = AcceptInfoDialog;
    ControlOf(InfoNitros, "Cancelar").Click = CancelInfoDialog;
}

}  // namespace

void BuildInfoNitros() {
    InfoNitros = DesignedInfoNitros();
    ConnectControls();
}

void LoadInfoDialog() {
    BuildInfoNitros();
    if (Disk.ImageBytes.empty() || Disk.DiskFamily != kOs9) return;
    int position = 0;
    for (int index = 0; index < kInfoFields; ++index) {
        const int width = WidthOf(index);
        // What the disk holds is shown as it is: nobody typed it.
        if (width > 0) {
            Field(index).Text = TextOfBytes(CutBytes(Disk.ImageBytes, position, width), width);
        }
        position += width;
    }
    InfoFieldChanged(kAttributesField);
    InfoFieldChanged(kFormatField);
}

void AcceptInfoDialog() {
    std::string sector = Left(Disk.ImageBytes, kSectorSize);
    const auto failure = FailureOfStep([&sector] { sector = WithFields(sector); });
    if (failure) {
        ShowFailure(*failure);
        return;
    }
    Disk.ImageBytes.replace(0, sector.size(), sector);
    InfoNitros.Open = false;
}

void CancelInfoDialog() {
    InfoNitros.Open = false;
}

void InfoFieldChanged(int index) {
    double value = NumberOf(Field(index).Text);
    const double beyond = FirstBeyond(WidthOf(index));
    if (value < 0) {
        SetText(Field(index), "");
        value = 0;
    } else if (value >= beyond) {
        value = beyond - 1;
        SetText(Field(index), FormatNumber(value, kNumberPattern));
    }
    if (index == kAttributesField) {
        CheckBits("Att", kAttributeBits, static_cast<int>(value));
        ShowAttributeLetters();
    } else if (index == kFormatField) {
        CheckBits("DiskFormat", kFormatBits, static_cast<int>(value));
    }
}

void AttributesClicked() {
    if (followingNumber) return;
    ShowAttributeLetters();
    SetText(Field(kAttributesField), DecimalText(SumOfBits("Att", kAttributeBits)));
}

void FormatClicked() {
    if (followingNumber) return;
    SetText(Field(kFormatField), DecimalText(SumOfBits("DiskFormat", kFormatBits)));
}

}  // namespace brindlemoor
