#include "ProgressBar.h"

void CProgressBar::Begin(CWnd* dialog, int trough, int bar)
{
    constexpr int kEdge = 2; // pixels
    dialog->GetDlgItem(trough)->GetWindowRect(m_room);
    dialog->ScreenToClient(m_room);
    m_room.DeflateRect(kEdge, kEdge);
    SubclassDlgItem(static_cast<UINT>(bar), dialog);
    Show(0);
}

void CProgressBar::Show(int percent)
{
    CRect filled(m_room);
    filled.right = filled.left + m_room.Width() * percent / 100;
    MoveWindow(filled);
}

int CProgressBar::Shown() const
{
    CRect filled;
    GetWindowRect(filled);
    return filled.Width() * 100 / m_room.Width();
}
