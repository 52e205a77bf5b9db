#include "Text.h"

#include "../CodePage.h"
#include "../Error.h"
#include "BackendLoader.h"
#include "Queue.h"
#include "TextPage.h"

#include <cstring>

namespace {

bool IsContinuation(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xc0) == 0x80;
}

// The most bytes, up to `room`, that end between two characters.
size_t WholeCharacters(const std::string& text, size_t room)
{
    if (text.size() <= room)
        return text.size();
    const UINT codePage = TextCodePage(text);
    if (codePage == CP_UTF8) {
        while (room && IsContinuation(text[room]))
            --room;
        return room;
    }
    const LeadTable& leads = LeadBytes(codePage);
    size_t end = 0;
    for (size_t next = 0; next <= room; next += CharacterLength(leads, text.c_str() + next))
        end = next;
    return end;
}

} // namespace

LRESULT StoreText(const WindowRef& window, LPCSTR text)
{
    const std::string stored = text ? text : "";
    {
        const WindowGuard guard;
        window->text = stored;
    }
    if (WindowPeer* peer = PeerOf(window))
        Backend()->SetText(peer, stored);
    return TRUE;
}

LRESULT CopyText(const WindowRef& window, LPSTR buffer, size_t size)
{
    if (!buffer || size == 0)
        return 0;
    const WindowGuard guard;
    const size_t length = WholeCharacters(window->text, size - 1);
    std::memcpy(buffer, window->text.data(), length);
    buffer[length] = 0;
    return static_cast<LRESULT>(length);
}

LRESULT TextLength(const WindowRef& window)
{
    const WindowGuard guard;
    return static_cast<LRESULT>(window->text.size());
}

BOOL WINAPI SetWindowTextA(HWND window, LPCSTR text)
{
    if (!WindowOf(window))
        return FALSE;
    return SendMessageA(window, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text)) > 0;
}

int WINAPI GetWindowTextA(HWND window, LPSTR buffer, int size)
{
    if (!buffer || size <= 0)
        return 0;
    buffer[0] = 0;
    return static_cast<int>(
        SendMessageA(window, WM_GETTEXT, static_cast<WPARAM>(size), reinterpret_cast<LPARAM>(buffer)));
}

int WINAPI GetWindowTextLengthA(HWND window)
{
    return static_cast<int>(SendMessageA(window, WM_GETTEXTLENGTH, 0, 0));
}
