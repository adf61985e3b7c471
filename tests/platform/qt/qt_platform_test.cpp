#include "platform/qt/qt_platform.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QTest>
#include <algorithm>
#include <ostream>
#include <string>
#include <vector>

#include "platform/qt/shell.h"
#include "user_actions.h"
#include "workbench/principal.h"

namespace brindlemoor::test {
namespace {

class QtPlatformTest : public testing::Test {
  protected:
    void SetUp() override {
        Shell = ShellState();
        Table = QtPlatform();
    }

    void TearDown() override {
        Shell = ShellState();
        Principal = Window();
    }

    PlatformTable Table;
};

struct BoxRow {
    Buttons Choice;
    Answer Escaped;
    std::vector<std::pair<QMessageBox::StandardButton, Answer>> Pressed;
};

void PrintTo(const BoxRow& row, std::ostream* out) {
    *out << "buttons " << static_cast<int>(row.Choice);
}

class MessageBoxes : public QtPlatformTest, public testing::WithParamInterface<BoxRow> {};

TEST_P(MessageBoxes, AnswerByTheButtonPressedAndDeclineOnEscape) {
    const BoxRow& row = GetParam();
    for (const auto& [button, answer] : row.Pressed) {
        const WhenOpen box(Box::Dialog, [&, pressed = button](QWidget* open) {
            auto* message = qobject_cast<QMessageBox*>(open);
            ASSERT_NE(message, nullptr);
            EXPECT_EQ(static_cast<std::size_t>(message->buttons().size()), row.Pressed.size());
            QTest::mouseClick(message->button(pressed), Qt::LeftButton);
        });
        EXPECT_EQ(Table.ShowMessage("text", "title", row.Choice, MessageIcon::None), answer);
    }
    const WhenOpen box(Box::Dialog, [](QWidget* open) { QTest::keyClick(open, Qt::Key_Escape); });
    EXPECT_EQ(Table.ShowMessage("text", "title", row.Choice, MessageIcon::None), row.Escaped);
}

INSTANTIATE_TEST_SUITE_P(
    Buttons, MessageBoxes,
    testing::Values(BoxRow{Buttons::Ok, Answer::Ok, {{QMessageBox::Ok, Answer::Ok}}},
                    BoxRow{Buttons::OkCancel,
                           Answer::Cancel,
                           {{QMessageBox::Ok, Answer::Ok}, {QMessageBox::Cancel, Answer::Cancel}}},
                    BoxRow{Buttons::YesNo,
                           Answer::No,
                           {{QMessageBox::Yes, Answer::Yes}, {QMessageBox::No, Answer::No}}},
                    BoxRow{Buttons::YesNoCancel,
                           Answer::Cancel,
                           {{QMessageBox::Yes, Answer::Yes},
                            {QMessageBox::No, Answer::No},
                            {QMessageBox::Cancel, Answer::Cancel}}}));

TEST_F(QtPlatformTest, AMessageShowsItsBytesAsCharactersAndNoMarkup) {
    const WhenOpen box(Box::Dialog, [](QWidget* open) {
        auto* message = qobject_cast<QMessageBox*>(open);
        ASSERT_NE(message, nullptr);
        EXPECT_EQ(message->text(), QStringLiteral("<b>Pa\u00F1uelo\nsecond"));
        EXPECT_EQ(message->textFormat(), Qt::PlainText);
        EXPECT_EQ(message->icon(), QMessageBox::Critical);
        EXPECT_EQ(message->windowTitle().toStdString(), "Brindlemoor");
        QTest::keyClick(open, Qt::Key_Escape);
    });
    Table.ShowMessage("<b>Pa\xF1uelo\r\nsecond", "Brindlemoor", Buttons::Ok, MessageIcon::Critical);
}

TEST_F(QtPlatformTest, ChangedRecordsAreShownBeforeAMessage) {
    QWidget window;
    int shown = 0;
    AddRefresh(&window, [&shown] { ++shown; });
    int shownWhenOpen = 0;
    const WhenOpen box(Box::Dialog, [&](QWidget* open) {
        shownWhenOpen = shown;
        QTest::keyClick(open, Qt::Key_Escape);
    });
    Table.ShowMessage("text", "title", Buttons::Ok, MessageIcon::None);
    EXPECT_EQ(shownWhenOpen, 1);
}

TEST_F(QtPlatformTest, APromptReturnsTheTypedTextAndNothingWhenGivenUp) {
    {
        const WhenOpen box(Box::Dialog, [](QWidget* open) {
            auto* line = open->findChild<QLineEdit*>();
            ASSERT_NE(line, nullptr);
            EXPECT_EQ(line->text().toStdString(), "OLD.BAS");
            line->clear();
            QTest::keyClicks(line, QStringLiteral("NEW.BAS"));
            QTest::keyClick(line, Qt::Key_Return);
        });
        EXPECT_EQ(Table.AskText("name?", "title", "OLD.BAS"), "NEW.BAS");
    }
    const WhenOpen box(Box::Dialog, [](QWidget* open) { QTest::keyClick(open, Qt::Key_Escape); });
    EXPECT_EQ(Table.AskText("name?", "title", "OLD.BAS"), "");
}

TEST_F(QtPlatformTest, APopupRunsTheClickOfTheMenuThatHoldsTheItem) {
    std::vector<std::string> clicked;
    const auto add = [&](const std::string& name, std::vector<MenuItem> items) {
        Menu menu;
        menu.Name = name;
        menu.Items = std::move(items);
        menu.Click = [&clicked, name](int index) {
            clicked.push_back(name + std::to_string(index));
        };
        Principal.Menus.push_back(menu);
    };
    add("MenuPop", {{"PopMenu", "", false, true, "", "PopMenu"}});
    add("PopMenu", {{"View", "", false, true, "", ""},
                    {"-", "", false, true, "", ""},
                    {"Convert", "", false, true, "", "ConvMenu"},
                    {"Grey", "", false, false, "", ""},
                    {"Save A&B", "", true, true, "", ""}});
    add("ConvMenu", {{"To CAS", "", false, true, "", ""}, {"To WAV", "", false, true, "", ""}});
    {
        const WhenOpen popup(Box::Menu, [](QWidget* open) {
            EXPECT_EQ(open->actions().size(), 5);
            EXPECT_TRUE(open->actions().at(1)->isSeparator());
            EXPECT_FALSE(open->actions().at(3)->isEnabled());
            EXPECT_TRUE(open->actions().at(4)->isChecked());
            ClickItem(open, "Save A&B");
        });
        Table.PopupMenu("MenuPop");
    }
    {
        const WhenOpen popup(Box::Menu, [](QWidget* open) {
            QMenu* below = ClickItem(open, "Convert");
            ASSERT_NE(below, nullptr);
            ClickItem(below, "To WAV");
        });
        Table.PopupMenu("PopMenu");
    }
    {
        const WhenOpen popup(Box::Menu,
                             [](QWidget* open) { QTest::keyClick(open, Qt::Key_Escape); });
        Table.PopupMenu("PopMenu");
    }
    EXPECT_EQ(clicked, (std::vector<std::string>{"PopMenu4", "ConvMenu1"}));
}

TEST_F(QtPlatformTest, DrivesBeginWithTheRootAndTheHomeFolder) {
    const std::vector<DriveEntry> drives = Table.ListDrives();
    ASSERT_FALSE(drives.empty());
#ifndef _WIN32
    EXPECT_EQ(drives[0].Path, "/");
#endif
    for (const DriveEntry& drive : drives) EXPECT_FALSE(drive.Label.empty());
}

TEST_F(QtPlatformTest, AProgramThatIsNotThereIsNotStarted) {
    EXPECT_FALSE(Table.StartProgram("no-such-program-of-this-name", {"argument"}));
}

TEST_F(QtPlatformTest, AnUnknownWindowIsNotShown) {
    Table.ShowModal("NoSuchWindow");  // returns at once
}

TEST_F(QtPlatformTest, EndingTheProgramLetsNoFurtherEventThrough) {
    int code = -1;
    Shell.Quit = [&code](int exitCode) { code = exitCode; };
    Table.EndProgram();
    EXPECT_EQ(code, 1);
    bool ran = false;
    UserAction([&ran] { ran = true; });
    EXPECT_FALSE(ran);
}

}  // namespace
}  // namespace brindlemoor::test
