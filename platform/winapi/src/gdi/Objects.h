// Device contexts and fonts behind their handles.
#pragma once

#include "Mapping.h"

#include <windc_.h>

#include <memory>
#include <vector>

struct Font {
    LOGFONTA description;
    bool isStock;
};

struct ContextState {
    Mapping mapping;
    HGDIOBJ fontHandle;
    std::shared_ptr<const Font> font; // lives on here when its handle is deleted
};

struct DeviceContext {
    bool isMemory;
    ContextState state;
    std::vector<ContextState> saved;
};

// New handles. The table is safe to use from any thread, a context is not.
HDC AddContext(bool isMemory);
HFONT AddFont(const LOGFONTA& description, bool isStock);

// Null with ERROR_INVALID_HANDLE for another handle.
std::shared_ptr<DeviceContext> FindContext(HDC dc);
std::shared_ptr<const Font> FindFont(HGDIOBJ font);

// False with ERROR_INVALID_HANDLE. `memoryToo`: else only display contexts are removed.
bool RemoveContext(HDC dc, bool memoryToo);
bool RemoveFont(HGDIOBJ font);
