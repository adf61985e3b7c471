#pragma once

#include <QTableView>
#include <cstdint>
#include <vector>

#include "platform/qt/control_ref.h"
#include "platform/qt/grid_model.h"

namespace brindlemoor {

/// Pixels of the frame around the grid, between its edge and its first column.
inline constexpr int kGridFrameWidth = 1;

/// The widget of a `Grid` record, and what it last showed of it.
struct GridView {
    QTableView* Widget = nullptr;
    GridModel* Model = nullptr;
    Grid* Record = nullptr;
    ControlRef Place;  ///< its control, for the events that all controls have
    unsigned ShownRevision = 0;
    bool ShownOnce = false;
    std::int32_t ShownBackColour = kNoColour;
    std::int32_t ShownAlternateColour = kNoColour;
    int ResizedColumn = 0;  ///< being dragged wider or narrower, 0 for none
    int HoverColumn = 0;    ///< under the mouse
    int PressedButton = 0;  ///< of the mouse, by its number, with the keys held and the place
    int PressedHeld = 0;
    QPoint PressedAt;
    int KeySection = 0;       ///< section of the header that keys were for last
    bool MovesByKey = false;  ///< the last thing that the user did in it was to press a key
};

/// The rows that are selected in the widget, by the record's numbers less one.
std::vector<bool> SelectedRows(const GridView& view);

/// Tells the record that the user went to the row of that cell, with what is selected now.
void ClickRow(const GridView& view, const QModelIndex& index);

}  // namespace brindlemoor
