#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QTest>
#include <algorithm>
#include <string>
#include <vector>

#include "keyboard_fixture.h"

namespace brindlemoor::test {
namespace {

/// The widgets that Tab goes through from the one that has the focus, until it comes round.
std::vector<QWidget*> WalkByTab(QWidget* window, Qt::Key key, std::size_t most) {
    std::vector<QWidget*> walked;
    for (std::size_t step = 0; step <= most; ++step) {
        QWidget* focus = window->focusWidget();
        if (focus == nullptr) {
            ADD_FAILURE() << "the focus is lost behind "
                          << Describe(walked.empty() ? nullptr : walked.back());
            break;
        }
        if (std::find(walked.begin(), walked.end(), focus) != walked.end()) break;
        walked.push_back(focus);
        QTest::keyClick(focus, key, key == Qt::Key_Backtab ? Qt::ShiftModifier : Qt::NoModifier);
    }
    return walked;
}

QRect PlaceOf(const QWidget* widget) {
    return {widget->mapTo(widget->window(), QPoint()), widget->size()};
}

/// Backwards: to something that stands above it in the same columns, or to the left in its row.
bool GoesBack(const QWidget* from, const QWidget* to) {
    const QRect before = PlaceOf(from);
    const QRect after = PlaceOf(to);
    const bool sameColumns = after.left() <= before.right() && before.left() <= after.right();
    const bool sameRow = after.top() <= before.bottom() && before.top() <= after.bottom();
    return (sameColumns && after.bottom() < before.top()) ||
           (sameRow && after.right() < before.left());
}

/// Nothing stands above or left of where the walk begins, nothing right of and below its end.
void ExpectFromEndToEnd(const std::vector<QWidget*>& walked) {
    for (const QWidget* widget : walked) {
        const QRect place = PlaceOf(widget);
        EXPECT_FALSE(place.bottom() < PlaceOf(walked.front()).top()) << Describe(widget);
        EXPECT_FALSE(place.top() > PlaceOf(walked.back()).bottom()) << Describe(widget);
    }
}

/// Where the user would begin, whatever has the focus now: the first of the window's own order.
QWidget* FirstStop(QWidget* window) {
    for (QWidget* widget = window->nextInFocusChain(); widget != window;
         widget = widget->nextInFocusChain()) {
        const auto stops = TabStops(window);
        if (std::find(stops.begin(), stops.end(), widget) != stops.end()) return widget;
    }
    return nullptr;
}

using TabOrderTest = KeyboardTest;

TEST_F(TabOrderTest, TabReachesEveryControlOfEveryWindowInReadingOrder) {
    ForEachWindow([](const std::string& name, QWidget* window) {
        SCOPED_TRACE(name);
        const bool systems = name == "open" || name == "save as" || name == "colour chooser";
        std::vector<QWidget*> stops = TabStops(window);
        ASSERT_FALSE(stops.empty());
        QWidget* first = FirstStop(window);
        first->setFocus();
        const std::vector<QWidget*> walked = WalkByTab(window, Qt::Key_Tab, stops.size());
        std::vector<QWidget*> met = walked;
        std::sort(stops.begin(), stops.end());
        std::sort(met.begin(), met.end());
        for (QWidget* stop : stops) {
            EXPECT_TRUE(std::binary_search(met.begin(), met.end(), stop)) << Describe(stop);
        }
        if (systems) return;  // Qt lays them out
        ExpectFromEndToEnd(walked);
        for (std::size_t step = 1; step < walked.size(); ++step) {
            EXPECT_FALSE(GoesBack(walked[step - 1], walked[step]))
                << Describe(walked[step - 1]) << " to " << Describe(walked[step]);
        }
        std::vector<QWidget*> back = WalkByTab(window, Qt::Key_Backtab, stops.size());
        EXPECT_EQ(back.size(), walked.size());
        std::reverse(back.begin() + 1, back.end());
        EXPECT_EQ(back, walked);
    });
}

TEST_F(TabOrderTest, AListThatHasTheFocusShowsIt) {
    const auto frame = [this] {
        const QImage shown = Files()->grab().toImage();
        return shown.pixelColor(0, shown.height() / 2);
    };
    const QColor mark = Files()->palette().color(QPalette::Highlight);
    GoTo(Find<QListWidget>("Dir1"));
    EXPECT_NE(frame(), mark);
    Key(Qt::Key_Tab);
    EXPECT_EQ(Window_.Widget->focusWidget(), Files());
    EXPECT_EQ(frame(), mark);
}

TEST_F(TabOrderTest, APictureThatTakesKeysHasARingWhileItHasTheFocus) {
    auto* map = Find<QWidget>("TrackBlock");
    const QPoint beside = map->mapTo(Window_.Widget.get(), QPoint(-1, map->height() / 2));
    const auto ring = [&] { return Window_.Widget->grab().toImage().pixelColor(beside); };
    const QColor mark = map->palette().color(QPalette::Highlight);
    GoTo(map);
    EXPECT_EQ(ring(), mark);
    Key(Qt::Key_Tab);
    EXPECT_NE(ring(), mark);
}

}  // namespace
}  // namespace brindlemoor::test
