#pragma once

#include <string>

namespace brindlemoor {

/// A button of the mouse went down in `ListDirec`, at a place in pixels. With rows selected, the
/// one clicked last becomes the current one (`DirCount`). Button 1 on a cell of column 3 or 4 pops
/// up the menu of types or of formats; the choice goes to the cell, to the row `DirCount` and to
/// the image. Fails with 13 when it is no type: a cell that holds a type of two digits takes the
/// first two characters of the item chosen.
void CellMouseDown(int button, int shift, int x, int y);

/// Pops up `menu` with its items, the array `items`, of which those are checked that begin with
/// `value`; with `disabled` all of them are greyed. The item that is checked afterwards, the last
/// if there are several, gives its first characters, as many as `value` has. Where these differ,
/// `value` becomes them and `changed` -1, and the modified state is looked at.
void ChooseFromMenu(const std::string& menu, const std::string& items, std::string& value,
                    bool disabled, int& changed);

/// Hangs them on the grid and on the items of the two menus.
void ConnectCellMenu();

}  // namespace brindlemoor
