#include "convert/basic_to_text.h"

#include <algorithm>
#include <cstdint>
#include <string_view>
#include <vector>

#include "convert/basic_words.h"
#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "core/numbers.h"
#include "core/platform.h"
#include "core/runtime_failure.h"

namespace brindlemoor {

namespace {

/// Bytes from here to 0xFE are an error on either machine. Below, the Dragon has no words for the
/// bytes from 0xE8 on and shows them as characters.
constexpr int kFirstWrongCommand = 249;

/// The message of both kinds of error; the one before it, which is about commands, is not used.
constexpr int kWrongTokenMessage = 27;

constexpr int kCarriageReturn = 13;
constexpr std::string_view kLineEnd = "\r";

/// What a byte did to the line that it stands in.
enum class Step { kLineGoesOn, kLineEnded, kGivenUp };

/// A program on its way into text.
struct Decoding {
    std::string_view Data;  ///< what is read: the file, or what its length field leaves of it
    BasicMachine Machine = kCocoBasic;
    const std::vector<std::string>& Commands;
    const std::vector<std::string>& Functions;
    bool AddLineFeed = false;
    std::size_t At = 0;          ///< offset of the byte that is being read
    int Next = 0;                ///< the byte behind it; the last byte leaves it as it was
    std::string_view Word = {};  ///< the word shown last
    std::string Text = {};
};

/// The byte at `offset`, 0 behind the end.
int ByteOf(std::string_view data, std::size_t offset) {
    return offset < data.size() ? static_cast<unsigned char>(data[offset]) : 0;
}

/// The signed two-byte number at `offset`; 0 behind the end, and the one byte of half a number.
int NumberOf(std::string_view data, std::size_t offset) {
    return BigEndian(std::string(data.substr(std::min(offset, data.size()), 2)));
}

void ShowFault(const std::string& text) {
    Platform.ShowMessage(text, Disk.AppTitle, Buttons::Ok, MessageIcon::Exclamation);
}

/// Tells of the byte at `run.At`, which is no token. False when the user gives up.
bool GoOnAfterError(const Decoding& run, const std::string& kind, int index, int highest) {
    const std::string text = MessageText(kWrongTokenMessage) +
                             DecimalText(static_cast<std::int64_t>(run.At) + 1) + kind +
                             DecimalText(index) + " Max: " + DecimalText(highest);
    return Platform.ShowMessage(text, Disk.AppTitle, Buttons::OkCancel, MessageIcon::Critical) !=
           Answer::Cancel;
}

int HighestOf(const std::vector<std::string>& words) {
    return static_cast<int>(words.size()) - 1;
}

/// Chooses the word of the function token `byte`, which stands at `run.At` behind its prefix.
/// False when it is none and the user gives up.
bool ChooseFunction(Decoding& run, int byte) {
    const int index = byte - kFirstToken;
    const int highest = HighestOf(run.Functions);
    if (index < 0 || index > highest) return GoOnAfterError(run, " Fn: ", index, highest);
    const auto place = static_cast<std::size_t>(index);
    run.Word = run.Functions[place];
    CountWord(place + kFunctionRows, run.Machine);
    return true;
}

/// True when `token` is one of the words that files keep a colon in front of.
bool HidesColon(int token) {
    return token == kFirstToken + static_cast<int>(kTickWord) ||
           token == kFirstToken + static_cast<int>(kElseWord);
}

/// Chooses the word of `byte`, which is no prefix. False when it is wrong and the user gives up.
/// `run.At` goes to the last byte that the word takes.
bool ChooseWord(Decoding& run, int byte) {
    const int index = byte - kFirstToken;
    const int highest = HighestOf(run.Commands);
    if (index >= 0 && index <= highest) {
        const auto place = static_cast<std::size_t>(index);
        run.Word = run.Commands[place];
        CountWord(place, run.Machine);
    } else if (byte >= kFirstWrongCommand) {
        return GoOnAfterError(run, " Command: ", index, highest);
    } else if (byte == ':' && HidesColon(run.Next)) {
        // Both machines have the same words there. They do not count as decoded.
        ++run.At;
        run.Word = CocoCommands[static_cast<std::size_t>(run.Next - kFirstToken)];
    } else {
        run.Word = byte == kCarriageReturn ? kLineEnd : run.Data.substr(run.At, 1);
    }
    return true;
}

/// Shows what the byte at `run.At` stands for, and goes behind it.
Step DecodeByte(Decoding& run) {
    if (run.At >= run.Data.size()) {
        ShowFault("Final de archivo inesperado");
        return Step::kLineEnded;
    }
    int byte = ByteOf(run.Data, run.At);
    if (run.At + 1 < run.Data.size()) run.Next = ByteOf(run.Data, run.At + 1);
    if (byte == 0) byte = kCarriageReturn;
    bool goOn = false;
    if (byte == kFunctionPrefix) {
        ++run.At;
        byte = ByteOf(run.Data, run.At);
        goOn = ChooseFunction(run, byte);
    } else {
        goOn = ChooseWord(run, byte);
    }
    if (!goOn) return Step::kGivenUp;
    run.Text += run.Word;
    ++run.At;
    if (byte != kCarriageReturn) return Step::kLineGoesOn;
    if (run.AddLineFeed) run.Text += '\n';
    return Step::kLineEnded;
}

/// The text of the lines from `run.At` on; empty when the user gave up.
std::string DecodeLines(Decoding& run) {
    run.Text.reserve(run.Data.size() + run.Data.size() / 2);
    run.Text = kLineEnd;
    while (run.At + 2 <= run.Data.size()) {
        if (NumberOf(run.Data, run.At) == 0) break;
        const int number = NumberOf(run.Data, run.At + 2);
        run.Text += DecimalText(number < 0 ? number + 65536 : number);
        run.Text += ' ';
        run.At += 4;
        Step step = Step::kLineGoesOn;
        while (step == Step::kLineGoesOn) step = DecodeByte(run);
        if (step == Step::kGivenUp) return {};
    }
    return std::move(run.Text);
}

/// How many bytes of a Color Computer's file are read. They are two fewer than it should have: the
/// last link is left out, so that the text ends with the bytes.
std::size_t CocoBytes(std::string_view data) {
    const int length = NumberOf(data, 1);
    if (length < 0) Fail(kInvalidCall);
    return std::min(static_cast<std::size_t>(length) + 1, data.size());
}

}  // namespace

bool IsTokenized(const std::string& data) {
    const int mark = ByteOf(data, 0);
    return mark == kCocoFileMark || mark == kDragonFileMark;
}

std::string BasicToText(std::string& data, bool addLineFeed) {
    const bool coco = ByteOf(data, 0) == kCocoFileMark;
    const BasicMachine machine = coco ? kCocoBasic : kDragonBasic;
    const std::size_t size = coco ? CocoBytes(data) : data.size();
    if (!coco && ByteOf(data, kDragonHeaderBytes - 1) != kDragonHeaderEndMark) {
        ShowFault(
            "El archivo no contiene &hAA en el Byte 9\r\n"
            "Error !!! En encabezado DRAGON BAS Comprimido");
    }
    Decoding run{.Data = std::string_view(data).substr(0, size),
                 .Machine = machine,
                 .Commands = CommandsOf(machine),
                 .Functions = FunctionsOf(machine),
                 .AddLineFeed = addLineFeed,
                 .At = coco ? kCocoHeaderBytes : kDragonHeaderBytes};
    std::string text = DecodeLines(run);
    data.resize(size);
    return text;
}

}  // namespace brindlemoor
