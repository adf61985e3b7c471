#include "platform/qt/key_codes.h"

#include <algorithm>
#include <array>

#include "workbench/control.h"

namespace brindlemoor {

namespace {

struct KeyRow {
    int QtKey;
    int Code;
};

/// Page Down and the double quote share a code.
constexpr std::array<KeyRow, 17> kKeys = {{
    {Qt::Key_Backspace, 8},
    {Qt::Key_Tab, kKeyTab},
    {Qt::Key_Backtab, kKeyTab},
    {Qt::Key_Return, kKeyEnter},
    {Qt::Key_Enter, kKeyEnter},
    {Qt::Key_Escape, kKeyEscape},
    {Qt::Key_Space, 32},
    {Qt::Key_PageUp, kKeyPageUp},
    {Qt::Key_PageDown, kKeyPageDown},
    {Qt::Key_End, kKeyEnd},
    {Qt::Key_Home, kKeyHome},
    {Qt::Key_Left, kKeyLeft},
    {Qt::Key_Up, kKeyUp},
    {Qt::Key_Right, kKeyRight},
    {Qt::Key_Down, kKeyDown},
    {Qt::Key_Insert, 45},
    {Qt::Key_Delete, kKeyDelete},
}};

constexpr int kFirstFunctionKey = 112;

}  // namespace

int KeyCodeOf(const QKeyEvent& event) {
    const int key = event.key();
    const auto* row = std::find_if(kKeys.begin(), kKeys.end(), [key](const KeyRow& candidate) {
        return candidate.QtKey == key;
    });
    if (row != kKeys.end()) return row->Code;
    if (event.text() == QLatin1String("\"")) return kKeyDoubleQuote;
    if (key >= Qt::Key_F1 && key <= Qt::Key_F12) return kFirstFunctionKey + key - Qt::Key_F1;
    const bool letter = key >= Qt::Key_A && key <= Qt::Key_Z;
    const bool digit = key >= Qt::Key_0 && key <= Qt::Key_9;
    return letter || digit ? key : 0;
}

bool IsMenuKey(const QKeyEvent& event) {
    const bool shifted = event.modifiers() == Qt::ShiftModifier;
    return event.key() == Qt::Key_Menu || (event.key() == Qt::Key_F10 && shifted);
}

}  // namespace brindlemoor
