#pragma once

#include <QListWidget>
#include <QMenu>
#include <QTableView>
#include <functional>
#include <string>

namespace brindlemoor::test {

// What a user does with mouse and keys, as real events of the window system.

/// Presses and releases the left button on an entry of a list.
void ClickEntry(QListWidget* list, int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

/// Presses and releases the left button on a cell; row and column as the view shows them, from 0.
void ClickCell(QTableView* view, int row, int column,
               Qt::KeyboardModifiers modifiers = Qt::NoModifier);

/// Drags with the left button from one place of a widget to another.
void Drag(QWidget* widget, QPoint from, QPoint to);

/// What an item of a menu shows, without the marks of its letters, and the item that shows `text`,
/// null when there is none.
std::string ItemText(const QAction* item);
QAction* ItemOf(const QWidget* menu, const std::string& text);

/// Clicks an item of an open menu or of a menu bar, and returns the menu that it opens, if any.
QMenu* ClickItem(QWidget* menu, const std::string& text);

/// What a program waits for until the user has closed it.
enum class Box { Menu, Dialog };

/// Lets `act` use the next box of that kind once it stands open. Make it before the action that
/// opens the box, since that action returns only when the box is gone. A box that never comes
/// fails the test.
class WhenOpen {
  public:
    WhenOpen(Box kind, std::function<void(QWidget* box)> act);
    ~WhenOpen();
    WhenOpen(const WhenOpen&) = delete;
    WhenOpen& operator=(const WhenOpen&) = delete;

    bool Came() const { return came_; }

  private:
    QObject timer_;
    std::function<void(QWidget*)> act_;
    bool came_ = false;
};

}  // namespace brindlemoor::test
