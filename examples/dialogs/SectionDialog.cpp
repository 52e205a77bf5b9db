#include "SectionDialog.h"

#include "DemoProduct.h"
#include "MainFrame.h"

namespace {

constexpr int kShapes = 3;
constexpr int kCases = 7;
constexpr int kLongestName = 20;

CString Numbered(const char* key, int number)
{
    CString text;
    text.Format("%s%d", key, number);
    return text;
}

} // namespace

CSectionDialog::CSectionDialog(CMainFrame* frame) : CDialog(IDD_SECTION, frame), m_frame(frame)
{
}

BOOL CSectionDialog::Open()
{
    return Create(IDD_SECTION, m_frame);
}

BOOL CSectionDialog::OnInitDialog()
{
    CSpecialChar::FillWindowChar(this, IDC_AREA_LABEL, CSpecialChar::m_cs2Square);
    CSpecialChar::FillWindowChar(this, IDC_INERTIA_LABEL, CSpecialChar::m_cs4Square);
    FillLists();
    return CDialog::OnInitDialog();
}

void CSectionDialog::FillLists()
{
    for (int i = 0; i < kShapes; ++i) {
        const CString text = DemoText(Numbered("IDS_DEMO_SHAPE_", i));
        SendDlgItemMessage(IDC_SHAPE, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.GetString()));
    }
    for (int i = 0; i < kCases; ++i) {
        const CString text = DemoText(Numbered("IDS_DEMO_CASE_", i));
        SendDlgItemMessage(IDC_CASES, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.GetString()));
    }
    SendDlgItemMessage(IDC_CASES, LB_SELITEMRANGE, TRUE, MAKELPARAM(0, 1));
}

void CSectionDialog::DoDataExchange(CDataExchange* dx)
{
    CDialog::DoDataExchange(dx);
    DDX_Text(dx, IDC_NAME, m_name);
    DDV_MaxChars(dx, m_name, kLongestName);
    DDX_CBIndex(dx, IDC_SHAPE, m_shape);
    DDX_Text(dx, IDC_AREA, m_area);
    DDV_MinMaxDouble(dx, m_area, 0, 100);
    DDX_Text(dx, IDC_INERTIA, m_inertia);
    DDV_MinMaxDouble(dx, m_inertia, 0, 100);
    DDX_Radio(dx, IDC_STEEL, m_material);
    DDX_Check(dx, IDC_SHEAR, m_shear);
}

void CSectionDialog::OnOK()
{
    if (!UpdateData(TRUE))
        return;
    const auto cases = static_cast<int>(SendDlgItemMessage(IDC_CASES, LB_GETSELCOUNT));
    FmtMessageBox(m_hWnd, nullptr, MB_OK | MB_ICONINFORMATION, DemoText("IDS_DEMO_SECTION_TEXT"), m_name,
                  m_area, m_inertia, cases);
    DestroyWindow();
}

void CSectionDialog::OnCancel()
{
    DestroyWindow();
}
