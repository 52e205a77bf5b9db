#include <afxole.h>

#include <memory>
#include <utility>

namespace {

// A plain pointer: the end of a thread is no time to call OLE, a host that wants an end calls AfxOleTerm.
thread_local COleMessageFilter* t_filter = nullptr;

} // namespace

BOOL AFXAPI AfxOleInit()
{
    if (t_filter)
        return TRUE;
    if (FAILED(OleInitialize(nullptr)))
        return FALSE;
    auto filter = std::make_unique<COleMessageFilter>();
    filter->Register();
    t_filter = filter.release();
    return TRUE;
}

void AFXAPI AfxOleTerm(BOOL justRevoke)
{
    if (!t_filter)
        return;
    t_filter->Revoke();
    if (justRevoke)
        return;
    delete std::exchange(t_filter, nullptr);
    OleUninitialize();
}

COleMessageFilter* AFXAPI AfxOleGetMessageFilter()
{
    return t_filter;
}
