#include "support/command_record.h"

#include "convert/file_commands.h"
#include "workbench/principal.h"

namespace brindlemoor::test {

CommandRecord::CommandRecord() {
    RunFileCommand = [this](int index) {
        Menu& menu = MenuOf(Principal, "PopMenu");
        Calls.push_back({index, PopupSide, ItemOf(menu, 6).Tag, ItemOf(menu, 7).Tag});
    };
}

CommandRecord::~CommandRecord() {
    RunFileCommand = FileCommand;
}

}  // namespace brindlemoor::test
