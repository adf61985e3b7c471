#include "platform/qt/window_widgets.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <array>

#include "core/byte_helpers.h"
#include "platform/qt/caret_text.h"
#include "platform/qt/colours.h"
#include "platform/qt/event_hook.h"
#include "platform/qt/fixed_font.h"
#include "platform/qt/focus_mark.h"
#include "platform/qt/key_codes.h"
#include "platform/qt/list_drags.h"
#include "platform/qt/list_widgets.h"
#include "platform/qt/picture_widget.h"
#include "platform/qt/shell.h"
#include "platform/qt/simple_widgets.h"
#include "platform/qt/tab_strip.h"
#include "platform/qt/text.h"
#include "workbench/cell_edit.h"
#include "workbench/principal.h"
#include "workbench/spoken_name.h"

namespace brindlemoor {

namespace {

using MakeRoutine = QWidget* (*)(QWidget* parent, ControlRef place);
using ShowRoutine = void (*)(QWidget* widget, const Control& record, const Control& shown);

struct KindRow {
    ControlKind Kind;
    MakeRoutine Make;
    ShowRoutine Show;  ///< null where nothing but the common properties is shown
};

/// Grids are not in the table: they have a record of their own. Hidden controls have no widget.
constexpr std::array<KindRow, 16> kKinds = {{
    {ControlKind::Label, MakeLabel, ShowLabel},
    {ControlKind::TextBox, MakeTextBox, ShowTextBox},
    {ControlKind::ComboBox, MakeComboBox, ShowComboBox},
    {ControlKind::CheckBox, MakeCheckBox, ShowCheckBox},
    {ControlKind::Button, MakeButton, ShowButton},
    {ControlKind::OptionButton, MakeOptionButton, ShowOptionButton},
    {ControlKind::Frame, MakeFrame, nullptr},
    {ControlKind::HorizontalBar, MakeHorizontalBar, ShowScrollBar},
    {ControlKind::VerticalBar, MakeVerticalBar, ShowScrollBar},
    {ControlKind::Slider, MakeSlider, ShowSlider},
    {ControlKind::TabStrip, MakeTabStrip, ShowTabStrip},
    {ControlKind::Picture, MakePicture, ShowPicture},
    {ControlKind::DriveList, MakeDriveList, ShowDriveList},
    {ControlKind::FolderList, MakeFolderList, ShowFolderList},
    {ControlKind::FileList, MakeFileList, ShowFileList},
    {ControlKind::CaretText, MakeCaretText, ShowCaretText},
}};

const KindRow* RowOfKind(ControlKind kind) {
    for (const KindRow& row : kKinds) {
        if (row.Kind == kind) return &row;
    }
    return nullptr;
}

/// The grid that a control of kind Grid stands for.
Grid* GridOf(const Control& control) {
    return control.Name == "ListDirec" ? &ListDirec : nullptr;
}

constexpr int kBandHeight = 12;  ///< of the small labels, which name bands of that height
constexpr int kTitlePixelSize = 13;

QFont SmallFont(QFont font) {
    for (int size = 11; size > 6; --size) {
        font.setPixelSize(size);
        if (QFontMetrics(font).lineSpacing() <= kBandHeight) break;
    }
    return font;
}

void ShowFont(QWidget* widget, FontKind kind) {
    QFont font = widget->font();
    const bool bold = kind == FontKind::FixedBold;
    if (kind == FontKind::Fixed || bold) font = FixedFont(bold);
    if (kind == FontKind::Small) font = SmallFont(font);
    if (kind == FontKind::Title) {
        font.setPixelSize(kTitlePixelSize);
        font.setBold(true);
    }
    if (kind != FontKind::Normal) widget->setFont(font);
}

/// What a grid holds moves with its cells.
QWidget* FrameOf(const WindowWidgets& widgets, const Control& control) {
    QWidget* frame = control.Container.empty() ? nullptr : WidgetOf(widgets, control.Container);
    const auto* scrolled = qobject_cast<QAbstractScrollArea*>(frame);
    if (scrolled != nullptr) return scrolled->viewport();
    return frame != nullptr ? frame : widgets.Area;
}

/// A focus that comes and goes with the whole window, a menu or a list that opens is no change.
bool IsFocusChange(const QEvent* event) {
    if (QApplication::activePopupWidget() != nullptr) return false;
    const Qt::FocusReason reason = static_cast<const QFocusEvent*>(event)->reason();
    return reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason &&
           reason != Qt::MenuBarFocusReason;
}

/// Key presses go to the control's own routine first; the focus that changes to and from another
/// control of the program runs `GotFocus` and `Leave`.
void HookCommonEvents(QWidget* widget, ControlRef place) {
    HookEvents(widget, [place](QEvent* event) {
        if (event->type() == QEvent::KeyPress && RecordOf(place).Kind != ControlKind::CaretText) {
            const int code = KeyCodeOf(*static_cast<QKeyEvent*>(event));
            if (code == 0 || !RecordOf(place).Key) return false;
            bool dropped = false;
            UserAction([&] { dropped = RecordOf(place).Key(code); });
            return dropped;
        }
        if (event->type() == QEvent::FocusIn && RecordOf(place).GotFocus && IsFocusChange(event)) {
            UserAction([place] { Raise(RecordOf(place).GotFocus); });
        }
        if (event->type() == QEvent::FocusOut && RecordOf(place).Leave && IsFocusChange(event)) {
            UserAction([place] { Raise(RecordOf(place).Leave); });
        }
        return false;
    });
}

/// Whether the press of a button of the mouse on the widget moves the focus.
bool TakesFocusByPress(const QWidget* widget) {
    while (widget != nullptr && (widget->focusPolicy() & Qt::ClickFocus) == 0) {
        widget = widget->parentWidget();
    }
    return widget != nullptr;
}

/// An editor of a cell that did not close when a press took the focus from it has something to be
/// mended first. That press does nothing, and the editor has the focus again.
void DropPressBesideEditor(QWidget* widget) {
    HookEvents(widget, [widget](QEvent* event) {
        const bool press = event->type() == QEvent::MouseButtonPress ||
                           event->type() == QEvent::MouseButtonDblClick;
        if (!press || ListDirec.Edited.Row == 0 || !TakesFocusByPress(widget)) return false;
        UserAction(ReturnToCellEditor);
        return true;
    });
}

void DropPressesBesideEditor(QWidget* widget, const Control& record) {
    if (record.Container == "ListDirec") return;  // an editor itself
    DropPressBesideEditor(widget);
    for (QWidget* part : widget->findChildren<QWidget*>()) DropPressBesideEditor(part);
}

ControlWidget MakeControl(const WindowWidgets& widgets, ControlRef place) {
    ControlWidget made;
    const Control& record = RecordOf(place);
    QWidget* parent = FrameOf(widgets, record);
    if (record.Kind == ControlKind::Grid) {
        Grid* grid = GridOf(record);
        if (grid == nullptr) return made;
        made.View = MakeGridView(parent, *grid, place);
        made.Widget = made.View->Widget;
    } else if (const KindRow* row = RowOfKind(record.Kind)) {
        made.Widget = row->Make(parent, place);
    }
    if (made.Widget == nullptr) return made;
    made.Widget->setObjectName(ToText(record.Name) + QString::number(record.Index));
    ShowFont(made.Widget, record.Font);
    MarkFocus(made.Widget, record.Kind);
    HookCommonEvents(made.Widget, place);
    if (place.Owner == &Principal) DropPressesBesideEditor(made.Widget, record);
    const bool dragged = record.Kind == ControlKind::Grid || record.Kind == ControlKind::FileList;
    if (dragged) FollowDrags(qobject_cast<QAbstractItemView*>(made.Widget), place);
    made.Widget->setVisible(record.Visible);
    return made;
}

/// Controls keep the order of the table under the Tab key, also across frames.
void SetTabOrder(const WindowWidgets& widgets) {
    QWidget* before = nullptr;
    for (const ControlWidget& control : widgets.Controls) {
        if (control.Widget == nullptr) continue;
        if (before != nullptr) QWidget::setTabOrder(before, control.Widget);
        before = control.Widget;
    }
}

void MakeMissingControls(WindowWidgets& widgets) {
    const std::size_t count = widgets.Record->Controls.size();
    if (widgets.Controls.size() == count) return;
    while (widgets.Controls.size() < count) {
        widgets.Controls.push_back(MakeControl(widgets, {widgets.Record, widgets.Controls.size()}));
    }
    SetTabOrder(widgets);
}

void ShowCommon(QWidget* widget, const Control& record, const Control& shown, bool first) {
    const QRect place(Pixels(record.Left), Pixels(record.Top), Pixels(record.Width),
                      Pixels(record.Height));
    if (widget->geometry() != place) widget->setGeometry(place);
    if (widget->isEnabled() != record.Enabled) widget->setEnabled(record.Enabled);
    if (widget->isHidden() == record.Visible) widget->setVisible(record.Visible);
    if (record.Kind == ControlKind::Grid) return;
    if (record.ToolTip != shown.ToolTip || first) widget->setToolTip(ToText(record.ToolTip));
    const bool coloured =
        record.BackColour != shown.BackColour || record.ForeColour != shown.ForeColour;
    if (coloured) ShowColours(widget, record.BackColour, record.ForeColour);
}

/// Some systems take what a combo box shows for its name, and ask what labels it for what it is.
/// A label that nobody sees says that.
void LabelComboBox(ControlWidget& control, QComboBox* box, const QString& name) {
    if (control.SpokenLabel == nullptr) {
        control.SpokenLabel = new QLabel(box->parentWidget());
        control.SpokenLabel->setTextFormat(Qt::PlainText);
        control.SpokenLabel->setBuddy(box);
        control.SpokenLabel->hide();
    }
    QString text = name;  // an "&" of the name would mark a key
    control.SpokenLabel->setText(text.replace(QLatin1Char('&'), QLatin1String("&&")));
    control.SpokenLabel->adjustSize();
    if (box->isEditable()) box->lineEdit()->setAccessibleName(name);
}

void ShowSpokenName(ControlWidget& control, const std::string& spoken) {
    if (control.Shown.AccessibleName == spoken) return;
    control.Shown.AccessibleName = spoken;
    const QString name = ToText(spoken);
    control.Widget->setAccessibleName(name);
    auto* box = qobject_cast<QComboBox*>(control.Widget);
    if (box != nullptr) LabelComboBox(control, box, name);
}

/// Gives the widget the focus, and selects in its line what the record says.
void TakeFocus(QWidget* widget, const Control& record) {
    widget->setFocus(Qt::OtherFocusReason);
    auto* line = qobject_cast<QLineEdit*>(widget);
    if (auto* list = qobject_cast<QComboBox*>(widget)) line = list->lineEdit();
    if (line == nullptr) return;
    const auto characters = [&record](int bytes) {
        return static_cast<int>(ToText(Left(record.Text, bytes)).size());
    };
    const int start = characters(record.SelStart);
    line->setSelection(start, characters(record.SelStart + record.SelLength) - start);
}

/// Keeps what the `Show` routines compare with. The rest of a record is compared with its widget.
void Remember(Control& shown, const Control& record) {
    shown.Name = record.Name;
    shown.Path = record.Path;
    shown.ToolTip = record.ToolTip;
    shown.Font = record.Font;
    shown.FocusRequests = record.FocusRequests;
    shown.BackColour = record.BackColour;
    shown.ForeColour = record.ForeColour;
    if (shown.Items != record.Items) shown.Items = record.Items;
}

void ShowControl(ControlWidget& control, const Window& window, const Control& record) {
    if (control.Widget == nullptr) return;
    const bool first = control.Shown.Name.empty();
    ShowCommon(control.Widget, record, control.Shown, first);
    ShowSpokenName(control, SpokenName(window, record));
    if (!first && record.Font != control.Shown.Font) ShowFont(control.Widget, record.Font);
    if (control.View) ShowGrid(*control.View);
    const KindRow* row = RowOfKind(record.Kind);
    if (row != nullptr && row->Show != nullptr) {
        row->Show(control.Widget, record, control.Shown);
    }
    if (record.FocusRequests != control.Shown.FocusRequests) TakeFocus(control.Widget, record);
    Remember(control.Shown, record);
}

}  // namespace

std::shared_ptr<WindowWidgets> BuildWidgets(Window& window, QWidget* area) {
    auto widgets = std::make_shared<WindowWidgets>();
    widgets->Record = &window;
    widgets->Area = area;
    MakeMissingControls(*widgets);
    return widgets;
}

void ShowRecords(WindowWidgets& widgets) {
    MakeMissingControls(widgets);
    for (std::size_t i = 0; i < widgets.Controls.size(); ++i) {
        ShowControl(widgets.Controls[i], *widgets.Record, widgets.Record->Controls[i]);
    }
}

QWidget* WidgetOf(const WindowWidgets& widgets, std::string_view name, int index) {
    const std::string wanted = LowerCase(std::string(name));
    for (std::size_t i = 0; i < widgets.Controls.size(); ++i) {
        const Control& record = widgets.Record->Controls[i];
        if (record.Index == index && LowerCase(record.Name) == wanted) {
            return widgets.Controls[i].Widget;
        }
    }
    return nullptr;
}

}  // namespace brindlemoor
