#pragma once

#include <QListWidget>
#include <QTableView>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/qt/main_window.h"

namespace brindlemoor::benchmarks {

/// The whole program in its real window, started as `main` starts it, over fresh settings and a
/// folder of the PC of its own. Every question is answered at once as its default button does, or
/// with yes.
class RealWindow {
  public:
    RealWindow();
    ~RealWindow();
    RealWindow(const RealWindow&) = delete;
    RealWindow& operator=(const RealWindow&) = delete;

    const std::string& Folder() const { return folder_; }

    /// Puts a file into the folder.
    void Give(const std::string& name, const std::string& bytes) const;

    /// Deletes all files of the folder.
    void Clear() const;

    /// Makes an empty folder beside it, and lists that.
    void ListEmptyFolder(const std::string& name) const;

    /// Lists the folder anew, as a change of folder does.
    void ListFolder() const;

    QListWidget* Files() const;
    QTableView* Directory() const;

    /// The left button on a file of the list, until the window shows what follows.
    void ClickFile(const std::string& name) const;

    /// Goes through `act` and returns the seconds until the window has painted what it changed.
    double SecondsUntilPainted(const std::function<void()>& act) const;

  private:
    void Start();

    std::string folder_;
    std::string startedIn_;
    MainWindow window_;
};

/// The left button on the place of an entry or a cell, as real events.
void PressAndRelease(QAbstractItemView* view, const QModelIndex& index,
                     Qt::KeyboardModifiers modifiers = Qt::NoModifier);

/// A key on a widget, as real events.
void Key(QWidget* widget, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

}  // namespace brindlemoor::benchmarks
