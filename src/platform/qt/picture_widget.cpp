#include "platform/qt/picture_widget.h"

#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>
#include <cmath>

#include "platform/qt/event_hook.h"
#include "platform/qt/picture_text.h"
#include "platform/qt/shell.h"

namespace brindlemoor {

namespace {

constexpr const char* kShownRevision = "shownRevision";

void PaintPicture(QWidget* widget, const Control& record) {
    QPainter painter(widget);
    painter.fillRect(widget->rect(), widget->palette().color(QPalette::Base));
    if (record.Surface != nullptr && !record.Surface->Pixels.empty()) {
        painter.drawImage(kPictureFrame, kPictureFrame, ImageOf(*record.Surface));
    }
    painter.setPen(widget->palette().color(widget->hasFocus() && record.Key ? QPalette::Highlight
                                                                            : QPalette::Mid));
    painter.drawRect(widget->rect().adjusted(0, 0, -1, -1));
}

MouseAt MouseOf(const QMouseEvent& event) {
    MouseAt mouse;
    mouse.X = static_cast<int>(std::floor(event.position().x())) - kPictureFrame;
    mouse.Y = static_cast<int>(std::floor(event.position().y())) - kPictureFrame;
    mouse.LeftDown = (event.buttons() & Qt::LeftButton) != 0;
    mouse.RightDown = (event.buttons() & Qt::RightButton) != 0;
    return mouse;
}

/// Turns that are less than a step of the wheel are kept until they make one.
bool TurnWheel(QWidget* widget, ControlRef place, const QWheelEvent& event) {
    constexpr const char* kRest = "wheelRest";
    constexpr int kStep = QWheelEvent::DefaultDeltasPerStep;
    if (!RecordOf(place).Wheel) return false;
    const int turned = widget->property(kRest).toInt() + event.angleDelta().y();
    widget->setProperty(kRest, turned % kStep);
    const int steps = -(turned / kStep);
    if (steps != 0) UserAction([place, steps] { RecordOf(place).Wheel(steps); });
    return true;
}

bool OnPictureEvent(QWidget* widget, ControlRef place, QEvent* event) {
    const QEvent::Type type = event->type();
    if (type == QEvent::Paint) {
        PaintPicture(widget, RecordOf(place));
        return true;
    }
    if (type == QEvent::FocusIn || type == QEvent::FocusOut) widget->update();
    if (type == QEvent::Wheel) return TurnWheel(widget, place, *static_cast<QWheelEvent*>(event));
    const bool press = type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick;
    if (!press && type != QEvent::MouseMove) return false;
    const MouseAt mouse = MouseOf(*static_cast<QMouseEvent*>(event));
    UserAction([place, press, &mouse] {
        const Control& record = RecordOf(place);
        const auto& routine = press ? record.MouseDown : record.MouseMove;
        if (routine) routine(mouse);
    });
    return false;
}

}  // namespace

QWidget* MakePicture(QWidget* parent, ControlRef place) {
    auto* surface = new QWidget(parent);
    const Control& record = RecordOf(place);
    surface->setMouseTracking(static_cast<bool>(record.MouseMove));
    surface->setFocusPolicy(record.Key ? Qt::StrongFocus : Qt::NoFocus);
    surface->setAttribute(Qt::WA_OpaquePaintEvent);
    HookEvents(surface,
               [surface, place](QEvent* event) { return OnPictureEvent(surface, place, event); });
    return surface;
}

void ShowPicture(QWidget* widget, const Control& record, const Control& /*shown*/) {
    if (record.Surface == nullptr) return;
    const QVariant revision(record.Surface->Revision);
    if (widget->property(kShownRevision) == revision) return;
    widget->setProperty(kShownRevision, revision);
    widget->update();
}

}  // namespace brindlemoor
