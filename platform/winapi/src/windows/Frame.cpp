#include "Frame.h"

#include "../Error.h"
#include "Metrics.h"
#include "WindowClass.h"

namespace {

bool HasCaption(DWORD style)
{
    return (style & WS_CAPTION) == WS_CAPTION;
}

int FrameWidth(DWORD style, DWORD exStyle)
{
    if ((exStyle & (WS_EX_STATICEDGE | WS_EX_DLGMODALFRAME)) == WS_EX_STATICEDGE && !(style & WS_THICKFRAME))
        return kBorder + (style & WS_BORDER ? kBorder : 0);
    int width = exStyle & WS_EX_DLGMODALFRAME || style & (WS_THICKFRAME | WS_DLGFRAME) ? kEdge : 0;
    if (style & WS_THICKFRAME)
        width += kSizeFrame - kFixedFrame;
    if (style & (WS_BORDER | WS_DLGFRAME) || exStyle & WS_EX_DLGMODALFRAME)
        width += kBorder;
    return width;
}

int CaptionHeight(DWORD style, DWORD exStyle)
{
    if (!HasCaption(style))
        return 0;
    return exStyle & WS_EX_TOOLWINDOW ? kSmallCaption : kCaption;
}

} // namespace

void AddFrame(RECT& rect, DWORD style, DWORD exStyle)
{
    int width = FrameWidth(style, exStyle);
    rect.top -= CaptionHeight(style, exStyle);
    if (exStyle & WS_EX_CLIENTEDGE)
        width += kEdge;
    InflateRect(&rect, width, width);
}

RECT ClientArea(const Window& window)
{
    RECT frame = {};
    if (window.style & WS_MINIMIZE)
        return {window.rect.left, window.rect.top, window.rect.left, window.rect.top};
    AddFrame(frame, window.style, window.exStyle);
    RECT client = {window.rect.left - frame.left, window.rect.top - frame.top,
                   window.rect.right - frame.right, window.rect.bottom - frame.bottom};
    // A frame that is larger than its window leaves nothing.
    client.right = std::max(client.right, client.left);
    client.bottom = std::max(client.bottom, client.top);
    return client;
}

POINT WindowOrigin(const Window& window)
{
    const POINT outer = window.parent ? ClientOrigin(*window.parent) : POINT{};
    return {outer.x + window.rect.left, outer.y + window.rect.top};
}

POINT ClientOrigin(const Window& window)
{
    const POINT corner = WindowOrigin(window);
    const RECT client = ClientArea(window);
    return {corner.x + client.left - window.rect.left, corner.y + client.top - window.rect.top};
}

RECT ScreenRect(const Window& window)
{
    const POINT corner = WindowOrigin(window);
    RECT rect = window.rect;
    OffsetRect(&rect, corner.x - rect.left, corner.y - rect.top);
    return rect;
}

RECT PeerArea(const Window& window)
{
    return window.kind && window.kind->isControl ? window.rect : ClientArea(window);
}

BOOL WINAPI AdjustWindowRectEx(LPRECT rect, DWORD style, BOOL menu, DWORD exStyle)
{
    if (!rect)
        return Fail(ERROR_INVALID_PARAMETER);
    AddFrame(*rect, style & ~static_cast<DWORD>(WS_MINIMIZE), exStyle);
    if (menu)
        rect->top -= kMenu;
    return TRUE;
}

BOOL WINAPI AdjustWindowRect(LPRECT rect, DWORD style, BOOL menu)
{
    return AdjustWindowRectEx(rect, style, menu, 0);
}
