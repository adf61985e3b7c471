#pragma once

#include <cstdint>

namespace brindlemoor {

/// The number of entries selected in `File1` (`kPcSide`) or of rows selected in `ListDirec`
/// (`kDiskSide`).
int SelectedCount(std::int16_t side);

/// What the right button does on a list: with something selected there, sets `PopupSide`, writes
/// what is selected into the captions of `PopMenu` behind the items' tags, and pops up `MenuPop`.
void ShowFilePopup(std::int16_t side);

/// What the Delete key does on a list: sets `PopupSide` and runs the delete command.
void DeleteByKey(std::int16_t side);

/// Hangs the popup on the right button of both lists, the file commands on its menus, and the
/// Delete key on `File1`.
void ConnectFilePopup();

}  // namespace brindlemoor
