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
