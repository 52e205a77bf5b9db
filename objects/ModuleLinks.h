// Which managers live, and which of them list a module: what back pointers cannot tell, since copies carry
// them too and a module has only one.
//
// Threads: any. The table is never destroyed: hosts' static objects may end after the library's.
#pragma once

#include <mutex>
#include <unordered_map>
#include <unordered_set>

class CDynModule;
class CDynModuleMgr;

class ModuleLinks
{
public:
    static ModuleLinks& Instance();

    void Begin(const CDynModuleMgr* manager);
    void End(const CDynModuleMgr* manager);
    bool Lives(const CDynModuleMgr* manager);

    // One link for each name under which a manager lists the module.
    void Link(const CDynModule* module, CDynModuleMgr* manager);
    void Unlink(const CDynModule* module, const CDynModuleMgr* manager);
    // A manager that lists the module; null when there is none.
    CDynModuleMgr* ManagerOf(const CDynModule* module);

private:
    std::mutex m_mutex;
    std::unordered_set<const CDynModuleMgr*> m_managers;
    std::unordered_multimap<const CDynModule*, CDynModuleMgr*> m_links;
};
