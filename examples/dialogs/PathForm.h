// What fills the main window: the report's path, shortened to the room there is, and the buttons.
#pragma once

#include "SectionDialog.h"

class CPathForm : public CDialog
{
public:
    CPathForm();

    // Gives the labels the form's width and writes the path anew.
    void Arrange(int width);

protected:
    BOOL OnInitDialog() override;
    // Enter presses the default button; neither it nor Esc closes the form.
    void OnOK() override {}
    void OnCancel() override {}

    void OnShowSection();
    void OnShowMessage();
    void OnExit();

    DECLARE_MESSAGE_MAP()

private:
    void WidenTo(int width, int id);
    void ShowPath();
    CString StateText() const;

    CFileCtrl m_path;
    CSectionDialog m_section;
};
