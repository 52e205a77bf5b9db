#include "ModuleList.h"

#include <atomic>
#include <new>
#include <vector>

// clang-format off
IMPLEMENT_DYNAMIC(CDynLinkLibrary, CCmdTarget)
// clang-format on

constinit CDynLinkLibrary* g_afxFirstLibrary = nullptr;

namespace {

// The initialised libraries, linked through nodes of their own: a library's state may go without a word.
struct Extension {
    const void* mark;
    const AFX_EXTENSION_MODULE* state;
    Extension* next;
};
constinit Extension* g_firstExtension = nullptr;

constinit std::atomic<HINSTANCE> g_resources{nullptr};

void Link(CDynLinkLibrary* library)
{
    const std::lock_guard lock(AfxModuleMutex());
    library->m_pNextDLL = g_afxFirstLibrary;
    g_afxFirstLibrary = library;
}

void Unlink(const CDynLinkLibrary* library)
{
    const std::lock_guard lock(AfxModuleMutex());
    CDynLinkLibrary** link = &g_afxFirstLibrary;
    while (*link && *link != library)
        link = &(*link)->m_pNextDLL;
    if (*link)
        *link = library->m_pNextDLL;
}

// The libraries of a module, or all.
std::vector<CDynLinkLibrary*> LibrariesOf(HMODULE module, BOOL all)
{
    const std::lock_guard lock(AfxModuleMutex());
    std::vector<CDynLinkLibrary*> libraries;
    for (CDynLinkLibrary* library = g_afxFirstLibrary; library; library = library->m_pNextDLL)
        if (all || library->m_hModule == module)
            libraries.push_back(library);
    return libraries;
}

void Forget(const AFX_EXTENSION_MODULE& state)
{
    const std::lock_guard lock(AfxModuleMutex());
    Extension** link = &g_firstExtension;
    while (*link && (*link)->state != &state)
        link = &(*link)->next;
    if (Extension* extension = *link) {
        *link = extension->next;
        delete extension;
    }
}

} // namespace

std::mutex& AfxModuleMutex()
{
    static std::mutex& mutex = *new std::mutex; // static objects of any module use it to their end
    return mutex;
}

bool AfxIsExtension(const void* mark)
{
    const Extension* extension = g_firstExtension;
    while (extension && extension->mark != mark)
        extension = extension->next;
    return extension != nullptr;
}

BOOL AFXAPI AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HMODULE module, const void* mark)
{
    if (state.bInitialized)
        return TRUE;
    auto* extension = new (std::nothrow) Extension{mark, &state, nullptr};
    if (!extension)
        return FALSE;
    state = {TRUE, module, module, mark};
    const std::lock_guard lock(AfxModuleMutex());
    extension->next = g_firstExtension;
    g_firstExtension = extension;
    return TRUE;
}

void AFXAPI AfxTermExtensionModule(AFX_EXTENSION_MODULE& state, BOOL all)
{
    if (!state.bInitialized)
        return;
    for (const CDynLinkLibrary* library : LibrariesOf(state.hModule, all))
        delete library;
    Forget(state);
    state = {};
}

CDynLinkLibrary::CDynLinkLibrary(AFX_EXTENSION_MODULE& state, BOOL system)
    : m_hModule(state.hModule), m_hResource(state.hResource), m_pModule(state.pModule), m_bSystem(system)
{
    Link(this);
}

CDynLinkLibrary::CDynLinkLibrary(HINSTANCE module, HINSTANCE resource)
    : m_hModule(module), m_hResource(resource), m_pModule(nullptr), m_bSystem(FALSE)
{
    Link(this);
}

CDynLinkLibrary::~CDynLinkLibrary()
{
    Unlink(this);
}

HINSTANCE AFXAPI AfxGetInstanceHandle()
{
    return ::GetModuleHandleA(nullptr);
}

HINSTANCE AFXAPI AfxGetResourceHandle()
{
    const HINSTANCE module = g_resources;
    return module ? module : AfxGetInstanceHandle();
}

void AFXAPI AfxSetResourceHandle(HINSTANCE module)
{
    g_resources = module;
}

std::vector<HMODULE> AfxResourceModules()
{
    std::vector<HMODULE> modules = {AfxGetResourceHandle()};
    const std::lock_guard lock(AfxModuleMutex());
    for (const BOOL system : {FALSE, TRUE})
        for (const CDynLinkLibrary* library = g_afxFirstLibrary; library; library = library->m_pNextDLL)
            if (library->m_hResource && library->m_bSystem == system)
                modules.push_back(library->m_hResource);
    return modules;
}
