#include "convert/cas.h"

#include <utility>

#include "convert/cas_block.h"
#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "core/platform.h"
#include "core/runtime_failure.h"

namespace brindlemoor {

namespace {

// Body of the name block, which both directions share.
constexpr std::int64_t kNameLength = 8;
constexpr std::int64_t kTypeOffset = 8;
constexpr std::int64_t kAsciiOffset = 9;
constexpr std::int64_t kGapOffset = 10;
constexpr std::int64_t kFirstFieldOffset = 11;
constexpr std::int64_t kSecondFieldOffset = 13;
constexpr std::size_t kFieldLength = 2;

// First bytes of the forms of a file.
constexpr int kCarriageReturn = 13;
constexpr int kCocoBasicMark = 0xFF;
constexpr int kCocoBinaryMark = 0;

// A Color Computer's binary: mark, length, load; the segment; FF, 0000, exec.
constexpr std::int64_t kSegmentLoadOffset = 3;
constexpr std::int64_t kSegmentOffset = 5;
constexpr std::int64_t kSegmentFrame = 10;

constexpr std::int64_t kBasicBodyOffset = 3;

// The header of a Dragon's file: 55, type, load, length, exec, AA.
constexpr int kDragonMark = 0x55;
constexpr int kDragonEndMark = 0xAA;
constexpr std::int64_t kDragonLoadOffset = 2;
constexpr std::int64_t kDragonExecOffset = 6;
constexpr std::int64_t kDragonEndOffset = 8;
constexpr std::int64_t kDragonHeader = 9;

/// Four characters for each type.
const std::string kExtensions = ".BAS.DAT.BIN.TXT.CAS";
constexpr std::int64_t kExtensionLength = 4;

/// A file as the tape has it: the name block's fields and the contents.
struct TapeFile {
    std::string Name;
    std::int16_t Type = kBasicFile;
    std::int16_t AsciiFlag = 0;
    std::int16_t GapFlag = 0;
    std::string FirstField = std::string(kFieldLength, '\0');
    std::string SecondField = std::string(kFieldLength, '\0');
    std::string Body;
};

/// An address of two bytes; where the file is too short for it, zeros fill it up.
std::string Field(const std::string& bytes, std::int64_t offset) {
    std::string field = CutBytes(bytes, offset, kFieldLength);
    field.resize(kFieldLength);
    return field;
}

std::string From(const std::string& data, std::int64_t offset) {
    return CutBytes(data, offset, static_cast<std::int64_t>(data.size()));
}

// File to tape

bool HasDragonHeader(const std::string& data) {
    return ByteOr(data, 0, 0) == kDragonMark && ByteOr(data, kDragonEndOffset, 0) == kDragonEndMark;
}

/// A Color Computer names the exec address first, a Dragon's header the load address; the tape
/// keeps whichever order the file has.
void TakeHeader(TapeFile& file, const std::string& data) {
    file.FirstField = Field(data, kDragonLoadOffset);
    file.SecondField = Field(data, kDragonExecOffset);
}

void TakeSegment(TapeFile& file, const std::string& data) {
    const auto size = static_cast<std::int64_t>(data.size());
    file.Type = kMachineFile;
    file.AsciiFlag = 0;
    file.FirstField = Right(data, kFieldLength);
    file.SecondField = Field(data, kSegmentLoadOffset);
    file.Body = CutBytes(data, kSegmentOffset, size - kSegmentFrame);
}

void TakeRawData(TapeFile& file, const std::string& data) {
    TakeHeader(file, data);
    file.Body = data;
    if (file.Type != kMachineFile) return;
    Platform.ShowMessage("Error en archivo BIN", Disk.AppTitle, Buttons::Ok,
                         MessageIcon::Exclamation);
}

/// Takes `data` for the form that its first byte stands for.
void TakeFile(TapeFile& file, const std::string& data) {
    const int first = ByteOr(data, 0, -1);
    if (first == kCarriageReturn) {
        file.Type = kBasicFile;
        file.AsciiFlag = kAsciiFlag;
        file.Body = data;
    } else if (first == kCocoBasicMark) {
        file.Type = kBasicFile;
        file.AsciiFlag = 0;
        file.Body = From(data, kBasicBodyOffset);
    } else if (first == kCocoBinaryMark) {
        TakeSegment(file, data);
    } else if (HasDragonHeader(data)) {
        file.AsciiFlag = 0;
        TakeHeader(file, data);
        file.Body = From(data, kDragonHeader);
    } else {
        TakeRawData(file, data);
    }
    file.GapFlag = file.AsciiFlag;
}

std::string NameBlock(const TapeFile& file) {
    std::string body = file.Name;
    body.resize(kNameLength, ' ');
    body += static_cast<char>(file.Type);
    body += static_cast<char>(file.AsciiFlag);
    body += static_cast<char>(file.GapFlag);
    return CasMakeBlock(body + file.FirstField + file.SecondField, kNameBlock);
}

std::string WriteTape(const TapeFile& file) {
    const std::string leader(kLeaderLength, kLeaderByte);
    const std::size_t frame = CasMakeBlock("", kDataBlock).size();
    const std::size_t blocks = file.Body.size() / kLongestBody + 3;
    std::string stream;
    stream.reserve(2 * leader.size() + file.Body.size() + blocks * frame + kLongestBody);
    stream += leader + NameBlock(file) + leader;
    for (std::size_t at = 0; at < file.Body.size(); at += kLongestBody) {
        stream += CasMakeBlock(file.Body.substr(at, kLongestBody), kDataBlock);
        // With gaps a leader would stand between the blocks. They were never made to work: the
        // conversion stops here, on purpose.
        if (file.GapFlag == kAsciiFlag) Fail(kCannotPerform);
    }
    return stream + CasMakeBlock("", kEndBlock);
}

// Tape to file

void TakeNameBlock(TapeFile& file, const std::string& body) {
    file.Name = TrimRight(Left(body, kNameLength));
    file.Type = static_cast<std::int16_t>(ByteOr(body, kTypeOffset, 0));
    file.AsciiFlag = static_cast<std::int16_t>(ByteOr(body, kAsciiOffset, 0));
    file.GapFlag = static_cast<std::int16_t>(ByteOr(body, kGapOffset, 0));
    file.FirstField = Field(body, kFirstFieldOffset);
    file.SecondField = Field(body, kSecondFieldOffset);
}

/// Reads blocks up to the first end block, empty block, or place where no sync byte follows.
void ReadTape(TapeFile& file, const std::string& stream) {
    std::size_t offset = 0;
    for (;;) {
        const CasBlock block = ReadBlockAt(stream, offset);
        if (block.Type == kNameBlock) TakeNameBlock(file, block.Body);
        if (block.Type == kDataBlock) file.Body += block.Body;
        if (block.Type == kEndBlock || block.Body.empty() || !block.Found) return;
    }
}

/// The low 16 bits of a length, high byte first.
std::string LengthField(const std::string& body) {
    return {static_cast<char>(body.size() >> 8 & 0xFF), static_cast<char>(body.size() & 0xFF)};
}

std::string CocoForm(const TapeFile& file) {
    if (file.Type == kBasicFile && file.AsciiFlag == 0) {
        return std::string(1, '\xFF') + LengthField(file.Body) + file.Body;
    }
    if (file.Type == kMachineFile) {
        return std::string(1, '\0') + LengthField(file.Body) + file.SecondField + file.Body +
               std::string("\xFF\0\0", 3) + file.FirstField;
    }
    return file.Body;
}

/// The Dragon's programs in BASIC have the type 1.
std::string DragonForm(const TapeFile& file) {
    const std::int16_t type = file.Type == kBasicFile ? std::int16_t{1} : file.Type;
    return std::string{static_cast<char>(kDragonMark), static_cast<char>(type)} + file.FirstField +
           LengthField(file.Body) + file.SecondField +
           std::string(1, static_cast<char>(kDragonEndMark)) + file.Body;
}

std::string DiskForm(const TapeFile& file) {
    if (Disk.DiskFamily == kDecb) return CocoForm(file);
    if (Disk.DiskFamily == kDragon) return DragonForm(file);
    return {};
}

}  // namespace

std::string CasConvert(const std::string& data, std::string& name, std::int16_t& type,
                       std::int16_t& asciiFlag, std::int16_t& gapFlag, std::int32_t /*load*/,
                       std::int32_t /*exec*/) {
    TapeFile file;
    file.Name = name.substr(0, name.find('.'));
    file.Type = type;
    file.AsciiFlag = asciiFlag;
    file.GapFlag = gapFlag == 0 ? std::int16_t{1} : gapFlag;
    std::string result;
    if (IsCasStream(data)) {
        ReadTape(file, data);
        result = DiskForm(file);
        file.Name += CutBytes(kExtensions, kExtensionLength * file.Type, kExtensionLength);
    } else {
        TakeFile(file, data);
        result = WriteTape(file);
        file.Type = kTapeFile;
        file.Name += '.';
    }
    name = std::move(file.Name);
    type = file.Type;
    asciiFlag = file.AsciiFlag;
    gapFlag = file.GapFlag;
    return result;
}

}  // namespace brindlemoor
