// How the framework's classes leave and enter a shared library.
//
// AFX_EXT_CLASS and its sisters mark what a library built on the framework exports; such a library is
// compiled with _AFXEXT defined. AFX_CORE_CLASS and AFX_CORE_API mark the framework's own classes, which
// live in the same shared library as ZEK_lib itself.
#pragma once

#ifdef _WIN32
#define AFX_EXPORT_ __declspec(dllexport)
#define AFX_IMPORT_ __declspec(dllimport)
#define AFX_LOCAL_ // what is not exported stays inside its module
#else
#define AFX_EXPORT_ __attribute__((visibility("default")))
#define AFX_IMPORT_ __attribute__((visibility("default")))
#define AFX_LOCAL_ __attribute__((visibility("hidden")))
#endif

#ifdef ZEK_LIB_BUILD
#define AFX_CORE_CLASS AFX_EXPORT_
#define AFX_CORE_API AFX_EXPORT_
#define AFX_CORE_DATA AFX_EXPORT_
#else
#define AFX_CORE_CLASS AFX_IMPORT_
#define AFX_CORE_API AFX_IMPORT_
#define AFX_CORE_DATA AFX_IMPORT_
#endif

#ifdef _AFXEXT
#define AFX_EXT_CLASS AFX_EXPORT_
#define AFX_EXT_API AFX_EXPORT_
#define AFX_EXT_DATA AFX_EXPORT_
#else
#define AFX_EXT_CLASS AFX_IMPORT_
#define AFX_EXT_API AFX_IMPORT_
#define AFX_EXT_DATA AFX_IMPORT_
#endif

#define AFXAPI
#define AFX_CDECL
