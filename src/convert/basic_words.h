#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

// The words of BASIC. In a program as the machines store it, a word is one byte from 0x80 on, its
// token; a function's token has the prefix 0xFF in front. A token is 0x80 plus the word's place in
// the list of its machine, so the order of a list is its meaning. Each ROM added its own words
// behind those of the ROMs before it.

namespace brindlemoor {

/// The machines whose BASIC is known; also the columns of `WordUsage`.
enum BasicMachine : std::size_t { kCocoBasic = 0, kDragonBasic = 1 };

inline constexpr int kFirstToken = 0x80;
inline constexpr int kFunctionPrefix = 0xFF;

/// Places of words that have rules of their own, the same in the lists of both machines.
inline constexpr std::size_t kRemWord = 2;
inline constexpr std::size_t kTickWord = 3;
inline constexpr std::size_t kElseWord = 4;
inline constexpr std::size_t kDataWord = 6;
inline constexpr std::size_t kPrintWord = 7;

/// Color BASIC, Extended, Disk and Super Extended: tokens 0x80 to 0xF8, functions 0x80 to 0xAD.
/// The function 0xA8 is an empty text.
extern std::vector<std::string> CocoCommands;
extern std::vector<std::string> CocoFunctions;

/// Dragon BASIC and Dragon DOS: tokens 0x80 to 0xE7, functions 0x80 to 0xA8.
extern std::vector<std::string> DragonCommands;
extern std::vector<std::string> DragonFunctions;

/// How often each word was decoded in this run of the program: a command in the row of its place,
/// a function 128 rows below; the columns are `BasicMachine`. For the record: nothing reads it.
inline constexpr std::size_t kUsageRows = 256;
inline constexpr std::size_t kFunctionRows = 128;
extern std::array<std::array<std::int16_t, 2>, kUsageRows> WordUsage;

/// Fills the four lists. They stay for the whole run; a second call changes nothing.
void BuildBasicWords();

/// The lists of a machine, built now if they were not yet.
const std::vector<std::string>& CommandsOf(BasicMachine machine);
const std::vector<std::string>& FunctionsOf(BasicMachine machine);

/// Adds one to the counter in `row` (0 to 255). A counter that is full, at 32,767, stays there: a
/// record that nobody reads must not keep a program from being shown.
inline void CountWord(std::size_t row, BasicMachine machine) {
    std::int16_t& counter = WordUsage[row][machine];
    if (counter < INT16_MAX) ++counter;
}

}  // namespace brindlemoor
