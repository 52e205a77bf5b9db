// The controls of a dialog by their identifiers.
#include "../Error.h"

#include <winuser.h>

#include <charconv>
#include <cstring>
#include <string>

namespace {

// Enough for any number with blanks before it that is not absurd.
constexpr int kNumberText = 256;

// The number that `text` begins with, 0 blanks or more before it.
template <class Number>
bool ReadNumber(const char* text, Number& value)
{
    while (*text == ' ' || (*text >= '\t' && *text <= '\r'))
        ++text;
    if (*text == '+' && text[1] != '-')
        ++text;
    return std::from_chars(text, text + std::strlen(text), value).ec == std::errc();
}

} // namespace

UINT WINAPI GetDlgItemTextA(HWND dialog, int id, LPSTR buffer, int size)
{
    if (buffer && size > 0)
        *buffer = 0;
    const HWND control = GetDlgItem(dialog, id);
    return control ? static_cast<UINT>(GetWindowTextA(control, buffer, size)) : 0;
}

BOOL WINAPI SetDlgItemTextA(HWND dialog, int id, LPCSTR text)
{
    return static_cast<BOOL>(SendDlgItemMessageA(dialog, id, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text)));
}

UINT WINAPI GetDlgItemInt(HWND dialog, int id, BOOL* translated, BOOL isSigned)
{
    char text[kNumberText];
    UINT number = 0;
    int negative = 0;
    bool read = false;
    if (GetDlgItemTextA(dialog, id, text, kNumberText))
        read = isSigned ? ReadNumber(text, negative) : ReadNumber(text, number);
    if (translated)
        *translated = read;
    if (!read)
        return 0;
    return isSigned ? static_cast<UINT>(negative) : number;
}

BOOL WINAPI SetDlgItemInt(HWND dialog, int id, UINT value, BOOL isSigned)
{
    const std::string text = isSigned ? std::to_string(static_cast<int>(value)) : std::to_string(value);
    return SetDlgItemTextA(dialog, id, text.c_str());
}

LRESULT WINAPI SendDlgItemMessageA(HWND dialog, int id, UINT message, WPARAM wParam, LPARAM lParam)
{
    const HWND control = GetDlgItem(dialog, id);
    return control ? SendMessageA(control, message, wParam, lParam) : 0;
}

BOOL WINAPI CheckDlgButton(HWND dialog, int id, UINT check)
{
    const HWND button = GetDlgItem(dialog, id);
    if (!button)
        return FALSE;
    SendMessageA(button, BM_SETCHECK, check, 0);
    return TRUE;
}

UINT WINAPI IsDlgButtonChecked(HWND dialog, int id)
{
    return static_cast<UINT>(SendDlgItemMessageA(dialog, id, BM_GETCHECK, 0, 0));
}

BOOL WINAPI CheckRadioButton(HWND dialog, int first, int last, int id)
{
    if (!IsWindow(dialog))
        return Fail(ERROR_INVALID_WINDOW_HANDLE);
    for (int each = first; each <= last; ++each)
        if (GetDlgItem(dialog, each))
            CheckDlgButton(dialog, each, each == id ? BST_CHECKED : BST_UNCHECKED);
    return TRUE;
}
