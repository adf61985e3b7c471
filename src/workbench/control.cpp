#include "workbench/control.h"

#include <algorithm>

#include "core/runtime_failure.h"

namespace brindlemoor {

namespace {

char LowerLetter(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + ('a' - 'A')) : letter;
}

/// Compares names, case aside. Controls are looked up in loops over rows: nothing is copied.
bool SameName(std::string_view left, std::string_view right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char a, char b) { return LowerLetter(a) == LowerLetter(b); });
}

}  // namespace

Control* FindControl(Window& window, std::string_view name, int index) {
    for (Control& control : window.Controls) {
        if (control.Index == index && SameName(control.Name, name)) return &control;
    }
    return nullptr;
}

Menu* FindMenu(Window& window, std::string_view name) {
    for (Menu& menu : window.Menus) {
        if (SameName(menu.Name, name)) return &menu;
    }
    return nullptr;
}

Control& ControlOf(Window& window, std::string_view name, int index) {
    Control* control = FindControl(window, name, index);
    if (control == nullptr) Fail(kControlNotFound);
    return *control;
}

Menu& MenuOf(Window& window, std::string_view name) {
    Menu* menu = FindMenu(window, name);
    if (menu == nullptr) Fail(kControlNotFound);
    return *menu;
}

MenuItem& ItemOf(Menu& menu, int index) {
    if (index < 0 || static_cast<std::size_t>(index) >= menu.Items.size()) Fail(kIndexRange);
    return menu.Items[static_cast<std::size_t>(index)];
}

void SetText(Control& control, const std::string& text) {
    if (control.Text == text) return;
    control.Text = text;
    const auto chosen = static_cast<std::size_t>(control.ListIndex);
    if (control.ListIndex >= 0 && chosen < control.Items.size() && control.Items[chosen] != text) {
        control.ListIndex = -1;
    }
    Raise(control.Change);
}

namespace {

void Choose(Control& control, int index) {
    if (index < -1 || index >= static_cast<int>(control.Items.size())) Fail(kIndexRange);
    control.ListIndex = index;
    const bool showsItem = control.Kind == ControlKind::ComboBox;
    if (showsItem) {
        control.Text = index < 0 ? std::string() : control.Items[static_cast<std::size_t>(index)];
    }
    if (control.Kind == ControlKind::FileList) {
        control.ItemSelected.assign(control.Items.size(), false);
        if (index >= 0) control.ItemSelected[static_cast<std::size_t>(index)] = true;
    }
    Raise(control.Click);
}

}  // namespace

void SetListIndex(Control& control, int index) {
    if (control.ListIndex != index) Choose(control, index);
}

void ClickListEntry(Control& control, int index) {
    Choose(control, index);
}

void SetItem(Control& control, int index, const std::string& item) {
    const auto place = static_cast<std::size_t>(std::max(index, 0));
    if (place >= control.Items.size()) {
        control.Items.push_back(item);
        return;
    }
    control.Items[place] = item;
    if (control.ListIndex == index && control.Kind == ControlKind::ComboBox) control.Text = item;
}

void SetValue(Control& control, int value) {
    if (value < control.Minimum || value > control.Maximum) Fail(kIndexRange);
    if (control.Value == value) return;
    control.Value = value;
    Raise(control.Change);
}

void SetChecked(Control& control, bool checked) {
    if (control.Checked == checked) return;
    control.Checked = checked;
    Raise(control.Click);
}

void ChooseOption(Window& window, std::string_view name, int index) {
    Control& chosen = ControlOf(window, name, index);
    if (chosen.Checked) return;
    for (Control& control : window.Controls) {
        if (SameName(control.Name, name)) control.Checked = control.Index == index;
    }
    Raise(chosen.Click);
}

void SetSize(Control& control, int width, int height) {
    if (control.Width == width && control.Height == height) return;
    control.Width = width;
    control.Height = height;
    if (control.Surface != nullptr) {
        ResizePicture(*control.Surface, SurfacePixels(width), SurfacePixels(height));
    }
    Raise(control.Resize);
}

}  // namespace brindlemoor
