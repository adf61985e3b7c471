#include "workbench/control_design.h"

#include <utility>

namespace brindlemoor {

Control Designed(const std::string& name, ControlKind kind, Place place, std::string text) {
    Control control;
    control.Name = name;
    control.Kind = kind;
    control.Left = place.Left * kTwipsPerPixel;
    control.Top = place.Top * kTwipsPerPixel;
    control.Width = place.Width * kTwipsPerPixel;
    control.Height = place.Height * kTwipsPerPixel;
    control.Text = std::move(text);
    return control;
}

Control DesignedList(const std::string& name, Place place, std::vector<std::string> items,
                     bool editable) {
    Control control = Designed(name, ControlKind::ComboBox, place);
    control.Items = std::move(items);
    control.Editable = editable;
    return control;
}

Control ListAt(Control control, int index) {
    control.ListIndex = index;
    control.Text = control.Items[static_cast<std::size_t>(index)];
    return control;
}

Control WithFont(Control control, FontKind font) {
    control.Font = font;
    return control;
}

Control Within(const std::string& frame, Control control) {
    control.Container = frame;
    return control;
}

Control Spoken(const std::string& caption, Control control) {
    control.AccessibleName = caption.substr(0, caption.find_last_not_of(" :") + 1);
    return control;
}

Control Invisible(Control control) {
    control.Visible = false;
    return control;
}

}  // namespace brindlemoor
