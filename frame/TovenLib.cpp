#include <TovenLib.h>

namespace {

ITovenLib* g_instance = nullptr;

} // namespace

ITovenLib::ITovenLib()
{
    g_instance = this;
}

ITovenLib::~ITovenLib()
{
    g_instance = nullptr;
}

ITovenLib* ITovenLib::Instance()
{
    return g_instance;
}
