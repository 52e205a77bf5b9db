// The message library of docs/windows.md, as it stands there.
#include "GuideIds.h"

#include <afxwin.h>

#include <cstring>

extern "C" AFX_EXT_API int RegAllStrRes(int)
{
    return 1; // called once, with the product's number
}

// The text of a key, valid until the next call; null when there is none.
extern "C" AFX_EXT_API const char* LoadStr(const char* key, int)
{
    static char text[256];
    if (std::strcmp(key, "IDS_TITLE") != 0)
        return nullptr;
    return LoadStringA(GetModuleHandleA("GUIDE_msg.DLL"), IDS_TITLE, text, sizeof text) ? text : nullptr;
}
