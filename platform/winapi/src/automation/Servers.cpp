#include "Servers.h"

#include "ClassKeys.h"

#include <winbase.h>

#include <map>
#include <mutex>

namespace {

using GetClassObject = decltype(&DllGetClassObject);
using CanUnloadNow = decltype(&DllCanUnloadNow);

struct Server {
    HMODULE module = nullptr;
    GetClassObject getClassObject = nullptr;
    CanUnloadNow canUnloadNow = nullptr;
};

struct ServerTable {
    std::mutex lock;
    std::map<std::string, Server> servers; // by the name the registry gives
};

// Never destroyed: servers' objects may live until the process ends.
ServerTable& Table()
{
    static ServerTable* const kTable = new ServerTable;
    return *kTable;
}

template <class Function>
Function Export(HMODULE module, const char* name)
{
    using Untyped = void (*)();
    return reinterpret_cast<Function>(reinterpret_cast<Untyped>(GetProcAddress(module, name)));
}

HRESULT Load(const std::string& name, Server& server)
{
    server.module = LoadLibraryA(name.c_str());
    if (!server.module)
        return CO_E_DLLNOTFOUND;
    server.getClassObject = Export<GetClassObject>(server.module, "DllGetClassObject");
    server.canUnloadNow = Export<CanUnloadNow>(server.module, "DllCanUnloadNow");
    if (server.getClassObject)
        return S_OK;
    FreeLibrary(server.module);
    return CO_E_ERRORINDLL;
}

HRESULT FindServer(const std::string& name, Server& server)
{
    ServerTable& table = Table();
    const std::lock_guard<std::mutex> guard(table.lock);
    if (const auto found = table.servers.find(name); found != table.servers.end()) {
        server = found->second;
        return S_OK;
    }
    const HRESULT loaded = Load(name, server);
    if (SUCCEEDED(loaded))
        table.servers.emplace(name, server);
    return loaded;
}

} // namespace

// The table's lock is not held while the module answers: it may ask for other classes itself.
HRESULT ServeClassObject(REFCLSID clsid, REFIID riid, LPVOID* object)
{
    std::string name;
    if (!ReadClassesText("CLSID\\" + GuidText(clsid) + "\\InprocServer32", name))
        return REGDB_E_CLASSNOTREG;
    Server server;
    const HRESULT found = FindServer(name, server);
    return FAILED(found) ? found : server.getClassObject(clsid, riid, object);
}

void WINAPI CoFreeUnusedLibraries()
{
    ServerTable& table = Table();
    const std::lock_guard<std::mutex> guard(table.lock);
    for (auto server = table.servers.begin(); server != table.servers.end();) {
        const bool unused = server->second.canUnloadNow && server->second.canUnloadNow() == S_OK;
        if (unused)
            FreeLibrary(server->second.module);
        server = unused ? table.servers.erase(server) : std::next(server);
    }
}
