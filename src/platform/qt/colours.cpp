#include "platform/qt/colours.h"

#include <QAbstractScrollArea>
#include <QComboBox>
#include <QFont>
#include <QIcon>
#include <QLineEdit>
#include <QPalette>
#include <QStyleFactory>
#include <QToolTip>
#include <array>

#include "workbench/control.h"

namespace brindlemoor {

namespace {

constexpr int kFontPixelSize = 12;

/// The colours of a moor in the morning: pale heather grey, ink, and one green for what is chosen.
QPalette CalmPalette() {
    const QColor window(0xEC, 0xEE, 0xEB);
    const QColor ink(0x1E, 0x24, 0x22);
    const QColor faded(0x78, 0x7F, 0x7B);
    const QColor quiet(0x5C, 0x64, 0x60);
    const QColor chosen(0x2F, 0x6B, 0x5E);
    QPalette palette(QColor(0xDF, 0xE4, 0xE0), window);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(role, ink);
        palette.setColor(QPalette::Disabled, role, faded);
    }
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::Disabled, QPalette::Base, QColor(0xF4, 0xF5, 0xF3));
    palette.setColor(QPalette::AlternateBase, QColor(0xF3, 0xF6, 0xF3));
    palette.setColor(QPalette::Highlight, chosen);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::ToolTipBase, QColor(0xFF, 0xFB, 0xE6));
    palette.setColor(QPalette::ToolTipText, ink);
    palette.setColor(QPalette::PlaceholderText, quiet);
    palette.setColor(QPalette::Link, chosen);
    palette.setColor(QPalette::LinkVisited, chosen);
    return palette;
}

/// Kinds of widgets for which desktops have palettes of their own beside the program's.
constexpr std::array<const char*, 15> kDesktopKinds = {
    "QToolButton", "QAbstractButton",   "QCheckBox",        "QRadioButton", "QHeaderView",
    "QMenu",       "QAbstractItemView", "QMessageBoxLabel", "QTabBar",      "QLabel",
    "QGroupBox",   "QMenuBar",          "QTextEdit",        "QTextControl", "QLineEdit"};

/// True where the widget paints on `Base` and not on the window's colour.
bool IsField(const QWidget* widget) {
    return qobject_cast<const QLineEdit*>(widget) != nullptr ||
           qobject_cast<const QAbstractScrollArea*>(widget) != nullptr ||
           qobject_cast<const QComboBox*>(widget) != nullptr;
}

}  // namespace

void ApplyPalette() {
    const QPalette palette = CalmPalette();
    QApplication::setPalette(palette);
    for (const char* kind : kDesktopKinds) QApplication::setPalette(palette, kind);
    QToolTip::setPalette(palette);
}

void ApplyLook(QApplication& application) {
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    ApplyPalette();
    // A dark desktop's icons are drawn in light lines: those that Qt brings along are seen on any
    // ground. Qt takes them where a set of icons is not there.
    for (const auto set : {QIcon::setThemeName, QIcon::setFallbackThemeName}) {
        set(QStringLiteral("brindlemoor"));
    }
    QFont font = application.font();
    font.setPixelSize(kFontPixelSize);
    QApplication::setFont(font);
}

void ShowColours(QWidget* widget, std::int32_t back, std::int32_t fore) {
    QPalette palette;
    if (back != kNoColour) {
        for (const auto role : {QPalette::Window, QPalette::Base, QPalette::Button}) {
            palette.setColor(role, ColourOf(back));
        }
    }
    if (fore != kNoColour) {
        for (const auto group : {QPalette::Active, QPalette::Inactive}) {
            for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
                palette.setColor(group, role, ColourOf(fore));
            }
        }
    }
    if (!IsField(widget)) widget->setAutoFillBackground(back != kNoColour);
    widget->setPalette(palette);
}

}  // namespace brindlemoor
