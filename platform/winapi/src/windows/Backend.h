// What windows need of a real desktop: the table between this adapter and the module that holds the toolkit.
//
// The adapter keeps handles, hierarchy, styles, texts, rectangles, queues and timers; the module keeps a
// widget (a peer) for each window, draws it, and tells what the user does with it. Rectangles are client
// areas in pixels: in the parent's client coordinates for a child, in screen coordinates otherwise. Frames
// and captions are the adapter's arithmetic, whatever a window manager draws round them. A control draws its
// own border: its rectangle is the whole one, border included.
//
// Errors: nothing here throws. Threads: the thread that makes the backend is the user-interface thread; it
// alone may call the members, but for those that say otherwise.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

class WindowPeer; // the module's own

// A font as LOGFONT tells it; sizes in pixels.
struct FontSpec {
    std::u16string face; // empty: the dialog font
    LONG height = 0;     // negative: of the characters, positive: of the line, 0: the default
    LONG width = 0;      // average, 0: as the font has it
    LONG weight = 400;
    BYTE italic = 0;
    BYTE underline = 0;
    BYTE strikeOut = 0;
    BYTE charSet = 1;

    bool operator==(const FontSpec&) const = default;
};

struct FontMeasures {
    LONG ascent = 0;
    LONG descent = 0;
    LONG leading = 0; // between lines
    LONG averageWidth = 0;
    LONG maximumWidth = 0;
};

struct PeerRequest {
    HWND window = nullptr;
    // A control's class in lower case ("button", "static", "edit", "listbox", "combobox"); empty for every
    // other window, which is a plain area for its children.
    std::string control;
    DWORD style = 0;
    DWORD exStyle = 0;
    WindowPeer* parent = nullptr; // of a child the parent, else the owner or null
    RECT client = {};             // a control may change it (a closed combo box is lower than asked for)
    std::string text;             // as SetText takes it
};

// What the module tells the adapter. All of it on the user-interface thread.
class PeerEvents
{
public:
    // The user or the window manager moved or sized a top-level window.
    virtual void Moved(HWND window, const RECT& client) = 0;
    // `command` is SC_CLOSE, SC_MINIMIZE, SC_MAXIMIZE or SC_RESTORE.
    virtual void SystemCommand(HWND window, UINT command) = 0;
    virtual void Activated(HWND window, bool active) = 0;
    // The keyboard went to `window`; null: to none of ours.
    virtual void FocusMoved(HWND window) = 0;
    // A key was pressed or released: it is queued as `message` (WM_KEYDOWN, WM_SYSKEYDOWN...), and what it
    // types, if anything, comes out of TranslateMessage. Its effect on a control happens when the control's
    // Message() meets it.
    virtual void Key(HWND window, UINT message, WPARAM key, LPARAM data, std::u16string_view typed) = 0;
    // A control tells its parent: WM_COMMAND with its identifier and `code` (BN_CLICKED, EN_CHANGE...).
    virtual void Notify(HWND control, WORD code) = 0;
    // Dispatches what is queued, when the toolkit's own loop runs and not the adapter's.
    virtual void DispatchQueued() = 0;

protected:
    ~PeerEvents() = default;
};

class WindowBackend
{
public:
    // Whether windows can be shown: a display answers, or a toolkit platform was asked for by name. Without,
    // only the measures work.
    virtual bool HasDisplay() const = 0;

    // Null when it cannot be made. Not shown yet, whatever the style says; enabled as it says.
    virtual WindowPeer* Create(PeerRequest& request) = 0;
    // The peers of its children are gone by then.
    virtual void Destroy(WindowPeer* peer) = 0;
    virtual void SetClient(WindowPeer* peer, const RECT& client) = 0;
    virtual void Show(WindowPeer* peer, int command) = 0; // SW_...
    virtual void Enable(WindowPeer* peer, bool enabled) = 0;
    // In the code page that TextPage.h tells.
    virtual void SetText(WindowPeer* peer, std::string_view text) = 0;
    virtual void SetFont(WindowPeer* peer, const FontSpec& font) = 0;
    virtual void SetStyle(WindowPeer* peer, DWORD style, DWORD exStyle) = 0;
    virtual void SetParent(WindowPeer* peer, WindowPeer* parent) = 0;
    virtual void Raise(WindowPeer* peer) = 0;
    virtual void Lower(WindowPeer* peer) = 0;
    virtual void Activate(WindowPeer* peer) = 0;
    virtual void Focus(WindowPeer* peer) = 0;
    virtual void Repaint(WindowPeer* peer) = 0;
    // A control's own messages (BM_SETCHECK, LB_ADDSTRING, EM_SETSEL, WM_GETTEXT of an edit...), texts as
    // SetText takes them; false: not one of them, `result` untouched.
    virtual bool Message(WindowPeer* peer, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) = 0;
    virtual void SetCursor(WORD shape) = 0; // the number behind IDC_...; 0: none

    // Handles the toolkit's events; returns after at least one, after Wake, or when the time (INFINITE: none)
    // is over. 0 handles what is there.
    virtual void Wait(DWORD milliseconds) = 0;
    // Ends the present or next Wait, or has DispatchQueued called. Any thread.
    virtual void Wake() = 0;
    // Has DispatchQueued called after the time, for timers while the toolkit's own loop runs; INFINITE: not.
    virtual void WakeAfter(DWORD milliseconds) = 0;

    // Any thread.
    virtual SIZE TextExtent(const FontSpec& font, std::u16string_view text) = 0;
    virtual FontMeasures Measures(const FontSpec& font) = 0;

    virtual SIZE ScreenSize() = 0;
    virtual RECT WorkArea() = 0;
    virtual void Bell() = 0;

protected:
    ~WindowBackend() = default;
};

// The module's one export. Makes the toolkit's application object, or uses the host's own; the calling thread
// becomes the user-interface thread. The backend lives to the process's end. Null on failure.
extern "C" {
using ZekCreateWindowBackendFunc = WindowBackend*(PeerEvents* events);
}
constexpr const char* kCreateWindowBackend = "ZekCreateWindowBackend";

// The backend, loaded on first use; null when the module is missing or cannot start.
WindowBackend* Backend();
// Whether windows can be shown. Asks the environment first, so that a machine without a display loads
// nothing.
bool CanShowWindows();
