#pragma once

#include <string>
#include <vector>

#include "support/disk_fixture.h"

namespace brindlemoor::test {

/// A disk state with the texts that the conversions of BASIC show, and a user who answers every
/// message with OK until the test says otherwise.
class BasicTest : public DiskTest {
  protected:
    void SetUp() override;

    /// From now on the user answers Cancel wherever there is such a button.
    void GiveUpAtErrors();

    /// `data` as text.
    static std::string Text(std::string data, bool addLineFeed = false);

    /// `text` as tokens for the open disk, which is of that family.
    static std::string Tokens(const std::string& text, int family);
};

/// Bytes from a text of hexadecimal digits; blanks divide as one likes.
std::string Hex(const std::string& digits);

/// A line of a program in tokens: some link that is not 0, the number, `body`, 0.
std::string TokenLine(int number, const std::string& body);

/// The file of a program whose lines are `lines`, with a length field that is right.
std::string CocoFile(const std::string& lines);
std::string DragonFile(const std::string& lines);

/// A line of a file in tokens, taken apart.
struct ProgramLine {
    int Link = 0;
    int Number = 0;
    std::string Body;
    std::size_t End = 0;  ///< offset behind the line's 0
};

/// The lines behind a header of that size, up to a link of 0.
std::vector<ProgramLine> LinesOf(const std::string& file, std::size_t header);

}  // namespace brindlemoor::test
