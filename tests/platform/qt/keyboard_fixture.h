#pragma once

#include <QWidget>
#include <functional>
#include <string>
#include <vector>

#include "window_fixture.h"

namespace brindlemoor::test {

/// The whole program, used by somebody who has a keyboard and nothing else. The folder of the PC
/// has a Dragon disk with a wrong bitmap as well, "WRONG.DSK".
class KeyboardTest : public WindowTest {
  protected:
    void SetUp() override;
    void TearDown() override;

    /// Presses a key in the widget that has the focus in `window`, the main one by default.
    void Key(Qt::Key key, Qt::KeyboardModifiers held = Qt::NoModifier) const;
    static void KeyIn(QWidget* window, Qt::Key key, Qt::KeyboardModifiers held = Qt::NoModifier);

    /// Types over all that stands in the widget that has the focus.
    static void TypeIn(QWidget* window, const std::string& text);

    /// Alt with the letter of a menu of the bar, and then the letter of an item in each menu that
    /// opens; all by their places, from 0.
    void ChooseByKeys(const std::vector<int>& places) const;

    /// Presses the letter of an item in the popup that stands open.
    static void ChooseInPopup(int place);

    /// Presses Tab until the widget has the focus.
    static void GoTo(QWidget* widget);

    /// Goes to the list of files and to the file of that name, by its arrow keys.
    void GoToFile(const std::string& name) const;

    /// Goes to the grid's row and column as shown, from 0.
    void GoToCell(int row, int column) const;

    /// Runs `open`, lets `use` use the dialog that it brings up, and presses Escape if that is
    /// still open then.
    static void InDialog(const std::function<void()>& open,
                         const std::function<void(QWidget* dialog)>& use);

    /// Opens each window of the program in its turn, by keys as far as they lead there, and lets
    /// `look` look at it.
    using Look = std::function<void(const std::string& name, QWidget* window)>;
    void ForEachWindow(const Look& look) const;

  private:
    void ForEachMenuWindow(const Look& look) const;
    void ForEachBox(const Look& look) const;
};

/// The widgets of a window that take the focus by Tab now, those that stand for another one apart.
std::vector<QWidget*> TabStops(QWidget* window);

/// A short description of a widget, for the message of a test that fails.
std::string Describe(const QWidget* widget);

}  // namespace brindlemoor::test
