#include "platform/qt/caret_text.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QTextBlock>
#include <QTextDocument>
#include <algorithm>

#include "platform/qt/event_hook.h"
#include "platform/qt/key_codes.h"
#include "platform/qt/shell.h"
#include "platform/qt/text.h"
#include "workbench/grid.h"

namespace brindlemoor {

namespace {

constexpr int kDocumentMargin = 2;
constexpr char kLineBreak[] = "\r\n";
constexpr std::size_t kLineBreakBytes = 2;

QTextCursor CursorAt(const QPlainTextEdit* box, int place) {
    QTextCursor cursor(box->document());
    const int last = box->document()->characterCount() - 1;
    cursor.setPosition(std::clamp(place, 0, last));
    return cursor;
}

/// Changes only the characters that differ, so that the view stays where it is.
void ShowText(QPlainTextEdit* box, const QString& text) {
    const QString old = box->toPlainText();
    if (old == text) return;
    const auto shorter = std::min(old.size(), text.size());
    qsizetype front = 0;
    while (front < shorter && old[front] == text[front]) ++front;
    qsizetype back = 0;
    while (front + back < shorter && old[old.size() - 1 - back] == text[text.size() - 1 - back]) {
        ++back;
    }
    QTextCursor cursor = CursorAt(box, static_cast<int>(front));
    cursor.setPosition(static_cast<int>(old.size() - back), QTextCursor::KeepAnchor);
    cursor.insertText(text.mid(front, text.size() - front - back));
}

/// The keys that a routine lets through move the caret in its line.
int MovedCaret(const QPlainTextEdit* box, int key) {
    const QTextCursor cursor = box->textCursor();
    const QTextBlock line = cursor.block();
    const int end = line.position() + line.length() - 1;
    switch (key) {
        case kKeyLeft:
            return std::max(cursor.position() - 1, line.position());
        case kKeyRight:
            return std::min(cursor.position() + 1, end);
        case kKeyHome:
            return line.position();
        case kKeyEnd:
            return end;
        default:
            return cursor.position();
    }
}

void OnKey(QPlainTextEdit* box, ControlRef place, const QKeyEvent& event) {
    const int code = KeyCodeOf(event);
    const int character = event.text().size() == 1 ? event.text().front().unicode() : 0;
    UserAction([&] {
        Control& record = RecordOf(place);
        const bool dropped = !record.Key || record.Key(code);
        if (!dropped) record.SelStart = PlaceInBytes(record.Text, MovedCaret(box, code));
        if (character != 0 && record.KeyPress) record.KeyPress(character);
    });
}

bool OnKeyEvent(QPlainTextEdit* box, ControlRef place, QEvent* event) {
    const QEvent::Type type = event->type();
    if (type != QEvent::KeyPress && type != QEvent::ShortcutOverride) return false;
    const auto& key = *static_cast<QKeyEvent*>(event);
    const bool ofWindow =
        key.key() == Qt::Key_Tab || key.key() == Qt::Key_Backtab || key.key() == Qt::Key_Escape;
    if (ofWindow) return false;
    if (type == QEvent::ShortcutOverride) {
        event->accept();
    } else {
        OnKey(box, place, key);
    }
    return true;
}

bool OnMouseEvent(QPlainTextEdit* box, ControlRef place, QEvent* event) {
    const QEvent::Type type = event->type();
    const bool click = type == QEvent::MouseButtonPress || type == QEvent::MouseButtonRelease ||
                       type == QEvent::MouseButtonDblClick;
    if (!click && type != QEvent::MouseMove) return false;
    const auto& mouse = *static_cast<QMouseEvent*>(event);
    if (type == QEvent::MouseMove && mouse.buttons() == Qt::NoButton) return true;
    // The caret covers a character: anywhere on one, that one is meant.
    const QPoint middle = mouse.position().toPoint() - QPoint(kGridCharacterWidth / 2, 0);
    const int pointed = box->cursorForPosition(middle).position();
    UserAction([place, pointed] {
        Control& record = RecordOf(place);
        record.SelStart = PlaceInBytes(record.Text, pointed);
        Raise(record.CaretPlaced);
    });
    return true;
}

}  // namespace

QWidget* MakeCaretText(QWidget* parent, ControlRef place) {
    auto* box = new QPlainTextEdit(parent);
    box->setLineWrapMode(QPlainTextEdit::NoWrap);
    box->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    box->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    box->setContextMenuPolicy(Qt::NoContextMenu);
    box->setAcceptDrops(false);
    box->setTabChangesFocus(true);
    box->setUndoRedoEnabled(false);
    box->setTextInteractionFlags(Qt::TextSelectableByKeyboard | Qt::TextSelectableByMouse);
    box->setCursorWidth(kGridCharacterWidth);
    box->document()->setDocumentMargin(kDocumentMargin);
    HookEvents(box, [box, place](QEvent* event) { return OnKeyEvent(box, place, event); });
    HookEvents(box->viewport(),
               [box, place](QEvent* event) { return OnMouseEvent(box, place, event); });
    return box;
}

void ShowCaretText(QWidget* widget, const Control& record, const Control& /*shown*/) {
    auto* box = static_cast<QPlainTextEdit*>(widget);
    ShowText(box, ToLines(record.Text));
    const int place = PlaceInLines(record.Text, record.SelStart);
    if (box->textCursor().position() == place && !box->textCursor().hasSelection()) return;
    box->setTextCursor(CursorAt(box, place));
    box->ensureCursorVisible();
}

int PlaceInLines(const std::string& text, int bytes) {
    auto place = static_cast<std::size_t>(std::max(bytes, 0));
    place = std::min(place, text.size());
    if (place > 0 && place < text.size() && text.compare(place - 1, 2, kLineBreak) == 0) --place;
    int breaks = 0;
    for (auto found = text.find(kLineBreak); found < place;
         found = text.find(kLineBreak, found + kLineBreakBytes)) {
        ++breaks;
    }
    return static_cast<int>(place) - breaks;
}

int PlaceInBytes(const std::string& text, int characters) {
    int place = std::max(characters, 0);
    for (auto found = text.find(kLineBreak);
         found != std::string::npos && found < static_cast<std::size_t>(place);
         found = text.find(kLineBreak, found + kLineBreakBytes)) {
        ++place;
    }
    return std::min(place, static_cast<int>(text.size()));
}

}  // namespace brindlemoor
