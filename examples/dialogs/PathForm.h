// What fills the main window: the report's path, shortened to the room there is, and the buttons.
#pragma once

#include "resource.h"

#include <ZEK_lib.h>

class CMainFrame;

class CPathForm : public CDialog
{
public:
    explicit CPathForm(CMainFrame* frame);

    BOOL Open();
    // Gives the labels the form's width and writes the path anew.
    void Arrange(int width);

protected:
    BOOL OnInitDialog() override;
    void OnOK() override {} // Enter presses the default button, and nothing else closes the form
    void OnCancel() override;

    void OnShowSection();
    void OnShowMessage();

    DECLARE_MESSAGE_MAP()

private:
    void WidenTo(int width, UINT id);
    void ShowPath();
    CString StateText() const;

    CMainFrame* m_frame;
    CFileCtrl m_path;
};
