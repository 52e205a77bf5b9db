// Loads two modules in the order given, introduces them to each other, and ends, with or without unloading
// them first:
//   objects_static_life MODULE MODULE exit|unload
#include "LifeModule.h"

#include <ZEK_lib.h>

#include <cstdio>
#include <cstring>

namespace {

// The host's own: it listens while modules are unloaded, and is gone when the process ends.
class HostConnector : public CDBUpdateConnector
{
public:
    void OnUpdate(CView*, LPARAM lHint, CObject*) override
    {
        std::printf("Host hears %d\n", static_cast<int>(lHint));
        std::fflush(stdout);
    }
};

struct Loaded {
    explicit Loaded(const char* name) : module(LoadLibraryA(name)) {}

    template <class Function>
    Function* Find(const char* name) const
    {
        const FARPROC found = module ? GetProcAddress(module, name) : nullptr;
        return reinterpret_cast<Function*>(reinterpret_cast<void (*)()>(found));
    }

    HMODULE module;
};

bool Meet(const Loaded& guest, const Loaded& host)
{
    const auto meet = guest.Find<LifeMeetFunc>("LifeMeet");
    const auto subject = host.Find<LifeSubjectFunc>("LifeSubject");
    const auto modules = host.Find<LifeModulesFunc>("LifeModules");
    if (meet && subject && modules)
        meet(subject(), modules());
    return meet && subject && modules;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 4)
        return 2;
    const HostConnector connector;
    const Loaded modules[] = {Loaded(argv[1]), Loaded(argv[2])};
    if (!Meet(modules[0], modules[1]) || !Meet(modules[1], modules[0]))
        return 1;
    CNotifyCtrl::NotifyUpdate(nullptr, kGreeting, nullptr);
    modules[0].Find<LifeSubjectFunc>("LifeSubject")()->Notify(7, nullptr);
    if (std::strcmp(argv[3], "unload") == 0) {
        for (const Loaded& module : modules)
            FreeLibrary(module.module);
        CNotifyCtrl::NotifyUpdate(nullptr, kGreeting, nullptr);
    }
    return 0;
}
