// The component library: classes, class objects, program identifiers.
//
// Threads: a thread calls CoInitialize (or OleInitialize) before the functions that find or make objects;
// without it they fail with CO_E_NOTINITIALIZED. Class objects that a thread registers are that thread's.
// Differs: objects are used by the thread that made them (nothing is marshalled), servers are in-process
// modules registered under HKEY_CLASSES_ROOT, and every thread is an apartment of its own.
#pragma once

#include "objidl.h"
#include "unknwn.h"

#define STDAPI WINBASEAPI HRESULT STDAPICALLTYPE
#define STDAPI_(type) WINBASEAPI type STDAPICALLTYPE
#define STDMETHOD(method) virtual HRESULT STDMETHODCALLTYPE method
#define STDMETHOD_(type, method) virtual type STDMETHODCALLTYPE method
#define STDMETHODIMP HRESULT STDMETHODCALLTYPE
#define STDMETHODIMP_(type) type STDMETHODCALLTYPE
#define PURE = 0

enum COINIT {
    COINIT_MULTITHREADED = 0x0,
    COINIT_APARTMENTTHREADED = 0x2,
    COINIT_DISABLE_OLE1DDE = 0x4,
    COINIT_SPEED_OVER_MEMORY = 0x8
};

enum REGCLS { REGCLS_SINGLEUSE = 0, REGCLS_MULTIPLEUSE = 1, REGCLS_MULTI_SEPARATE = 2, REGCLS_SUSPENDED = 4 };

// S_OK the first time on a thread, S_FALSE after that; each needs its CoUninitialize.
// RPC_E_CHANGED_MODE (nothing to undo) when the thread chose the other kind before.
WINBASEAPI HRESULT WINAPI CoInitialize(LPVOID reserved);
WINBASEAPI HRESULT WINAPI CoInitializeEx(LPVOID reserved, DWORD kind);
WINBASEAPI void WINAPI CoUninitialize();

// The class named by a program identifier, without case. Fails with CO_E_CLASSSTRING (*clsid is null then).
WINBASEAPI HRESULT WINAPI CLSIDFromProgID(LPCOLESTR progId, LPCLSID clsid);
// The caller frees *progId with CoTaskMemFree. Fails with REGDB_E_CLASSNOTREG.
WINBASEAPI HRESULT WINAPI ProgIDFromCLSID(REFCLSID clsid, LPOLESTR* progId);
// Reads "{XXXXXXXX-XXXX-XXXX-XXXX-XXXXXXXXXXXX}", or else a program identifier.
WINBASEAPI HRESULT WINAPI CLSIDFromString(LPCOLESTR text, LPCLSID clsid);
// The caller frees *text with CoTaskMemFree.
WINBASEAPI HRESULT WINAPI StringFromCLSID(REFCLSID clsid, LPOLESTR* text);
// The number of characters written with the terminator (39), or 0 when `room` is smaller.
WINBASEAPI int WINAPI StringFromGUID2(REFGUID guid, LPOLESTR text, int room);
WINBASEAPI HRESULT WINAPI CoCreateGuid(GUID* guid);

WINBASEAPI LPVOID WINAPI CoTaskMemAlloc(SIZE_T size);
WINBASEAPI LPVOID WINAPI CoTaskMemRealloc(LPVOID block, SIZE_T size);
WINBASEAPI void WINAPI CoTaskMemFree(LPVOID block);

// The class object registered by this thread, else the one of the module under
// HKEY_CLASSES_ROOT\CLSID\{...}\InprocServer32. Fails with REGDB_E_CLASSNOTREG, CO_E_DLLNOTFOUND.
WINBASEAPI HRESULT WINAPI CoGetClassObject(REFCLSID clsid, DWORD context, LPVOID reserved, REFIID riid,
                                           LPVOID* object);
WINBASEAPI HRESULT WINAPI CoCreateInstance(REFCLSID clsid, LPUNKNOWN outer, DWORD context, REFIID riid,
                                           LPVOID* object);
// Offers a class object to this thread until CoRevokeClassObject, which only the same thread may call.
WINBASEAPI HRESULT WINAPI CoRegisterClassObject(REFCLSID clsid, LPUNKNOWN object, DWORD context, DWORD flags,
                                                LPDWORD cookie);
WINBASEAPI HRESULT WINAPI CoRevokeClassObject(DWORD cookie);

// Unloads modules whose DllCanUnloadNow answers S_OK.
WINBASEAPI void WINAPI CoFreeUnusedLibraries();

// Sets this thread's message filter and hands back the one before (counted) where asked.
WINBASEAPI HRESULT WINAPI CoRegisterMessageFilter(LPMESSAGEFILTER filter, LPMESSAGEFILTER* previous);

// What an in-process server's module exports.
STDAPI DllGetClassObject(REFCLSID clsid, REFIID riid, LPVOID* object);
STDAPI DllCanUnloadNow();
