#include "platform/qt/focus_mark.h"

#include <QAbstractScrollArea>
#include <QPainter>
#include <QPointer>

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

constexpr int kRingWidth = 2;  ///< pixels

void PlaceRing(QWidget* ring, const QWidget* widget) {
    ring->setGeometry(
        widget->geometry().adjusted(-kRingWidth, -kRingWidth, kRingWidth, kRingWidth));
}

/// The ring is an area behind the widget, a little larger than that.
void AddRing(QWidget* widget) {
    auto* ring = new QWidget(widget->parentWidget());
    ring->setAttribute(Qt::WA_TransparentForMouseEvents);
    ring->setAutoFillBackground(true);
    ring->setBackgroundRole(QPalette::Highlight);
    ring->hide();
    const QPointer<QWidget> there(ring);
    HookEvents(widget, [there, widget](QEvent* event) {
        const QEvent::Type type = event->type();
        if (there.isNull()) return false;
        if (type == QEvent::FocusIn) {
            PlaceRing(there, widget);
            there->stackUnder(widget);
            there->show();
        }
        if (type == QEvent::FocusOut || type == QEvent::Hide) there->hide();
        if (type == QEvent::Move || type == QEvent::Resize) PlaceRing(there, widget);
        return false;
    });
}

}  // namespace

void MarkFocus(QWidget* widget, ControlKind kind) {
    auto* frame = qobject_cast<QAbstractScrollArea*>(widget);
    const bool picture = kind == ControlKind::Picture && widget->focusPolicy() != Qt::NoFocus;
    if (frame != nullptr || picture) AddRing(widget);
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
