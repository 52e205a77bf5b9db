// Window classes, windows, messages, queues and timers.
//
// Every thread has a queue of its own. Windows that can be seen belong to the user-interface thread, the one
// that made the first of them; a window below HWND_MESSAGE has no picture, works without a display and may
// belong to any thread.
// Errors: functions that take a window fail with ERROR_INVALID_WINDOW_HANDLE for one that is gone.
// Threads: any. A window is destroyed by its own thread; what else another thread does to it waits until that
// thread gets round to it, as for SendMessage.
// Differs: nothing is painted by messages (no WM_PAINT, WM_ERASEBKGND, WM_NCPAINT) and the mouse is the
// controls' own affair. No menus, hooks, scroll bars or regions. Rectangles are those of Windows' classic
// frames, whatever a window manager draws.
#pragma once

#include "windef.h"

DECLARE_HANDLE(HBRUSH);

using WNDPROC = LRESULT(CALLBACK*)(HWND, UINT, WPARAM, LPARAM);
using WNDENUMPROC = BOOL(CALLBACK*)(HWND, LPARAM);
using TIMERPROC = void(CALLBACK*)(HWND, UINT, UINT_PTR, DWORD);

#ifndef MAKEINTRESOURCEA
#define MAKEINTRESOURCEA(id) (reinterpret_cast<LPSTR>(static_cast<ULONG_PTR>(static_cast<WORD>(id))))
#define MAKEINTRESOURCE MAKEINTRESOURCEA
#endif
#define MAKEINTATOM(atom) (reinterpret_cast<LPTSTR>(static_cast<ULONG_PTR>(static_cast<WORD>(atom))))
#define MAKEWPARAM(low, high) (static_cast<WPARAM>(static_cast<DWORD>(MAKELONG(low, high))))
#define MAKELPARAM(low, high) (static_cast<LPARAM>(static_cast<DWORD>(MAKELONG(low, high))))
#define MAKELRESULT(low, high) (static_cast<LRESULT>(static_cast<DWORD>(MAKELONG(low, high))))

#define HWND_DESKTOP (static_cast<HWND>(nullptr))
#define HWND_BROADCAST (reinterpret_cast<HWND>(static_cast<LONG_PTR>(0xffff)))
#define HWND_MESSAGE (reinterpret_cast<HWND>(static_cast<LONG_PTR>(-3)))
#define HWND_TOP (static_cast<HWND>(nullptr))
#define HWND_BOTTOM (reinterpret_cast<HWND>(static_cast<LONG_PTR>(1)))
#define HWND_TOPMOST (reinterpret_cast<HWND>(static_cast<LONG_PTR>(-1)))
#define HWND_NOTOPMOST (reinterpret_cast<HWND>(static_cast<LONG_PTR>(-2)))
#define CW_USEDEFAULT (static_cast<int>(0x80000000u))

// Classes.
#define CS_VREDRAW 0x0001
#define CS_HREDRAW 0x0002
#define CS_DBLCLKS 0x0008
#define CS_OWNDC 0x0020
#define CS_NOCLOSE 0x0200
#define CS_SAVEBITS 0x0800
#define CS_GLOBALCLASS 0x4000

struct WNDCLASSA {
    UINT style;
    WNDPROC lpfnWndProc;
    int cbClsExtra;
    int cbWndExtra;
    HINSTANCE hInstance;
    HICON hIcon;
    HCURSOR hCursor;
    HBRUSH hbrBackground;
    LPCSTR lpszMenuName;
    LPCSTR lpszClassName;
};
struct WNDCLASSEXA {
    UINT cbSize;
    UINT style;
    WNDPROC lpfnWndProc;
    int cbClsExtra;
    int cbWndExtra;
    HINSTANCE hInstance;
    HICON hIcon;
    HCURSOR hCursor;
    HBRUSH hbrBackground;
    LPCSTR lpszMenuName;
    LPCSTR lpszClassName;
    HICON hIconSm;
};
using WNDCLASS = WNDCLASSA;
using LPWNDCLASS = WNDCLASSA*;
using WNDCLASSEX = WNDCLASSEXA;
using LPWNDCLASSEX = WNDCLASSEXA*;

// The class's atom. Names are compared without regard to case.
// Fails with ERROR_CLASS_ALREADY_EXISTS, ERROR_INVALID_PARAMETER. Differs: what belongs to the class alone
// (icons, brush, menu) is kept for GetClassInfo and has no effect.
WINBASEAPI ATOM WINAPI RegisterClassA(const WNDCLASSA* description);
#define RegisterClass RegisterClassA
WINBASEAPI ATOM WINAPI RegisterClassExA(const WNDCLASSEXA* description);
#define RegisterClassEx RegisterClassExA
// Fails with ERROR_CLASS_DOES_NOT_EXIST, and with ERROR_CLASS_HAS_WINDOWS while there are any.
WINBASEAPI BOOL WINAPI UnregisterClassA(LPCSTR name, HINSTANCE instance);
#define UnregisterClass UnregisterClassA
// A null `instance` means the classes that are there for everybody. Fail with ERROR_CLASS_DOES_NOT_EXIST. The
// name answered is the caller's own pointer.
WINBASEAPI BOOL WINAPI GetClassInfoA(HINSTANCE instance, LPCSTR name, WNDCLASSA* description);
#define GetClassInfo GetClassInfoA
WINBASEAPI BOOL WINAPI GetClassInfoExA(HINSTANCE instance, LPCSTR name, WNDCLASSEXA* description);
#define GetClassInfoEx GetClassInfoExA
// The name's length, cut to what fits; 0 on failure.
WINBASEAPI int WINAPI GetClassNameA(HWND window, LPSTR buffer, int size);
#define GetClassName GetClassNameA

// Making and ending.
struct CREATESTRUCTA {
    LPVOID lpCreateParams;
    HINSTANCE hInstance;
    HMENU hMenu;
    HWND hwndParent;
    int cy;
    int cx;
    int y;
    int x;
    LONG style;
    LPCSTR lpszName;
    LPCSTR lpszClass;
    DWORD dwExStyle;
};
using CREATESTRUCT = CREATESTRUCTA;
using LPCREATESTRUCT = CREATESTRUCTA*;
using LPCREATESTRUCTA = CREATESTRUCTA*;

// `menu` is a child's identifier and must be null otherwise. With WS_EX_MDICHILD `parent` is an MDI client, which
// chooses the identifier and usually the styles; a visible and enabled window becomes its active child.
// Fails with ERROR_CANNOT_FIND_WND_CLASS, ERROR_TLW_WITH_WSCHILD, ERROR_NON_MDICHILD_WINDOW,
// ERROR_INVALID_WINDOW_HANDLE, with the error that WM_NCCREATE or WM_CREATE leave when they refuse;
// ERROR_NOT_SUPPORTED when it would need a display and there is none, ERROR_ACCESS_DENIED on a thread that is
// not the user interface's.
WINBASEAPI HWND WINAPI CreateWindowExA(DWORD exStyle, LPCSTR className, LPCSTR name, DWORD style, int x,
                                       int y, int width, int height, HWND parent, HMENU menu,
                                       HINSTANCE instance, LPVOID parameter);
#define CreateWindowEx CreateWindowExA
#define CreateWindowA(className, name, style, x, y, width, height, parent, menu, instance, parameter)        \
    CreateWindowExA(0, className, name, style, x, y, width, height, parent, menu, instance, parameter)
#define CreateWindow CreateWindowA
// Popups that it owns go first, each as a whole; then WM_DESTROY runs from the window down to its children
// and WM_NCDESTROY from the children up. Its posted messages and timers are gone afterwards.
// Fails with ERROR_ACCESS_DENIED for another thread's window.
WINBASEAPI BOOL WINAPI DestroyWindow(HWND window);
WINBASEAPI BOOL WINAPI IsWindow(HWND window);
WINBASEAPI DWORD WINAPI GetWindowThreadProcessId(HWND window, LPDWORD process);
WINBASEAPI HWND WINAPI GetDesktopWindow();

// Procedures and data.
#define GWL_STYLE (-16)
#define GWL_EXSTYLE (-20)
#define GWL_ID (-12)
#define GWLP_WNDPROC (-4)
#define GWLP_HINSTANCE (-6)
#define GWLP_HWNDPARENT (-8)
#define GWLP_USERDATA (-21)
#define GWLP_ID (-12)

// Differs: messages that only a painter or the mouse would need have no default.
WINBASEAPI LRESULT WINAPI DefWindowProcA(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
#define DefWindowProc DefWindowProcA
WINBASEAPI LRESULT WINAPI CallWindowProcA(WNDPROC procedure, HWND window, UINT message, WPARAM wParam,
                                          LPARAM lParam);
#define CallWindowProc CallWindowProcA
// Fail with ERROR_INVALID_INDEX. A negative index is one of GWL_, GWLP_, others count bytes of the class's
// extra memory. The old value; since that may be 0, the last error tells a failure.
WINBASEAPI LONG WINAPI GetWindowLongA(HWND window, int index);
#define GetWindowLong GetWindowLongA
WINBASEAPI LONG WINAPI SetWindowLongA(HWND window, int index, LONG value);
#define SetWindowLong SetWindowLongA
WINBASEAPI LONG_PTR WINAPI GetWindowLongPtrA(HWND window, int index);
#define GetWindowLongPtr GetWindowLongPtrA
WINBASEAPI LONG_PTR WINAPI SetWindowLongPtrA(HWND window, int index, LONG_PTR value);
#define SetWindowLongPtr SetWindowLongPtrA
// Named values of a window. The name may be an atom.
WINBASEAPI BOOL WINAPI SetPropA(HWND window, LPCSTR name, HANDLE value);
#define SetProp SetPropA
WINBASEAPI HANDLE WINAPI GetPropA(HWND window, LPCSTR name);
#define GetProp GetPropA
WINBASEAPI HANDLE WINAPI RemovePropA(HWND window, LPCSTR name);
#define RemoveProp RemovePropA

// Texts, in the ANSI code page.
WINBASEAPI BOOL WINAPI SetWindowTextA(HWND window, LPCSTR text);
#define SetWindowText SetWindowTextA
// The length copied, without the terminator. A text too long is cut between two characters.
WINBASEAPI int WINAPI GetWindowTextA(HWND window, LPSTR buffer, int size);
#define GetWindowText GetWindowTextA
WINBASEAPI int WINAPI GetWindowTextLengthA(HWND window);
#define GetWindowTextLength GetWindowTextLengthA

// Hierarchy.
#define GW_HWNDFIRST 0
#define GW_HWNDLAST 1
#define GW_HWNDNEXT 2
#define GW_HWNDPREV 3
#define GW_OWNER 4
#define GW_CHILD 5
#define GW_ENABLEDPOPUP 6
#define GA_PARENT 1
#define GA_ROOT 2
#define GA_ROOTOWNER 3

// A child's parent, a popup's owner, null for others.
WINBASEAPI HWND WINAPI GetParent(HWND window);
// The parent before. Null `parent`: the desktop.
WINBASEAPI HWND WINAPI SetParent(HWND window, HWND parent);
WINBASEAPI HWND WINAPI GetAncestor(HWND window, UINT which);
WINBASEAPI HWND WINAPI GetWindow(HWND window, UINT which);
#define GetNextWindow(window, which) GetWindow(window, which)
WINBASEAPI HWND WINAPI GetTopWindow(HWND window);
WINBASEAPI BOOL WINAPI IsChild(HWND parent, HWND window);
// `callback` is called for each until it answers FALSE: all descendants of `parent`, the top-level windows
// of a thread, all of them. Windows that are made meanwhile are not met, those that go are passed over.
WINBASEAPI BOOL WINAPI EnumChildWindows(HWND parent, WNDENUMPROC callback, LPARAM data);
WINBASEAPI BOOL WINAPI EnumThreadWindows(DWORD thread, WNDENUMPROC callback, LPARAM data);
WINBASEAPI BOOL WINAPI EnumWindows(WNDENUMPROC callback, LPARAM data);
// The first top-level window of that class (null: any) and text (null: any), both without regard to case.
// Differs: only this process's.
WINBASEAPI HWND WINAPI FindWindowA(LPCSTR className, LPCSTR text);
#define FindWindow FindWindowA
WINBASEAPI HWND WINAPI FindWindowExA(HWND parent, HWND after, LPCSTR className, LPCSTR text);
#define FindWindowEx FindWindowExA
// The child with that identifier; ERROR_CONTROL_ID_NOT_FOUND.
WINBASEAPI HWND WINAPI GetDlgItem(HWND parent, int id);
WINBASEAPI int WINAPI GetDlgCtrlID(HWND window);

// State.
#define SIZE_RESTORED 0
#define SIZE_MINIMIZED 1
#define SIZE_MAXIMIZED 2
#define WA_INACTIVE 0
#define WA_ACTIVE 1
#define WA_CLICKACTIVE 2
#define SW_PARENTCLOSING 1
#define SW_PARENTOPENING 3

// Whether it was disabled before.
WINBASEAPI BOOL WINAPI EnableWindow(HWND window, BOOL enable);
WINBASEAPI BOOL WINAPI IsWindowEnabled(HWND window);
// Whether it was visible before.
WINBASEAPI BOOL WINAPI ShowWindow(HWND window, int command);
// Whether it and all its parents are to be seen.
WINBASEAPI BOOL WINAPI IsWindowVisible(HWND window);
WINBASEAPI BOOL WINAPI IsIconic(HWND window);
WINBASEAPI BOOL WINAPI IsZoomed(HWND window);
// The window that had the keyboard before. Of the calling thread.
WINBASEAPI HWND WINAPI SetFocus(HWND window);
WINBASEAPI HWND WINAPI GetFocus();
WINBASEAPI HWND WINAPI SetActiveWindow(HWND window);
WINBASEAPI HWND WINAPI GetActiveWindow();
// Differs: null while the active window is not this process's.
WINBASEAPI HWND WINAPI GetForegroundWindow();
WINBASEAPI BOOL WINAPI SetForegroundWindow(HWND window);
WINBASEAPI HWND WINAPI GetLastActivePopup(HWND window);
WINBASEAPI BOOL WINAPI BringWindowToTop(HWND window);

// Geometry, in pixels.
#define SWP_NOSIZE 0x0001
#define SWP_NOMOVE 0x0002
#define SWP_NOZORDER 0x0004
#define SWP_NOREDRAW 0x0008
#define SWP_NOACTIVATE 0x0010
#define SWP_FRAMECHANGED 0x0020
#define SWP_SHOWWINDOW 0x0040
#define SWP_HIDEWINDOW 0x0080
#define SWP_NOCOPYBITS 0x0100
#define SWP_NOOWNERZORDER 0x0200
#define SWP_NOSENDCHANGING 0x0400
#define SWP_DRAWFRAME 0x0020
#define SWP_NOREPOSITION 0x0200
#define RDW_INVALIDATE 0x0001
#define RDW_INTERNALPAINT 0x0002
#define RDW_ERASE 0x0004
#define RDW_VALIDATE 0x0008
#define RDW_NOCHILDREN 0x0040
#define RDW_ALLCHILDREN 0x0080
#define RDW_UPDATENOW 0x0100
#define RDW_ERASENOW 0x0200
#define RDW_FRAME 0x0400
#define SM_CXSCREEN 0
#define SM_CYSCREEN 1
#define SM_CXVSCROLL 2
#define SM_CYHSCROLL 3
#define SM_CYCAPTION 4
#define SM_CXBORDER 5
#define SM_CYBORDER 6
#define SM_CXDLGFRAME 7
#define SM_CYDLGFRAME 8
#define SM_CXFIXEDFRAME 7
#define SM_CYFIXEDFRAME 8
#define SM_CXICON 11
#define SM_CYICON 12
#define SM_CXCURSOR 13
#define SM_CYCURSOR 14
#define SM_CYMENU 15
#define SM_CXFULLSCREEN 16
#define SM_CYFULLSCREEN 17
#define SM_CYVSCROLL 20
#define SM_CXHSCROLL 21
#define SM_CXMIN 28
#define SM_CYMIN 29
#define SM_CXSIZE 30
#define SM_CYSIZE 31
#define SM_CXFRAME 32
#define SM_CYFRAME 33
#define SM_CXSIZEFRAME 32
#define SM_CYSIZEFRAME 33
#define SM_CXDOUBLECLK 36
#define SM_CYDOUBLECLK 37
#define SM_DBCSENABLED 42
#define SM_CXEDGE 45
#define SM_CYEDGE 46
#define SM_CXSMICON 49
#define SM_CYSMICON 50
#define SM_CYSMCAPTION 51
#define SM_CXSMSIZE 52
#define SM_CYSMSIZE 53
#define SM_CXMAXIMIZED 61
#define SM_CYMAXIMIZED 62
#define SM_CXVIRTUALSCREEN 78
#define SM_CYVIRTUALSCREEN 79
#define SM_CMONITORS 80
#define SPI_GETWORKAREA 0x0030

struct WINDOWPOS {
    HWND hwnd;
    HWND hwndInsertAfter;
    int x;
    int y;
    int cx;
    int cy;
    UINT flags;
};
using LPWINDOWPOS = WINDOWPOS*;

WINBASEAPI BOOL WINAPI MoveWindow(HWND window, int x, int y, int width, int height, BOOL repaint);
// `after`: HWND_TOP, HWND_BOTTOM, HWND_TOPMOST, HWND_NOTOPMOST or the window to lie behind.
// Differs: behind another window than the top or the bottom one holds among the adapter's own order only.
WINBASEAPI BOOL WINAPI SetWindowPos(HWND window, HWND after, int x, int y, int width, int height, UINT flags);
WINBASEAPI BOOL WINAPI GetWindowRect(HWND window, LPRECT rect);
WINBASEAPI BOOL WINAPI GetClientRect(HWND window, LPRECT rect);
WINBASEAPI BOOL WINAPI ScreenToClient(HWND window, LPPOINT point);
WINBASEAPI BOOL WINAPI ClientToScreen(HWND window, LPPOINT point);
// The shift in both directions as two words; a null window is the screen. 0 with the last error set on
// failure.
WINBASEAPI int WINAPI MapWindowPoints(HWND from, HWND to, LPPOINT points, UINT count);
WINBASEAPI BOOL WINAPI AdjustWindowRect(LPRECT rect, DWORD style, BOOL menu);
WINBASEAPI BOOL WINAPI AdjustWindowRectEx(LPRECT rect, DWORD style, BOOL menu, DWORD exStyle);
// 0 for what is not listed above, and for the screen's sizes without a display.
WINBASEAPI int WINAPI GetSystemMetrics(int index);
// Differs: SPI_GETWORKAREA only, else ERROR_INVALID_PARAMETER (without a display ERROR_NOT_SUPPORTED).
WINBASEAPI BOOL WINAPI SystemParametersInfoA(UINT action, UINT number, LPVOID data, UINT update);
#define SystemParametersInfo SystemParametersInfoA
// Have the window drawn again, now or when there is time. Differs: always as a whole.
WINBASEAPI BOOL WINAPI InvalidateRect(HWND window, const RECT* rect, BOOL erase);
WINBASEAPI BOOL WINAPI UpdateWindow(HWND window);
WINBASEAPI BOOL WINAPI RedrawWindow(HWND window, const RECT* rect, HANDLE region, UINT flags);

// Rectangles. Right and bottom lie outside. A result may be one of the arguments.
WINBASEAPI BOOL WINAPI SetRect(LPRECT rect, int left, int top, int right, int bottom);
WINBASEAPI BOOL WINAPI SetRectEmpty(LPRECT rect);
WINBASEAPI BOOL WINAPI CopyRect(LPRECT rect, const RECT* source);
WINBASEAPI BOOL WINAPI InflateRect(LPRECT rect, int dx, int dy);
WINBASEAPI BOOL WINAPI OffsetRect(LPRECT rect, int dx, int dy);
// FALSE and an empty rectangle when they do not meet.
WINBASEAPI BOOL WINAPI IntersectRect(LPRECT rect, const RECT* a, const RECT* b);
// The smallest rectangle round both; an empty one does not count.
WINBASEAPI BOOL WINAPI UnionRect(LPRECT rect, const RECT* a, const RECT* b);
// What is left of `a` if that is a rectangle, else `a` as it is.
WINBASEAPI BOOL WINAPI SubtractRect(LPRECT rect, const RECT* a, const RECT* b);
WINBASEAPI BOOL WINAPI PtInRect(const RECT* rect, POINT point);
WINBASEAPI BOOL WINAPI IsRectEmpty(const RECT* rect);
WINBASEAPI BOOL WINAPI EqualRect(const RECT* a, const RECT* b);

// Messages and queues.
#define PM_NOREMOVE 0x0000
#define PM_REMOVE 0x0001
#define PM_NOYIELD 0x0002
#define QS_KEY 0x0001
#define QS_POSTMESSAGE 0x0008
#define QS_TIMER 0x0010
#define QS_SENDMESSAGE 0x0040
#define QS_MOUSE 0x0006
#define QS_PAINT 0x0020
#define QS_INPUT 0x0407
#define QS_ALLEVENTS 0x04bf
#define QS_ALLINPUT 0x04ff
#define SMTO_NORMAL 0x0000
#define SMTO_BLOCK 0x0001
#define SMTO_ABORTIFHUNG 0x0002

struct MSG {
    HWND hwnd;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    DWORD time;
    POINT pt;
};
using LPMSG = MSG*;

// Waits for a message of the calling thread: sent ones are delivered meanwhile, posted ones come in their
// order, then WM_QUIT (for which the answer is FALSE), timers last. `window` null: any, (HWND)-1: those
// without a window, else that window's and its children's. `first` and `last` both 0: all. -1 for a window
// that is not there. Differs: `pt` is not kept.
WINBASEAPI BOOL WINAPI GetMessageA(LPMSG message, HWND window, UINT first, UINT last);
#define GetMessage GetMessageA
WINBASEAPI BOOL WINAPI PeekMessageA(LPMSG message, HWND window, UINT first, UINT last, UINT flags);
#define PeekMessage PeekMessageA
// Posts the characters that a key types. Whether the message was that of a key.
WINBASEAPI BOOL WINAPI TranslateMessage(const MSG* message);
WINBASEAPI LRESULT WINAPI DispatchMessageA(const MSG* message);
#define DispatchMessage DispatchMessageA
// Null `window`: to the calling thread's own queue. Fails with ERROR_INVALID_WINDOW_HANDLE, and with
// ERROR_NOT_ENOUGH_QUOTA when 10,000 messages wait.
WINBASEAPI BOOL WINAPI PostMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
#define PostMessage PostMessageA
// Fails with ERROR_INVALID_THREAD_ID for a thread that has not asked for messages yet.
WINBASEAPI BOOL WINAPI PostThreadMessageA(DWORD thread, UINT message, WPARAM wParam, LPARAM lParam);
#define PostThreadMessage PostThreadMessageA
WINBASEAPI void WINAPI PostQuitMessage(int code);
// From another thread: waits until the window's thread delivers it, which it does while it asks for messages
// or waits in SendMessage itself. 0 when the window is gone, also when it goes meanwhile.
WINBASEAPI LRESULT WINAPI SendMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
#define SendMessage SendMessageA
// Fails with ERROR_TIMEOUT.
WINBASEAPI LRESULT WINAPI SendMessageTimeoutA(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                              UINT flags, UINT milliseconds, DWORD_PTR* result);
#define SendMessageTimeout SendMessageTimeoutA
// A number from 0xc000 on, the same for the same name (without regard to case).
WINBASEAPI UINT WINAPI RegisterWindowMessageA(LPCSTR name);
#define RegisterWindowMessage RegisterWindowMessageA
WINBASEAPI BOOL WINAPI InSendMessage();
WINBASEAPI BOOL WINAPI WaitMessage();
// What waits (high word) and what is new since the last call (low word).
WINBASEAPI DWORD WINAPI GetQueueStatus(UINT flags);
// The high bit: down, as of the last key message that the calling thread took; the low bit: toggled.
WINBASEAPI SHORT WINAPI GetKeyState(int key);

// Timers.
#define USER_TIMER_MINIMUM 0x0000000A
#define USER_TIMER_MAXIMUM 0x7FFFFFFF

// The timer's number, never 0. With a window it is `id`, and a timer of that number starts anew; without one
// a free number is chosen, 32767 downwards, unless `id` is a running timer's. The period is at least 10 ms.
// Timers end with their window and thread.
WINBASEAPI UINT_PTR WINAPI SetTimer(HWND window, UINT_PTR id, UINT milliseconds, TIMERPROC callback);
WINBASEAPI BOOL WINAPI KillTimer(HWND window, UINT_PTR id);

// Frames of several documents.
struct MDICREATESTRUCTA {
    LPCSTR szClass;
    LPCSTR szTitle;
    HANDLE hOwner;
    int x;
    int y;
    int cx;
    int cy;
    DWORD style;
    LPARAM lParam;
};
using MDICREATESTRUCT = MDICREATESTRUCTA;
using LPMDICREATESTRUCT = MDICREATESTRUCTA*;
struct CLIENTCREATESTRUCT {
    HANDLE hWindowMenu;
    UINT idFirstChild;
};
using LPCLIENTCREATESTRUCT = CLIENTCREATESTRUCT*;

// Differs: no window menu; children are laid out, not arranged as icons.
WINBASEAPI LRESULT WINAPI DefFrameProcA(HWND window, HWND client, UINT message, WPARAM wParam, LPARAM lParam);
#define DefFrameProc DefFrameProcA
WINBASEAPI LRESULT WINAPI DefMDIChildProcA(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
#define DefMDIChildProc DefMDIChildProcA
