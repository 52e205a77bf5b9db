#include <afxapp_.h>
#include <afxdlg_.h>
#include <afxdll_.h>

#include "../wnd/WndProc.h"
#include "DialogProc.h"
#include "DialogTemplate.h"

#include <cstring>

IMPLEMENT_DYNAMIC(CDialog, CWnd)

BEGIN_MESSAGE_MAP(CDialog, CWnd)
ON_COMMAND(IDOK, &CDialog::OnOK)
ON_COMMAND(IDCANCEL, &CDialog::OnCancel)
ON_MESSAGE(WM_INITDIALOG, &CDialog::OnWmInitDialog)
END_MESSAGE_MAP()

CDialog::CDialog(LPCSTR templateName, CWnd* parent) : m_lpszTemplateName(templateName), m_pParentWnd(parent)
{
    if (IS_INTRESOURCE(templateName))
        return;
    m_nameCopy = templateName;
    m_lpszTemplateName = m_nameCopy;
}

CDialog::CDialog(UINT templateId, CWnd* parent)
    : m_lpszTemplateName(MAKEINTRESOURCEA(templateId)), m_pParentWnd(parent)
{
}

CDialog::~CDialog()
{
    // While the window's messages still find a dialog.
    if (m_hWnd)
        CDialog::DestroyWindow();
}

BOOL CDialog::Create(LPCSTR templateName, CWnd* parent)
{
    HINSTANCE module = nullptr;
    const LPCDLGTEMPLATEA shape = AfxFindDialogTemplate(templateName, module);
    CWnd* owner = parent ? parent : AfxGetMainWnd();
    return shape && MakeWindow(shape, owner ? owner->m_hWnd : nullptr, module);
}

BOOL CDialog::Create(UINT templateId, CWnd* parent)
{
    return Create(MAKEINTRESOURCEA(templateId), parent);
}

BOOL CDialog::CreateIndirect(LPCDLGTEMPLATEA shape, CWnd* parent)
{
    CWnd* owner = parent ? parent : AfxGetMainWnd();
    return shape && MakeWindow(shape, owner ? owner->m_hWnd : nullptr, AfxGetResourceHandle());
}

BOOL CDialog::MakeWindow(LPCDLGTEMPLATEA shape, HWND parent, HINSTANCE module)
{
    WndState* state = AfxWndState();
    if (!state || m_hWnd)
        return FALSE;
    m_nModalResult = -1;
    m_continueModal = true;
    m_autoCenter = AfxIsPlaceOpen(shape);
    const AfxRestored<CWnd*> restored(state->dialogInMaking, this);
    const HWND window = ::CreateDialogIndirectParamA(module, shape, parent, AfxDlgProc, 0);
    if (state->dialogInMaking == this) {
        PostNcDestroy(); // it never came to have a window
        return FALSE;
    }
    // A window that has gone since may have taken the object along.
    if (!window || FromHandlePermanent(window) != this)
        return FALSE;
    if (m_continueModal)
        return TRUE;
    DestroyWindow(); // OnInitDialog has ended it
    return FALSE;
}

LRESULT CDialog::OnWmInitDialog(WPARAM, LPARAM)
{
    const HWND window = m_hWnd;
    RECT before = {};
    GetWindowRect(&before);
    const LRESULT result = Default();
    if (FromHandlePermanent(window) != this)
        return result;
    RECT after = {};
    GetWindowRect(&after);
    if (m_autoCenter && (GetStyle() & (WS_CHILD | WS_VISIBLE)) == 0 && ::EqualRect(&before, &after))
        CenterWindow();
    return result;
}

BOOL CDialog::OnInitDialog()
{
    if (UpdateData(FALSE))
        return TRUE;
    EndDialog(-1);
    return FALSE;
}

void CDialog::OnSetFont(CFont*)
{
}

void CDialog::OnOK()
{
    if (UpdateData(TRUE))
        EndDialog(IDOK);
}

void CDialog::OnCancel()
{
    EndDialog(IDCANCEL);
}

void CDialog::EndDialog(int result)
{
    const HWND window = m_hWnd;
    EndModalLoop(result);
    ::EndDialog(window, result);
}

void CDialog::GotoDlgCtrl(CWnd* control)
{
    SendMessage(WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control->GetSafeHwnd()), 1);
}

BOOL CDialog::OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* handlerInfo)
{
    if (CWnd::OnCmdMsg(id, code, extra, handlerInfo))
        return TRUE;
    // Below are the dialog's own controls, above the system's commands.
    constexpr UINT kFirstRouted = 0x8000;
    constexpr UINT kLastRouted = 0xEFFF;
    if (code != CN_COMMAND || id < kFirstRouted || id > kLastRouted)
        return FALSE;
    CWnd* owner = GetParent();
    if (owner && owner->OnCmdMsg(id, code, extra, handlerInfo))
        return TRUE;
    CWinThread* thread = AfxGetThread();
    return thread && thread->OnCmdMsg(id, code, extra, handlerInfo);
}

namespace {

bool IsManyLineEdit(HWND window)
{
    char name[8] = "";
    ::GetClassNameA(window, name, sizeof name);
    return _stricmp(name, "Edit") == 0 && (::GetWindowLongA(window, GWL_STYLE) & ES_MULTILINE) != 0;
}

} // namespace

BOOL CDialog::PreTranslateMessage(MSG* message)
{
    if (CWnd::PreTranslateMessage(message))
        return TRUE;
    // An edit control of many lines keeps Escape for itself.
    const bool isEscape = message->message == WM_KEYDOWN && message->wParam == VK_ESCAPE;
    if (isEscape && IsManyLineEdit(message->hwnd)) {
        const HWND cancel = ::GetDlgItem(m_hWnd, IDCANCEL);
        if (!cancel || ::IsWindowEnabled(cancel)) {
            SendMessage(WM_COMMAND, IDCANCEL);
            return TRUE;
        }
    }
    return PreTranslateInput(message);
}
