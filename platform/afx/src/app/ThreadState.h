// What the framework keeps for each thread.
#pragma once

#include <afxthr_.h>

// The calling thread's object.
CWinThread* AfxCurrentThread();
void AfxSetCurrentThread(CWinThread* thread);

// Shows an exception that a handler let out, unless the user has been told; the message's answer.
LRESULT AfxTellHandlerException(CException* exception, const MSG& message);
