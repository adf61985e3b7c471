#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QTest>
#include <algorithm>
#include <set>
#include <string>

#include "keyboard_fixture.h"
#include "platform/qt/shell.h"
#include "user_actions.h"
#include "workbench/principal.h"

namespace brindlemoor::test {
namespace {

/// What a screen reader says of a widget. Some systems name a combo box after what it shows: there
/// its label says what it is.
std::string NameOf(QWidget* widget) {
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(widget);
    if (spoken == nullptr) return {};
    if (qobject_cast<QComboBox*>(widget) == nullptr) {
        return spoken->text(QAccessible::Name).toStdString();
    }
    const auto labels = spoken->relations(QAccessible::Label);
    if (labels.isEmpty()) return {};
    return labels.front().first->text(QAccessible::Name).toStdString();
}

class NamesTest : public KeyboardTest {
  protected:
    /// Language by its place in the menu.
    void Speak(int language) const { ChooseByKeys({1, 0, language}); }

    void ExpectNames() const {
        ForEachWindow([](const std::string& name, QWidget* window) {
            EXPECT_NE(NameOf(window), "") << name;
            for (QWidget* widget : window->findChildren<QWidget*>()) {
                const bool takesFocus = widget->focusPolicy() != Qt::NoFocus;
                const bool part = widget->focusProxy() != nullptr;  // of what has the name
                if (!takesFocus || part || !widget->isVisible()) continue;
                EXPECT_NE(NameOf(widget), "") << name << ": " << Describe(widget);
            }
        });
    }
};

TEST_F(NamesTest, EveryControlOfEveryWindowHasANameInEnglish) {
    ExpectNames();
}

TEST_F(NamesTest, EveryControlOfEveryWindowHasANameInSpanish) {
    Speak(1);
    ExpectNames();
}

TEST_F(NamesTest, TheControlsOfTheMainWindowHaveNamesOfTheirOwn) {
    std::set<std::string> names;
    for (QWidget* widget : TabStops(Window_.Widget.get())) {
        EXPECT_TRUE(names.insert(NameOf(widget)).second) << NameOf(widget);
    }
}

TEST_F(NamesTest, NamesFollowTheLanguage) {
    EXPECT_EQ(NameOf(Files()), "Files of the PC");
    EXPECT_EQ(NameOf(Find<QLineEdit>("Track")), "Track");
    EXPECT_EQ(NameOf(Find<QComboBox>("Zoom")), "Zoom");
    EXPECT_EQ(NameOf(Find<QComboBox>("DirPattern")), "Type");
    Speak(1);
    EXPECT_EQ(NameOf(Files()), "Archivos del PC");
    EXPECT_EQ(NameOf(Find<QLineEdit>("Track")), "Pista");
    EXPECT_EQ(NameOf(Find<QLineEdit>("Granulo")), "Gr\u00E1nulo");
    EXPECT_EQ(NameOf(Find<QComboBox>("DirPattern")->lineEdit()), "Tipo");
    Speak(0);
    EXPECT_EQ(NameOf(Files()), "Files of the PC");
}

TEST_F(NamesTest, AnAmpersandInANameIsSaidAndMarksNoKey) {
    UserAction([] { PrincipalControl("Zoom").AccessibleName = "Size & Zoom"; });
    EXPECT_EQ(NameOf(Find<QComboBox>("Zoom")), "Size & Zoom");
    GoTo(Files());
    Key(Qt::Key_Space, Qt::AltModifier);
    EXPECT_EQ(Window_.Widget->focusWidget(), Files());
}

TEST_F(NamesTest, TheEditorOfACellIsNamedAfterItsColumn) {
    GoToFile("COCO.DSK");
    const auto longName = [](int column) {
        return MenuOf(Principal, "columnsMenu").Items[static_cast<std::size_t>(column)].Caption;
    };
    GoToCell(0, 1);
    Key(Qt::Key_F2);
    EXPECT_EQ(NameOf(Find<QLineEdit>("txtEdit")), longName(1));
    Key(Qt::Key_Escape);
    GoToCell(0, 3);
    Key(Qt::Key_F2);
    EXPECT_EQ(NameOf(Find<QComboBox>("ComboEdit")), longName(3));
    Key(Qt::Key_Escape);
}

}  // namespace
}  // namespace brindlemoor::test
