#include "convert/text_to_basic.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <vector>

#include "convert/basic_to_text.h"
#include "convert/basic_words.h"
#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "core/numbers.h"

namespace brindlemoor {

namespace {

constexpr char kQuote = '"';

/// More bytes than any program has whose links are below 0x8000.
constexpr std::size_t kLongestProgram = 0x6000;

/// The eight bytes of a text from some place on, so that a word is compared at once.
using Window = std::uint64_t;

/// A word to be found, and what stands for it.
struct Word {
    Window Letters = 0;
    Window Mask = 0;         ///< the bytes of a window that the word takes
    std::size_t Length = 0;  ///< letters
    std::size_t Place = 0;   ///< in its list
    bool Command = false;
    std::string Token;
};

/// The words of a machine by their first letter, in the order in which they are tried: commands
/// before functions, each in the order of its list.
using WordIndex = std::array<std::vector<Word>, 256>;

/// The window at `offset`; zero bytes, which no word has, stand for what is behind the end.
Window WindowAt(std::string_view text, std::size_t offset) {
    Window window = 0;
    if (offset + sizeof window <= text.size()) {
        std::memcpy(&window, text.data() + offset, sizeof window);
    } else {
        std::memcpy(&window, text.data() + offset, text.size() - offset);
    }
    return window;
}

std::string TokenOf(std::size_t place, bool command) {
    std::string token;
    if (!command) token += static_cast<char>(kFunctionPrefix);
    if (command && (place == kTickWord || place == kElseWord)) token += ':';
    return token + static_cast<char>(kFirstToken + static_cast<int>(place));
}

void AddWords(WordIndex& index, const std::vector<std::string>& words, bool command) {
    for (std::size_t place = 0; place < words.size(); ++place) {
        const std::string& letters = words[place];
        if (letters.empty()) continue;
        index[static_cast<unsigned char>(letters.front())].push_back(
            {.Letters = WindowAt(letters, 0),
             .Mask = WindowAt(std::string(letters.size(), '\xFF'), 0),
             .Length = letters.size(),
             .Place = place,
             .Command = command,
             .Token = TokenOf(place, command)});
    }
}

WordIndex IndexOf(BasicMachine machine) {
    WordIndex index;
    AddWords(index, CommandsOf(machine), true);
    AddWords(index, FunctionsOf(machine), false);
    return index;
}

const WordIndex& WordsOf(BasicMachine machine) {
    static const std::array<WordIndex, 2> kWords = {IndexOf(kCocoBasic), IndexOf(kDragonBasic)};
    return kWords[machine];
}

/// What a line holds so far. Words are known while the sum is 0: an open quote within a remark or
/// within data, one of them alone, brings it back to 0.
struct LineState {
    int InQuote = 0;  ///< -1 behind an odd number of double quotes
    int InData = 0;   ///< 1 behind DATA, up to a colon outside quotes
    int InRem = 0;    ///< 1 behind REM or '
    int InName = 0;   ///< set and cleared by each letter: it never keeps a word from being known
};

/// A text on its way into tokens.
struct Encoding {
    std::string_view Text;
    const WordIndex& Words;
    std::size_t At = 0;        ///< offset of the byte that is being read
    bool BlanksToCome = true;  ///< false: no blank stands behind `At`
    std::string Result = {};
};

bool IsLetter(char byte) {
    return (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z');
}

bool IsDigit(char byte) {
    return byte >= '0' && byte <= '9';
}

/// Goes to the next byte that is no blank. False when there is none.
bool SkipBlanks(Encoding& run) {
    while (run.At < run.Text.size() && run.Text[run.At] == ' ') ++run.At;
    return run.At < run.Text.size();
}

/// Stores the number at the start of a line, and goes behind the blank that ends it. A text without
/// a blank has no more numbers.
void TakeLineNumber(Encoding& run) {
    const std::size_t blank = run.BlanksToCome ? run.Text.find(' ', run.At) : std::string::npos;
    run.BlanksToCome = blank != std::string_view::npos;
    if (!run.BlanksToCome) return;
    std::string digits;
    while (IsDigit(run.Text[run.At])) digits += run.Text[run.At++];
    run.Result += NumberToBytes(LeadingNumber(digits), 2, "I");
    run.At = blank + 1;
}

const Word* WordAt(const Encoding& run) {
    const Window window = WindowAt(run.Text, run.At);
    for (const Word& word : run.Words[static_cast<unsigned char>(run.Text[run.At])]) {
        if ((window & word.Mask) == word.Letters) return &word;
    }
    return nullptr;
}

/// Stores the token of the word at `run.At`, if there is one, and goes behind the word.
bool TakeWord(Encoding& run, LineState& state) {
    if (run.Text[run.At] == '?') {
        // The question mark itself follows as a character of the text.
        run.Result += TokenOf(kPrintWord, true);
        return false;
    }
    const Word* word = WordAt(run);
    if (word == nullptr) return false;
    run.Result += word->Token;
    run.At += word->Length;
    if (word->Command) {
        if (word->Place == kRemWord || word->Place == kTickWord) state.InRem = 1;
        if (word->Place == kDataWord) state.InData = 1;
    }
    return true;
}

/// Stores a byte as it stands, after what it means for the line.
void CopyByte(Encoding& run, LineState& state) {
    const char byte = run.Text[run.At++];
    if (byte == kQuote) {
        state.InQuote = -1 - state.InQuote;
    } else if (byte == ':' && state.InQuote == 0) {
        state.InData = 0;
    }
    const bool plain = state.InQuote == 0 && state.InData == 0 && state.InRem == 0;
    if (plain && IsLetter(byte)) state.InName = -1;
    run.Result += byte;
    if (IsLetter(byte) || IsDigit(byte)) state.InName = 0;
}

/// Stores the text of a line, and goes behind the first byte of its end. A text that has become too
/// long is left where it is: its link cannot be stored.
void TakeLineText(Encoding& run) {
    LineState state;
    while (run.At < run.Text.size() && run.Result.size() <= kLongestProgram) {
        if (run.Text[run.At] == '\r' || run.Text[run.At] == '\n') {
            ++run.At;
            return;
        }
        const int sum = state.InQuote + state.InData + state.InRem + state.InName;
        if (sum != 0 || !TakeWord(run, state)) CopyByte(run, state);
    }
}

/// Stores a line and its link: the address behind the line, in a memory where the byte 0 of the
/// result would have the address `base`. False when the text ended before the line had any; what
/// was stored for it stays.
bool TakeLine(Encoding& run, int base) {
    const std::size_t start = run.Result.size();
    run.Result.append(2, '\0');
    if (run.Text[run.At] == '\r') ++run.At;
    if (!SkipBlanks(run)) return false;
    TakeLineNumber(run);
    if (!SkipBlanks(run)) return false;
    TakeLineText(run);
    if (run.At < run.Text.size() && run.Text[run.At] == '\n') ++run.At;
    const double link = base + static_cast<double>(run.Result.size() + 1);
    run.Result.replace(start, 2, NumberToBytes(link, 2, "I"));
    run.Result += '\0';
    return true;
}

/// The header of a program; `lengthAt` is where its length goes.
std::string Header(BasicMachine machine, std::size_t& lengthAt) {
    const auto bytesOf = [](int value) {
        return std::string{static_cast<char>(value >> 8), static_cast<char>(value & 0xFF)};
    };
    if (machine == kCocoBasic) {
        lengthAt = 1;
        return static_cast<char>(kCocoFileMark) + bytesOf(0);
    }
    lengthAt = 4;
    return static_cast<char>(kDragonFileMark) + std::string("\1") + bytesOf(kDragonFirstLine) +
           bytesOf(0) + bytesOf(kDragonExec) + static_cast<char>(kDragonHeaderEndMark);
}

}  // namespace

std::string TextToBasic(const std::string& text) {
    const BasicMachine machine = Disk.DiskFamily == kDecb ? kCocoBasic : kDragonBasic;
    Encoding run{.Text = text, .Words = WordsOf(machine)};
    run.Text = run.Text.substr(0, run.Text.find_last_not_of("\r\n") + 1);
    std::size_t lengthAt = 0;
    run.Result.reserve(std::min(run.Text.size() + run.Text.size() / 2, kLongestProgram));
    run.Result = Header(machine, lengthAt);
    const std::size_t header = run.Result.size();
    const int base =
        (machine == kCocoBasic ? kCocoFirstLine : kDragonFirstLine) - static_cast<int>(header);
    // A last byte alone is no line.
    while (run.At + 1 < run.Text.size() && TakeLine(run, base)) {
    }
    run.Result.append(2, '\0');
    const auto length = static_cast<double>(run.Result.size() - header);
    run.Result.replace(lengthAt, 2, NumberToBytes(length, 2, "I"));
    return std::move(run.Result);
}

}  // namespace brindlemoor
