// Class objects: those that a thread offers, and those of in-process servers.
#include "Apartment.h"
#include "Servers.h"

#include <algorithm>
#include <atomic>

namespace {

// A class object for other processes that serves more than one is there for this one too.
DWORD OfferedContext(DWORD context, DWORD flags)
{
    const bool shared = (context & CLSCTX_LOCAL_SERVER) && (flags & REGCLS_MULTIPLEUSE);
    return shared ? context | CLSCTX_INPROC_SERVER : context;
}

DWORD NextCookie()
{
    static std::atomic<DWORD> last{0};
    return ++last;
}

IUnknown* FindRegistered(const Apartment& apartment, REFCLSID clsid, DWORD context)
{
    const auto serves = [&](const ClassRegistration& r) {
        return r.clsid == clsid && (r.context & context) != 0;
    };
    const auto found = std::find_if(apartment.classes.begin(), apartment.classes.end(), serves);
    return found == apartment.classes.end() ? nullptr : found->object;
}

HRESULT FindClassObject(REFCLSID clsid, DWORD context, REFIID riid, LPVOID* object)
{
    if (IUnknown* registered = FindRegistered(ThisApartment(), clsid, context))
        return registered->QueryInterface(riid, object);
    if (!(context & CLSCTX_INPROC_SERVER))
        return REGDB_E_CLASSNOTREG;
    return ServeClassObject(clsid, riid, object);
}

} // namespace

HRESULT WINAPI CoGetClassObject(REFCLSID clsid, DWORD context, LPVOID, REFIID riid, LPVOID* object)
{
    if (!object)
        return E_INVALIDARG;
    *object = nullptr;
    if (ThisApartment().initialized == 0)
        return CO_E_NOTINITIALIZED;
    try {
        return FindClassObject(clsid, context, riid, object);
    } catch (...) {
        return E_OUTOFMEMORY;
    }
}

HRESULT WINAPI CoCreateInstance(REFCLSID clsid, LPUNKNOWN outer, DWORD context, REFIID riid, LPVOID* object)
{
    if (!object)
        return E_POINTER;
    *object = nullptr;
    void* found = nullptr;
    if (const HRESULT result = CoGetClassObject(clsid, context, nullptr, IID_IClassFactory, &found);
        FAILED(result))
        return result;
    auto* factory = static_cast<IClassFactory*>(found);
    const HRESULT result = factory->CreateInstance(outer, riid, object);
    factory->Release();
    return result;
}

HRESULT WINAPI CoRegisterClassObject(REFCLSID clsid, LPUNKNOWN object, DWORD context, DWORD flags,
                                     LPDWORD cookie)
{
    if (!object || !cookie)
        return E_INVALIDARG;
    *cookie = 0;
    Apartment& apartment = ThisApartment();
    if (apartment.initialized == 0)
        return CO_E_NOTINITIALIZED;
    try {
        apartment.classes.push_back({NextCookie(), clsid, OfferedContext(context, flags), object});
    } catch (...) {
        return E_OUTOFMEMORY;
    }
    object->AddRef();
    *cookie = apartment.classes.back().cookie;
    return S_OK;
}

HRESULT WINAPI CoRevokeClassObject(DWORD cookie)
{
    Apartment& apartment = ThisApartment();
    if (apartment.initialized == 0)
        return CO_E_NOTINITIALIZED;
    const auto found = std::find_if(apartment.classes.begin(), apartment.classes.end(),
                                    [&](const ClassRegistration& r) { return r.cookie == cookie; });
    if (found == apartment.classes.end())
        return E_INVALIDARG;
    IUnknown* object = found->object;
    apartment.classes.erase(found);
    object->Release();
    return S_OK;
}
