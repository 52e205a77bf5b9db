#include <MSExcel.h>

#include <afxole.h>
#include <afxwin.h>

#include <MsgDll.h>

namespace {

constexpr LPCTSTR kProgram = "Excel.Application";

// The system's own dialogs would stop an unattended report while the program is slow.
void SilenceBusyDialogs()
{
    COleMessageFilter* filter = AfxOleGetMessageFilter();
    if (!filter)
        return;
    filter->EnableBusyDialog(FALSE);
    filter->EnableNotRespondingDialog(FALSE);
}

CString ProductName()
{
    CWinApp* app = AfxGetApp();
    return app ? app->GetProfileString("ZEK_Product", "ProductName", "") : CString();
}

} // namespace

CMSExcel::CMSExcel()
    : covTrue(static_cast<short>(1)), covFalse(static_cast<short>(0)),
      covOptional(static_cast<LONG>(DISP_E_PARAMNOTFOUND), VT_ERROR)
{
    SilenceBusyDialogs();
    if (!m_application.CreateDispatch(kProgram)) {
        AfxMessageBox("Cannot start Excel");
        return;
    }
    m_started = 1;
    m_workbooks.AttachDispatch(m_application.GetWorkbooks());
    m_application.SetDisplayAlerts(FALSE);
    m_application.SetVisible(FALSE);
    m_windows.AttachDispatch(m_application.GetWindows());
}

CMSExcel::~CMSExcel() = default;

int CMSExcel::IsExcel() const
{
    return m_started;
}

void CMSExcel::Quit()
{
    ReleaseBeforeSave();
    Close();
    if (!m_application.m_lpDispatch)
        return;
    m_application.Quit();
    m_application.ReleaseDispatch();
}

void CMSExcel::SetVisible(int visible)
{
    m_application.SetVisible(visible);
}

void CMSExcel::SetWindowState(XlWindowState state)
{
    m_application.SetWindowState(state);
}

void CMSExcel::ReleaseBeforeSave()
{
    COleDispatchDriver* const subordinates[] = {
        &m_sheets,       &m_worksheet, &m_range,     &m_range2,    &m_font,       &m_interior,
        &m_borders,      &m_border,    &m_styles,    &m_style,     &m_pictures,   &m_picture,
        &m_chartObjects, &m_windows,   &m_nameProbe, &m_pageSetup, &m_pageBreaks, &m_shapes};
    for (COleDispatchDriver* driver : subordinates)
        driver->ReleaseDispatch();
}

void CMSExcel::ErrorinExcel(int number, CString detail)
{
    CString text;
    text.Format(CString(CMsgDll::pfuncLoadStr("IDS_ZEK_ERROR_IN_EXCEL_AUTOMATION", 0)), number);
    const CWnd* owner = AfxGetMainWnd();
    MessageBoxA(owner ? owner->GetSafeHwnd() : nullptr, text + detail, ProductName(), MB_OK);
}
