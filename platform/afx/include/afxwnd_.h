// Targets of commands and messages, and windows.
#pragma once

#include "afxmsg_.h"
#include "afxobj_.h"
#include "afxstr_.h"

class CWnd;

struct AFX_CMDHANDLERINFO;

// What can have a message map.
class AFX_CORE_CLASS CCmdTarget : public CObject
{
    DECLARE_DYNAMIC(CCmdTarget)
public:
    CCmdTarget();
    ~CCmdTarget() override;

    // Hands a command or a control's notification to the message map. TRUE: somebody handled it.
    // `code` is CN_COMMAND for commands; override it to route commands on to other targets.
    virtual BOOL OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* handlerInfo);

protected:
    static const AFX_MSGMAP* GetThisMessageMap();
    virtual const AFX_MSGMAP* GetMessageMap() const;
};
