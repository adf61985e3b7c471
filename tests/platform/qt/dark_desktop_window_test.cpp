#include <gtest/gtest.h>

#include <QApplication>
#include <QMenu>
#include <QPalette>
#include <QTest>
#include <QToolTip>
#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <utility>

#include "keyboard_fixture.h"
#include "platform/qt/colours.h"
#include "user_actions.h"

namespace brindlemoor::test {
namespace {

constexpr std::array<const char*, 16> kKinds = {
    "QToolButton",       "QAbstractButton",  "QCheckBox", "QRadioButton", "QHeaderView", "QMenu",
    "QAbstractItemView", "QMessageBoxLabel", "QTabBar",   "QLabel",       "QGroupBox",   "QMenuBar",
    "QTextEdit",         "QTextControl",     "QLineEdit", "QComboBox"};

/// What a desktop at night gives to every program: for all widgets, and for some kinds once more.
void DarkenDesktop() {
    QPalette dark(QColor(0x31, 0x36, 0x3B), QColor(0x2A, 0x2E, 0x32));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText,
                            QPalette::ToolTipText, QPalette::HighlightedText}) {
        dark.setColor(role, QColor(0xFC, 0xFC, 0xFC));
    }
    dark.setColor(QPalette::Base, QColor(0x1B, 0x1E, 0x20));
    dark.setColor(QPalette::AlternateBase, QColor(0x23, 0x26, 0x29));
    dark.setColor(QPalette::ToolTipBase, QColor(0x31, 0x36, 0x3B));
    dark.setColor(QPalette::Highlight, QColor(0x3D, 0xAE, 0xE9));
    dark.setColor(QPalette::Link, QColor(0x1D, 0x99, 0xF3));
    dark.setColor(QPalette::LinkVisited, QColor(0x9B, 0x59, 0xB6));
    dark.setColor(QPalette::PlaceholderText, QColor(0x80, 0x80, 0x80));
    QApplication::setPalette(dark);
    for (const char* kind : kKinds) QApplication::setPalette(dark, kind);
    QToolTip::setPalette(dark);
}

double Luminance(const QColor& colour) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

/// The ratio of WCAG 2, from 1 to 21.
double Contrast(const QColor& one, const QColor& other) {
    const double first = Luminance(one);
    const double second = Luminance(other);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

struct Pair {
    QPalette::ColorRole Text;
    QPalette::ColorRole Ground;
};

constexpr std::array<Pair, 9> kPairs = {{{QPalette::WindowText, QPalette::Window},
                                         {QPalette::Text, QPalette::Base},
                                         {QPalette::Text, QPalette::AlternateBase},
                                         {QPalette::PlaceholderText, QPalette::Base},
                                         {QPalette::ButtonText, QPalette::Button},
                                         {QPalette::HighlightedText, QPalette::Highlight},
                                         {QPalette::ToolTipText, QPalette::ToolTipBase},
                                         {QPalette::Link, QPalette::Window},
                                         {QPalette::LinkVisited, QPalette::Base}}};

/// A colour that a record gives to its control is the ground of that; the style's other grounds do
/// not show in it then.
bool HasOwnGround(const QPalette& palette) {
    return palette.color(QPalette::Base) == palette.color(QPalette::Button);
}

void ExpectReadable(const std::string& where, const QPalette& palette) {
    constexpr double kReadable = 4.5;
    for (const auto group : {QPalette::Active, QPalette::Inactive}) {
        for (const Pair& pair : kPairs) {
            const bool plain = pair.Ground == QPalette::Base && pair.Text == QPalette::Text;
            if (HasOwnGround(palette) && !plain) continue;
            const QColor text = palette.color(group, pair.Text);
            const QColor ground = palette.color(group, pair.Ground);
            EXPECT_GE(Contrast(text, ground), kReadable)
                << where << ": " << text.name().toStdString() << " on "
                << ground.name().toStdString();
        }
    }
}

/// What a widget without a ground of its own stands on.
QColor GroundUnder(const QWidget* widget) {
    const QWidget* below = widget->parentWidget();
    while (below != nullptr && !below->isWindow() && !below->autoFillBackground()) {
        below = below->parentWidget();
    }
    return below == nullptr ? QColor(Qt::white) : below->palette().color(below->backgroundRole());
}

class DarkDesktopTest : public KeyboardTest {
  protected:
    void SetUp() override {
        DarkenDesktop();
        ApplyLook(*qApp);
        KeyboardTest::SetUp();
    }

    void TearDown() override {
        KeyboardTest::TearDown();
        ApplyLook(*qApp);
    }
};

TEST_F(DarkDesktopTest, EveryTextOfEveryWindowIsReadable) {
    ForEachWindow([](const std::string& name, QWidget* window) {
        QList<QWidget*> widgets = window->findChildren<QWidget*>();
        widgets << window;
        for (const QWidget* widget : widgets) {
            ExpectReadable(name + " " + Describe(widget), widget->palette());
            if (widget->isWindow() || !widget->inherits("QLabel") || !widget->isEnabled()) continue;
            EXPECT_GE(Contrast(widget->palette().color(QPalette::WindowText), GroundUnder(widget)),
                      4.5)
                << name << " " << Describe(widget);
        }
    });
}

TEST_F(DarkDesktopTest, PopupsAndTipsAreReadableToo) {
    GoToFile("COCO.DSK");
    const WhenOpen popup(Box::Menu, [](QWidget* menu) {
        ExpectReadable("popup", menu->palette());
        QTest::keyClick(menu, Qt::Key_Escape);
    });
    Key(Qt::Key_Menu);
    ExpectReadable("tool tip", QToolTip::palette());
    ExpectReadable("menu", Bar()->actions().at(0)->menu()->palette());
    const auto* list = Window_.Widget->findChild<QAbstractItemView*>();
    ASSERT_NE(list, nullptr);
    ExpectReadable("list", list->palette());
}

TEST_F(DarkDesktopTest, ADesktopThatTurnsDarkLaterChangesNothing) {
    const QPalette before = Bar()->palette();
    DarkenDesktop();
    QEvent changed(QEvent::ThemeChange);
    QApplication::sendEvent(Window_.Widget.get(), &changed);
    for (const char* kind : kKinds) {
        EXPECT_EQ(QApplication::palette(kind).color(QPalette::Window),
                  before.color(QPalette::Window))
            << kind;
        ExpectReadable(kind, QApplication::palette(kind));
    }
    EXPECT_EQ(Bar()->palette(), before);
    ExpectReadable("tool tip", QToolTip::palette());
}

}  // namespace
}  // namespace brindlemoor::test
