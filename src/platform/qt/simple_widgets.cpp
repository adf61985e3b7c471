#include "platform/qt/simple_widgets.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSlider>
#include <QToolTip>
#include <algorithm>

#include "platform/qt/event_hook.h"
#include "platform/qt/fixed_font.h"
#include "platform/qt/grid_widget.h"
#include "platform/qt/shell.h"
#include "platform/qt/text.h"

namespace brindlemoor {

namespace {

constexpr int kFramedHeight = 20;  ///< pixels; the style's frame is too much for a lower box
constexpr int kUnlimitedLength = 32767;
constexpr int kTwoLinesHeight = 42;  ///< pixels; a taller text box has several lines

bool HasSeveralLines(const Control& record) {
    return record.WordWrap || Pixels(record.Height) > kTwoLinesHeight;
}

/// A caption as buttons, check boxes and menus want it: their "&" marks a key.
QString WithoutMnemonics(const std::string& caption) {
    return ToText(caption).replace(QLatin1Char('&'), QLatin1String("&&"));
}

QColor LabelInk(const QLabel* label) {
    const auto group = label->isEnabled() ? QPalette::Active : QPalette::Disabled;
    return label->palette().color(group, QPalette::WindowText);
}

/// A line of the totals: its first character stands at the left edge of the grid's first column,
/// behind the grid's frame.
void PaintFixedLabel(QLabel* label) {
    QPainter painter(label);
    painter.setPen(LabelInk(label));
    const bool right = (label->alignment() & Qt::AlignRight) != 0;
    DrawFixedText(painter, label->rect().adjusted(kGridFrameWidth, 0, 0, 0), label->text(), false,
                  right);
}

bool IsCut(const QLabel* label) {
    return label->fontMetrics().horizontalAdvance(label->text()) > label->width();
}

/// A line that is longer than its label ends in dots, and the tool tip shows it whole.
bool ShortenLabel(QLabel* label, QEvent* event) {
    if (event->type() == QEvent::ToolTip && IsCut(label) && label->toolTip().isEmpty()) {
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), label->text(), label);
        return true;
    }
    if (event->type() != QEvent::Paint || !IsCut(label)) return false;
    QPainter painter(label);
    painter.setPen(LabelInk(label));
    painter.drawText(
        label->rect(), static_cast<int>(label->alignment()) | Qt::TextSingleLine,
        label->fontMetrics().elidedText(label->text(), Qt::ElideRight, label->width()));
    return true;
}

void FollowValue(QAbstractSlider* bar, ControlRef place) {
    QObject::connect(bar, &QAbstractSlider::valueChanged, bar, [place](int value) {
        UserAction([place, value] { SetValue(RecordOf(place), value); });
    });
}

QWidget* MakeScrollBar(QWidget* parent, ControlRef place, Qt::Orientation orientation) {
    auto* bar = new QScrollBar(orientation, parent);
    FollowValue(bar, place);
    return bar;
}

void ShowValue(QAbstractSlider* bar, const Control& record) {
    bar->setRange(record.Minimum, record.Maximum);
    bar->setPageStep(std::max(record.LargeChange, 1));
    bar->setValue(record.Value);
}

bool IsEnter(const QEvent* event) {
    if (event->type() != QEvent::KeyPress) return false;
    const int key = static_cast<const QKeyEvent*>(event)->key();
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

}  // namespace

QWidget* MakeLabel(QWidget* parent, ControlRef place) {
    auto* label = new QLabel(parent);
    const Control& record = RecordOf(place);
    const bool severalLines = HasSeveralLines(record);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(record.WordWrap);
    label->setAlignment((record.RightAligned ? Qt::AlignRight : Qt::AlignLeft) |
                        (severalLines ? Qt::AlignTop : Qt::AlignVCenter));
    if (severalLines) return label;
    const bool fixed = record.Font == FontKind::Fixed;
    HookEvents(label, [label, fixed](QEvent* event) {
        if (!fixed) return ShortenLabel(label, event);
        if (event->type() != QEvent::Paint) return false;
        PaintFixedLabel(label);
        return true;
    });
    return label;
}

void ShowLabel(QWidget* widget, const Control& record, const Control& /*shown*/) {
    auto* label = static_cast<QLabel*>(widget);
    if (label->wordWrap() != record.WordWrap) label->setWordWrap(record.WordWrap);
    const QString text = ToLines(record.Text);
    if (label->text() != text) label->setText(text);
}

QWidget* MakeTextBox(QWidget* parent, ControlRef place) {
    if (HasSeveralLines(RecordOf(place))) {
        auto* box = new QPlainTextEdit(parent);
        box->setTabChangesFocus(true);
        QObject::connect(box, &QPlainTextEdit::textChanged, box, [box, place] {
            UserAction(
                [box, place] { SetText(RecordOf(place), LinesToBytes(box->toPlainText())); });
        });
        return box;
    }
    auto* box = new QLineEdit(parent);
    const bool inCell = Pixels(RecordOf(place).Height) < kFramedHeight;
    if (inCell) box->setStyleSheet(QStringLiteral("border: 1px solid palette(text);"));
    QObject::connect(box, &QLineEdit::textEdited, box, [place](const QString& text) {
        UserAction([place, text] {
            Control& record = RecordOf(place);
            SetText(record, EditedBytes(record.Text, text));
        });
    });
    return box;
}

void ShowTextBox(QWidget* widget, const Control& record, const Control& /*shown*/) {
    if (auto* lines = qobject_cast<QPlainTextEdit*>(widget)) {
        const QString text = ToLines(record.Text);
        lines->setReadOnly(record.ReadOnly);
        if (lines->toPlainText() != text) lines->setPlainText(text);
        return;
    }
    auto* box = static_cast<QLineEdit*>(widget);
    box->setReadOnly(record.ReadOnly);
    const int most = record.MaxLength > 0 ? record.MaxLength : kUnlimitedLength;
    if (box->maxLength() != most) box->setMaxLength(most);
    const QString text = ToText(record.Text);
    if (box->text() == text) return;
    const int cursor = box->hasFocus() ? box->cursorPosition() : 0;
    box->setText(text);
    box->setCursorPosition(cursor);
}

QWidget* MakeComboBox(QWidget* parent, ControlRef place) {
    auto* box = new QComboBox(parent);
    box->setMaxVisibleItems(20);
    if (RecordOf(place).Editable) {
        box->setEditable(true);
        box->setInsertPolicy(QComboBox::NoInsert);
        box->setCompleter(nullptr);
        HookEvents(box, [](QEvent* event) {
            if (!IsEnter(event)) return false;
            event->ignore();  // it would count as picking an equal item; it is the dialog's
            return true;
        });
        QObject::connect(box->lineEdit(), &QLineEdit::textEdited, box,
                         [place](const QString& text) {
                             UserAction([place, text] {
                                 Control& record = RecordOf(place);
                                 SetText(record, EditedBytes(record.Text, text));
                             });
                         });
    }
    HookEvents(box, [place](QEvent* event) {
        const bool pressed = event->type() == QEvent::MouseButtonPress;
        if (pressed && RecordOf(place).MouseDown) {
            UserAction([place] { RecordOf(place).MouseDown(MouseAt()); });
        }
        return false;
    });
    QObject::connect(box, &QComboBox::activated, box, [place](int index) {
        UserAction([place, index] { ClickListEntry(RecordOf(place), index); });
    });
    return box;
}

void ShowComboBox(QWidget* widget, const Control& record, const Control& shown) {
    auto* box = static_cast<QComboBox*>(widget);
    const auto count = static_cast<std::size_t>(box->count());
    if (record.Items != shown.Items || count != record.Items.size()) {
        box->clear();
        for (const std::string& item : record.Items) box->addItem(ToText(item));
        QAbstractItemView* list = box->view();
        list->setMinimumWidth(list->sizeHintForColumn(0) + 2 * list->frameWidth() + 24);
    }
    // Leaving the items for a typed text empties the line, and with it the cursor's place.
    const bool typing = box->isEditable() && box->hasFocus();
    const int cursor = typing ? box->lineEdit()->cursorPosition() : 0;
    if (box->currentIndex() != record.ListIndex) box->setCurrentIndex(record.ListIndex);
    const QString text = ToText(record.Text);
    if (!box->isEditable()) {  // a text that is no item shows while none is chosen
        if (box->placeholderText() != text) box->setPlaceholderText(text);
        return;
    }
    if (box->lineEdit()->text() == text) return;
    box->setEditText(text);
    box->lineEdit()->setCursorPosition(cursor);
}

QWidget* MakeCheckBox(QWidget* parent, ControlRef place) {
    auto* box = new QCheckBox(parent);
    QObject::connect(box, &QCheckBox::toggled, box, [place](bool checked) {
        UserAction([place, checked] { SetChecked(RecordOf(place), checked); });
    });
    return box;
}

void ShowCheckBox(QWidget* widget, const Control& record, const Control& /*shown*/) {
    auto* box = static_cast<QCheckBox*>(widget);
    const QString text = WithoutMnemonics(record.Text);
    if (box->text() != text) box->setText(text);
    box->setChecked(record.Checked);
}

QWidget* MakeButton(QWidget* parent, ControlRef place) {
    auto* button = new QPushButton(parent);
    button->setAutoDefault(false);
    button->setDefault(RecordOf(place).Default);
    HookEvents(button, [button](QEvent* event) {  // Enter is for the button that has the focus
        if (!IsEnter(event)) return false;
        button->click();
        return true;
    });
    QObject::connect(button, &QPushButton::clicked, button,
                     [place] { UserAction([place] { Raise(RecordOf(place).Click); }); });
    // Enter presses the default button from any field, which is left by that as by the mouse.
    QObject::connect(button, &QPushButton::pressed, button,
                     [button] { button->setFocus(Qt::OtherFocusReason); });
    return button;
}

void ShowButton(QWidget* widget, const Control& record, const Control& /*shown*/) {
    auto* button = static_cast<QPushButton*>(widget);
    const QString text = WithoutMnemonics(record.Text);
    if (button->text() != text) button->setText(text);
}

QWidget* MakeOptionButton(QWidget* parent, ControlRef place) {
    auto* button = new QRadioButton(parent);
    button->setAutoExclusive(false);  // the record knows which of its array is chosen
    QObject::connect(button, &QRadioButton::clicked, button, [place] {
        UserAction([place] {
            const Control& record = RecordOf(place);
            ChooseOption(*place.Owner, record.Name, record.Index);
        });
    });
    return button;
}

void ShowOptionButton(QWidget* widget, const Control& record, const Control& /*shown*/) {
    auto* button = static_cast<QRadioButton*>(widget);
    const QString text = WithoutMnemonics(record.Text);
    if (button->text() != text) button->setText(text);
    button->setChecked(record.Checked);
}

QWidget* MakeFrame(QWidget* parent, ControlRef place) {
    const std::string& caption = RecordOf(place).Text;
    if (caption.empty()) return new QFrame(parent);
    return new QGroupBox(ToText(caption), parent);
}

QWidget* MakeHorizontalBar(QWidget* parent, ControlRef place) {
    return MakeScrollBar(parent, place, Qt::Horizontal);
}

QWidget* MakeVerticalBar(QWidget* parent, ControlRef place) {
    return MakeScrollBar(parent, place, Qt::Vertical);
}

void ShowScrollBar(QWidget* widget, const Control& record, const Control& /*shown*/) {
    ShowValue(static_cast<QScrollBar*>(widget), record);
}

QWidget* MakeSlider(QWidget* parent, ControlRef place) {
    auto* slider = new QSlider(Qt::Horizontal, parent);
    FollowValue(slider, place);
    return slider;
}

void ShowSlider(QWidget* widget, const Control& record, const Control& /*shown*/) {
    ShowValue(static_cast<QSlider*>(widget), record);
}

}  // namespace brindlemoor
