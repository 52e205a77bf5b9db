// Targets of commands and messages, and windows.
//
//   CWnd* box = dialog.GetDlgItem(IDC_NAME);     // a temporary object: not for keeping
//   box->SetWindowText("name");
//
//   class CCanvas : public CWnd { ... };         // an object for good: it receives the window's messages
//   canvas.Create(nullptr, "", WS_CHILD | WS_VISIBLE, rect, this, IDC_CANVAS);
//
// Ownership: a CWnd destroys its window when it is destroyed, and a window that ends calls PostNcDestroy, in
// which an object on the heap may delete itself. Temporary objects last to the thread's next idle moment.
// Errors: members need a live window unless they say otherwise (asserted with _DEBUG; else they do what
// Win32 does with a handle that is gone). An exception that leaves a handler is shown and ends there.
// Threads: handles and objects are matched per thread; use a window's object on the window's thread.
// Differs: WM_CREATE and what else comes before CreateEx returns reach only windows whose class was
// registered through AfxRegisterClass or AfxRegisterWndClass; a dialog's messages begin with WM_SETFONT or
// WM_INITDIALOG. No menus, scrolling, tool tips, drag and drop or automation. Attaching to a handle that
// already has an object is refused.
#pragma once

#include "afxgdi_.h"
#include "afxmsg_.h"
#include "afxobj_.h"
#include "afxstr_.h"
#include "afxtyp_.h"

// A macro for GetWindow, in the way of the member of that name.
#undef GetNextWindow

class CCmdTarget;
class CDataExchange;
class CFrameWnd;
class CDC;
class CFont;
struct CCreateContext;

// Filled by OnCmdMsg, instead of calling the handler, for who only asks whether there is one.
struct AFX_CMDHANDLERINFO {
    CCmdTarget* pTarget;
};

// What can have a message map.
class AFX_CORE_CLASS CCmdTarget : public CObject
{
    DECLARE_DYNAMIC(CCmdTarget)
public:
    CCmdTarget();
    ~CCmdTarget() override;

    // Hands a command (`code` CN_COMMAND) or a control's notification to the message map. TRUE: handled.
    // Override it to route commands on to other targets.
    virtual BOOL OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* handlerInfo);

    // The hourglass, as CWaitCursor shows it. Restoring it is no fault when it is not there.
    void BeginWaitCursor();
    void EndWaitCursor();
    void RestoreWaitCursor();

protected:
    friend class CWnd;
    static const AFX_MSGMAP* GetThisMessageMap();
    virtual const AFX_MSGMAP* GetMessageMap() const;
};

// How long RunModalLoop waits and what it shows.
#define MLF_NOIDLEMSG 0x0001  // the owner gets no WM_ENTERIDLE
#define MLF_NOKICKIDLE 0x0002 // the window gets no WM_KICKIDLE
#define MLF_SHOWONIDLE 0x0004 // the window is shown when the queue is empty

// Sent to a window when its modal loop has nothing else to do; lParam counts the times. Answer TRUE to get
// it again at once.
#define WM_KICKIDLE 0x036A

class AFX_CORE_CLASS CWnd : public CCmdTarget
{
    DECLARE_DYNCREATE(CWnd)
    DECLARE_MESSAGE_MAP()
public:
    CWnd() = default;
    ~CWnd() override;

    HWND m_hWnd = nullptr;

    operator HWND() const { return m_hWnd; }
    // Null for an object without a window, and for a null pointer.
    HWND GetSafeHwnd() const;
    BOOL operator==(const CWnd& other) const { return m_hWnd == other.m_hWnd; }

    // The object of a window; a temporary one if need be. Null for a null handle.
    static CWnd* FromHandle(HWND window);
    static CWnd* FromHandlePermanent(HWND window); // null if it has none of its own
    static void DeleteTempMap();                   // deletes the thread's temporary objects
    BOOL Attach(HWND window);                      // FALSE for null and for a window with an object
    HWND Detach();                                 // the handle, null if there was none

    // As Attach, and from now on the window's messages come through this object first.
    BOOL SubclassWindow(HWND window);
    BOOL SubclassDlgItem(UINT id, CWnd* parent);
    HWND UnsubclassWindow();

    // Class name null: that of a plain window. FALSE when the window cannot be made; then, as after a
    // window's end, PostNcDestroy has been called. FALSE and nothing else when the object has a window.
    virtual BOOL Create(LPCSTR className, LPCSTR name, DWORD style, const RECT& rect, CWnd* parent, UINT id,
                        CCreateContext* context = nullptr);
    BOOL CreateEx(DWORD exStyle, LPCSTR className, LPCSTR name, DWORD style, int x, int y, int width,
                  int height, HWND parent, HMENU idOrMenu, LPVOID parameter = nullptr);
    BOOL CreateEx(DWORD exStyle, LPCSTR className, LPCSTR name, DWORD style, const RECT& rect, CWnd* parent,
                  UINT id, LPVOID parameter = nullptr);
    virtual BOOL PreCreateWindow(CREATESTRUCTA& description); // FALSE stops the creation
    virtual void PreSubclassWindow();
    // FALSE when there is no window. The object may be gone afterwards.
    virtual BOOL DestroyWindow();

    // Texts, in the ANSI code page.
    void SetWindowText(LPCSTR text);
    int GetWindowText(LPSTR buffer, int size) const { return ::GetWindowTextA(Live(), buffer, size); }
    void GetWindowText(CString& text) const;
    int GetWindowTextLength() const { return ::GetWindowTextLengthA(Live()); }
    void SetFont(CFont* font, BOOL redraw = TRUE);
    CFont* GetFont() const; // a temporary object; null: the system's font

    // Style: a change is made when anything changes at all; `flags` not 0 are given to SetWindowPos.
    DWORD GetStyle() const { return static_cast<DWORD>(::GetWindowLongA(Live(), GWL_STYLE)); }
    DWORD GetExStyle() const { return static_cast<DWORD>(::GetWindowLongA(Live(), GWL_EXSTYLE)); }
    BOOL ModifyStyle(DWORD remove, DWORD add, UINT flags = 0);
    BOOL ModifyStyleEx(DWORD remove, DWORD add, UINT flags = 0);

    // State.
    BOOL EnableWindow(BOOL enable = TRUE) { return ::EnableWindow(Live(), enable); }
    BOOL IsWindowEnabled() const { return ::IsWindowEnabled(Live()); }
    BOOL ShowWindow(int command) { return ::ShowWindow(Live(), command); }
    BOOL IsWindowVisible() const { return ::IsWindowVisible(Live()); }
    BOOL IsIconic() const { return ::IsIconic(Live()); }
    BOOL IsZoomed() const { return ::IsZoomed(Live()); }
    CWnd* SetFocus() { return FromHandle(::SetFocus(Live())); }
    CWnd* SetActiveWindow() { return FromHandle(::SetActiveWindow(Live())); }
    BOOL SetForegroundWindow() { return ::SetForegroundWindow(Live()); }
    void BringWindowToTop() { ::BringWindowToTop(Live()); }
    static CWnd* GetFocus() { return FromHandle(::GetFocus()); }
    static CWnd* GetActiveWindow() { return FromHandle(::GetActiveWindow()); }
    static CWnd* GetForegroundWindow() { return FromHandle(::GetForegroundWindow()); }

    // Place, in pixels.
    void MoveWindow(int x, int y, int width, int height, BOOL repaint = TRUE);
    void MoveWindow(LPCRECT rect, BOOL repaint = TRUE);
    BOOL SetWindowPos(const CWnd* after, int x, int y, int width, int height, UINT flags);
    void GetWindowRect(LPRECT rect) const { ::GetWindowRect(Live(), rect); }
    void GetClientRect(LPRECT rect) const { ::GetClientRect(Live(), rect); }
    void ClientToScreen(LPPOINT point) const { ::ClientToScreen(Live(), point); }
    void ClientToScreen(LPRECT rect) const;
    void ScreenToClient(LPPOINT point) const { ::ScreenToClient(Live(), point); }
    void ScreenToClient(LPRECT rect) const;
    void MapWindowPoints(CWnd* to, LPPOINT points, UINT count) const; // null `to`: the screen
    void MapWindowPoints(CWnd* to, LPRECT rect) const;
    // Into the middle of `alternate`, by default the owner (a child: its parent), and onto the screen.
    void CenterWindow(CWnd* alternate = nullptr);
    void Invalidate(BOOL erase = TRUE) { ::InvalidateRect(Live(), nullptr, erase); }
    void InvalidateRect(LPCRECT rect, BOOL erase = TRUE) { ::InvalidateRect(Live(), rect, erase); }
    void UpdateWindow() { ::UpdateWindow(Live()); }
    BOOL RedrawWindow(LPCRECT rect = nullptr, UINT flags = RDW_INVALIDATE | RDW_UPDATENOW | RDW_ERASE);
    CDC* GetDC(); // a temporary object, which ReleaseDC deletes
    int ReleaseDC(CDC* dc);

    // Hierarchy. Null where there is none.
    CWnd* GetParent() const { return FromHandle(::GetParent(Live())); }
    CWnd* SetParent(CWnd* parent);
    CWnd* GetOwner() const; // as SetOwner says; else the parent
    void SetOwner(CWnd* owner);
    CWnd* GetTopLevelParent() const;
    CFrameWnd* GetParentFrame() const; // the nearest frame above
    CWnd* GetTopWindow() const { return FromHandle(::GetTopWindow(Live())); }
    CWnd* GetWindow(UINT which) const { return FromHandle(::GetWindow(Live(), which)); }
    CWnd* GetNextWindow(UINT which = GW_HWNDNEXT) const { return GetWindow(which); }
    CWnd* GetLastActivePopup() const { return FromHandle(::GetLastActivePopup(Live())); }
    BOOL IsChild(const CWnd* window) const { return ::IsChild(Live(), window->GetSafeHwnd()); }
    static CWnd* FindWindow(LPCSTR className, LPCSTR name);
    static CWnd* GetDesktopWindow() { return FromHandle(::GetDesktopWindow()); }
    virtual BOOL IsFrameWnd() const; // FALSE

    // Controls, by identifier.
    CWnd* GetDlgItem(int id) const { return FromHandle(::GetDlgItem(Live(), id)); }
    void GetDlgItem(int id, HWND* window) const { *window = ::GetDlgItem(Live(), id); }
    CWnd* GetDescendantWindow(int id, BOOL onlyPermanent = FALSE) const; // also below other children
    int GetDlgCtrlID() const { return ::GetDlgCtrlID(Live()); }
    int SetDlgCtrlID(int id); // the one before
    int GetDlgItemText(int id, LPSTR buffer, int size) const;
    int GetDlgItemText(int id, CString& text) const; // the length; 0 and "" without such a control
    void SetDlgItemText(int id, LPCSTR text) { ::SetDlgItemTextA(Live(), id, text); }
    UINT GetDlgItemInt(int id, BOOL* translated = nullptr, BOOL isSigned = TRUE) const;
    void SetDlgItemInt(int id, UINT value, BOOL isSigned = TRUE);
    LRESULT SendDlgItemMessage(int id, UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
    void CheckDlgButton(int id, UINT check) { ::CheckDlgButton(Live(), id, check); }
    UINT IsDlgButtonChecked(int id) const { return ::IsDlgButtonChecked(Live(), id); }
    void CheckRadioButton(int first, int last, int id) { ::CheckRadioButton(Live(), first, last, id); }
    int GetCheckedRadioButton(int first, int last) const; // 0: none
    CWnd* GetNextDlgTabItem(CWnd* control, BOOL previous = FALSE) const;
    CWnd* GetNextDlgGroupItem(CWnd* control, BOOL previous = FALSE) const;

    // Messages.
    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    BOOL PostMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    // To all children and, with `deep`, theirs; `onlyPermanent`: to those with an object of their own.
    void SendMessageToDescendants(UINT message, WPARAM wParam = 0, LPARAM lParam = 0, BOOL deep = TRUE,
                                  BOOL onlyPermanent = FALSE);
    UINT_PTR SetTimer(UINT_PTR id, UINT milliseconds, TIMERPROC callback = nullptr);
    BOOL KillTimer(UINT_PTR id) { return ::KillTimer(Live(), id); }
    // Caption null: the application's name.
    int MessageBox(LPCSTR text, LPCSTR caption = nullptr, UINT style = MB_OK);
    static const MSG* GetCurrentMessage(); // the one whose handler runs on this thread
    BOOL IsDialogMessage(LPMSG message) { return ::IsDialogMessageA(Live(), message); }
    // Looks at a message before it is dispatched. TRUE: it is dealt with.
    virtual BOOL PreTranslateMessage(MSG* message);
    // Asks the message's window and its parents up to `stop`, those that have an object.
    static BOOL WalkPreTranslateTree(HWND stop, MSG* message);

    // Exchanges data between controls and members by DoDataExchange: FALSE into the controls, TRUE out of
    // them. FALSE when a value was refused (the user has been told) or there is no window.
    BOOL UpdateData(BOOL saveAndValidate = TRUE);

    // Handles the thread's messages until EndModalLoop, or until the window is gone. What EndModalLoop was
    // given; -1 when the thread is to quit or the window went without it.
    int RunModalLoop(DWORD flags = 0);
    virtual BOOL ContinueModal();
    virtual void EndModalLoop(int result);

protected:
    // A message's way: WindowProc asks OnWndMsg (OnCommand, the message map), then DefWindowProc.
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    virtual BOOL OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);
    virtual LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    virtual BOOL OnCommand(WPARAM wParam, LPARAM lParam);
    LRESULT Default(); // DefWindowProc with the current message, as it came

    virtual void DoDataExchange(CDataExchange* exchange);
    virtual void PostNcDestroy(); // the last call for a window; the object may delete itself
    BOOL PreTranslateInput(LPMSG message);

    // Each does what DefWindowProc does.
    afx_msg BOOL OnNcCreate(LPCREATESTRUCTA) { return static_cast<BOOL>(Default()); }
    afx_msg int OnCreate(LPCREATESTRUCTA) { return static_cast<int>(Default()); } // -1 destroys the window
    afx_msg void OnDestroy() { Default(); }
    afx_msg void OnNcDestroy(); // ends the object's tie to the window
    afx_msg void OnClose() { Default(); }
    afx_msg void OnSize(UINT, int, int) { Default(); }
    afx_msg void OnMove(int, int) { Default(); }
    afx_msg void OnTimer(UINT_PTR) { Default(); }
    afx_msg void OnSysCommand(UINT, LPARAM) { Default(); }
    afx_msg void OnShowWindow(BOOL, UINT) { Default(); }
    afx_msg void OnEnable(BOOL) { Default(); }
    afx_msg void OnActivate(UINT, CWnd*, BOOL) { Default(); }
    afx_msg void OnSetFocus(CWnd*) { Default(); }
    afx_msg void OnKillFocus(CWnd*) { Default(); }
    afx_msg void OnKeyDown(UINT, UINT, UINT) { Default(); }
    afx_msg void OnKeyUp(UINT, UINT, UINT) { Default(); }
    afx_msg void OnChar(UINT, UINT, UINT) { Default(); }
    afx_msg void OnSysKeyDown(UINT, UINT, UINT) { Default(); }
    afx_msg void OnSysKeyUp(UINT, UINT, UINT) { Default(); }
    afx_msg void OnSysChar(UINT, UINT, UINT) { Default(); }

    bool m_continueModal = false;
    int m_nModalResult = -1;

private:
    friend struct WndAccess;
    HWND Live() const
    {
        ASSERT(::IsWindow(m_hWnd));
        return m_hWnd;
    }

    HWND m_hWndOwner = nullptr;
    WNDPROC m_pfnSuper = nullptr; // the procedure that SubclassWindow replaced
};

// Registers a class; TRUE also when it was there. With ::DefWindowProc as its procedure its windows reach
// their objects from their first message on. Classes last as long as the process.
AFX_CORE_API BOOL AFXAPI AfxRegisterClass(WNDCLASSA* description);
// The name of a class with these properties, registered if need be; to be read until the thread's next call.
// Throws CResourceException on failure.
AFX_CORE_API LPCSTR AFXAPI AfxRegisterWndClass(UINT style, HCURSOR cursor = nullptr, HBRUSH brush = nullptr,
                                               HICON icon = nullptr);
