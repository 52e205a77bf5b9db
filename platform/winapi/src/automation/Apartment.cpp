#include "Apartment.h"

#include <ole2.h>

#include <utility>

namespace {

constexpr DWORD kKindMask = COINIT_APARTMENTTHREADED;

// Objects may call back while they are released: the lists are emptied before.
void CloseApartment(Apartment& apartment)
{
    const auto classes = std::exchange(apartment.classes, {});
    IMessageFilter* filter = std::exchange(apartment.filter, nullptr);
    for (const ClassRegistration& registration : classes)
        registration.object->Release();
    if (filter)
        filter->Release();
}

} // namespace

Apartment& ThisApartment()
{
    thread_local Apartment apartment;
    return apartment;
}

HRESULT WINAPI CoInitialize(LPVOID reserved)
{
    return CoInitializeEx(reserved, COINIT_APARTMENTTHREADED);
}

HRESULT WINAPI CoInitializeEx(LPVOID reserved, DWORD kind)
{
    if (reserved)
        return E_INVALIDARG;
    Apartment& apartment = ThisApartment();
    if (apartment.initialized == 0)
        apartment.kind = kind & kKindMask;
    else if (apartment.kind != (kind & kKindMask))
        return RPC_E_CHANGED_MODE;
    return apartment.initialized++ == 0 ? S_OK : S_FALSE;
}

void WINAPI CoUninitialize()
{
    Apartment& apartment = ThisApartment();
    if (apartment.initialized == 0)
        return;
    // While objects are let go the thread still counts as initialised.
    if (apartment.initialized == 1)
        CloseApartment(apartment);
    --apartment.initialized;
}

HRESULT WINAPI OleInitialize(LPVOID reserved)
{
    const HRESULT result = CoInitializeEx(reserved, COINIT_APARTMENTTHREADED);
    if (FAILED(result))
        return result;
    return ThisApartment().oleInitialized++ == 0 ? S_OK : S_FALSE;
}

void WINAPI OleUninitialize()
{
    Apartment& apartment = ThisApartment();
    if (apartment.oleInitialized == 0)
        return;
    --apartment.oleInitialized;
    CoUninitialize();
}

HRESULT WINAPI OleRun(LPUNKNOWN object)
{
    return object ? S_OK : E_INVALIDARG;
}

HRESULT WINAPI CoRegisterMessageFilter(LPMESSAGEFILTER filter, LPMESSAGEFILTER* previous)
{
    Apartment& apartment = ThisApartment();
    if (apartment.initialized == 0 || apartment.kind != COINIT_APARTMENTTHREADED)
        return CO_E_NOT_SUPPORTED;
    if (filter)
        filter->AddRef();
    IMessageFilter* old = std::exchange(apartment.filter, filter);
    if (previous)
        *previous = old;
    else if (old)
        old->Release();
    return S_OK;
}
