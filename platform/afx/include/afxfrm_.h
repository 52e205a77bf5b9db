// Frame windows: the main window of a program with one document, and a main window whose children are frames.
//
//   auto* frame = new CFrameWnd;                       // deletes itself with its window
//   CCreateContext context;
//   context.m_pNewViewClass = RUNTIME_CLASS(CModelView);
//   context.m_pCurrentDoc = document;
//   frame->Create(nullptr, "Model", WS_OVERLAPPEDWINDOW, CFrameWnd::rectDefault, nullptr, nullptr, 0,
//   &context); frame->InitialUpdateFrame(document, TRUE);         // the view is active, updated and shown
//
// Threads: a frame belongs to the thread that makes it.
// Differs: no menus, bars, document templates or in-place activation; one view, or the client of an MDI
// frame, fills the client area.
#pragma once

#include "afxdoc_.h"
#include "afxres.h"
#include "afxwnd_.h"

// Frame styles: the caption shows the document's title, in front of the frame's own.
#define FWS_ADDTOTITLE 0x00008000L
#define FWS_PREFIXTITLE 0x00004000L
#define AFX_WS_DEFAULT_VIEW (WS_CHILD | WS_VISIBLE | WS_BORDER)

// What a frame that is being made needs to know to make its view.
struct CCreateContext {
    CRuntimeClass* m_pNewViewClass = nullptr; // null: no view
    CDocument* m_pCurrentDoc = nullptr;       // the view's document
    CView* m_pLastView = nullptr;
    CFrameWnd* m_pCurrentFrame = nullptr;
};

class CMDIChildWnd;

// A frame's Create hides that of its base class, and is meant to.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Woverloaded-virtual"

class AFX_CORE_CLASS CFrameWnd : public CWnd
{
    DECLARE_DYNCREATE(CFrameWnd)
    DECLARE_MESSAGE_MAP()
public:
    CFrameWnd();
    ~CFrameWnd() override;

    static const CRect rectDefault; // the system chooses place and size

    // `className` null: a plain frame's. `menuName` must be null. FALSE when the frame or its view cannot be
    // made; the object then has deleted itself, as it does after its window's end.
    virtual BOOL Create(LPCSTR className, LPCSTR windowName, DWORD style = WS_OVERLAPPEDWINDOW,
                        const RECT& rect = rectDefault, CWnd* parent = nullptr, LPCSTR menuName = nullptr,
                        DWORD exStyle = 0, CCreateContext* context = nullptr);
    // A view of the context's class as the child `id`; null when it cannot be made.
    CWnd* CreateView(CCreateContext* context, UINT id = AFX_IDW_PANE_FIRST);
    // Makes the view active, if none is, and with `makeVisible` calls OnInitialUpdate of all views and shows
    // the frame.
    void InitialUpdateFrame(CDocument* document, BOOL makeVisible);
    // Shows the frame (-1: as it is, or restored from an icon) and brings it to the front.
    virtual void ActivateFrame(int showCommand = -1);

    // The frame whose view is active: for an MDI frame the active child, if there is one.
    virtual CFrameWnd* GetActiveFrame();
    virtual CDocument* GetActiveDocument(); // of the active view; null without one
    // The view that commands go to; null without one.
    CView* GetActiveView() const { return m_pViewActive; }
    // Tells the old view that it is inactive and, with `notify`, the new one that it is active. A view that
    // makes another one active meanwhile has its way.
    void SetActiveView(CView* view, BOOL notify = TRUE);

    // Lets the child AFX_IDW_PANE_FIRST fill the client area.
    virtual void RecalcLayout(BOOL notify = TRUE);

    // The frame's own part of the caption.
    CString GetTitle() const { return m_strTitle; }
    void SetTitle(LPCSTR title) { m_strTitle = title; }
    // Writes the caption anew, with the document's title if `addToTitle`; only with FWS_ADDTOTITLE.
    virtual void OnUpdateFrameTitle(BOOL addToTitle);

    // The keys that PreTranslateMessage turns into commands. FALSE when there is no such table or one is
    // loaded already.
    BOOL LoadAccelTable(LPCSTR name);

    BOOL IsFrameWnd() const override;
    BOOL PreCreateWindow(CREATESTRUCTA& description) override;
    BOOL PreTranslateMessage(MSG* message) override;
    // Asks the active view, the frame, then the application.
    BOOL OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* handlerInfo) override;

    HACCEL m_hAccelTable = nullptr;
    int m_nWindow = -1; // the frame's number among those of its document, from 1; -1 or 0: the only one

protected:
    // Makes what fills the client area; FALSE stops the creation.
    virtual BOOL OnCreateClient(LPCREATESTRUCTA description, CCreateContext* context);
    int OnCreateHelper(LPCREATESTRUCTA description, CCreateContext* context);
    void PostNcDestroy() override; // deletes the object

    afx_msg int OnCreate(LPCREATESTRUCTA description);
    // Asks the document, and closes it with its last frame.
    afx_msg void OnClose();
    afx_msg void OnSize(UINT type, int width, int height);
    afx_msg void OnSetFocus(CWnd* old);
    afx_msg void OnActivate(UINT state, CWnd* other, BOOL minimized);

    CString m_strTitle;

private:
    CView* m_pViewActive = nullptr;
};

// A main window whose children are frames of their own. AfxGetApp()->m_pMainWnd->GetActiveFrame() is then the
// active child.
class AFX_CORE_CLASS CMDIFrameWnd : public CFrameWnd
{
    DECLARE_DYNCREATE(CMDIFrameWnd)
public:
    // The active child, null without one; *maximized tells whether it fills the frame.
    CMDIChildWnd* MDIGetActive(BOOL* maximized = nullptr) const;
    void MDIActivate(CWnd* child);
    // The window that the children lie in. Called by OnCreateClient.
    virtual BOOL CreateClient(LPCREATESTRUCTA description);

    CFrameWnd* GetActiveFrame() override;
    // Asks the active child first.
    BOOL OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* handlerInfo) override;

    HWND m_hWndMDIClient = nullptr;

protected:
    BOOL OnCreateClient(LPCREATESTRUCTA description, CCreateContext* context) override;
    LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
};

class AFX_CORE_CLASS CMDIChildWnd : public CFrameWnd
{
    DECLARE_DYNCREATE(CMDIChildWnd)
    DECLARE_MESSAGE_MAP()
public:
    // `parent` null: the application's main window.
    virtual BOOL Create(LPCSTR className, LPCSTR windowName,
                        DWORD style = WS_CHILD | WS_VISIBLE | WS_OVERLAPPEDWINDOW,
                        const RECT& rect = rectDefault, CMDIFrameWnd* parent = nullptr,
                        CCreateContext* context = nullptr);
    CMDIFrameWnd* GetMDIFrame() const;
    void MDIActivate();

    void ActivateFrame(int showCommand = -1) override;
    void OnUpdateFrameTitle(BOOL addToTitle) override;
    BOOL DestroyWindow() override;

protected:
    LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    afx_msg int OnCreate(LPCREATESTRUCTA description);
    afx_msg LRESULT OnMDIActivate(WPARAM deactivated, LPARAM activated);

private:
    CCreateContext* m_context = nullptr; // while the window is made
};

#pragma GCC diagnostic pop
