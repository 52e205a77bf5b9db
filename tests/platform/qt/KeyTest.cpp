#include "Widgets.h"

#include <QtGui/QKeyEvent>
#include <QtWidgets/QApplication>

#include <array>

namespace {

class KeyTest : public Widgets
{
protected:
    struct Key {
        int key;
        Qt::KeyboardModifiers modifiers;
        const char* text;
        UINT scan; // as X gives it
    };

    static void Send(QWidget* widget, const Key& key)
    {
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, key.key, key.modifiers, key.scan, 0, 0, QString::fromUtf8(key.text));
            QCoreApplication::sendEvent(widget, &event);
        }
    }

    // The next key message of the queue.
    static MSG NextKey()
    {
        MSG message = {};
        PeekMessageA(&message, nullptr, WM_KEYFIRST, WM_KEYLAST, PM_REMOVE);
        return message;
    }
};

struct KeyRow {
    const char* label;
    int key;
    Qt::KeyboardModifiers modifiers;
    UINT scan;
    UINT message;
    WPARAM virtualKey;
    LPARAM data; // of the press: count, scan code and flags
};

TEST_F(KeyTest, KeysBecomeMessages)
{
    const std::array<KeyRow, 16> kRows = {{
        {"letter", Qt::Key_A, {}, 38, WM_KEYDOWN, 'A', 0x001e0001},
        {"letter with shift", Qt::Key_A, Qt::ShiftModifier, 38, WM_KEYDOWN, 'A', 0x001e0001},
        {"letter of another alphabet", 0x0424, {}, 38, WM_KEYDOWN, 'A', 0x001e0001},
        {"digit", Qt::Key_1, {}, 10, WM_KEYDOWN, '1', 0x00020001},
        {"digit with shift", Qt::Key_Exclam, Qt::ShiftModifier, 10, WM_KEYDOWN, '1', 0x00020001},
        {"number pad", Qt::Key_1, Qt::KeypadModifier, 87, WM_KEYDOWN, VK_NUMPAD1, 0x004f0001},
        {"number pad without lock", Qt::Key_End, Qt::KeypadModifier, 87, WM_KEYDOWN, VK_END, 0x004f0001},
        {"end", Qt::Key_End, {}, 115, WM_KEYDOWN, VK_END, 0x016b0001},
        {"return", Qt::Key_Return, {}, 36, WM_KEYDOWN, VK_RETURN, 0x001c0001},
        {"enter of the pad", Qt::Key_Enter, Qt::KeypadModifier, 104, WM_KEYDOWN, VK_RETURN, 0x01600001},
        {"back tab", Qt::Key_Backtab, Qt::ShiftModifier, 23, WM_KEYDOWN, VK_TAB, 0x000f0001},
        {"function key", Qt::Key_F4, {}, 70, WM_KEYDOWN, VK_F4, 0x003e0001},
        {"menu key", Qt::Key_F10, {}, 76, WM_SYSKEYDOWN, VK_F10, 0x00440001},
        {"with Alt", Qt::Key_F, Qt::AltModifier, 41, WM_SYSKEYDOWN, 'F', 0x20210001},
        {"with Ctrl and Alt", Qt::Key_F, Qt::AltModifier | Qt::ControlModifier, 41, WM_KEYDOWN, 'F',
         0x20210001},
        {"Alt", Qt::Key_Alt, {}, 64, WM_SYSKEYDOWN, VK_MENU, 0x20380001},
    }};
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.label);
        Send(TopLevel(Host()), {row.key, row.modifiers, "", row.scan});
        const MSG down = NextKey();
        EXPECT_EQ(down.hwnd, Host());
        EXPECT_EQ(down.message, row.message);
        EXPECT_EQ(down.wParam, row.virtualKey);
        EXPECT_EQ(down.lParam, row.data);
        const MSG up = NextKey();
        EXPECT_EQ(up.message, row.message + 1);
        EXPECT_EQ(up.wParam, row.virtualKey);
        EXPECT_EQ(up.lParam, row.data | static_cast<LPARAM>(0xc0000000));
    }
}

TEST_F(KeyTest, WhatIsTypedArrivesWithTheMessages)
{
    const HWND edit = Make("EDIT", 0, "", 10, 10, 100, 20);
    SetFocus(edit);
    QWidget* widget = At(15, 15);
    Send(widget, {Qt::Key_A, {}, "a", 38});
    Send(widget, {0xd55c, {}, "\xed\x95\x9c", 0}); // a Hangul syllable from a keyboard
    Send(widget, {Qt::Key_B, Qt::ShiftModifier, "B", 56});
    EXPECT_EQ(GetWindowTextLengthA(edit), 0) << "nothing happens before the messages are met";
    Pump();
    std::array<char, 20> text;
    GetWindowTextA(edit, text.data(), static_cast<int>(text.size()));
    EXPECT_STREQ(text.data(), "a\xed\x95\x9c"
                              "B");
    Send(widget, {Qt::Key_Left, {}, "", 113});
    Send(widget, {Qt::Key_Backspace, {}, "\b", 22});
    Send(widget, {Qt::Key_Delete, {}, "\x7f", 119});
    Pump();
    EXPECT_EQ(GetWindowTextLengthA(edit), 1);
}

TEST_F(KeyTest, AMessageThatIsNotDispatchedDoesNothing)
{
    const HWND box = Make("BUTTON", BS_AUTOCHECKBOX, "&Box", 10, 10, 100, 20);
    SetFocus(box);
    QWidget* widget = At(15, 15);
    Send(widget, {Qt::Key_Space, {}, " ", 65});
    NextKey();
    NextKey();
    Pump();
    EXPECT_EQ(SendMessageA(box, BM_GETCHECK, 0, 0), BST_UNCHECKED);
    Send(widget, {Qt::Key_Space, {}, " ", 65});
    Pump();
    EXPECT_EQ(SendMessageA(box, BM_GETCHECK, 0, 0), BST_CHECKED);
}

TEST_F(KeyTest, InputMethodsReachTheTextAtOnce)
{
    const HWND edit = Make("EDIT", ES_UPPERCASE, "", 10, 10, 100, 20);
    SendMessageA(edit, EM_LIMITTEXT, 3, 0);
    SetFocus(edit);
    QInputMethodEvent commit;
    commit.setCommitString(QStringLiteral("abcd"));
    QCoreApplication::sendEvent(At(15, 15), &commit);
    std::array<char, 20> text;
    GetWindowTextA(edit, text.data(), static_cast<int>(text.size()));
    EXPECT_STREQ(text.data(), "ABC");
    EXPECT_EQ(Told(), "7:256 7:1281 7:1024 7:768");
}

} // namespace
