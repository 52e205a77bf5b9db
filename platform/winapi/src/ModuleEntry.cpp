#include "ModuleAt.h"
#include "ModuleLoad.h"

#include <winbase.h>
#include <zekmodule.h>

#include <cstdio>
#include <cstdlib>

namespace {

thread_local constinit ModuleLoad* t_load = nullptr;

// As on Windows a program does not start when a library that it needs refuses to.
[[noreturn]] void EndProcess()
{
    std::fputs("A library that this program needs could not be initialised.\n", stderr);
    std::_Exit(EXIT_FAILURE);
}

} // namespace

ModuleLoad::ModuleLoad() : m_outer(t_load)
{
    t_load = this;
}

ModuleLoad::~ModuleLoad()
{
    t_load = m_outer;
}

bool ModuleLoad::Refuse()
{
    if (t_load)
        t_load->m_refused = true;
    return t_load != nullptr;
}

ZekModuleEntry::ZekModuleEntry(ZEK_MODULE_ENTRY entry)
    : m_entry(entry), m_instance(ModuleAt(this)), m_attached(entry(m_instance, DLL_PROCESS_ATTACH, nullptr))
{
    if (!m_attached && !ModuleLoad::Refuse())
        EndProcess();
}

ZekModuleEntry::~ZekModuleEntry()
{
    if (m_attached)
        m_entry(m_instance, DLL_PROCESS_DETACH, nullptr);
}
