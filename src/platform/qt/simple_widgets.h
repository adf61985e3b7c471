#pragma once

#include <QWidget>

#include "platform/qt/control_ref.h"

namespace brindlemoor {

// Each kind of control has a pair of routines: one makes the widget, with the user's actions
// connected to the record; the other shows the record, `shown` being the record as it was shown
// last. Place, colours, font, tool tip and the like are common to all and set elsewhere.

QWidget* MakeLabel(QWidget* parent, ControlRef place);
void ShowLabel(QWidget* widget, const Control& record, const Control& shown);

QWidget* MakeTextBox(QWidget* parent, ControlRef place);
void ShowTextBox(QWidget* widget, const Control& record, const Control& shown);

QWidget* MakeComboBox(QWidget* parent, ControlRef place);
void ShowComboBox(QWidget* widget, const Control& record, const Control& shown);

QWidget* MakeCheckBox(QWidget* parent, ControlRef place);
void ShowCheckBox(QWidget* widget, const Control& record, const Control& shown);

QWidget* MakeButton(QWidget* parent, ControlRef place);
void ShowButton(QWidget* widget, const Control& record, const Control& shown);

QWidget* MakeOptionButton(QWidget* parent, ControlRef place);
void ShowOptionButton(QWidget* widget, const Control& record, const Control& shown);

QWidget* MakeFrame(QWidget* parent, ControlRef place);
QWidget* MakeHorizontalBar(QWidget* parent, ControlRef place);
QWidget* MakeVerticalBar(QWidget* parent, ControlRef place);
void ShowScrollBar(QWidget* widget, const Control& record, const Control& shown);

QWidget* MakeSlider(QWidget* parent, ControlRef place);
void ShowSlider(QWidget* widget, const Control& record, const Control& shown);

}  // namespace brindlemoor
