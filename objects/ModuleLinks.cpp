#include "ModuleLinks.h"

ModuleLinks& ModuleLinks::Instance()
{
    static auto* const links = new ModuleLinks;
    return *links;
}

void ModuleLinks::Begin(const CDynModuleMgr* manager)
{
    const std::lock_guard lock(m_mutex);
    m_managers.insert(manager);
}

void ModuleLinks::End(const CDynModuleMgr* manager)
{
    const std::lock_guard lock(m_mutex);
    m_managers.erase(manager);
}

bool ModuleLinks::Lives(const CDynModuleMgr* manager)
{
    const std::lock_guard lock(m_mutex);
    return m_managers.count(manager) != 0;
}

void ModuleLinks::Link(const CDynModule* module, CDynModuleMgr* manager)
{
    const std::lock_guard lock(m_mutex);
    m_links.emplace(module, manager);
}

void ModuleLinks::Unlink(const CDynModule* module, const CDynModuleMgr* manager)
{
    const std::lock_guard lock(m_mutex);
    const auto [first, last] = m_links.equal_range(module);
    for (auto link = first; link != last; ++link) {
        if (link->second == manager) {
            m_links.erase(link);
            return;
        }
    }
}

CDynModuleMgr* ModuleLinks::ManagerOf(const CDynModule* module)
{
    const std::lock_guard lock(m_mutex);
    const auto found = m_links.find(module);
    return found == m_links.end() ? nullptr : found->second;
}
