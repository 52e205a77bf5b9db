// Calls a library's DllMain when the library comes and when it goes.
#pragma once

#include "windef.h"

using ZEK_MODULE_ENTRY = BOOL(WINAPI*)(HINSTANCE instance, DWORD reason, LPVOID reserved);

// A static object of the library: attaches as it is made, detaches as it ends.
// An entry that refuses fails the LoadLibrary call that is under way on this thread with
// ERROR_DLL_INIT_FAILED; where there is none (the program itself needs the library) the process ends.
class __attribute__((visibility("default"))) ZekModuleEntry
{
public:
    explicit ZekModuleEntry(ZEK_MODULE_ENTRY entry);
    ~ZekModuleEntry();
    ZekModuleEntry(const ZekModuleEntry&) = delete;
    ZekModuleEntry& operator=(const ZekModuleEntry&) = delete;

private:
    ZEK_MODULE_ENTRY m_entry;
    HINSTANCE m_instance;
    bool m_attached;
};
