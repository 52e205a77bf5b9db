// OLE beyond plain automation: what a thread does while another program is busy.
#pragma once

#include <afxdisp.h>

// What a thread does while a called program is busy or slow.
//
// A call that the other program puts off is made again until the retry time is over; then it fails with
// RPC_E_CALL_REJECTED. AfxOleInit registers one for its thread.
//
// Differences: no dialog is ever shown, so that the two dialog switches are only kept; there is no busy state
// of one's own, an incoming call is always taken.
class AFX_CORE_CLASS COleMessageFilter
{
public:
    COleMessageFilter();
    // Revokes the filter when it is registered.
    virtual ~COleMessageFilter();
    COleMessageFilter(const COleMessageFilter&) = delete;
    COleMessageFilter& operator=(const COleMessageFilter&) = delete;

    // Make it the calling thread's filter, or take it away; FALSE: OLE refused.
    BOOL Register();
    void Revoke();

    void EnableBusyDialog(BOOL enable = TRUE) { m_busyDialog = enable; }
    void EnableNotRespondingDialog(BOOL enable = TRUE) { m_notRespondingDialog = enable; }
    BOOL IsBusyDialogEnabled() const { return m_busyDialog; }
    BOOL IsNotRespondingDialogEnabled() const { return m_notRespondingDialog; }

    // How long, in milliseconds, a call is made again; 10 000 at first, 0: fail at once.
    void SetRetryReply(DWORD milliseconds = 0);

private:
    class Filter;
    Filter* m_filter; // counted by itself: OLE may hold it longer than this object lives
    BOOL m_registered = FALSE;
    BOOL m_busyDialog = TRUE;
    BOOL m_notRespondingDialog = TRUE;
};

// The calling thread's filter; null before AfxOleInit on this thread and after AfxOleTerm.
AFX_CORE_API COleMessageFilter* AFXAPI AfxOleGetMessageFilter();
