#include "SectionDialog.h"

#include "DemoProduct.h"

namespace {

constexpr int kLongestName = 20;
constexpr double kMost = 100;

} // namespace

BOOL CSectionDialog::OnInitDialog()
{
    CSpecialChar::FillWindowChar(this, IDC_AREA_LABEL, CSpecialChar::m_cs2Square);
    CSpecialChar::FillWindowChar(this, IDC_INERTIA_LABEL, CSpecialChar::m_cs4Square);
    FillList(IDC_SHAPE, CB_ADDSTRING, "IDS_DEMO_SHAPES");
    FillList(IDC_CASES, LB_ADDSTRING, "IDS_DEMO_CASES");
    SendDlgItemMessage(IDC_CASES, LB_SELITEMRANGE, TRUE, MAKELPARAM(0, 1));
    return CDialog::OnInitDialog(); // shows the values
}

// The entries stand in one text, with bars between them.
void CSectionDialog::FillList(int id, UINT message, const char* key)
{
    CString text = DemoText(key);
    StringTokenizer entries(text.GetBuffer(), "|");
    for (int i = 0; i < entries.GetTokenCount(); ++i)
        SendDlgItemMessage(id, message, 0, reinterpret_cast<LPARAM>(entries.GetToken(i)));
}

void CSectionDialog::DoDataExchange(CDataExchange* exchange)
{
    CDialog::DoDataExchange(exchange);
    DDX_Text(exchange, IDC_NAME, m_name);
    DDV_MaxChars(exchange, m_name, kLongestName);
    DDX_CBIndex(exchange, IDC_SHAPE, m_shape);
    DDX_Text(exchange, IDC_AREA, m_area);
    DDV_MinMaxDouble(exchange, m_area, 0, kMost);
    DDX_Text(exchange, IDC_INERTIA, m_inertia);
    DDV_MinMaxDouble(exchange, m_inertia, 0, kMost);
    DDX_Radio(exchange, IDC_STEEL, m_material);
    DDX_Check(exchange, IDC_SHEAR, m_shear);
}

void CSectionDialog::OnOK()
{
    if (!UpdateData(TRUE))
        return; // the user has been told, and the keyboard is at what was refused
    const auto cases = static_cast<int>(SendDlgItemMessage(IDC_CASES, LB_GETSELCOUNT));
    FmtMessageBox(m_hWnd, nullptr, MB_OK | MB_ICONINFORMATION, DemoText("IDS_DEMO_SECTION"), m_name, m_area,
                  m_inertia, cases);
    DestroyWindow();
}

void CSectionDialog::OnCancel()
{
    DestroyWindow();
}
