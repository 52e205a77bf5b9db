// A bar that fills a trough from the left; both are labels of a dialog.
#pragma once

#include <ZEK_lib.h>

class CProgressBar : public CWnd
{
public:
    void Begin(CWnd* dialog, int trough, int bar); // their identifiers
    void Show(int percent);
    int Shown() const; // per cent

private:
    CRect m_room; // of the full bar, in the dialog's client coordinates
};
