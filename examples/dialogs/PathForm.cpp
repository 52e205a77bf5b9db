#include "PathForm.h"

#include "DemoProduct.h"
#include "MainFrame.h"

namespace {

constexpr char kReport[] =
    "C:\\Projects\\2026\\Bridge at the harbour\\Analysis\\Results\\Load case 12\\report.xlsx";
constexpr int kSecondsToRead = 5;
constexpr int kMargin = 12; // right of the labels, in pixels

} // namespace

BEGIN_MESSAGE_MAP(CPathForm, CDialog)
ON_BN_CLICKED(IDC_SHOW_SECTION, &CPathForm::OnShowSection)
ON_BN_CLICKED(IDC_SHOW_MESSAGE, &CPathForm::OnShowMessage)
END_MESSAGE_MAP()

CPathForm::CPathForm(CMainFrame* frame) : CDialog(IDD_MAIN, frame), m_frame(frame), m_path(kReport)
{
}

BOOL CPathForm::Open()
{
    return Create(IDD_MAIN, m_frame);
}

BOOL CPathForm::OnInitDialog()
{
    CDialog::OnInitDialog();
    SetDlgItemText(IDC_STATE, StateText());
    return TRUE;
}

void CPathForm::OnCancel()
{
    m_frame->PostMessage(WM_CLOSE);
}

void CPathForm::Arrange(int width)
{
    WidenTo(width, IDC_PATH);
    WidenTo(width, IDC_STATE);
    ShowPath();
}

void CPathForm::WidenTo(int width, UINT id)
{
    CRect label;
    GetDlgItem(id)->GetWindowRect(label);
    ScreenToClient(label);
    label.right = width - kMargin;
    GetDlgItem(id)->MoveWindow(label);
}

void CPathForm::ShowPath()
{
    CWnd* label = GetDlgItem(IDC_PATH);
    CRect room;
    label->GetClientRect(room);
    CClientDC dc(label);
    CFont* before = dc.SelectObject(label->GetFont());
    label->SetWindowText(m_path.GetAbbPathNameExt(&dc, room));
    dc.SelectObject(before);
}

CString CPathForm::StateText() const
{
    const char* traced = CTestEnvMgr::IsTestEnvST("Trace", "on") ? "on" : "off";
    CString text;
    text.Format(DemoText("IDS_DEMO_STATE"), CLocaleLib::GetSystemLocale(), CLocaleLib::GetUILanguage(),
                ::GetACP(), traced, GetProgramPath());
    return text;
}

void CPathForm::OnShowSection()
{
    m_frame->ShowSection();
}

void CPathForm::OnShowMessage()
{
    TimedMessageBox(nullptr, nullptr, MB_OK | MB_ICONINFORMATION, kSecondsToRead * 1000,
                    DemoText("IDS_DEMO_TIMED"), m_path.GetFileName(), kSecondsToRead);
}
