#include <afxwin.h>

namespace {

// As the application's own function of that name, if there is an application.
void DoWaitCursor(int code)
{
    if (CWinApp* app = AfxGetApp())
        app->DoWaitCursor(code);
}

} // namespace

CWaitCursor::CWaitCursor()
{
    DoWaitCursor(1);
}

CWaitCursor::~CWaitCursor()
{
    DoWaitCursor(-1);
}

void CWaitCursor::Restore()
{
    DoWaitCursor(0);
}

void CCmdTarget::BeginWaitCursor()
{
    DoWaitCursor(1);
}

void CCmdTarget::EndWaitCursor()
{
    DoWaitCursor(-1);
}

void CCmdTarget::RestoreWaitCursor()
{
    DoWaitCursor(0);
}
