#include "platform/qt/menus.h"

#include <QCursor>
#include <QMenu>
#include <QPainter>
#include <map>

#include "platform/qt/later.h"
#include "platform/qt/menu_letters.h"
#include "platform/qt/shell.h"
#include "platform/qt/text.h"

namespace brindlemoor {

namespace {

constexpr int kDeepestMenu = 8;  ///< submenus within submenus; a table that names itself ends here

bool IsSeparator(const MenuItem& item) {
    return item.Caption == "-";
}

/// Which menus hold how many items, and which of them are separators or open another menu.
void DescribeMenu(Window& window, const std::string& name, int depth, std::string& structure) {
    const Menu* menu = FindMenu(window, name);
    if (menu == nullptr || depth > kDeepestMenu) return;
    structure += '(';
    for (const MenuItem& item : menu->Items) {
        structure += IsSeparator(item) ? '-' : '.';
        structure += item.SubMenu;
        if (!item.SubMenu.empty()) DescribeMenu(window, item.SubMenu, depth + 1, structure);
    }
    structure += ')';
}

/// What the items of a menu show: their captions, each with the letter that chooses it.
QStringList TextsOf(const Menu& menu) {
    QStringList captions;
    for (const MenuItem& item : menu.Items) captions << ToText(item.Caption);
    return WithLetters(captions);
}

void ShowMenuItem(QAction* action, const MenuItem& item, const QString& text) {
    if (action->isSeparator()) return;
    if (action->text() != text) action->setText(text);
    if (action->isEnabled() != item.Enabled) action->setEnabled(item.Enabled);
    action->setCheckable(item.Checked);
    action->setChecked(item.Checked);
    const QKeySequence keys(ToText(item.Shortcut));
    if (action->shortcut() != keys) action->setShortcut(keys);
}

/// Adds the items of a menu array to a bar, a menu or a popup, with all that stands behind them.
template <typename Holder>
void AddItems(Holder* holder, Window& window, const std::string& name, int depth,
              std::vector<MenuAction>& actions) {
    const Menu* menu = FindMenu(window, name);
    if (menu == nullptr || depth > kDeepestMenu) return;
    const QStringList texts = TextsOf(*menu);
    for (std::size_t i = 0; i < menu->Items.size(); ++i) {
        const MenuItem& item = menu->Items[i];
        QAction* action = nullptr;
        if (IsSeparator(item)) {
            action = holder->addSeparator();
        } else if (!item.SubMenu.empty()) {
            QMenu* below = holder->addMenu(QString());
            below->setSeparatorsCollapsible(false);
            AddItems(below, window, item.SubMenu, depth + 1, actions);
            action = below->menuAction();
        } else {
            action = holder->addAction(QString());
        }
        action->setMenuRole(QAction::NoRole);
        ShowMenuItem(action, item, texts[static_cast<int>(i)]);
        actions.push_back({action, menu->Name, static_cast<int>(i)});
    }
}

void ClickItem(Window& window, const std::string& name, int index) {
    const Menu* menu = FindMenu(window, name);
    if (menu != nullptr && menu->Click) menu->Click(index);
}

/// The old menus may be the ones whose item is running at the moment, so they go later.
void RebuildBar(MenuBarView& view) {
    const QList<QAction*> old = view.Bar->actions();
    for (QAction* action : old) {
        view.Bar->removeAction(action);
        if (action->menu() != nullptr) action->menu()->deleteLater();
    }
    view.Actions.clear();
    AddItems(view.Bar, *view.Record, "MainMenu", 0, view.Actions);
    Window* window = view.Record;
    for (const MenuAction& entry : view.Actions) {
        if (entry.Action->menu() != nullptr || entry.Action->isSeparator()) continue;
        QObject::connect(entry.Action, &QAction::triggered, view.Bar,
                         [window, name = entry.MenuName, index = entry.Index] {
                             UserAction([&] {
                                 if (window->BeforeMenu && !window->BeforeMenu()) return;
                                 ClickItem(*window, name, index);
                             });
                         });
    }
}

/// A menu that came by a key begins with its first item.
void MarkFirstItem(QMenu& menu) {
    for (QAction* item : menu.actions()) {
        if (item->isSeparator() || !item->isEnabled()) continue;
        menu.setActiveAction(item);
        return;
    }
}

/// A bar that Alt gave the focus to shows which of its menus the arrows are on; the style shows
/// only one that stands open.
class MarkedMenuBar : public QMenuBar {
  public:
    using QMenuBar::QMenuBar;

  protected:
    void paintEvent(QPaintEvent* event) override {
        QMenuBar::paintEvent(event);
        if (!hasFocus() || activeAction() == nullptr) return;
        QPainter painter(this);
        painter.setPen(palette().color(QPalette::Highlight));
        painter.drawRect(actionGeometry(activeAction()).adjusted(0, 0, -1, -1));
    }
};

}  // namespace

QMenuBar* MakeMenuBar(QWidget* window) {
    return new MarkedMenuBar(window);
}

void ShowMenuBar(MenuBarView& view) {
    std::string structure;
    DescribeMenu(*view.Record, "MainMenu", 0, structure);
    if (structure != view.Structure) {
        RebuildBar(view);
        view.Structure = structure;
        return;
    }
    std::map<std::string, QStringList> texts;
    for (const MenuAction& entry : view.Actions) {
        const Menu* menu = FindMenu(*view.Record, entry.MenuName);
        const auto index = static_cast<std::size_t>(entry.Index);
        if (menu == nullptr || index >= menu->Items.size()) continue;
        QStringList& shown = texts[menu->Name];
        if (shown.isEmpty()) shown = TextsOf(*menu);
        ShowMenuItem(entry.Action, menu->Items[index], shown[entry.Index]);
    }
}

void OpenMenuBar(QMenuBar* bar) {
    const QList<QAction*> menus = bar->actions();
    if (menus.isEmpty()) return;
    bar->setActiveAction(menus.constFirst());
    QMenu* menu = menus.constFirst()->menu();
    if (menu != nullptr) MarkFirstItem(*menu);
}

void RunPopupMenu(Window& window, const std::string& name) {
    const Menu* menu = FindMenu(window, name);
    if (menu == nullptr) return;
    if (menu->Items.size() == 1 && !menu->Items[0].SubMenu.empty()) {
        RunPopupMenu(window, std::string(menu->Items[0].SubMenu));
        return;
    }
    std::vector<MenuAction> actions;
    QMenu popup(Shell.MainWindow);
    popup.setSeparatorsCollapsible(false);
    AddItems(&popup, window, menu->Name, 0, actions);
    if (Shell.PopupAt) RunLater(&popup, 0, [&popup] { MarkFirstItem(popup); });
    const QAction* chosen = popup.exec(Shell.PopupAt.value_or(QCursor::pos()));
    for (const MenuAction& entry : actions) {
        if (entry.Action == chosen) ClickItem(window, entry.MenuName, entry.Index);
    }
}

}  // namespace brindlemoor
