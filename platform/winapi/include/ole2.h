// Object linking and embedding: its start and end.
#pragma once

#include "objbase.h"
#include "oleauto.h"
#include "oleidl.h"

// As CoInitialize; the thread becomes a single-threaded apartment.
WINBASEAPI HRESULT WINAPI OleInitialize(LPVOID reserved);
WINBASEAPI void WINAPI OleUninitialize();
// Puts an object into the running state: S_OK, as every in-process object runs already.
WINBASEAPI HRESULT WINAPI OleRun(LPUNKNOWN object);
