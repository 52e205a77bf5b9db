// User-visible texts, from the message library of the host's product.
//
//   CString text = CMsgDll::pfuncLoadStr("IDS_ZEK_ERROR_IN_EXCEL_AUTOMATION", 0);
//
// The message library is bound at the first lookup: PREFIX_msg.DLL, where PREFIX is what the host's
// IProductInfo tells. It exports
//   const char* LoadStr(const char* key, int option);   // the text for a key
//   ... RegAllStrRes(int productId);                     // called once, before the first lookup
// and stays loaded to the end of the process.
//
// Errors: a lookup that finds no library answers a fixed text that says so, and the next one tries again.
// Only a library without LoadStr ends the attempts. Threads: the user-interface thread. Platforms: the
// system's search order applies; on Linux the current folder is never part of it.
#pragma once

#include <afx.h>

class AFX_EXT_CLASS CMsgDll
{
public:
    CMsgDll() = default;
    virtual ~CMsgDll();
    CMsgDll(const CMsgDll&) {}
    CMsgDll& operator=(const CMsgDll&) { return *this; }

    using LoadStrFunc = const char* (*)(const char* key, int option);

    // How texts are looked up; hosts pass 0 as `option` and copy the answer at once, which belongs to the
    // message library and may be null where that has no text.
    static LoadStrFunc pfuncLoadStr;

    // The first lookup: binds, then answers. "Messasge dll is not loaded!" before the host has its
    // IProductInfo.
    static const char* InitFunc(const char* key, int option);
    // Binds the message library: 1, or 0 when there is none, it lacks an export, or the host has no
    // IProductInfo.
    static int SetLoadStrFunc();
    // The text that says that the message library is not bound.
    static const char* DefLoadStr(const char* key, int option);
    // The text without one pair of single quotes round it, if it has them.
    static CString RemoveQuote(const char* text);
};

// Only there for hosts that link to it.
class AFX_EXT_CLASS CMsgDllChk
{
public:
    CMsgDllChk& operator=(const CMsgDllChk&) { return *this; }
};
