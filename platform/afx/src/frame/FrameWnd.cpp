#include "FrameClass.h"

#include <afxwin.h>

// clang-format off
IMPLEMENT_DYNCREATE(CFrameWnd, CWnd)

BEGIN_MESSAGE_MAP(CFrameWnd, CWnd)
    ON_WM_CREATE()
    ON_WM_CLOSE()
    ON_WM_SIZE()
    ON_WM_SETFOCUS()
    ON_WM_ACTIVATE()
END_MESSAGE_MAP()
// clang-format on

const CRect CFrameWnd::rectDefault(CW_USEDEFAULT, CW_USEDEFAULT, 0, 0);

LPCSTR AfxPlainWindowClass()
{
    constexpr UINT_PTR kWindowColour = 5;
    return AfxRegisterWndClass(CS_DBLCLKS, ::LoadCursorA(nullptr, IDC_ARROW),
                               reinterpret_cast<HBRUSH>(kWindowColour + 1));
}

CFrameWnd::CFrameWnd() = default;
CFrameWnd::~CFrameWnd() = default;

BOOL CFrameWnd::Create(LPCSTR className, LPCSTR windowName, DWORD style, const RECT& rect, CWnd* parent,
                       LPCSTR menuName, DWORD exStyle, CCreateContext* context)
{
    if (menuName) {
        ::SetLastError(ERROR_NOT_SUPPORTED);
        PostNcDestroy();
        return FALSE;
    }
    m_strTitle = windowName;
    const bool placed = rect.left != CW_USEDEFAULT;
    return CreateEx(exStyle, className, windowName, style, rect.left, rect.top,
                    placed ? rect.right - rect.left : CW_USEDEFAULT,
                    placed ? rect.bottom - rect.top : CW_USEDEFAULT, parent ? parent->m_hWnd : nullptr,
                    nullptr, context);
}

BOOL CFrameWnd::PreCreateWindow(CREATESTRUCTA& description)
{
    if (!description.lpszClass)
        description.lpszClass = AfxPlainWindowClass();
    if (description.style & FWS_ADDTOTITLE)
        description.style |= FWS_PREFIXTITLE;
    return CWnd::PreCreateWindow(description);
}

void CFrameWnd::PostNcDestroy()
{
    delete this;
}

int CFrameWnd::OnCreate(LPCREATESTRUCTA description)
{
    return OnCreateHelper(description, static_cast<CCreateContext*>(description->lpCreateParams));
}

int CFrameWnd::OnCreateHelper(LPCREATESTRUCTA description, CCreateContext* context)
{
    if (CWnd::OnCreate(description) == -1 || !OnCreateClient(description, context))
        return -1;
    RecalcLayout();
    return 0;
}

BOOL CFrameWnd::OnCreateClient(LPCREATESTRUCTA, CCreateContext* context)
{
    return !context || !context->m_pNewViewClass || CreateView(context);
}

CWnd* CFrameWnd::CreateView(CCreateContext* context, UINT id)
{
    CObject* object = context->m_pNewViewClass->CreateObject();
    CWnd* view = DYNAMIC_DOWNCAST(CWnd, object);
    if (!view) {
        delete object;
        return nullptr;
    }
    const RECT none = {};
    return view->Create(nullptr, nullptr, AFX_WS_DEFAULT_VIEW, none, this, id, context) ? view : nullptr;
}

void CFrameWnd::OnClose()
{
    CDocument* document = GetActiveDocument();
    if (document && !document->CanCloseFrame(this))
        return;
    if (document && document->m_bAutoDelete && document->IsShownOnlyBy(this)) {
        document->OnCloseDocument(); // takes its last frame along
        return;
    }
    if (document)
        document->PreCloseFrame(this);
    DestroyWindow();
}

void CFrameWnd::OnSize(UINT type, int width, int height)
{
    CWnd::OnSize(type, width, height);
    if (type != SIZE_MINIMIZED)
        RecalcLayout();
}

void CFrameWnd::RecalcLayout(BOOL)
{
    const HWND pane = ::GetDlgItem(m_hWnd, AFX_IDW_PANE_FIRST);
    RECT client = {};
    if (pane && ::GetClientRect(m_hWnd, &client))
        ::MoveWindow(pane, 0, 0, client.right, client.bottom, TRUE);
}

BOOL CFrameWnd::IsFrameWnd() const
{
    return TRUE;
}

BOOL CFrameWnd::LoadAccelTable(LPCSTR name)
{
    if (m_hAccelTable)
        return FALSE;
    m_hAccelTable = ::LoadAccelerators(AfxFindResourceHandle(name, RT_ACCELERATOR), name);
    return m_hAccelTable != nullptr;
}

BOOL CFrameWnd::PreTranslateMessage(MSG* message)
{
    if (CWnd::PreTranslateMessage(message))
        return TRUE;
    const bool key = message->message >= WM_KEYFIRST && message->message <= WM_KEYLAST;
    return key && m_hAccelTable && ::TranslateAccelerator(m_hWnd, m_hAccelTable, message);
}

BOOL CFrameWnd::OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* handlerInfo)
{
    if (m_pViewActive && m_pViewActive->OnCmdMsg(id, code, extra, handlerInfo))
        return TRUE;
    if (CWnd::OnCmdMsg(id, code, extra, handlerInfo))
        return TRUE;
    CWinApp* app = AfxGetApp();
    return app && app->OnCmdMsg(id, code, extra, handlerInfo);
}
