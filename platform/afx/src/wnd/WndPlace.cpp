#include <afxwnd_.h>

#include <algorithm>

void CWnd::MoveWindow(int x, int y, int width, int height, BOOL repaint)
{
    ::MoveWindow(Live(), x, y, width, height, repaint);
}

void CWnd::MoveWindow(LPCRECT rect, BOOL repaint)
{
    MoveWindow(rect->left, rect->top, rect->right - rect->left, rect->bottom - rect->top, repaint);
}

BOOL CWnd::SetWindowPos(const CWnd* after, int x, int y, int width, int height, UINT flags)
{
    return ::SetWindowPos(Live(), after ? after->m_hWnd : nullptr, x, y, width, height, flags);
}

// Both corners in one go, so that a mirrored window swaps them.
void CWnd::ClientToScreen(LPRECT rect) const
{
    ::MapWindowPoints(Live(), nullptr, reinterpret_cast<LPPOINT>(rect), 2);
}

void CWnd::ScreenToClient(LPRECT rect) const
{
    ::MapWindowPoints(nullptr, Live(), reinterpret_cast<LPPOINT>(rect), 2);
}

void CWnd::MapWindowPoints(CWnd* to, LPPOINT points, UINT count) const
{
    ::MapWindowPoints(Live(), to ? to->m_hWnd : nullptr, points, count);
}

void CWnd::MapWindowPoints(CWnd* to, LPRECT rect) const
{
    MapWindowPoints(to, reinterpret_cast<LPPOINT>(rect), 2);
}

BOOL CWnd::RedrawWindow(LPCRECT rect, UINT flags)
{
    return ::RedrawWindow(Live(), rect, nullptr, flags);
}

namespace {

struct Frame {
    RECT centre; // to be centred in
    RECT bounds; // not to be left
};

RECT WorkArea()
{
    RECT area = {};
    if (!::SystemParametersInfoA(SPI_GETWORKAREA, 0, &area, 0))
        ::GetWindowRect(::GetDesktopWindow(), &area);
    return area;
}

// In the coordinates that SetWindowPos takes for the window.
Frame FrameOf(HWND window, HWND alternate)
{
    Frame frame = {};
    if ((::GetWindowLongA(window, GWL_STYLE) & WS_CHILD) != 0) {
        const HWND parent = ::GetParent(window);
        ::GetClientRect(parent, &frame.bounds);
        ::GetClientRect(alternate ? alternate : parent, &frame.centre);
        ::MapWindowPoints(alternate ? alternate : parent, parent, reinterpret_cast<LPPOINT>(&frame.centre),
                          2);
        return frame;
    }
    frame.bounds = WorkArea();
    const HWND owner = alternate ? alternate : ::GetWindow(window, GW_OWNER);
    if (owner && ::IsWindowVisible(owner) && !::IsIconic(owner))
        ::GetWindowRect(owner, &frame.centre);
    else
        frame.centre = frame.bounds;
    return frame;
}

// Where a stretch of `length` begins so that it is in the middle; a longer one shows its start.
LONG Centred(LONG from, LONG to, LONG low, LONG high, LONG length)
{
    const LONG middle = from + (to - from) / 2 - length / 2;
    return std::max(low, std::min(middle, high - length));
}

} // namespace

void CWnd::CenterWindow(CWnd* alternate)
{
    const Frame frame = FrameOf(Live(), alternate ? alternate->m_hWnd : nullptr);
    RECT rect = {};
    GetWindowRect(&rect);
    const LONG x = Centred(frame.centre.left, frame.centre.right, frame.bounds.left, frame.bounds.right,
                           rect.right - rect.left);
    const LONG y = Centred(frame.centre.top, frame.centre.bottom, frame.bounds.top, frame.bounds.bottom,
                           rect.bottom - rect.top);
    SetWindowPos(nullptr, x, y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}
