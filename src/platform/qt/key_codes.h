#pragma once

#include <QKeyEvent>

namespace brindlemoor {

/// The code by which event routines know the key of `event`: letters and digits by their capital's
/// code, the double quote as 34, keys without a character by the code of the `KeyCode` list and
/// its neighbours (arrows 37 to 40, Insert 45, function keys from 112). 0 for any other key, so
/// that no character is taken for one of those keys.
int KeyCodeOf(const QKeyEvent& event);

/// Whether the key asks for the menu that the right button brings up: Menu, or Shift+F10.
bool IsMenuKey(const QKeyEvent& event);

}  // namespace brindlemoor
