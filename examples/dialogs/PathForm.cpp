#include "PathForm.h"

#include "DemoProduct.h"

namespace {

constexpr char kReport[] =
    "C:\\Projects\\2026\\Bridge at the harbour\\Analysis\\Results\\Load case 12\\report.xlsx";
constexpr int kSecondsToRead = 3;
constexpr int kMargin = 12; // right of the labels, in pixels

} // namespace

BEGIN_MESSAGE_MAP(CPathForm, CDialog)
ON_BN_CLICKED(IDC_SHOW_SECTION, &CPathForm::OnShowSection)
ON_BN_CLICKED(IDC_SHOW_MESSAGE, &CPathForm::OnShowMessage)
ON_BN_CLICKED(ID_APP_EXIT, &CPathForm::OnExit)
END_MESSAGE_MAP()

CPathForm::CPathForm() : m_path(kReport)
{
}

BOOL CPathForm::OnInitDialog()
{
    SetDlgItemText(IDC_STATE, StateText());
    return CDialog::OnInitDialog();
}

void CPathForm::Arrange(int width)
{
    WidenTo(width, IDC_PATH);
    WidenTo(width, IDC_STATE);
    ShowPath();
}

void CPathForm::WidenTo(int width, int id)
{
    CRect label;
    GetDlgItem(id)->GetWindowRect(label);
    ScreenToClient(label);
    label.right = width - kMargin;
    GetDlgItem(id)->MoveWindow(label);
    GetDlgItem(id)->Invalidate(); // a label breaks its lines when it is painted
}

void CPathForm::ShowPath()
{
    CWnd* label = GetDlgItem(IDC_PATH);
    CRect room;
    label->GetClientRect(room);
    CClientDC dc(label);
    CFont* before = dc.SelectObject(label->GetFont()); // measured in the font it is shown in
    label->SetWindowText(m_path.GetAbbPathNameExt(&dc, room));
    dc.SelectObject(before);
}

// What the library knows of the user's language, of the testers' switches and of the program.
CString CPathForm::StateText() const
{
    const char* traced = CTestEnvMgr::IsTestEnvST("Trace", "on") ? "on" : "off";
    CString text;
    text.Format(DemoText("IDS_DEMO_STATE"), CLocaleLib::GetSystemLocale(), CLocaleLib::GetUILanguage(),
                ::GetACP(), traced, GetProgramPath());
    return text;
}

// Opens the dialog, or brings the one that is open to the front.
void CPathForm::OnShowSection()
{
    if (!m_section.GetSafeHwnd())
        m_section.Create(IDD_SECTION, GetParentFrame());
    m_section.ShowWindow(SW_SHOW);
    m_section.SetActiveWindow();
}

void CPathForm::OnShowMessage()
{
    TimedMessageBox(nullptr, nullptr, MB_OK | MB_ICONINFORMATION, kSecondsToRead * 1000,
                    DemoText("IDS_DEMO_TIMED"), m_path.GetFileName(), kSecondsToRead);
}

void CPathForm::OnExit()
{
    GetParentFrame()->PostMessage(WM_CLOSE);
}
