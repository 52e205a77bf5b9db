#include "Plugins.h"

#include <memory>

namespace {

std::unique_ptr<CDynModule> CreateFrom(const char* file)
{
    const HMODULE module = LoadLibraryA(file);
    const FARPROC found = module ? GetProcAddress(module, "CreatePlugin") : nullptr;
    const auto create = reinterpret_cast<CreatePluginFunc*>(reinterpret_cast<void (*)()>(found));
    return std::unique_ptr<CDynModule>(create ? create() : nullptr);
}

} // namespace

bool LoadPlugin(CDynModuleMgr& plugins, const char* name, const char* file)
{
    std::unique_ptr<CDynModule> plugin = CreateFrom(file);
    if (!plugin || !plugins.AddDynModule(name, plugin.get()))
        return false;
    CDynModule* added = plugin.release(); // the manager's now
    if (added->Initialize())
        return true;
    delete added; // leaves the manager by that
    return false;
}
