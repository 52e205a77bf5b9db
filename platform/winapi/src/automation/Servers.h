// In-process servers: modules that serve classes.
//
// Threads: any.
#pragma once

#include <objbase.h>

// The class object of the module that the registry names for a class; the module is loaded on first use and
// stays. REGDB_E_CLASSNOTREG, CO_E_DLLNOTFOUND (no such module), CO_E_ERRORINDLL (no server inside), or what
// the module answers.
HRESULT ServeClassObject(REFCLSID clsid, REFIID riid, LPVOID* object);
