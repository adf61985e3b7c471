#pragma once

#include <QWidget>

#include "platform/qt/control_ref.h"

namespace brindlemoor {

// The lists of the PC's drives, folders and files. Entries are known by their place in the record,
// so that a name's own bytes never pass through the widget. The pairs of routines are those of
// simple_widgets.h.

QWidget* MakeDriveList(QWidget* parent, ControlRef place);
void ShowDriveList(QWidget* widget, const Control& record, const Control& shown);

/// Folders with an icon, indented by their depth. A press or an arrow key marks one, a double
/// click runs `DoubleClick`.
QWidget* MakeFolderList(QWidget* parent, ControlRef place);
void ShowFolderList(QWidget* widget, const Control& record, const Control& shown);

/// Files, several of which can be chosen with Ctrl and Shift. A press and an arrow key count as a
/// click on the entry. On an entry that was chosen before, the button's release does: what is
/// pressed there may be dragged.
QWidget* MakeFileList(QWidget* parent, ControlRef place);
void ShowFileList(QWidget* widget, const Control& record, const Control& shown);

}  // namespace brindlemoor
