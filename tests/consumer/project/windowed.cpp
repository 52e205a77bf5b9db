// A host with a window and a dialog of its own resources; its entry is the library's.
#include <ZEK_lib.h>

#include <cstdio>

namespace {

class Question : public CDialog
{
public:
    Question() : CDialog(100) {}

protected:
    BOOL OnInitDialog() override
    {
        CString answer;
        GetDlgItemText(IDOK, answer);
        std::puts(answer);
        EndDialog(IDOK);
        return TRUE;
    }
};

class Host : public CWinApp
{
public:
    BOOL InitInstance() override
    {
        auto* frame = new CFrameWnd;
        m_pMainWnd = frame;
        if (!frame->Create(nullptr, "Windowed"))
            return FALSE;
        Question().DoModal();
        frame->PostMessage(WM_CLOSE);
        return TRUE;
    }
};

Host theHost;

} // namespace
