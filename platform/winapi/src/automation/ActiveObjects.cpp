// The running object of a class, within this process.
#include "Apartment.h"

#include <oleauto.h>

#include <algorithm>
#include <mutex>

namespace {

struct ActiveObject {
    DWORD cookie;
    CLSID clsid;
    IUnknown* object; // counted unless weak
    bool weak;
};

struct ActiveTable {
    std::mutex lock;
    std::vector<ActiveObject> objects;
    DWORD last = 0;
};

ActiveTable& Table()
{
    static ActiveTable* const kTable = new ActiveTable;
    return *kTable;
}

DWORD Add(REFCLSID clsid, IUnknown* object, bool weak)
{
    ActiveTable& table = Table();
    const std::lock_guard<std::mutex> guard(table.lock);
    table.objects.push_back({++table.last, clsid, object, weak});
    return table.last;
}

// What the entry held, not yet released; false when there is no such entry.
bool Remove(DWORD cookie, ActiveObject& removed)
{
    ActiveTable& table = Table();
    const std::lock_guard<std::mutex> guard(table.lock);
    const auto found = std::find_if(table.objects.begin(), table.objects.end(),
                                    [&](const ActiveObject& o) { return o.cookie == cookie; });
    if (found == table.objects.end())
        return false;
    removed = *found;
    table.objects.erase(found);
    return true;
}

} // namespace

HRESULT WINAPI RegisterActiveObject(IUnknown* object, REFCLSID clsid, DWORD flags, DWORD* cookie)
{
    if (!object || !cookie)
        return E_INVALIDARG;
    if (ThisApartment().initialized == 0)
        return CO_E_NOTINITIALIZED;
    const bool weak = (flags & ACTIVEOBJECT_WEAK) != 0;
    try {
        *cookie = Add(clsid, object, weak);
    } catch (...) {
        return E_OUTOFMEMORY;
    }
    if (!weak)
        object->AddRef();
    return S_OK;
}

HRESULT WINAPI RevokeActiveObject(DWORD cookie, void*)
{
    ActiveObject removed;
    if (!Remove(cookie, removed))
        return E_INVALIDARG;
    if (!removed.weak)
        removed.object->Release();
    return S_OK;
}

HRESULT WINAPI GetActiveObject(REFCLSID clsid, void*, IUnknown** object)
{
    if (!object)
        return E_INVALIDARG;
    *object = nullptr;
    if (ThisApartment().initialized == 0)
        return CO_E_NOTINITIALIZED;
    ActiveTable& table = Table();
    const std::lock_guard<std::mutex> guard(table.lock);
    const auto found = std::find_if(table.objects.begin(), table.objects.end(),
                                    [&](const ActiveObject& o) { return o.clsid == clsid; });
    if (found == table.objects.end())
        return MK_E_UNAVAILABLE;
    found->object->AddRef();
    *object = found->object;
    return S_OK;
}
