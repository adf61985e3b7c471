#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace brindlemoor::test {

/// One call of a file command, and what it could read of the window.
struct CalledCommand {
    int Index = -1;
    std::int16_t Side = -1;
    std::string SaveTag;  ///< of items 6 and 7 of `PopMenu`
    std::string DeleteTag;
};

/// Takes the place of the file commands as long as it lives, and keeps what was called.
class CommandRecord {
  public:
    CommandRecord();
    ~CommandRecord();
    CommandRecord(const CommandRecord&) = delete;
    CommandRecord& operator=(const CommandRecord&) = delete;

    std::vector<CalledCommand> Calls;
};

}  // namespace brindlemoor::test
