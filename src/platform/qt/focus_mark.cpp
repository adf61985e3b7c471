#include "platform/qt/focus_mark.h"

#include <QAbstractScrollArea>
#include <QPainter>

#include "platform/qt/event_hook.h"

namespace brindlemoor {

namespace {

/// The frame is filled areas and no lines: of a line, what stands within covers a part where a
/// pixel of the window is one and a half of the screen.
void PaintFrame(QFrame* frame) {
    QPainter painter(frame);
    const QRect all = frame->rect();
    const int width = frame->frameWidth();
    const auto role = frame->hasFocus() ? QPalette::Highlight : QPalette::Mid;
    const QColor colour = frame->palette().color(role);
    for (const QRect& side : {QRect(0, 0, all.width(), width), QRect(0, 0, width, all.height()),
                              QRect(0, all.height() - width, all.width(), width),
                              QRect(all.width() - width, 0, width, all.height())}) {
        painter.fillRect(side, colour);
    }
}

}  // namespace

void MarkFocus(QWidget* widget) {
    auto* frame = qobject_cast<QAbstractScrollArea*>(widget);
    if (frame == nullptr) return;
    HookEvents(frame, [frame](QEvent* event) {
        const QEvent::Type type = event->type();
        if (type == QEvent::FocusIn || type == QEvent::FocusOut) frame->update();
        if (type != QEvent::Paint) return false;
        PaintFrame(frame);
        return true;
    });
}

}  // namespace brindlemoor
