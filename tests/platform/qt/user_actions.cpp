#include "user_actions.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QMenuBar>
#include <QTest>
#include <QTimer>
#include <utility>

namespace brindlemoor::test {

void ClickEntry(QListWidget* list, int row, Qt::KeyboardModifiers modifiers) {
    ASSERT_LT(row, list->count());
    const QRect place = list->visualItemRect(list->item(row));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, modifiers, place.center());
}

void ClickCell(QTableView* view, int row, int column, Qt::KeyboardModifiers modifiers) {
    const QModelIndex index = view->model()->index(row, column);
    ASSERT_TRUE(index.isValid());
    view->scrollTo(index);
    QTest::mouseClick(view->viewport(), Qt::LeftButton, modifiers,
                      view->visualRect(index).center());
}

void Drag(QWidget* widget, QPoint from, QPoint to) {
    QTest::mouseMove(widget, from);
    QTest::mousePress(widget, Qt::LeftButton, Qt::NoModifier, from);
    for (int step = 1; step <= 4; ++step) {
        const QPointF place = QPointF(from) + (QPointF(to) - QPointF(from)) * (step / 4.0);
        const QPointF global = widget->mapToGlobal(place);
        QMouseEvent move(QEvent::MouseMove, place, global, Qt::NoButton, Qt::LeftButton,
                         Qt::NoModifier);
        QApplication::sendEvent(widget, &move);
    }
    QTest::mouseRelease(widget, Qt::LeftButton, Qt::NoModifier, to);
    QApplication::processEvents();
}

std::string ItemText(const QAction* item) {
    const QString text = item->text();
    QString shown;
    for (int place = 0; place < text.size(); ++place) {
        const bool mark = text[place] == QLatin1Char('&');
        if (mark && ++place == text.size()) break;
        shown += text[place];
    }
    return shown.toStdString();
}

QAction* ItemOf(const QWidget* menu, const std::string& text) {
    for (QAction* item : menu->actions()) {
        if (ItemText(item) == text) return item;
    }
    return nullptr;
}

QMenu* ClickItem(QWidget* menu, const std::string& text) {
    QAction* item = ItemOf(menu, text);
    EXPECT_NE(item, nullptr) << text;
    if (item == nullptr) return nullptr;
    const auto* bar = qobject_cast<QMenuBar*>(menu);
    const auto* popup = qobject_cast<QMenu*>(menu);
    const QRect place = bar != nullptr ? bar->actionGeometry(item) : popup->actionGeometry(item);
    QMenu* below = item->menu();
    QTest::mouseMove(menu, place.center());
    QTest::mouseClick(menu, Qt::LeftButton, Qt::NoModifier, place.center());
    if (below != nullptr) {
        EXPECT_TRUE(QTest::qWaitFor([below] { return below->isVisible(); })) << text;
    }
    return below;
}

WhenOpen::WhenOpen(Box kind, std::function<void(QWidget* box)> act) : act_(std::move(act)) {
    auto* timer = new QTimer(&timer_);
    QObject::connect(timer, &QTimer::timeout, &timer_, [this, timer, kind] {
        QWidget* box = kind == Box::Menu ? QApplication::activePopupWidget()
                                         : QApplication::activeModalWidget();
        if (box == nullptr || !box->isVisible()) return;
        timer->stop();
        came_ = true;
        act_(box);
    });
    timer->start(5);
}

WhenOpen::~WhenOpen() {
    EXPECT_TRUE(came_) << "the box never opened";
}

}  // namespace brindlemoor::test
