#include "workbench/header_info.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "core/failure_box.h"
#include "core/numbers.h"
#include "core/platform.h"
#include "core/runtime_failure.h"
#include "image/dk_header.h"
#include "workbench/header_info_design.h"

namespace brindlemoor {

Window HeaderInfo;

namespace {

constexpr int kMostByte = 255;
constexpr int kMostFlags = 15;
constexpr int kCompressionCodes = 8;

/// The numbers that the items of `SourceID` stand for, in their order. The last stands for all
/// numbers from its own up.
constexpr std::array<int, 7> kSourceIds = {0, 1, 2, 3, 80, 84, 127};
constexpr int kOtherEmulator = 6;

/// `Flags` and its check boxes are being brought together: their changes are not the user's.
bool joiningFlags = false;

Control& Field(std::string_view name, int index = 0) {
    return ControlOf(HeaderInfo, name, index);
}

double NumberIn(std::string_view name) {
    return TypedNumber(Field(name).Text);
}

void ShowNumber(std::string_view name, int number) {
    SetText(Field(name), DecimalText(number));
}

void NameChanged() {
    const int length = static_cast<int>(Field("DiskName").Text.size());
    ShowNumber("DiskNameLength", length);
    ShowNumber("HeaderLength", kDkHeaderBytes + length);
}

void FlagsChanged() {
    if (joiningFlags) return;
    joiningFlags = true;
    if (NumberIn("Flags") > kMostFlags) ShowNumber("Flags", kMostFlags);
    const int flags = static_cast<int>(std::max(NumberIn("Flags"), 0.0));
    for (int bit = 0; bit < kHeaderFlags; ++bit) {
        SetChecked(Field("Check", bit), (flags >> bit & 1) != 0);
    }
    joiningFlags = false;
}

void CheckClicked() {
    if (joiningFlags) return;
    joiningFlags = true;
    int flags = 0;
    for (int bit = 0; bit < kHeaderFlags; ++bit) {
        if (Field("Check", bit).Checked) flags |= 1 << bit;
    }
    ShowNumber("Flags", flags);
    joiningFlags = false;
}

/// The item that stands for an id, -1 when none does.
int SourceItem(double id) {
    if (id >= kSourceIds[kOtherEmulator]) return kOtherEmulator;
    const auto* const found = std::find(kSourceIds.begin(), kSourceIds.end(), id);
    return found == kSourceIds.end() ? -1 : static_cast<int>(found - kSourceIds.begin());
}

void LimitId() {
    if (NumberIn("ID") > kMostByte) ShowNumber("ID", kMostByte);
}

void IdLeft() {
    LimitId();
    SetListIndex(Field("SourceID"), SourceItem(NumberIn("ID")));
}

/// The last item keeps an id that it stands for already.
void SourceLeft() {
    LimitId();
    const int item = Field("SourceID").ListIndex;
    if (item < 0 || item == SourceItem(NumberIn("ID"))) return;
    ShowNumber("ID", kSourceIds[static_cast<std::size_t>(item)]);
}

void SignatureClicked() {
    Control& signature = Field("Signature");
    if (signature.ListIndex < 0) SetListIndex(signature, 0);
}

/// The two letters; the item that begins with just them is chosen.
void ShowSignature(const std::string& letters) {
    Control& signature = Field("Signature");
    signature.Text = letters;
    for (std::size_t item = 0; item < signature.Items.size(); ++item) {
        if (Left(signature.Items[item], kDkLength) == letters) {
            SetListIndex(signature, static_cast<int>(item));
        }
    }
}

/// The version with which the header is compatible is shown as its own version too; the byte of
/// the latter is not looked at. The length follows the name, which is all that will be written
/// behind the fixed fields.
void ShowHeader(const std::string& header) {
    const std::string version = VersionText(ByteAt(header, kDkCompatibility));
    const int lengths = ByteAt(header, kDkNameLength);
    const int nameLength = lengths / kCompressionCodes;
    ShowSignature(Left(header, kDkLength));
    SetText(Field("Version"), version);
    SetText(Field("CompatibilityVersion"), version);
    ShowNumber("ID", ByteAt(header, kDkSourceId));
    SetListIndex(Field("SourceID"), SourceItem(NumberIn("ID")));
    SetText(Field("SourceVersion"), VersionText(ByteAt(header, kDkSourceVersion)));
    ShowNumber("Tracks", ByteAt(header, kDkTracks));
    ShowNumber("Sides", ByteAt(header, kDkSides));
    ShowNumber("Flags", ByteAt(header, kDkFlags));
    ShowNumber("Compresion", lengths % kCompressionCodes);
    SetText(Field("DiskName"), CutBytes(header, kDkName, nameLength));
    NameChanged();
    const auto rest = static_cast<std::int64_t>(header.size());
    SetText(Field("CompresionVaribles"), CutBytes(header, kDkName + nameLength, rest));
}

DkHeaderFields TypedFields() {
    DkHeaderFields fields;
    fields.Signature = Field("Signature").Text;
    fields.Length = NumberIn("HeaderLength");
    fields.Version = Field("Version").Text;
    fields.Compatibility = Field("CompatibilityVersion").Text;
    fields.SourceId = NumberIn("ID");
    fields.SourceVersion = Field("SourceVersion").Text;
    fields.Tracks = NumberIn("Tracks");
    fields.Sides = NumberIn("Sides");
    fields.Flags = NumberIn("Flags");
    fields.Compression = NumberIn("Compresion");
    fields.NameLength = NumberIn("DiskNameLength");
    fields.Name = Field("DiskName").Text;
    return fields;
}

void FillEmpty(std::string_view name, const char* standard) {
    if (Field(name).Text.empty()) SetText(Field(name), standard);
}

bool MayMakeHeader() {
    if (!Disk.ImageHeader.empty()) return true;
    return Platform.ShowMessage("Desea crearle un encabezado a este disco?", Disk.AppTitle,
                                Buttons::OkCancel, MessageIcon::Question) == Answer::Ok;
}

/// A number that its field cannot hold leaves the header as it is and the dialog open.
void Accept() {
    if (Field("Signature").ListIndex < 0) SetListIndex(Field("Signature"), 1);
    FillEmpty("Tracks", "40");
    FillEmpty("Sides", "1");
    FillEmpty("Flags", "0");
    FillEmpty("HeaderLength", "12");
    if (MayMakeHeader()) {
        const auto failure = FailureOfStep([] { Disk.ImageHeader = DkHeaderOf(TypedFields()); });
        if (failure) {
            ShowFailure(*failure);
            return;
        }
    }
    HeaderInfo.Open = false;
}

void ConnectControls() {
    for (const char* name : {"Version", "CompatibilityVersion", "SourceVersion"}) {
        Field(name).Leave = [name] { SetText(Field(name), NormaliseVersion(Field(name).Text)); };
    }
    for (int bit = 0; bit < kHeaderFlags; ++bit) Field("Check", bit).Click = CheckClicked;
    Field("Flags").Change = FlagsChanged;
    Field("DiskName").Change = NameChanged;
    Field("ID").Leave = IdLeft;
    Field("SourceID").Leave = SourceLeft;
    Field("Signature").Click = SignatureClicked;
    Field("Signature").MouseDown = [](const MouseAt&) { SignatureClicked(); };
    Field("Aceptar").Click = Accept;
    Field("Cancelar").Click = [] { HeaderInfo.Open = false; };
}

}  // namespace

void BuildHeaderInfo() {
    HeaderInfo = DesignedHeaderInfo();
    ConnectControls();
}

void OpenHeaderInfo() {
    BuildHeaderInfo();
    if (Disk.ImageHeader.size() >= kDkHeaderBytes) ShowHeader(Disk.ImageHeader);
}

}  // namespace brindlemoor
