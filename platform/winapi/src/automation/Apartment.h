// What the component library knows about the calling thread.
#pragma once

#include <objbase.h>

#include <vector>

struct ClassRegistration {
    DWORD cookie;
    CLSID clsid;
    DWORD context;
    IUnknown* object; // counted
};

struct Apartment {
    ULONG initialized = 0;    // calls of CoInitialize without their CoUninitialize
    ULONG oleInitialized = 0; // likewise of OleInitialize
    DWORD kind = 0;           // of COINIT: COINIT_MULTITHREADED or COINIT_APARTMENTTHREADED
    std::vector<ClassRegistration> classes;
    IMessageFilter* filter = nullptr; // counted
};

// The calling thread's, whether initialised or not.
Apartment& ThisApartment();
