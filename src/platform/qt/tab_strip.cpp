#include "platform/qt/tab_strip.h"

#include <QTabBar>

#include "platform/qt/shell.h"
#include "platform/qt/text.h"

namespace brindlemoor {

QWidget* MakeTabStrip(QWidget* parent, ControlRef place) {
    auto* tabs = new QTabBar(parent);
    tabs->setExpanding(false);
    QObject::connect(tabs, &QTabBar::currentChanged, tabs, [place](int index) {
        UserAction([place, index] { SetListIndex(RecordOf(place), index); });
    });
    return tabs;
}

void ShowTabStrip(QWidget* widget, const Control& record, const Control& /*shown*/) {
    auto* tabs = static_cast<QTabBar*>(widget);
    const int count = static_cast<int>(record.Items.size());
    while (tabs->count() > count) tabs->removeTab(tabs->count() - 1);
    for (int index = 0; index < count; ++index) {
        const QString text = ToText(record.Items[static_cast<std::size_t>(index)]);
        if (index == tabs->count()) tabs->addTab(text);
        if (tabs->tabText(index) != text) tabs->setTabText(index, text);
    }
    if (tabs->currentIndex() != record.ListIndex) tabs->setCurrentIndex(record.ListIndex);
}

}  // namespace brindlemoor
