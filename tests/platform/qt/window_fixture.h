#pragma once

#include <QListWidget>
#include <QMenuBar>
#include <QTableView>
#include <memory>
#include <string>

#include "platform/qt/main_window.h"
#include "support/settings_fixture.h"

namespace brindlemoor::test {

/// The whole program in its real window, over fresh settings and a folder of the PC with three
/// files: "COCO.DSK" (files ALPHA, BETA, a deleted one and GAMMA), "OTHER.DSK" (one file) and
/// "NOTE.TXT".
class WindowTest : public SettingsTest {
  protected:
    void SetUp() override;
    void TearDown() override;

    /// Starts the program as main does, with the settings file as it stands.
    void StartProgram();

    /// Drops the window and the program's state; settings and files stay.
    void EndProgram();

    /// The widget of a control of the main window.
    template <typename Widget>
    Widget* Find(const std::string& name, int index = 0) const {
        auto* widget = dynamic_cast<Widget*>(WidgetOf(*Window_.Controls, name, index));
        EXPECT_NE(widget, nullptr) << name;
        return widget;
    }

    /// A widget of the dialog that stands open, by its control's name.
    template <typename Widget>
    static Widget* In(QWidget* dialog, const std::string& name, int index = 0) {
        auto* widget =
            dialog->findChild<Widget*>(QString::fromStdString(name) + QString::number(index));
        EXPECT_NE(widget, nullptr) << name;
        return widget;
    }

    /// Clicks a button at its left, where a check box or an option has its mark.
    static void Press(QWidget* button);

    QListWidget* Files() const { return Find<QListWidget>("File1"); }
    QTableView* Directory() const { return Find<QTableView>("ListDirec"); }
    QMenuBar* Bar() const { return Window_.Widget->menuBar(); }

    /// Clicks the file of that name in the list.
    void ClickFile(const std::string& name) const;

    /// What a cell of the directory shows; the row as shown, from 0, the column from 1.
    std::string Cell(int row, int column) const;

    /// What stands behind "key=" in the settings file.
    std::string Stored(const std::string& key) const;

    MainWindow Window_;
    std::string PcFolder;
    int ExitCode = -1;  ///< with which the program left its event loop, -1 if it did not

  private:
    std::string startedIn_;
};

}  // namespace brindlemoor::test
