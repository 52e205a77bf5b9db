#include "WndState.h"

#include "../PerThread.h"

WndState* AfxWndState()
{
    return PerThread<WndState>::Current();
}

WndState::~WndState()
{
    for (auto& entry : temporary)
        entry.second->m_hWnd = nullptr; // the window is not theirs
}

CWnd* CWnd::FromHandlePermanent(HWND window)
{
    const WndState* state = AfxWndState();
    if (!state)
        return nullptr;
    const auto found = state->permanent.find(window);
    return found == state->permanent.end() ? nullptr : found->second;
}

CWnd* CWnd::FromHandle(HWND window)
{
    CWnd* permanent = FromHandlePermanent(window);
    WndState* state = AfxWndState();
    if (permanent || !window || !state)
        return permanent;
    std::unique_ptr<CWnd>& object = state->temporary[window];
    if (!object) {
        object = std::make_unique<CWnd>();
        object->m_hWnd = window;
    }
    return object.get();
}

void CWnd::DeleteTempMap()
{
    WndState* state = AfxWndState();
    if (!state)
        return;
    for (auto& entry : state->temporary)
        entry.second->m_hWnd = nullptr;
    state->temporary.clear();
}

BOOL CWnd::Attach(HWND window)
{
    WndState* state = AfxWndState();
    if (!window || m_hWnd || !state || !state->permanent.emplace(window, this).second)
        return FALSE;
    m_hWnd = window;
    return TRUE;
}

HWND CWnd::Detach()
{
    const HWND window = m_hWnd;
    WndState* state = AfxWndState();
    if (state && FromHandlePermanent(window) == this)
        state->permanent.erase(window);
    m_hWnd = nullptr;
    m_hWndOwner = nullptr;
    m_pfnSuper = nullptr;
    return window;
}

CWnd* AfxMsgArgument<CWnd*>::From(LPARAM handle)
{
    return CWnd::FromHandle(reinterpret_cast<HWND>(handle));
}
