#include "platform/qt/focus_mark.h"

#include <QAbstractScrollArea>
#include <QPainter>

#include "platform/qt/event_hook.h"

namespace brindlemoor {

void MarkFocus(QWidget* widget) {
    if (qobject_cast<QAbstractScrollArea*>(widget) == nullptr) return;
    HookEvents(widget, [widget](QEvent* event) {
        const QEvent::Type type = event->type();
        if (type == QEvent::FocusIn || type == QEvent::FocusOut) widget->update();
        if (type != QEvent::Paint || !widget->hasFocus()) return false;
        QPainter painter(widget);
        painter.setPen(widget->palette().color(QPalette::Highlight));
        painter.drawRect(widget->rect().adjusted(0, 0, -1, -1));
        return true;
    });
}

}  // namespace brindlemoor
