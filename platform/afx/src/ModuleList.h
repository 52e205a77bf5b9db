// The run-time classes and extension libraries of the process.
//
// Plain links without constructors, so that they stand before any static object and outlive all of them.
#pragma once

#include <afxdll_.h>

#include <mutex>
#include <vector>

// Guards both lists.
std::mutex& AfxModuleMutex();

// The lists' heads, newest first; hold the mutex.
extern CRuntimeClass* g_afxFirstClass;
extern CDynLinkLibrary* g_afxFirstLibrary;

// Whether the mark is that of an initialised extension library; hold the mutex.
bool AfxIsExtension(const void* mark);

// Where resources are looked for, in that order.
std::vector<HMODULE> AfxResourceModules();
