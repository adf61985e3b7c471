#pragma once

#include <QLabel>
#include <QWidget>
#include <memory>
#include <vector>

#include "platform/qt/control_ref.h"
#include "platform/qt/grid_view.h"

namespace brindlemoor {

/// One control's widget, and what its record held when it was last shown.
struct ControlWidget {
    QWidget* Widget = nullptr;       ///< null for a hidden control
    std::shared_ptr<GridView> View;  ///< of a grid
    QLabel* SpokenLabel = nullptr;   ///< of a combo box: says its name, and is never shown
    Control Shown;                   ///< only what cannot be asked of the widget is kept
};

/// The widgets of a window's table, all inside `Area`, which stands for the window's inner part.
struct WindowWidgets {
    Window* Record = nullptr;
    QWidget* Area = nullptr;
    std::vector<ControlWidget> Controls;  ///< in the order of the table
};

/// Builds a widget for each control of the table, in tab order, and connects the user's actions
/// and the routines `Key` and `Leave` to the records. The widgets live as long as `area`, which
/// must not outlive `window`.
std::shared_ptr<WindowWidgets> BuildWidgets(Window& window, QWidget* area);

/// Shows every record that differs from its widget; controls added to the table meanwhile get
/// their widgets first.
void ShowRecords(WindowWidgets& widgets);

/// The widget of the control of that name, null when there is none.
QWidget* WidgetOf(const WindowWidgets& widgets, std::string_view name, int index = 0);

}  // namespace brindlemoor
