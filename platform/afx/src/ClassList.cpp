#include "ModuleList.h"

#include <cstring>

constinit CRuntimeClass* g_afxFirstClass = nullptr;

namespace {

CRuntimeClass* Find(LPCSTR name, const void* module)
{
    for (CRuntimeClass* type = g_afxFirstClass; type; type = type->m_pNextClass)
        if (type->m_pModule == module && std::strcmp(type->m_lpszClassName, name) == 0)
            return type;
    return nullptr;
}

// Among the classes that belong to no extension library.
CRuntimeClass* FindOfProgram(LPCSTR name)
{
    for (CRuntimeClass* type = g_afxFirstClass; type; type = type->m_pNextClass)
        if (std::strcmp(type->m_lpszClassName, name) == 0 && !AfxIsExtension(type->m_pModule))
            return type;
    return nullptr;
}

CRuntimeClass* FindOfLibraries(LPCSTR name, BOOL system)
{
    CRuntimeClass* found = nullptr;
    for (const CDynLinkLibrary* library = g_afxFirstLibrary; library && !found; library = library->m_pNextDLL)
        if (library->m_pModule && library->m_bSystem == system)
            found = Find(name, library->m_pModule);
    return found;
}

} // namespace

AFX_CLASSINIT::AFX_CLASSINIT(CRuntimeClass* runtimeClass, const void* module) : m_class(runtimeClass)
{
    const std::lock_guard lock(AfxModuleMutex());
    m_class->m_pModule = module;
    m_class->m_pNextClass = g_afxFirstClass;
    g_afxFirstClass = m_class;
}

AFX_CLASSINIT::~AFX_CLASSINIT()
{
    const std::lock_guard lock(AfxModuleMutex());
    CRuntimeClass** link = &g_afxFirstClass;
    while (*link && *link != m_class)
        link = &(*link)->m_pNextClass;
    if (*link)
        *link = m_class->m_pNextClass;
}

CRuntimeClass* CRuntimeClass::FromName(LPCSTR className)
{
    if (!className)
        return nullptr;
    const std::lock_guard lock(AfxModuleMutex());
    CRuntimeClass* type = FindOfProgram(className);
    for (const BOOL system : {FALSE, TRUE})
        if (!type)
            type = FindOfLibraries(className, system);
    return type;
}

CObject* CRuntimeClass::CreateObject(LPCSTR className)
{
    const CRuntimeClass* type = FromName(className);
    return type ? type->CreateObject() : nullptr;
}

CObject* CRuntimeClass::CreateObject() const
{
    return m_pfnCreateObject ? m_pfnCreateObject() : nullptr;
}

BOOL CRuntimeClass::IsDerivedFrom(const CRuntimeClass* baseClass) const
{
    const CRuntimeClass* type = this;
    while (type && type != baseClass)
        type = type->m_pBaseClass;
    return type != nullptr;
}
