// A modeless dialog with one of each control, whose labels get the signs of the user's language.
#pragma once

#include "resource.h"

#include <ZEK_lib.h>

class CMainFrame;

class CSectionDialog : public CDialog
{
public:
    explicit CSectionDialog(CMainFrame* frame);

    BOOL Open();

protected:
    BOOL OnInitDialog() override;
    void DoDataExchange(CDataExchange* dx) override;
    void OnOK() override;
    void OnCancel() override;

private:
    void FillLists();

    CMainFrame* m_frame;
    CString m_name = "H-400x200";
    int m_shape = 0;
    double m_area = 0.008337;
    double m_inertia = 0.0002354;
    int m_material = 0;
    int m_shear = 1;
};
