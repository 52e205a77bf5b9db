#include "ModuleList.h"

namespace {

bool Has(HMODULE module, LPCSTR name, LPCSTR type)
{
    return module && ::FindResourceA(module, name, type);
}

HMODULE FindInLibraries(LPCSTR name, LPCSTR type, BOOL system)
{
    const CDynLinkLibrary* library = g_afxFirstLibrary;
    while (library && (library->m_bSystem != system || !Has(library->m_hResource, name, type)))
        library = library->m_pNextDLL;
    return library ? library->m_hResource : nullptr;
}

} // namespace

HINSTANCE AFXAPI AfxFindResourceHandle(LPCSTR name, LPCSTR type)
{
    HINSTANCE module = AfxGetResourceHandle();
    if (Has(module, name, type))
        return module;
    const std::lock_guard lock(AfxModuleMutex());
    for (const BOOL system : {FALSE, TRUE})
        if (const HMODULE found = FindInLibraries(name, type, system))
            return found;
    return module;
}
