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

/// The frame is a filled area and no line, so that it is as wide as it should be, and pixels are
/// enlarged as they are: on a screen of high density too, nothing mixes or covers the surface.
void PaintPicture(QWidget* widget, const Control& record) {
    QPainter painter(widget);
    const QPalette& palette = widget->palette();
    const bool marked = widget->hasFocus() && record.Key;
    const QRect inside =
        widget->rect().adjusted(kPictureFrame, kPictureFrame, -kPictureFrame, -kPictureFrame);
    painter.fillRect(widget->rect(), palette.color(marked ? QPalette::Highlight : QPalette::Mid));
    painter.fillRect(inside, palette.color(QPalette::Base));
    if (record.Surface == nullptr || record.Surface->Pixels.empty()) return;
    painter.setClipRect(inside);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
    painter.drawImage(inside.left() - record.ViewLeft, inside.top() - record.ViewTop,
                      ImageOf(*record.Surface));
}

MouseAt MouseOf(const QMouseEvent& event, const Control& record) {
    MouseAt mouse;
    mouse.X = static_cast<int>(std::floor(event.position().x())) - kPictureFrame + record.ViewLeft;
    mouse.Y = static_cast<int>(std::floor(event.position().y())) - kPictureFrame + record.ViewTop;
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
    const MouseAt mouse = MouseOf(*static_cast<QMouseEvent*>(event), RecordOf(place));
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
