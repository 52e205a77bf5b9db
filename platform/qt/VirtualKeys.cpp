#include "VirtualKeys.h"

#include <QtGui/QKeyEvent>

#include <algorithm>
#include <array>

namespace {

struct KeyRow {
    int toolkitKey;
    BYTE key;
    bool extended = false; // where it is not on the number pad
};
constexpr std::array<KeyRow, 46> kKeys = {{
    {Qt::Key_Backspace, VK_BACK},
    {Qt::Key_Tab, VK_TAB},
    {Qt::Key_Backtab, VK_TAB},
    {Qt::Key_Clear, VK_CLEAR},
    {Qt::Key_Return, VK_RETURN},
    {Qt::Key_Enter, VK_RETURN},
    {Qt::Key_Shift, VK_SHIFT},
    {Qt::Key_Control, VK_CONTROL},
    {Qt::Key_Alt, VK_MENU},
    {Qt::Key_Pause, VK_PAUSE},
    {Qt::Key_CapsLock, VK_CAPITAL},
    {Qt::Key_Hangul, VK_HANGUL},
    {Qt::Key_Hangul_Hanja, VK_HANJA},
    {Qt::Key_Escape, VK_ESCAPE},
    {Qt::Key_Space, VK_SPACE},
    {Qt::Key_PageUp, VK_PRIOR, true},
    {Qt::Key_PageDown, VK_NEXT, true},
    {Qt::Key_End, VK_END, true},
    {Qt::Key_Home, VK_HOME, true},
    {Qt::Key_Left, VK_LEFT, true},
    {Qt::Key_Up, VK_UP, true},
    {Qt::Key_Right, VK_RIGHT, true},
    {Qt::Key_Down, VK_DOWN, true},
    {Qt::Key_Select, VK_SELECT},
    {Qt::Key_Print, VK_SNAPSHOT, true},
    {Qt::Key_Insert, VK_INSERT, true},
    {Qt::Key_Delete, VK_DELETE, true},
    {Qt::Key_Help, VK_HELP},
    {Qt::Key_Super_L, VK_LWIN, true},
    {Qt::Key_Super_R, VK_RWIN, true},
    {Qt::Key_Meta, VK_LWIN, true},
    {Qt::Key_Menu, VK_APPS, true},
    {Qt::Key_NumLock, VK_NUMLOCK, true},
    {Qt::Key_ScrollLock, VK_SCROLL},
    {Qt::Key_Semicolon, VK_OEM_1},
    {Qt::Key_Equal, VK_OEM_PLUS},
    {Qt::Key_Comma, VK_OEM_COMMA},
    {Qt::Key_Minus, VK_OEM_MINUS},
    {Qt::Key_Period, VK_OEM_PERIOD},
    {Qt::Key_Slash, VK_OEM_2},
    {Qt::Key_QuoteLeft, VK_OEM_3},
    {Qt::Key_BracketLeft, VK_OEM_4},
    {Qt::Key_Backslash, VK_OEM_5},
    {Qt::Key_BracketRight, VK_OEM_6},
    {Qt::Key_Apostrophe, VK_OEM_7},
    {Qt::Key_Less, VK_OEM_102},
}};

constexpr std::array<KeyRow, 6> kPadKeys = {{
    {Qt::Key_Asterisk, VK_MULTIPLY},
    {Qt::Key_Plus, VK_ADD},
    {Qt::Key_Minus, VK_SUBTRACT},
    {Qt::Key_Period, VK_DECIMAL},
    {Qt::Key_Comma, VK_SEPARATOR},
    {Qt::Key_Slash, VK_DIVIDE},
}};

// By scan code, the keys that type something on a US keyboard.
constexpr auto kUsLayout = [] {
    std::array<BYTE, 0x60> keys = {};
    auto fill = [&keys](size_t from, const char* row) {
        for (; *row; ++row)
            keys[from++] = static_cast<BYTE>(*row);
    };
    fill(0x02, "1234567890");
    fill(0x10, "QWERTYUIOP");
    fill(0x1e, "ASDFGHJKL");
    fill(0x2c, "ZXCVBNM");
    keys[0x0c] = VK_OEM_MINUS;
    keys[0x0d] = VK_OEM_PLUS;
    keys[0x1a] = VK_OEM_4;
    keys[0x1b] = VK_OEM_6;
    keys[0x27] = VK_OEM_1;
    keys[0x28] = VK_OEM_7;
    keys[0x29] = VK_OEM_3;
    keys[0x2b] = VK_OEM_5;
    keys[0x33] = VK_OEM_COMMA;
    keys[0x34] = VK_OEM_PERIOD;
    keys[0x35] = VK_OEM_2;
    keys[0x56] = VK_OEM_102;
    return keys;
}();

bool IsLetterOrDigit(int key)
{
    return (key >= 'A' && key <= 'Z') || (key >= '0' && key <= '9');
}

template <size_t n>
const KeyRow* RowOf(const std::array<KeyRow, n>& rows, int toolkitKey)
{
    const auto row = std::find_if(rows.begin(), rows.end(),
                                  [toolkitKey](const KeyRow& each) { return each.toolkitKey == toolkitKey; });
    return row == rows.end() ? nullptr : &*row;
}

WPARAM PadKeyOf(int toolkitKey)
{
    if (toolkitKey >= Qt::Key_0 && toolkitKey <= Qt::Key_9)
        return static_cast<WPARAM>(VK_NUMPAD0 + toolkitKey - Qt::Key_0);
    const KeyRow* row = RowOf(kPadKeys, toolkitKey);
    return row ? row->key : 0;
}

bool IsOnPad(const QKeyEvent& event)
{
    return event.modifiers() & Qt::KeypadModifier;
}

} // namespace

WPARAM VirtualKeyOf(const QKeyEvent& event)
{
    const int key = event.key();
    if (const WPARAM pad = IsOnPad(event) ? PadKeyOf(key) : 0)
        return pad;
    if (IsLetterOrDigit(key))
        return static_cast<WPARAM>(key);
    if (key >= Qt::Key_F1 && key <= Qt::Key_F24)
        return static_cast<WPARAM>(VK_F1 + key - Qt::Key_F1);
    if (const KeyRow* row = RowOf(kKeys, key))
        return row->key;
    const UINT scan = ScanCodeOf(event);
    return scan < kUsLayout.size() ? kUsLayout[scan] : 0;
}

int ToolkitKeyOf(WPARAM key)
{
    for (const auto& row : kKeys)
        if (row.key == key)
            return row.toolkitKey;
    if (key >= VK_F1 && key <= VK_F24)
        return static_cast<int>(key) - VK_F1 + Qt::Key_F1;
    return IsLetterOrDigit(static_cast<int>(key)) ? static_cast<int>(key) : 0;
}

// X counts the kernel's codes from 8; those of the main block are the scan codes.
UINT ScanCodeOf(const QKeyEvent& event)
{
    constexpr UINT kFirst = 8;
    return event.nativeScanCode() > kFirst ? event.nativeScanCode() - kFirst : 0;
}

bool IsExtendedKey(const QKeyEvent& event, WPARAM key)
{
    if (IsOnPad(event))
        return event.key() == Qt::Key_Enter || key == VK_DIVIDE;
    const KeyRow* row = RowOf(kKeys, event.key());
    return row && row->extended;
}
