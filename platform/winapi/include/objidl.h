// Interfaces of the component library beyond the basic ones.
#pragma once

#include "unknwn.h"

struct INTERFACEINFO {
    LPUNKNOWN pUnk;
    IID iid;
    WORD wMethod;
};
using LPINTERFACEINFO = INTERFACEINFO*;

enum SERVERCALL { SERVERCALL_ISHANDLED = 0, SERVERCALL_REJECTED = 1, SERVERCALL_RETRYLATER = 2 };
enum PENDINGMSG { PENDINGMSG_CANCELCALL = 0, PENDINGMSG_WAITNOPROCESS = 1, PENDINGMSG_WAITDEFPROCESS = 2 };

// What a thread does while calls between processes wait. Differs: it can be registered, but with in-process
// servers no call ever waits, so it is never asked.
struct IMessageFilter : IUnknown {
    virtual DWORD STDMETHODCALLTYPE HandleInComingCall(DWORD callType, HTASK caller, DWORD tickCount,
                                                       LPINTERFACEINFO info) = 0;
    virtual DWORD STDMETHODCALLTYPE RetryRejectedCall(HTASK callee, DWORD tickCount, DWORD rejectType) = 0;
    virtual DWORD STDMETHODCALLTYPE MessagePending(HTASK callee, DWORD tickCount, DWORD pendingType) = 0;
};
using LPMESSAGEFILTER = IMessageFilter*;

WINBASEAPI const IID IID_IMessageFilter;
