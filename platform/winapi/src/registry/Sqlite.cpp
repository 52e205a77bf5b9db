#include "Sqlite.h"

#include <dlfcn.h>

#include <bit>

namespace {

template <class FUNCTION>
bool Find(void* library, const char* name, FUNCTION& function)
{
    function = std::bit_cast<FUNCTION>(dlsym(library, name));
    return function != nullptr;
}

bool Bind(Sqlite& functions)
{
    void* library = dlopen("libsqlite3.so.0", RTLD_NOW | RTLD_LOCAL);
    if (!library)
        return false;
#define ZEK_SQLITE_FIND(name) &&Find(library, "sqlite3_" #name, functions.name)
    return true ZEK_SQLITE_FUNCTIONS(ZEK_SQLITE_FIND);
#undef ZEK_SQLITE_FIND
}

} // namespace

const Sqlite* LoadSqlite()
{
    static Sqlite functions;
    static const bool bound = Bind(functions);
    return bound ? &functions : nullptr;
}
