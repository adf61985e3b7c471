#pragma once

#include <string>

namespace brindlemoor {

/// Shows the folder of a PC file in the pane, and clicks the file in the list, which opens it; a
/// file that the list does not show leaves the click to the list's last entry. Fails with 76 when
/// there is no such folder.
void SelectPcFile(const std::string& path);

/// Hangs the commands of the menu `FilesMenu` on it, and those of the buttons `SaveBtn` and
/// `UndoBtn`.
void ConnectFilesMenu();

}  // namespace brindlemoor
