#pragma once

#include <cstdint>
#include <functional>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "core/picture.h"

namespace brindlemoor {

/// Window units in a pixel. Places and sizes of controls are in these units ("twips").
inline constexpr int kTwipsPerPixel = 15;

/// The colour of a control, cell or grid that has none of its own. Others are 0x00BBGGRR.
inline constexpr std::int32_t kNoColour = -1;

enum class ControlKind {
    Label,
    TextBox,
    ComboBox,
    CheckBox,
    Button,
    OptionButton,  ///< one of an array, of which one is chosen
    Frame,
    HorizontalBar,
    VerticalBar,
    Slider,
    TabStrip,  ///< its items are the tabs
    Picture,
    Grid,
    DriveList,
    FolderList,
    FileList,
    /// Lines of fixed pitch that only event routines change; they also move the caret.
    CaretText,
    Hidden,  ///< holds data only: image lists, drag cursors
};

enum class FontKind { Normal, Fixed, FixedBold, Small, Title };

/// Keys that event routines get, by their code.
enum KeyCode : int {
    kKeyTab = 9,
    kKeyEnter = 13,
    kKeyEscape = 27,
    kKeyPageUp = 33,
    kKeyDoubleQuote = 34,  ///< the code of Page Down as well
    kKeyPageDown = 34,
    kKeyEnd = 35,
    kKeyHome = 36,
    kKeyLeft = 37,
    kKeyUp = 38,
    kKeyRight = 39,
    kKeyDown = 40,
    kKeyDelete = 46,
};

/// Pixels of the frame around a picture's surface, at each side.
inline constexpr int kPictureFrame = 1;

/// Where the mouse is over a control, and which of its buttons are down.
struct MouseAt {
    int X = 0;  ///< pixels from the control's left edge; over a picture those of its surface
    int Y = 0;
    bool LeftDown = false;
    bool RightDown = false;
};

/// One control of a window: a record of what it shows and the routines of its events. Change it
/// through the `Set` routines below, so that its change routine runs as a window system runs it.
struct Control {
    std::string Name;
    ControlKind Kind = ControlKind::Label;
    int Index = 0;          ///< place in a control array, 0 for a single control
    std::string Container;  ///< name of the frame that holds it; empty: the window itself

    // Twips, in the container.
    int Left = 0;
    int Top = 0;
    int Width = 0;
    int Height = 0;

    std::string Text;  ///< caption, or what stands in a text or combo box
    std::string Tag;
    std::string ToolTip;
    std::string AccessibleName;  ///< what a screen reader says of it; empty: what it shows itself
    FontKind Font = FontKind::Normal;
    bool RightAligned = false;
    bool WordWrap = false;
    bool ReadOnly = false;  ///< text box that only shows
    int MaxLength = 0;      ///< text box: characters that can be typed, 0 for any number

    /// Text and combo boxes: what is selected when the control takes the focus; in a `CaretText`
    /// the caret. Bytes of `Text` in front of it, a line break counting 2.
    int SelStart = 0;
    int SelLength = 0;
    unsigned FocusRequests = 0;  ///< grows with each `GiveFocus`

    std::vector<std::string> Items;     ///< lists: what is shown
    std::vector<std::string> ItemTags;  ///< drive and folder lists: the path of each item
    std::vector<int> ItemIndents;       ///< folder list: depth of each item
    std::vector<bool> ItemSelected;     ///< file list: the selection, beside `ListIndex`
    int ListIndex = -1;                 ///< 0-based, -1 none
    bool Editable = false;              ///< combo box that takes free text
    std::string Path;                   ///< drive, folder and file lists: where they stand
    std::string Pattern;                ///< file list: patterns separated by ";"

    // Scroll bars and sliders
    int Value = 0;
    int Minimum = 0;
    int Maximum = 0;
    int LargeChange = 1;

    /// Pictures: what is shown inside the frame. The record that owns the pixels stands beside the
    /// window, for as long as the program runs.
    Picture* Surface = nullptr;

    /// Pictures: pixels of the surface that lie left of and above what is shown, where the surface
    /// is larger than the control.
    int ViewLeft = 0;
    int ViewTop = 0;

    bool Default = false;  ///< button that the Enter key presses
    bool Checked = false;
    bool Enabled = true;
    bool Visible = true;
    std::int32_t BackColour = kNoColour;
    std::int32_t ForeColour = kNoColour;

    std::function<void()> Change;  ///< text or value differs, by the program or the user
    std::function<void()> Click;   ///< pressed, or a list entry chosen by anyone
    std::function<void()> DoubleClick;
    std::function<void()> RightClick;
    std::function<void()> Leave;       ///< the focus goes elsewhere
    std::function<bool(int key)> Key;  ///< a key went down; true: the control drops it
    std::function<void()> Resize;      ///< width or height differs
    std::function<void(const MouseAt&)> MouseDown;
    std::function<void(const MouseAt&)> MouseMove;  ///< over a list: only while an entry is held
    std::function<void(int steps)> Wheel;  ///< the mouse wheel turned, towards the user above 0

    std::function<void()> GotFocus;

    // CaretText: a key of a character, behind `Key`; the mouse put the caret at `SelStart`.
    std::function<void(int character)> KeyPress;
    std::function<void()> CaretPlaced;

    // A drag by the mouse from the control named `source`.
    std::function<void(const std::string& source)> DragEnter;
    std::function<void(const std::string& source)> DragLeave;
    std::function<void(const std::string& source)> DragDrop;
};

/// One item of a menu array. A caption "-" is a separator.
struct MenuItem {
    std::string Caption;
    std::string Tag;
    bool Checked = false;
    bool Enabled = true;
    std::string Shortcut;  ///< "Ctrl+O"
    std::string SubMenu;   ///< name of the menu array behind it
};

/// A menu array: the menu bar, a menu, or a popup.
struct Menu {
    std::string Name;
    std::vector<MenuItem> Items;
    bool CanGrow = false;  ///< further elements may be loaded
    std::function<void(int index)> Click;
};

/// A window: its controls in tab order and its menus.
struct Window {
    std::string Name;
    std::string Caption;
    int Width = 0;  ///< inner size without the menu bar, twips
    int Height = 0;
    int MostHeight = std::numeric_limits<int>::max();  ///< to which the program can set it now
    std::vector<Control> Controls;
    std::vector<Menu> Menus;

    /// A window of its own buttons is on the screen; a routine that clears it closes the window.
    bool Open = false;

    /// Comes before an item of the menu bar; false: the item is not to run.
    std::function<bool()> BeforeMenu;

    std::function<void(int width, int height)> Resize;  ///< the user gave it an inner size, twips
    std::function<void()> Close;  ///< the user closed it, by other means than its buttons
};

/// The control, or the menu, of that name, case aside. Fails with 730 when there is none.
Control& ControlOf(Window& window, std::string_view name, int index = 0);
Menu& MenuOf(Window& window, std::string_view name);

/// The item of that index, from 0. Fails with 9 when the menu has none.
MenuItem& ItemOf(Menu& menu, int index);

/// The same, or null when there is none.
Control* FindControl(Window& window, std::string_view name, int index = 0);
Menu* FindMenu(Window& window, std::string_view name);

/// Stores the text; runs `Change` when it differs. An editable combo box keeps its `ListIndex`
/// only while the text is that item's.
void SetText(Control& control, const std::string& text);

/// Chooses an entry of a list, -1 for none: the text follows it, and `Click` runs when the index
/// differs. An index outside the list fails with 9.
void SetListIndex(Control& control, int index);

/// Chooses an entry as the user's mouse does: `Click` runs also when it was chosen already.
void ClickListEntry(Control& control, int index);

/// Replaces item `index` of a list, or adds it behind the last. The text follows when the item is
/// the one chosen; no event runs.
void SetItem(Control& control, int index, const std::string& item);

/// Stores the value of a scroll bar or slider; runs `Change` when it differs. Outside its range: 9.
void SetValue(Control& control, int value);

/// Stores the check of a check box; runs `Click` when it differs.
void SetChecked(Control& control, bool checked);

/// Chooses one of an array of option buttons: the others are no longer checked, and `Click` runs
/// when it was not chosen before.
void ChooseOption(Window& window, std::string_view name, int index);

/// Pixels of a picture's surface along a side of `twips` of its control.
inline int SurfacePixels(int twips) {
    return twips / kTwipsPerPixel - 2 * kPictureFrame;
}

/// Stores the size of a control in twips; a picture's surface takes the size inside its frame and
/// is cleared. Runs `Resize` when the size differs.
void SetSize(Control& control, int width, int height);

/// Has the control take the focus, with `SelLength` bytes from `SelStart` on selected, when the
/// records are shown next.
inline void GiveFocus(Control& control) {
    ++control.FocusRequests;
}

/// Runs an event routine, if there is one.
inline void Raise(const std::function<void()>& routine) {
    if (routine) routine();
}

}  // namespace brindlemoor
