#pragma once

#include <string>

#include "workbench/control.h"

namespace brindlemoor {

/// A drag between the two file lists: the name of the control that it comes from, empty while
/// nothing is dragged, and that of the image that is the pointer meanwhile, `Drag` or `NoDrop`.
struct DragState {
    std::string Source;
    std::string Icon;
};

extern DragState FileDrag;

/// The pointer of the drag went from one control to another; null stands for none. Runs their
/// `DragLeave` and `DragEnter`.
void MoveFileDrag(const Control* left, const Control* entered);

/// The drag ends over a control, null for none: runs its `DragDrop`, if it has one.
void DropFileDrag(const Control* target);

/// The user gave the drag up.
void CancelFileDrag();

/// Sets the name of the popup's item and `PopupSide` as a drop of `File1` on `ListDirec` does.
void BeginCopyOfPcFiles();

/// Hangs the routines of the drag on `File1` and `ListDirec`: a move of the mouse with the left
/// button down starts one when something is selected there, and each of the two takes what comes
/// from the other.
void ConnectFileDrag();

}  // namespace brindlemoor
