#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QSlider>
#include <QTest>
#include <memory>
#include <string>
#include <vector>

#include "platform/qt/shell.h"
#include "platform/qt/window_widgets.h"
#include "user_actions.h"

namespace brindlemoor::test {
namespace {

/// A window of a few controls of the test's own. `Events` tells which routines ran.
class ControlsTest : public testing::Test {
  protected:
    Control& Add(const std::string& name, ControlKind kind, int place) {
        Control control;
        control.Name = name;
        control.Kind = kind;
        control.Left = 10 * kTwipsPerPixel;
        control.Top = place * 40 * kTwipsPerPixel;
        control.Width = 200 * kTwipsPerPixel;
        control.Height = 24 * kTwipsPerPixel;
        control.Change = [this, name] { Events.push_back(name + " change"); };
        control.Click = [this, name] { Events.push_back(name + " click"); };
        control.DoubleClick = [this, name] { Events.push_back(name + " double"); };
        control.RightClick = [this, name] { Events.push_back(name + " right"); };
        control.Leave = [this, name] { Events.push_back(name + " leave"); };
        Table.Controls.push_back(control);
        return Table.Controls.back();
    }

    void Build() {
        Shell = ShellState();
        Top = std::make_unique<QWidget>();
        Top->resize(300, 500);
        Widgets = BuildWidgets(Table, Top.get());
        AddRefresh(Top.get(), [widgets = Widgets] { ShowRecords(*widgets); });
        RefreshWindows();
        Top->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(Top.get()));
        Events.clear();
    }

    template <typename Widget>
    Widget* Find(const std::string& name) const {
        auto* widget = dynamic_cast<Widget*>(WidgetOf(*Widgets, name));
        EXPECT_NE(widget, nullptr) << name;
        return widget;
    }

    Control& Record(const std::string& name) { return ControlOf(Table, name); }

    using Names = std::vector<std::string>;

    Window Table;
    Names Events;
    std::unique_ptr<QWidget> Top;
    std::shared_ptr<WindowWidgets> Widgets;
};

TEST_F(ControlsTest, TypingIntoATextBoxRunsChangeForEachLetter) {
    Add("box", ControlKind::TextBox, 0).Text = "a";
    Build();
    auto* box = Find<QLineEdit>("box");
    box->setFocus();
    QTest::keyClick(box, Qt::Key_End);
    QTest::keyClicks(box, QStringLiteral("bc"));
    EXPECT_EQ(Record("box").Text, "abc");
    EXPECT_EQ(Events, (Names{"box change", "box change"}));
}

TEST_F(ControlsTest, ATextThatTheProgramSetsIsShownWithoutAnEvent) {
    Add("box", ControlKind::TextBox, 0);
    Build();
    Record("box").Text = "Pa\xF1uelo";
    RefreshWindows();
    EXPECT_EQ(Find<QLineEdit>("box")->text(), QStringLiteral("Pa\u00F1uelo"));
    EXPECT_TRUE(Events.empty());
}

TEST_F(ControlsTest, ARoutineThatMendsTheTypedTextKeepsTheCursor) {
    Add("box", ControlKind::TextBox, 0).Text = "ad";
    Table.Controls[0].Change = [this] {
        for (char& letter : Table.Controls[0].Text) letter = letter == 'b' ? 'B' : letter;
    };
    Build();
    auto* box = Find<QLineEdit>("box");
    box->setFocus();
    box->setCursorPosition(1);
    QTest::keyClicks(box, QStringLiteral("bc"));
    EXPECT_EQ(box->text().toStdString(), "aBcd");
}

TEST_F(ControlsTest, ATallTextBoxHoldsLines) {
    Control& record = Add("box", ControlKind::TextBox, 0);
    record.Height = 100 * kTwipsPerPixel;
    record.Text = "one\r\ntwo";
    Build();
    auto* box = Find<QPlainTextEdit>("box");
    EXPECT_EQ(box->toPlainText().toStdString(), "one\ntwo");
    box->setFocus();
    box->moveCursor(QTextCursor::End);
    QTest::keyClick(box, Qt::Key_Return);
    EXPECT_EQ(Record("box").Text, "one\r\ntwo\r\n");
}

TEST_F(ControlsTest, AKeyGoesToTheControlFirstAndIsDroppedWhenItSaysSo) {
    std::vector<int> keys;
    Add("box", ControlKind::TextBox, 0).Key = [&keys](int key) {
        keys.push_back(key);
        return key == kKeyDoubleQuote;
    };
    Build();
    auto* box = Find<QLineEdit>("box");
    box->setFocus();
    QTest::keyClicks(box, QStringLiteral("a\"(."));
    QTest::keyClick(box, Qt::Key_Down);
    QTest::keyClick(box, Qt::Key_Delete);
    QTest::keyClick(box, Qt::Key_Return);
    EXPECT_EQ(Record("box").Text, "a(.");
    EXPECT_EQ(keys, (std::vector<int>{'A', kKeyDoubleQuote, kKeyDown, kKeyDelete, kKeyEnter}));
}

TEST_F(ControlsTest, TheTabKeyWalksInTheOrderOfTheTableAlsoIntoAFrame) {
    Add("one", ControlKind::TextBox, 0);
    Add("frame", ControlKind::Frame, 5);
    Add("three", ControlKind::TextBox, 2);
    Add("inner", ControlKind::TextBox, 0).Container = "frame";
    Add("last", ControlKind::Button, 3);
    Build();
    Find<QLineEdit>("one")->setFocus();
    Names order;
    for (int i = 0; i < 3; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        order.push_back(QApplication::focusWidget()->objectName().toStdString());
    }
    EXPECT_EQ(order, (Names{"three0", "inner0", "last0"}));
    EXPECT_EQ(Find<QLineEdit>("inner")->parentWidget(), Find<QWidget>("frame"));
    EXPECT_EQ(Events, (Names{"one leave", "three leave", "inner leave"}));
}

TEST_F(ControlsTest, AWindowThatIsLeftDoesNotLeaveItsControl) {
    Add("box", ControlKind::TextBox, 0);
    Build();
    Find<QLineEdit>("box")->setFocus();
    QFocusEvent elsewhere(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
    QApplication::sendEvent(Find<QLineEdit>("box"), &elsewhere);
    EXPECT_TRUE(Events.empty());
}

TEST_F(ControlsTest, ACheckBoxAndAButtonRunClick) {
    Add("check", ControlKind::CheckBox, 0).Text = "a & b";
    Add("button", ControlKind::Button, 1).Text = "c & d";
    Build();
    auto* check = Find<QCheckBox>("check");
    EXPECT_EQ(check->text().toStdString(), "a && b");  // shown as "a & b", no key of its own
    QTest::mouseClick(check, Qt::LeftButton, Qt::NoModifier, QPoint(8, 12));
    QTest::mouseClick(Find<QPushButton>("button"), Qt::LeftButton);
    EXPECT_TRUE(Record("check").Checked);
    EXPECT_EQ(Events, (Names{"check click", "check leave", "button click"}));
}

TEST_F(ControlsTest, ScrollBarsStoreTheirValueWithinTheirRange) {
    Control& record = Add("bar", ControlKind::HorizontalBar, 0);
    record.Minimum = 1;
    record.Maximum = 40;
    record.Value = 7;
    record.LargeChange = 10;
    Build();
    auto* bar = Find<QScrollBar>("bar");
    EXPECT_EQ(bar->value(), 7);
    bar->triggerAction(QAbstractSlider::SliderPageStepAdd);
    EXPECT_EQ(Record("bar").Value, 17);
    bar->triggerAction(QAbstractSlider::SliderToMaximum);
    EXPECT_EQ(Record("bar").Value, 40);
    EXPECT_EQ(Events, (Names{"bar change", "bar change"}));
    Record("bar").Maximum = 20;
    Record("bar").Value = 20;
    RefreshWindows();
    EXPECT_EQ(bar->maximum(), 20);
    EXPECT_EQ(bar->value(), 20);
    EXPECT_EQ(Events.size(), 2u);
}

TEST_F(ControlsTest, AnEditableListTellsTypingFromPicking) {
    Control& record = Add("list", ControlKind::ComboBox, 0);
    record.Items = {"one", "two", "three"};
    record.Editable = true;
    Build();
    auto* list = Find<QComboBox>("list");
    list->setFocus();
    QTest::keyClicks(list, QStringLiteral("tw"));
    EXPECT_EQ(Record("list").Text, "tw");
    EXPECT_EQ(Events, (Names{"list change", "list change"}));
    QTest::keyClick(list, Qt::Key_O);
    QTest::keyClick(list, Qt::Key_Return);
    EXPECT_EQ(Record("list").Text, "two");
    EXPECT_EQ(Events.size(), 3u);  // Enter picks nothing
    Events.clear();
    QTest::keyClick(list, Qt::Key_Down);
    EXPECT_EQ(Events, Names{"list click"});
    EXPECT_EQ(Record("list").Text,
              Record("list").Items[static_cast<std::size_t>(Record("list").ListIndex)]);
}

TEST_F(ControlsTest, AListFollowsItsRecord) {
    Control& record = Add("list", ControlKind::ComboBox, 0);
    record.Items = {"one", "two"};
    record.ListIndex = 1;
    Build();
    auto* list = Find<QComboBox>("list");
    EXPECT_EQ(list->currentText().toStdString(), "two");
    Record("list").Items = {"uno", "dos", "tres"};
    Record("list").ListIndex = 2;
    RefreshWindows();
    EXPECT_EQ(list->count(), 3);
    EXPECT_EQ(list->currentText().toStdString(), "tres");
    Record("list").ListIndex = -1;
    RefreshWindows();
    EXPECT_EQ(list->currentIndex(), -1);
    EXPECT_TRUE(Events.empty());
}

class FileListTest : public ControlsTest {
  protected:
    void SetUp() override {
        Control& record = Add("files", ControlKind::FileList, 0);
        record.Height = 200 * kTwipsPerPixel;
        record.Items = {"a", "b", "c", "d"};
        Add("other", ControlKind::TextBox, 6);
        Build();
        List = Find<QListWidget>("files");
    }

    std::vector<bool> Selected() { return Record("files").ItemSelected; }

    QListWidget* List = nullptr;
};

TEST_F(FileListTest, APressIsAClickAlsoOnTheChosenEntry) {
    ClickEntry(List, 1);
    ClickEntry(List, 1);
    EXPECT_EQ(Record("files").ListIndex, 1);
    EXPECT_EQ(Events, (Names{"files click", "files click"}));
}

TEST_F(FileListTest, CtrlAndShiftSelectSeveral) {
    ClickEntry(List, 0);
    ClickEntry(List, 2, Qt::ControlModifier);
    EXPECT_EQ(Selected(), (std::vector<bool>{true, false, true, false}));
    EXPECT_EQ(Record("files").ListIndex, 2);
    ClickEntry(List, 1);
    EXPECT_EQ(Selected(), (std::vector<bool>{false, true, false, false}));
    ClickEntry(List, 3, Qt::ShiftModifier);
    EXPECT_EQ(Selected(), (std::vector<bool>{false, true, true, true}));
}

TEST_F(FileListTest, ArrowKeysClickAndShiftExtends) {
    ClickEntry(List, 0);
    QTest::keyClick(List, Qt::Key_Down);
    EXPECT_EQ(Record("files").ListIndex, 1);
    QTest::keyClick(List, Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(Record("files").ListIndex, 2);
    EXPECT_EQ(Selected(), (std::vector<bool>{false, true, true, false}));
    EXPECT_EQ(Events.size(), 3u);
}

TEST_F(FileListTest, GettingTheFocusIsNoClick) {
    Find<QLineEdit>("other")->setFocus();
    Events.clear();
    QTest::keyClick(Find<QLineEdit>("other"), Qt::Key_Tab);
    ASSERT_TRUE(List->hasFocus());
    EXPECT_EQ(Events, Names{"other leave"});
    EXPECT_EQ(Record("files").ListIndex, -1);
}

TEST_F(FileListTest, TheRightButtonChoosesNothing) {
    ClickEntry(List, 0);
    Events.clear();
    QTest::mouseClick(List->viewport(), Qt::RightButton, Qt::NoModifier,
                      List->visualItemRect(List->item(2)).center());
    EXPECT_EQ(Events, Names{"files right"});
    EXPECT_EQ(Selected(), (std::vector<bool>{true, false, false, false}));
}

TEST_F(FileListTest, FollowsItsRecord) {
    Control& record = Record("files");
    record.Items = {"x", "y"};
    record.ListIndex = 1;
    record.ItemSelected = {true, true};
    RefreshWindows();
    EXPECT_EQ(List->count(), 2);
    EXPECT_EQ(List->currentRow(), 1);
    EXPECT_EQ(List->selectedItems().size(), 2);
    EXPECT_TRUE(Events.empty());
}

TEST_F(ControlsTest, ColoursFontsAndStateComeFromTheRecord) {
    Control& label = Add("label", ControlKind::Label, 0);
    label.BackColour = 0x0000FF;  // red
    label.ForeColour = 0xFF0000;  // blue
    label.ToolTip = "tip";
    Add("button", ControlKind::Button, 1).Enabled = false;
    Add("gone", ControlKind::TextBox, 2).Visible = false;
    Build();
    auto* shown = Find<QLabel>("label");
    EXPECT_EQ(shown->palette().color(QPalette::Window), QColor(255, 0, 0));
    EXPECT_EQ(shown->palette().color(QPalette::WindowText), QColor(0, 0, 255));
    EXPECT_EQ(shown->toolTip().toStdString(), "tip");
    EXPECT_FALSE(Find<QPushButton>("button")->isEnabled());
    EXPECT_FALSE(Find<QLineEdit>("gone")->isVisible());
    Record("gone").Visible = true;
    Record("gone").Left = 50 * kTwipsPerPixel;
    Record("label").BackColour = kNoColour;
    RefreshWindows();
    EXPECT_TRUE(Find<QLineEdit>("gone")->isVisible());
    EXPECT_EQ(Find<QLineEdit>("gone")->x(), 50);
    EXPECT_NE(shown->palette().color(QPalette::Window), QColor(255, 0, 0));
}

TEST_F(ControlsTest, ASliderMovesWithinItsRangeAndRunsChange) {
    Control& record = Add("slider", ControlKind::Slider, 0);
    record.Maximum = 20;
    record.LargeChange = 5;
    record.Value = 18;
    Build();
    auto* slider = Find<QSlider>("slider");
    EXPECT_EQ(slider->value(), 18);
    slider->setFocus();
    QTest::keyClick(slider, Qt::Key_Right);
    QTest::keyClick(slider, Qt::Key_PageUp);
    QTest::keyClick(slider, Qt::Key_PageUp);
    EXPECT_EQ(Record("slider").Value, 20);
    EXPECT_EQ(Events, (Names{"slider change", "slider change"}));
    Record("slider").Value = 3;
    RefreshWindows();
    EXPECT_EQ(slider->value(), 3);
}

TEST_F(ControlsTest, EnterPressesTheButtonThatHasTheFocus) {
    Add("one", ControlKind::Button, 0);
    Add("two", ControlKind::Button, 1);
    Build();
    auto* two = Find<QPushButton>("two");
    two->setFocus();
    Events.clear();
    QTest::keyClick(two, Qt::Key_Return);
    QTest::keyClick(two, Qt::Key_Enter);
    EXPECT_EQ(Events, (Names{"two click", "two click"}));
}

TEST_F(ControlsTest, AScreenReaderSaysTheNameOfAControl) {
    Add("box", ControlKind::ComboBox, 0).AccessibleName = "Pa\xF1uelo:";
    Build();
    EXPECT_EQ(Find<QComboBox>("box")->accessibleName(), QStringLiteral("Pa\u00F1uelo:"));
    Record("box").AccessibleName = "Other";
    RefreshWindows();
    EXPECT_EQ(Find<QComboBox>("box")->accessibleName(), QStringLiteral("Other"));
}

TEST_F(ControlsTest, AControlAddedLaterGetsItsWidget) {
    Add("one", ControlKind::Label, 0);
    Build();
    Add("two", ControlKind::Label, 1).Text = "later";
    RefreshWindows();
    EXPECT_EQ(Find<QLabel>("two")->text().toStdString(), "later");
    EXPECT_TRUE(Find<QLabel>("two")->isVisible());
}

}  // namespace
}  // namespace brindlemoor::test
