#pragma once

#include <QString>
#include <QWidget>
#include <string>

#include "platform/qt/control_ref.h"

namespace brindlemoor {

// A control of kind CaretText: unwrapped lines of fixed pitch with a block as caret. The widget
// itself changes nothing: keys go to `Key` and `KeyPress`, a place that the mouse points at goes to
// `SelStart` and `CaretPlaced`, and the record is shown. Tab and Escape belong to the window.

QWidget* MakeCaretText(QWidget* parent, ControlRef place);
void ShowCaretText(QWidget* widget, const Control& record, const Control& shown);

/// The caret's place in characters, one for each line break, for one in bytes of `text`, of which a
/// line break (CR LF) takes two; and the way back. A place within a line break is its beginning.
int PlaceInLines(const std::string& text, int bytes);
int PlaceInBytes(const std::string& text, int characters);

}  // namespace brindlemoor
