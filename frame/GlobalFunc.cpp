#include <GlobalFunc.h>

#include "Load.h"
#include "OsClass.h"

#include <afxconv_.h>

#include <atomic>
#include <cmath>
#include <float.h>

void Init_ZEK_libdll()
{
}

void EnableDivideByZero()
{
    _controlfp(SavedControlWord(), SavedControlWord());
}

int SafeCompareReal(double a, double b)
{
    const double next = std::nextafter(a, b);
    // What cannot be ordered counts as equal.
    if (!(next < a || next > a) || next == b)
        return 0;
    return a > b ? 1 : -1;
}

void ErrorSound(int nType)
{
    switch (nType) {
    case 2:
        ::Beep(1200, 600);
        ::Beep(800, 300);
        break;
    case 3:
        ::MessageBeep(0);
        ::Sleep(200);
        break;
    default: // 1 is silent on purpose
        break;
    }
}

CString GetProgramPath()
{
    constexpr DWORD kLongest = 260;
    char path[kLongest + 1] = "";
    ::GetModuleFileNameA(nullptr, path, kLongest);
    const CString name(path);
    const int end = name.ReverseFind('\\');
    return end < 0 ? name : name.Left(end + 1);
}

int ExistFile(const char* lpszPath)
{
    CFileStatus status;
    return lpszPath && CFile::GetStatus(lpszPath, status) ? 1 : 0;
}

CView* GetActiveView()
{
    const CWinApp* app = AfxGetApp();
    CWnd* window = app ? app->m_pMainWnd : nullptr;
    CFrameWnd* main = DYNAMIC_DOWNCAST(CFrameWnd, window);
    CFrameWnd* active = main ? main->GetActiveFrame() : nullptr;
    return active ? active->GetActiveView() : nullptr;
}

int GetOS()
{
    // Threads that ask first at the same time find the same.
    static std::atomic<int> osClass = 0;
    if (osClass == 0) {
        OSVERSIONINFOA version{};
        version.dwOSVersionInfoSize = sizeof version;
        const BOOL known = ::GetVersionExA(&version);
        osClass = OsClass(known, version);
    }
    return osClass;
}

void SeparateNameAndNo(const char* lpszSrc, CString& strName, int& bHasNo, int& nNo)
{
    const CString text(lpszSrc);
    int first = text.GetLength();
    // Bytes beyond ASCII, and so the first bytes of double-byte characters, are no digits.
    while (first > 0 && text[first - 1] >= '0' && text[first - 1] <= '9')
        --first;
    bHasNo = first < text.GetLength() ? 1 : 0;
    nNo = AfxAtoI(text.GetString() + first);
    strName = text.Left(first);
}

int GF_GetHashSizeByCount(int nCount)
{
    static constexpr struct {
        int below;
        int size;
    } kSizes[] = {{10, 11},       {50, 53},       {100, 101},     {300, 307},       {600, 601},
                  {1000, 1009},   {3000, 3001},   {5000, 5003},   {7000, 7001},     {10000, 10007},
                  {30000, 30011}, {50000, 50021}, {70000, 70001}, {100000, 100003}, {500000, 500009}};
    for (const auto& row : kSizes)
        if (nCount < row.below)
            return row.size;
    return 1000003;
}
