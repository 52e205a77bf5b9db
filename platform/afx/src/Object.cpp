#include <afxobj_.h>

#include "FormatWriter.h"

#include <cstdarg>
#include <cstdio>
#include <cstdlib>

CRuntimeClass CObject::classCObject = {"CObject", static_cast<int>(sizeof(CObject)), 0xFFFF, nullptr,
                                       nullptr};

CObject::~CObject() = default;

CRuntimeClass* CObject::GetRuntimeClass() const
{
    return &classCObject;
}

BOOL CObject::IsKindOf(const CRuntimeClass* runtimeClass) const
{
    return GetRuntimeClass()->IsDerivedFrom(runtimeClass);
}

void CObject::AssertValid() const
{
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

CObject* AFXAPI AfxDynamicDownCast(CRuntimeClass* runtimeClass, CObject* object)
{
    return object && object->IsKindOf(runtimeClass) ? object : nullptr;
}

void AFXAPI AfxAssertFailedLine(LPCSTR file, int line)
{
    std::fprintf(stderr, "%s(%d): assertion failed\n", file, line);
    std::abort();
}

void AFX_CDECL AfxTrace(LPCSTR format, ...)
{
    std::string text;
    va_list args;
    va_start(args, format);
    AfxWriteFormatV(text, format, args);
    va_end(args);
    std::fwrite(text.data(), 1, text.size(), stderr);
}
