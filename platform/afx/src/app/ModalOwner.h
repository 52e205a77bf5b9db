// Who owns a modal box of the application.
#pragma once

#include <windows.h>

// The last active popup of the calling thread's main window; while the object lives the main window itself is
// disabled too, as the box disables only its owner.
class AfxModalOwner
{
public:
    AfxModalOwner();
    ~AfxModalOwner();
    AfxModalOwner(const AfxModalOwner&) = delete;
    AfxModalOwner& operator=(const AfxModalOwner&) = delete;

    HWND Window() const { return m_owner; }

private:
    HWND m_owner = nullptr;
    HWND m_disabled = nullptr;
};
