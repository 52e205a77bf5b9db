// The main window: a frame, and the form that fills it.
#pragma once

#include "PathForm.h"

class CMainFrame : public CFrameWnd
{
public:
    // False when no window can be opened; the object is gone then.
    bool Open();

protected:
    int OnCreate(LPCREATESTRUCT create);
    void OnSize(UINT type, int width, int height);
    void OnSetFocus(CWnd* old);

    DECLARE_MESSAGE_MAP()

private:
    CPathForm m_form;
};
