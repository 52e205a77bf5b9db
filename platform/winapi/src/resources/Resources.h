// The resources of the modules that are loaded now.
#pragma once

#include <libloaderapi.h>

#include <span>

// The bytes of a resource; empty with the last error set when there is none. They live as long as the module.
std::span<const BYTE> ResourceBytes(HMODULE module, LPCSTR name, LPCSTR type);

// The bytes from `address` to the end of the resource that it lies in; empty for other memory.
std::span<const BYTE> ResourceHolding(const void* address);
