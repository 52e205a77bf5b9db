#include "BackendLoader.h"

#include "../ModuleSearch.h"

#include <dlfcn.h>
#include <unistd.h>

#include <atomic>
#include <bit>
#include <cstdio>
#include <cstdlib>

namespace {

constexpr const char* kModule = "libzek_windows.so";
constexpr const char* kDisplayVariables[] = {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"};

std::atomic<DWORD> uiThread{0};

// Never unloaded: the toolkit's objects live to the process's end. Binding all of the toolkit's functions at
// once takes as long as everything else that the first window needs.
WindowBackend* Load()
{
    const std::string path = LibraryFolder() + kModule;
    void* module = dlopen(path.c_str(), RTLD_LAZY | RTLD_LOCAL);
    void* symbol = module ? dlsym(module, kCreateWindowBackend) : nullptr;
    if (!symbol) {
        if (access(path.c_str(), F_OK) == 0) // it is there, so windows are expected
            std::fprintf(stderr, "%s\n", dlerror());
        return nullptr;
    }
    return std::bit_cast<ZekCreateWindowBackendFunc*>(symbol)(&TheEvents());
}

} // namespace

bool IsDisplayNamed()
{
    for (const char* name : kDisplayVariables) {
        const char* value = std::getenv(name);
        if (value && *value)
            return true;
    }
    return false;
}

DWORD UiThread()
{
    return uiThread.load();
}

WindowBackend* Backend()
{
    static WindowBackend* const backend = [] {
        WindowBackend* made = Load();
        if (made)
            uiThread = GetCurrentThreadId();
        return made;
    }();
    return backend;
}

bool CanShowWindows()
{
    return IsDisplayNamed() && Backend() && Backend()->HasDisplay();
}
