// The interfaces that every automation object and class object has.
//
// Ownership: who is handed an interface pointer by an output releases it; who keeps one that came in adds a
// reference.
#pragma once

#include "wtypes.h"

struct IUnknown {
    // Answers S_OK and a counted *object, or E_NOINTERFACE and null.
    virtual HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** object) = 0;
    // The new count, for tests only.
    virtual ULONG STDMETHODCALLTYPE AddRef() = 0;
    virtual ULONG STDMETHODCALLTYPE Release() = 0;
};
using LPUNKNOWN = IUnknown*;

struct IClassFactory : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID riid, void** object) = 0;
    virtual HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) = 0;
};
using LPCLASSFACTORY = IClassFactory*;

WINBASEAPI const IID IID_IUnknown;
WINBASEAPI const IID IID_IClassFactory;
