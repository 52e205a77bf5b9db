// A modeless dialog with one of each control, whose labels get the signs of the user's language.
#pragma once

#include "resource.h"

#include <ZEK_lib.h>

class CSectionDialog : public CDialog
{
protected:
    BOOL OnInitDialog() override;
    void DoDataExchange(CDataExchange* exchange) override;
    // A modeless dialog destroys its window; the object and its values stay.
    void OnOK() override;
    void OnCancel() override;

private:
    void FillList(int id, UINT message, const char* key);

    CString m_name = "H-400x200";
    int m_shape = 0;
    double m_area = 0.008337;
    double m_inertia = 0.0002354;
    int m_material = 0;
    int m_shear = 1;
};
