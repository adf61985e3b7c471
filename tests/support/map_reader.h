#pragma once

#include <string>
#include <utility>
#include <vector>

namespace brindlemoor::test {

/// The map as text, a line for each of `tracks` tracks and a letter for each of the 18 places of a
/// track: "." white, "s" selected file, "o" other file, "f" free, "X" overlap, "t" table, "d"
/// directory, "D" selected directory, "B" black. A strip that is not of one colour from top to
/// bottom is "?", any other colour "#".
std::vector<std::string> MapRows(int tracks);

/// What `MapRows` is expected to give: `usual` for every track but those that are listed.
std::vector<std::string> MapTable(int tracks, const std::string& usual,
                                  const std::vector<std::pair<int, std::string>>& others);

/// What is expected where there is no track: a bitmap may go on behind the disk's last one.
enum class NoTrack { White, AnyColour };

/// Expects the outlines of `tracks` tracks of 18 sectors.
void ExpectOutlines(int tracks, NoTrack elsewhere = NoTrack::White);

}  // namespace brindlemoor::test
