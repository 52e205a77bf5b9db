// A window, and the tree that all of them form.
//
// Everything about windows is read and written under one lock, which is never held while a window procedure
// or the toolkit runs. A WindowRef keeps the object while that happens; whether it still is a window tells
// IsAlive().
#pragma once

#include "Backend.h"

#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

struct WindowClass;

struct Window {
    HWND handle = nullptr;
    DWORD thread = 0;
    DWORD waiter = 0; // the thread whose message box it is; 0: its own
    std::shared_ptr<const WindowClass> kind;
    WNDPROC procedure = nullptr;
    DWORD style = 0;
    DWORD exStyle = 0;
    LONG_PTR id = 0;
    HINSTANCE instance = nullptr;
    LONG_PTR userData = 0;
    std::vector<BYTE> extra;
    std::map<std::string, HANDLE> properties; // names in upper case
    std::string text;                         // ANSI code page
    HFONT font = nullptr;
    Window* parent = nullptr; // the desktop of a top-level window; null once it is gone
    Window* owner = nullptr;
    std::vector<Window*> children; // the topmost first
    RECT rect = {};                // in the parent's client coordinates
    RECT normal = {};              // `rect` while neither minimized nor maximized
    HWND lastPopup = nullptr;      // the owned window that was active last
    WindowPeer* peer = nullptr;
    bool tellsSizeWhenShown = false;
    bool ending = false;
};
using WindowRef = std::shared_ptr<Window>;

// Holds the lock; may be nested.
class WindowGuard
{
public:
    WindowGuard();

private:
    std::unique_lock<std::recursive_mutex> m_lock;
};

// The roots of the two trees.
const WindowRef& Desktop();
const WindowRef& MessageRoot();

// Gives the window its handle.
void AddWindow(const WindowRef& window);
// Takes it out of table and tree; windows that it owned have no owner any more.
void RemoveWindow(Window& window);

// Null, with ERROR_INVALID_WINDOW_HANDLE, for what is no window (any more).
WindowRef WindowOf(HWND handle);
// Likewise if it is another thread's: null, with ERROR_ACCESS_DENIED.
WindowRef OwnWindowOf(HWND handle);
// A window that the tree holds.
WindowRef RefOf(const Window* window);
bool IsAlive(const WindowRef& window);

// For all of these the lock is taken inside.
bool IsTopLevel(const Window& window); // below the desktop
bool IsBelowMessageRoot(const Window& window);
bool HasBits(const WindowRef& window, DWORD style);
void ChangeBits(const WindowRef& window, DWORD set, DWORD cleared);
// The windows as they stand now, topmost first.
std::vector<HWND> ChildHandles(const WindowRef& window);
WindowPeer* PeerOf(const WindowRef& window);
