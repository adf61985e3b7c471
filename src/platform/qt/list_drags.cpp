#include "platform/qt/list_drags.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <memory>
#include <string>
#include <vector>

#include "platform/qt/drag_pictures.h"
#include "platform/qt/event_hook.h"
#include "platform/qt/shell.h"
#include "workbench/file_drag.h"

namespace brindlemoor {

namespace {

/// A list that drags may reach.
struct DragPlace {
    QPointer<QWidget> Widget;
    ControlRef Place;
};

std::vector<DragPlace> dragPlaces;

/// The image that is the pointer at the moment, empty for the usual one.
std::string shownIcon;

/// How far the user's gesture with the left button has come.
enum class Gesture {
    None,
    Pressed,  ///< on an entry, and not moved far yet
    Dragging,
    Given,  ///< given up, but the button is still down
};

/// The drags that begin in one list.
struct ListDrag {
    QAbstractItemView* List = nullptr;
    ControlRef Place;
    Gesture Step = Gesture::None;
    QPoint PressedAt;
    ControlRef Over;  ///< the list under the pointer; no owner: none
};

Control* ControlAt(const ControlRef& place) {
    return place.Owner == nullptr ? nullptr : &RecordOf(place);
}

/// The list at a place of the screen, its header and scroll bars included.
ControlRef ListUnder(QPoint global) {
    for (QWidget* widget = QApplication::widgetAt(global); widget != nullptr;
         widget = widget->parentWidget()) {
        for (const DragPlace& place : dragPlaces) {
            if (place.Widget == widget) return place.Place;
        }
    }
    return {};
}

void ShowDragIcon(const ListDrag& drag, const std::string& icon) {
    if (icon == shownIcon) return;
    if (icon.empty()) {
        QApplication::restoreOverrideCursor();
    } else {
        const QCursor pointer = DragCursor(icon, drag.List->devicePixelRatioF());
        if (shownIcon.empty()) {
            QApplication::setOverrideCursor(pointer);
        } else {
            QApplication::changeOverrideCursor(pointer);
        }
    }
    shownIcon = icon;
}

void Carry(ListDrag& drag, QPoint global) {
    const ControlRef under = ListUnder(global);
    if (under.Owner != drag.Over.Owner || under.Index != drag.Over.Index) {
        const ControlRef left = drag.Over;
        drag.Over = under;
        UserAction([&] { MoveFileDrag(ControlAt(left), ControlAt(under)); });
    }
    ShowDragIcon(drag, FileDrag.Icon);
}

void GiveUp(ListDrag& drag) {
    if (drag.Step == Gesture::Dragging) {
        UserAction(CancelFileDrag);
        ShowDragIcon(drag, FileDrag.Icon);
    }
    drag.Step = Gesture::Given;
}

/// The usual pointer is back before the drop runs, since that may bring up boxes.
void Drop(ListDrag& drag, QPoint global) {
    Carry(drag, global);
    drag.Step = Gesture::None;
    ShowDragIcon(drag, "");
    UserAction([target = drag.Over] { DropFileDrag(ControlAt(target)); });
}

/// A left press while a drag still seems to run means that its end was never seen.
bool OnPress(ListDrag& drag, const QMouseEvent& mouse) {
    if (mouse.button() != Qt::LeftButton) return drag.Step == Gesture::Dragging;
    if (!FileDrag.Source.empty()) {
        UserAction(CancelFileDrag);
        ShowDragIcon(drag, FileDrag.Icon);
    }
    drag.PressedAt = mouse.position().toPoint();
    drag.Step = drag.List->indexAt(drag.PressedAt).isValid() ? Gesture::Pressed : Gesture::None;
    return false;
}

/// The record decides whether a move begins a drag.
void BeginDrag(ListDrag& drag, const QMouseEvent& mouse) {
    const QPoint place = drag.List->mapFromGlobal(mouse.globalPosition().toPoint());
    UserAction([&drag, place] {
        const auto& routine = RecordOf(drag.Place).MouseMove;
        if (routine) routine({place.x(), place.y(), true, false});
    });
    if (FileDrag.Source.empty()) return;
    drag.Step = Gesture::Dragging;
    drag.Over = {};
}

bool OnMove(ListDrag& drag, const QMouseEvent& mouse) {
    if ((mouse.buttons() & Qt::LeftButton) == 0) {  // the button went up over a box of the program
        GiveUp(drag);
        drag.Step = Gesture::None;
    }
    if (drag.Step == Gesture::Pressed) {
        const QPoint way = mouse.position().toPoint() - drag.PressedAt;
        if (way.manhattanLength() >= QApplication::startDragDistance()) BeginDrag(drag, mouse);
    }
    if (drag.Step == Gesture::Dragging) Carry(drag, mouse.globalPosition().toPoint());
    return drag.Step != Gesture::None;  // else the list would select what the mouse passes over
}

bool OnRelease(ListDrag& drag, const QMouseEvent& mouse) {
    const bool carried = drag.Step == Gesture::Dragging;
    const bool mine = carried || drag.Step == Gesture::Given;
    if (mouse.button() != Qt::LeftButton) return mine;
    if (carried) Drop(drag, mouse.globalPosition().toPoint());
    drag.Step = Gesture::None;
    return mine;
}

bool OnMouseEvent(ListDrag& drag, QEvent* event) {
    switch (event->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
            return OnPress(drag, *static_cast<QMouseEvent*>(event));
        case QEvent::MouseMove:
            return OnMove(drag, *static_cast<QMouseEvent*>(event));
        case QEvent::MouseButtonRelease:
            return OnRelease(drag, *static_cast<QMouseEvent*>(event));
        case QEvent::Wheel:
        case QEvent::ContextMenu:
            return drag.Step == Gesture::Dragging;
        default:
            return false;
    }
}

/// A list that is dragged from has the focus. Shortcuts come as keys while they are not let out.
bool OnKeyEvent(ListDrag& drag, QEvent* event) {
    const QEvent::Type type = event->type();
    const bool shortcut = type == QEvent::ShortcutOverride;
    const bool key = type == QEvent::KeyPress || type == QEvent::KeyRelease;
    if (drag.Step != Gesture::Dragging || (!key && !shortcut)) return false;
    if (shortcut) event->accept();
    const bool escape = static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
    if (type == QEvent::KeyPress && escape) GiveUp(drag);
    return true;
}

}  // namespace

void FollowDrags(QAbstractItemView* list, ControlRef place) {
    std::erase_if(dragPlaces, [](const DragPlace& known) { return known.Widget.isNull(); });
    dragPlaces.push_back({list, place});
    auto drag = std::make_shared<ListDrag>();
    drag->List = list;
    drag->Place = place;
    list->viewport()->setMouseTracking(true);  // to notice that the button is up
    HookEvents(list->viewport(), [drag](QEvent* event) { return OnMouseEvent(*drag, event); });
    HookEvents(list, [drag](QEvent* event) { return OnKeyEvent(*drag, event); });
}

}  // namespace brindlemoor
