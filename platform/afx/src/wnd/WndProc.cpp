#include "WndProc.h"

#include <afxapp_.h>

#include <exception>
#include <new>

namespace {

LRESULT Answer(const MSG& message)
{
    return message.message == WM_CREATE ? -1 : 0;
}

// An exception that is not the framework's: there is no object to ask for a text.
LRESULT Report(LPCSTR text, const MSG& message)
{
    AfxMessageBox(text, MB_ICONSTOP);
    return Answer(message);
}

LRESULT Handle(CException* exception, const MSG& message)
{
    const LRESULT result = AfxProcessWndProcException(exception, &message);
    exception->Delete();
    return result;
}

CWnd* Adopted(HWND window)
{
    WndState* state = AfxWndState();
    CWnd* object = state ? state->windowInMaking : nullptr;
    if (!object || !object->Attach(window))
        return nullptr;
    state->windowInMaking = nullptr;
    object->PreSubclassWindow();
    return object;
}

} // namespace

LRESULT AfxReportCaught(const MSG& message)
{
    try {
        throw;
    } catch (CException* exception) {
        return Handle(exception, message);
    } catch (const std::bad_alloc&) {
        return Report("Out of memory.", message);
    } catch (const std::exception& exception) {
        return Report(exception.what(), message);
    } catch (...) {
        if (!std::current_exception())
            throw; // no exception of C++: the thread is ending
        return Report("An unknown error occurred.", message);
    }
}

LRESULT AfxCallWndProc(CWnd* object, HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    WndState* state = AfxWndState();
    if (!state)
        return ::DefWindowProcA(window, message, wParam, lParam);
    const MSG current = {window, message, wParam, lParam, 0, {0, 0}};
    const AfxRestored<const MSG*> restored(state->current, &current);
    try {
        return WndAccess::Call(object, message, wParam, lParam);
    } catch (...) {
        return AfxReportCaught(current);
    }
}

LRESULT CALLBACK AfxWndProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    CWnd* object = CWnd::FromHandlePermanent(window);
    if (!object)
        object = Adopted(window);
    return object ? AfxCallWndProc(object, window, message, wParam, lParam)
                  : ::DefWindowProcA(window, message, wParam, lParam);
}
