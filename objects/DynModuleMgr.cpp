#include "DynModuleMgr.h"

#include "ModuleLinks.h"
#include "NamedTable.h"

#include <algorithm>

namespace {

constexpr int kBuckets = 11;

} // namespace

CDynModule::CDynModule() = default;
CDynModule::CDynModule(const CDynModule& other) = default;
CDynModule& CDynModule::operator=(const CDynModule& other) = default;

// The manager of a copy may be gone, and a manager that this module does not know of may list it.
CDynModule::~CDynModule()
{
    ModuleLinks& links = ModuleLinks::Instance();
    if (m_pManager && links.Lives(m_pManager))
        m_pManager->DelDynModule(m_strName);
    while (CDynModuleMgr* manager = links.ManagerOf(this))
        manager->Leave(this);
}

int CDynModule::Initialize()
{
    return 1;
}

CDynModuleMgr::CDynModuleMgr()
{
    Initialize(kBuckets);
    ModuleLinks::Instance().Begin(this);
}

CDynModuleMgr::~CDynModuleMgr()
{
    TakeOutAll(m_modules, [this](CDynModule* module) {
        module->m_pManager = nullptr;
        ModuleLinks::Instance().Unlink(module, this);
        delete module;
    });
    ModuleLinks::Instance().End(this);
}

int CDynModuleMgr::Initialize(int nSize)
{
    if (!m_modules.IsEmpty())
        return 0;
    m_modules.InitHashTable(static_cast<UINT>(std::max(nSize, 1)));
    return 1;
}

int CDynModuleMgr::AddDynModule(const char* name, CDynModule* module)
{
    if (!module)
        return 0;
    const CString kept(name); // `name` may be the module's own
    if (!AddNamed(m_modules, name, module))
        return 0;
    try {
        ModuleLinks::Instance().Link(module, this);
    } catch (...) {
        m_modules.RemoveKey(name);
        throw;
    }
    module->m_strName = kept;
    module->m_pManager = this;
    return 1;
}

int CDynModuleMgr::DelDynModule(const char* name)
{
    CDynModule* module = FindNamed(m_modules, name);
    if (!module)
        return 0;
    m_modules.RemoveKey(name);
    ModuleLinks::Instance().Unlink(module, this);
    module->m_strName.Empty();
    module->m_pManager = nullptr;
    return 1;
}

CDynModule* CDynModuleMgr::GetDynModule(const char* name)
{
    return FindNamed(m_modules, name);
}

// Takes out one entry of a module that ends.
void CDynModuleMgr::Leave(const CDynModule* module)
{
    for (auto* entry = m_modules.PGetFirstAssoc(); entry; entry = m_modules.PGetNextAssoc(entry)) {
        if (entry->value == module) {
            m_modules.RemoveKey(CString(entry->key));
            break;
        }
    }
    ModuleLinks::Instance().Unlink(module, this);
}
