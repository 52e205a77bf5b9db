#include "OleText.h"

#include <cstring>

namespace {

// Both copies go over the whole text and judge afterwards: a loop without an early exit is vectorised.
bool WidenAscii(const char* source, OLECHAR* target, int length)
{
    unsigned char seen = 0;
    for (int i = 0; i < length; ++i) {
        const auto byte = static_cast<unsigned char>(source[i]);
        seen = static_cast<unsigned char>(seen | byte);
        target[i] = byte;
    }
    return seen < 0x80;
}

bool NarrowAscii(const OLECHAR* source, char* target, int length)
{
    unsigned seen = 0;
    for (int i = 0; i < length; ++i) {
        seen |= source[i];
        target[i] = static_cast<char>(source[i]);
    }
    return seen < 0x80;
}

BSTR AllocateText(int length)
{
    const BSTR text = SysAllocStringLen(nullptr, static_cast<UINT>(length));
    if (!text)
        AfxThrowMemoryException();
    return text;
}

BSTR ConvertFromAnsi(LPCSTR text, int length)
{
    const int needed = MultiByteToWideChar(CP_ACP, 0, text, length, nullptr, 0);
    const BSTR wide = AllocateText(needed);
    MultiByteToWideChar(CP_ACP, 0, text, length, wide, needed);
    return wide;
}

CString ConvertFromWide(BSTR text, int length)
{
    const int needed = WideCharToMultiByte(CP_ACP, 0, text, length, nullptr, 0, nullptr, nullptr);
    CString ansi;
    WideCharToMultiByte(CP_ACP, 0, text, length, ansi.GetBufferSetLength(needed), needed, nullptr, nullptr);
    ansi.ReleaseBuffer(needed);
    return ansi;
}

} // namespace

BSTR OleTextFromAnsi(LPCSTR text, int length)
{
    const BSTR wide = AllocateText(length);
    if (WidenAscii(text, wide, length))
        return wide;
    SysFreeString(wide);
    return ConvertFromAnsi(text, length);
}

BSTR OleTextFromAnsi(LPCSTR text)
{
    return text ? OleTextFromAnsi(text, static_cast<int>(std::strlen(text))) : nullptr;
}

CString AnsiFromOleText(BSTR text)
{
    const int length = static_cast<int>(SysStringLen(text));
    if (length == 0)
        return CString();
    CString ansi;
    const bool ascii = NarrowAscii(text, ansi.GetBufferSetLength(length), length);
    ansi.ReleaseBuffer(length);
    return ascii ? ansi : ConvertFromWide(text, length);
}
