// The main window.
#pragma once

#include "PathForm.h"
#include "SectionDialog.h"

class CMainFrame : public CFrameWnd
{
public:
    CMainFrame();

    // False when no window can be opened.
    bool Open();
    // Opens the section dialog, or brings it to the front.
    void ShowSection();
    void ShowMessage() { m_form.PostMessage(WM_COMMAND, IDC_SHOW_MESSAGE); }

protected:
    int OnCreate(LPCREATESTRUCT create);
    void OnSize(UINT type, int width, int height);

    DECLARE_MESSAGE_MAP()

private:
    CPathForm m_form;
    CSectionDialog m_section;
};
