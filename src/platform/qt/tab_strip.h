#pragma once

#include <QWidget>

#include "platform/qt/control_ref.h"

namespace brindlemoor {

/// A row of tabs: the items of the record, of which one is chosen.
QWidget* MakeTabStrip(QWidget* parent, ControlRef place);
void ShowTabStrip(QWidget* widget, const Control& record, const Control& shown);

}  // namespace brindlemoor
