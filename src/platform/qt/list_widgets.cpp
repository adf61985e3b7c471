#include "platform/qt/list_widgets.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QListWidget>
#include <QMouseEvent>
#include <QStyle>
#include <QStyledItemDelegate>
#include <algorithm>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "platform/qt/event_hook.h"
#include "platform/qt/key_codes.h"
#include "platform/qt/shell.h"
#include "platform/qt/text.h"

namespace brindlemoor {

namespace {

constexpr int kDepthRole = Qt::UserRole;
constexpr int kIndentPixels = 10;
constexpr int kListRowHeight = 17;

/// Shifts an entry to the right by its depth; a list has no such thing of its own.
class IndentDelegate : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        QStyleOptionViewItem shifted = option;
        shifted.rect.adjust(index.data(kDepthRole).toInt() * kIndentPixels, 0, 0, 0);
        QStyledItemDelegate::paint(painter, shifted, index);
    }
};

/// How the user moves in a list. A list that gets the focus also goes to an entry by itself; that
/// is neither of the two.
enum class MovedBy { Nothing, Mouse, Key };

struct Motion {
    MovedBy By = MovedBy::Nothing;
    Qt::KeyboardModifiers Modifiers;  ///< at the last press or key
    int WaitingRow = -1;              ///< pressed while selected; clicked when the button goes up
};

/// Arrow keys carry a modifier of their own on some systems; only these two keep a selection.
bool AddsToSelection(Qt::KeyboardModifiers modifiers) {
    return (modifiers & (Qt::ControlModifier | Qt::ShiftModifier)) != 0;
}

QListWidget* MakeList(QWidget* parent) {
    auto* list = new QListWidget(parent);
    list->setUniformItemSizes(true);
    list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    list->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    list->setTextElideMode(Qt::ElideRight);
    return list;
}

/// The place on the screen below the current entry, or at the list's upper left corner.
QPoint BelowEntry(const QListWidget* list) {
    const QListWidgetItem* entry = list->currentItem();
    const QRect place = entry != nullptr ? list->visualItemRect(entry) : QRect();
    const int top = std::clamp(place.bottom() + 1, 0, list->viewport()->height());
    return list->viewport()->mapToGlobal(QPoint(std::max(place.left(), 0), top));
}

/// Follows the user's presses and keys, and runs `rightClick` as an event of the user when the
/// right button was released or the key of that menu pressed; that button chooses nothing.
std::shared_ptr<Motion> FollowUser(QListWidget* list, const std::function<void()>& rightClick) {
    auto motion = std::make_shared<Motion>();
    HookEvents(list->viewport(), [motion, rightClick](QEvent* event) {
        const bool press = event->type() == QEvent::MouseButtonPress ||
                           event->type() == QEvent::MouseButtonDblClick;
        const bool release = event->type() == QEvent::MouseButtonRelease;
        if (!press && !release) return false;
        const auto* mouse = static_cast<QMouseEvent*>(event);
        if (mouse->button() == Qt::RightButton) {
            if (release) UserAction(rightClick);
            return true;
        }
        if (!press) return false;
        motion->By = MovedBy::Mouse;
        motion->Modifiers = mouse->modifiers();
        return false;
    });
    HookEvents(list, [list, motion, rightClick](QEvent* event) {
        if (event->type() == QEvent::FocusIn) motion->By = MovedBy::Nothing;
        if (event->type() != QEvent::KeyPress) return false;
        const auto& key = *static_cast<QKeyEvent*>(event);
        motion->By = MovedBy::Key;
        motion->Modifiers = key.modifiers();
        if (!IsMenuKey(key)) return false;
        UserActionAt(BelowEntry(list), rightClick);
        return true;
    });
    return motion;
}

void FillList(QListWidget* list, const Control& record) {
    list->clear();
    for (const std::string& item : record.Items) {
        auto* entry = new QListWidgetItem(ToText(item), list);
        entry->setSizeHint(QSize(0, kListRowHeight));
        entry->setToolTip(entry->text());  // a long name is cut in the list
    }
}

std::vector<bool> SelectionOf(const QListWidget* list) {
    std::vector<bool> selected(static_cast<std::size_t>(list->count()), false);
    for (const QModelIndex& index : list->selectionModel()->selectedIndexes()) {
        selected[static_cast<std::size_t>(index.row())] = true;
    }
    return selected;
}

/// The selection as the record has it: `ItemSelected`, or the chosen entry where that is not kept.
std::vector<bool> SelectionOf(const Control& record) {
    if (record.ItemSelected.size() == record.Items.size()) return record.ItemSelected;
    std::vector<bool> selected(record.Items.size(), false);
    const auto chosen = static_cast<std::size_t>(record.ListIndex);
    if (record.ListIndex >= 0 && chosen < selected.size()) selected[chosen] = true;
    return selected;
}

/// An entry chosen with Ctrl or Shift: the selection stays as the widget made it.
void ClickWithModifiers(Control& record, int row, std::vector<bool> selected) {
    record.ListIndex = row;
    record.ItemSelected = std::move(selected);
    Raise(record.Click);
}

void ClickFile(QListWidget* list, const ControlRef& place, int row, bool modified) {
    if (row < 0) return;
    std::vector<bool> selected = SelectionOf(list);
    UserAction([&] {
        Control& record = RecordOf(place);
        if (modified) {
            ClickWithModifiers(record, row, std::move(selected));
        } else {
            ClickListEntry(record, row);
        }
    });
}

/// A press on an entry that is selected already may be the begin of a drag of all that is selected:
/// only the release of the button makes it a click.
bool OnFilePress(QListWidget* list, const ControlRef& place, Motion& motion, QEvent* event) {
    const bool press = event->type() == QEvent::MouseButtonPress;
    const bool release = event->type() == QEvent::MouseButtonRelease;
    if (!press && !release) return false;
    const auto* mouse = static_cast<QMouseEvent*>(event);
    const int waiting = std::exchange(motion.WaitingRow, -1);
    if (mouse->button() != Qt::LeftButton) return false;
    if (release) {
        ClickFile(list, place, waiting, false);
    } else if (!AddsToSelection(mouse->modifiers())) {
        const QModelIndex entry = list->indexAt(mouse->position().toPoint());
        if (list->selectionModel()->isSelected(entry)) motion.WaitingRow = entry.row();
    }
    return false;
}

void ShowCurrentRow(QListWidget* list, int row) {
    if (list->currentRow() == row) return;
    list->setCurrentRow(row, QItemSelectionModel::NoUpdate);
    if (row >= 0) list->scrollToItem(list->item(row));
}

}  // namespace

QWidget* MakeDriveList(QWidget* parent, ControlRef place) {
    auto* box = new QComboBox(parent);
    QObject::connect(box, &QComboBox::activated, box, [place](int index) {
        UserAction([place, index] { ClickListEntry(RecordOf(place), index); });
    });
    return box;
}

void ShowDriveList(QWidget* widget, const Control& record, const Control& shown) {
    auto* box = static_cast<QComboBox*>(widget);
    const auto count = static_cast<std::size_t>(box->count());
    if (record.Items != shown.Items || count != record.Items.size()) {
        box->clear();
        const QIcon icon = box->style()->standardIcon(QStyle::SP_DriveHDIcon);
        for (const std::string& item : record.Items) box->addItem(icon, ToText(item));
    }
    if (box->currentIndex() != record.ListIndex) box->setCurrentIndex(record.ListIndex);
}

QWidget* MakeFolderList(QWidget* parent, ControlRef place) {
    QListWidget* list = MakeList(parent);
    list->setItemDelegate(new IndentDelegate(list));
    list->setIconSize(QSize(14, 14));
    const auto motion = FollowUser(list, [place] { Raise(RecordOf(place).RightClick); });
    QObject::connect(list, &QListWidget::currentRowChanged, list, [place, motion](int row) {
        if (row < 0 || motion->By == MovedBy::Nothing) return;
        UserAction([place, row] { ClickListEntry(RecordOf(place), row); });
    });
    HookEvents(list->viewport(), [list, place](QEvent* event) {
        if (event->type() != QEvent::MouseButtonDblClick) return false;
        const auto* mouse = static_cast<QMouseEvent*>(event);
        const QModelIndex entry = list->indexAt(mouse->position().toPoint());
        if (mouse->button() == Qt::LeftButton && entry.isValid()) {
            UserAction([place] { Raise(RecordOf(place).DoubleClick); });
        }
        return true;
    });
    return list;
}

void ShowFolderList(QWidget* widget, const Control& record, const Control& shown) {
    auto* list = static_cast<QListWidget*>(widget);
    const bool filled = list->count() == static_cast<int>(record.Items.size());
    if (!filled || record.Items != shown.Items || record.Path != shown.Path) {
        FillList(list, record);
        const QIcon open = list->style()->standardIcon(QStyle::SP_DirOpenIcon);
        const QIcon closed = list->style()->standardIcon(QStyle::SP_DirClosedIcon);
        for (int row = 0; row < list->count(); ++row) {
            const auto index = static_cast<std::size_t>(row);
            const bool known = index < record.ItemIndents.size();
            list->item(row)->setData(kDepthRole, known ? record.ItemIndents[index] : 0);
            list->item(row)->setIcon(row <= record.ListIndex ? open : closed);
        }
    }
    ShowCurrentRow(list, record.ListIndex);
    if (record.ListIndex >= 0 && record.ListIndex < list->count()) {
        list->item(record.ListIndex)->setSelected(true);
    }
}

QWidget* MakeFileList(QWidget* parent, ControlRef place) {
    QListWidget* list = MakeList(parent);
    list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    const auto motion = FollowUser(list, [place] { Raise(RecordOf(place).RightClick); });
    HookEvents(list->viewport(), [list, place, motion](QEvent* event) {
        return OnFilePress(list, place, *motion, event);
    });
    QObject::connect(list, &QListWidget::itemSelectionChanged, list, [list, place] {
        if (!IsRefreshing()) RecordOf(place).ItemSelected = SelectionOf(list);
    });
    QObject::connect(
        list, &QListWidget::itemPressed, list, [list, place, motion](QListWidgetItem* item) {
            if (motion->WaitingRow >= 0) return;
            ClickFile(list, place, list->row(item), AddsToSelection(motion->Modifiers));
        });
    // Reported for every way of going to another entry; the mouse has its own report above.
    QObject::connect(list, &QListWidget::currentRowChanged, list, [list, place, motion](int row) {
        if (motion->By != MovedBy::Key || IsRefreshing()) return;
        ClickFile(list, place, row, AddsToSelection(motion->Modifiers));
    });
    QObject::connect(list, &QListWidget::itemDoubleClicked, list,
                     [place] { UserAction([place] { Raise(RecordOf(place).DoubleClick); }); });
    return list;
}

void ShowFileList(QWidget* widget, const Control& record, const Control& shown) {
    auto* list = static_cast<QListWidget*>(widget);
    const bool filled = list->count() == static_cast<int>(record.Items.size());
    if (!filled || record.Items != shown.Items) FillList(list, record);
    ShowCurrentRow(list, record.ListIndex);
    const std::vector<bool> wanted = SelectionOf(record);
    if (SelectionOf(list) == wanted) return;
    for (int row = 0; row < list->count(); ++row) {
        list->item(row)->setSelected(wanted[static_cast<std::size_t>(row)]);
    }
}

}  // namespace brindlemoor
