// The root of the framework's classes: run-time type information, assertions, CObject.
//
// Errors: a failed ASSERT names its place on standard error and aborts; it exists in builds with _DEBUG only.
// Differs: no serialization and no CDumpContext; there are no dialogs for failed assertions.
#pragma once

#include "afxver_.h"

#include <windows.h>

#include <cstddef>

// Names the failed assertion on standard error and ends the process. Does not return.
[[noreturn]] AFX_CORE_API void AFXAPI AfxAssertFailedLine(LPCSTR file, int line);

// Writes a formatted line for developers to standard error; used by TRACE in builds with _DEBUG.
AFX_CORE_API void AFX_CDECL AfxTrace(LPCSTR format, ...);

#ifdef _DEBUG
#define THIS_FILE __FILE__
#define ASSERT(condition) ((condition) ? static_cast<void>(0) : AfxAssertFailedLine(THIS_FILE, __LINE__))
#define VERIFY(condition) ASSERT(condition)
#define ASSERT_VALID(object) ASSERT((object) != nullptr)
#define TRACE ::AfxTrace
#else
#define ASSERT(condition) static_cast<void>(0)
#define VERIFY(condition) static_cast<void>(condition)
#define ASSERT_VALID(object) static_cast<void>(0)
#define TRACE(...) static_cast<void>(0)
#endif
#define DEBUG_NEW new
// A library shares the state of its host, so there is nothing to switch between.
class AFX_MODULE_STATE;
inline AFX_MODULE_STATE* AFXAPI AfxGetStaticModuleState()
{
    return nullptr;
}
#define AFX_MANAGE_STATE(state) static_cast<void>(state)
#define UNUSED_ALWAYS(x) static_cast<void>(x)

class CObject;

// What is known of a class at run time: name, size, how to make one, base class.
struct AFX_CORE_CLASS CRuntimeClass {
    LPCSTR m_lpszClassName;
    int m_nObjectSize;
    UINT m_wSchema;
    CObject* (*m_pfnCreateObject)();       // null for a class that is not DYNCREATE
    CRuntimeClass* m_pBaseClass;           // null for CObject
    CRuntimeClass* m_pNextClass = nullptr; // in the list of classes known by name
    const void* m_pModule = nullptr;       // the mark of the module that holds the class

    // A new object on the heap, owned by the caller; null when the class cannot be made by name.
    CObject* CreateObject() const;
    static CObject* CreateObject(LPCSTR className);

    // The class of that name (case matters), of the program and plain libraries first, then of the extension
    // libraries that a CDynLinkLibrary stands for, the newest first; null when there is none. Threads: any.
    static CRuntimeClass* FromName(LPCSTR className);

    // Whether this class is `baseClass` or derives from it.
    BOOL IsDerivedFrom(const CRuntimeClass* baseClass) const;
};

// Marks the module (program or library) that a source is linked into: each has its own.
inline AFX_LOCAL_ char afxThisModule = 0;

// Makes a class known by its name for as long as the object lives.
class AFX_CORE_CLASS AFX_CLASSINIT
{
public:
    explicit AFX_CLASSINIT(CRuntimeClass* runtimeClass, const void* module = &afxThisModule);
    ~AFX_CLASSINIT();
    AFX_CLASSINIT(const AFX_CLASSINIT&) = delete;
    AFX_CLASSINIT& operator=(const AFX_CLASSINIT&) = delete;

private:
    CRuntimeClass* m_class;
};

#define RUNTIME_CLASS(class_name) (&class_name::class##class_name)

#define DECLARE_DYNAMIC(class_name)                                                                          \
public:                                                                                                      \
    static CRuntimeClass class##class_name;                                                                  \
    CRuntimeClass* GetRuntimeClass() const override;

#define DECLARE_DYNCREATE(class_name)                                                                        \
    DECLARE_DYNAMIC(class_name)                                                                              \
    static CObject* CreateObject();

#define AFX_IMPLEMENT_RUNTIMECLASS_(class_name, base_class_name, create)                                     \
    CRuntimeClass class_name::class##class_name = {#class_name, static_cast<int>(sizeof(class_name)),        \
                                                   0xFFFF, create, RUNTIME_CLASS(base_class_name)};          \
    static const AFX_CLASSINIT afxClassInit##class_name(RUNTIME_CLASS(class_name));                          \
    CRuntimeClass* class_name::GetRuntimeClass() const                                                       \
    {                                                                                                        \
        return RUNTIME_CLASS(class_name);                                                                    \
    }

#define IMPLEMENT_DYNAMIC(class_name, base_class_name)                                                       \
    AFX_IMPLEMENT_RUNTIMECLASS_(class_name, base_class_name, nullptr)

#define IMPLEMENT_DYNCREATE(class_name, base_class_name)                                                     \
    CObject* class_name::CreateObject()                                                                      \
    {                                                                                                        \
        return new class_name;                                                                               \
    }                                                                                                        \
    AFX_IMPLEMENT_RUNTIMECLASS_(class_name, base_class_name, &class_name::CreateObject)

// Base of the framework's polymorphic classes. Objects are not copied unless a class says how.
class AFX_CORE_CLASS CObject
{
public:
    static CRuntimeClass classCObject;

    CObject() = default;
    virtual ~CObject();
    CObject(const CObject&) = delete;
    CObject& operator=(const CObject&) = delete;

    virtual CRuntimeClass* GetRuntimeClass() const;

    // Whether the object is of `runtimeClass` or of a class derived from it (as far as DECLARE_DYNAMIC
    // tells).
    BOOL IsKindOf(const CRuntimeClass* runtimeClass) const;

    virtual void AssertValid() const;
};

// `object` as a `class_name` when it is one by run-time class, else null.
#define DYNAMIC_DOWNCAST(class_name, object)                                                                 \
    static_cast<class_name*>(AfxDynamicDownCast(RUNTIME_CLASS(class_name), object))
#define STATIC_DOWNCAST(class_name, object) static_cast<class_name*>(object)
AFX_CORE_API CObject* AFXAPI AfxDynamicDownCast(CRuntimeClass* runtimeClass, CObject* object);

// A place in a collection; null means the end.
struct __POSITION;
using POSITION = __POSITION*;
