// The message boxes of GlobalFunc.h.
#include <GlobalFunc.h>

#include <cstring>

namespace {

// The caption only chooses between the two: hosts rely on its not being shown.
LPCSTR Title(const char* caption)
{
    return caption ? "" : AfxGetAppName();
}

BOOL CALLBACK CloseIfDialog(HWND window, LPARAM)
{
    char name[256] = "";
    ::GetClassNameA(window, name, sizeof name);
    if (std::strcmp(name, "#32770") != 0)
        return TRUE;
    ::EndDialog(window, 0);
    return FALSE;
}

void CALLBACK CloseFirstDialog(HWND, UINT, UINT_PTR, DWORD)
{
    ::EnumThreadWindows(::GetCurrentThreadId(), &CloseIfDialog, 0);
}

// Closes the thread's first dialog again and again, as long as the object lives.
class DialogCloser
{
public:
    explicit DialogCloser(DWORD period)
        : m_timer(period ? ::SetTimer(nullptr, 0, period, &CloseFirstDialog) : 0)
    {
    }
    ~DialogCloser()
    {
        if (m_timer)
            ::KillTimer(nullptr, m_timer);
    }
    DialogCloser(const DialogCloser&) = delete;
    DialogCloser& operator=(const DialogCloser&) = delete;

private:
    UINT_PTR m_timer;
};

} // namespace

unsigned int ShowTimedMessageBox(HWND hWnd, const char* lpszCaption, unsigned int nType, DWORD dwTimeout,
                                 const CString& strText)
{
    const CWnd* window = AfxGetMainWnd(); // null without a thread object or a main window
    const HWND main = window ? window->m_hWnd : nullptr;
    if (!::IsWindowVisible(main))
        return 0;
    const DialogCloser closer(dwTimeout);
    const int button = ::MessageBoxA(hWnd ? hWnd : main, strText, Title(lpszCaption), nType);
    return static_cast<unsigned int>(button);
}

unsigned int ShowMessageBox(HWND hWnd, const char* lpszCaption, unsigned int nType, const CString& strText)
{
    return static_cast<unsigned int>(::MessageBoxA(hWnd, strText, Title(lpszCaption), nType));
}
