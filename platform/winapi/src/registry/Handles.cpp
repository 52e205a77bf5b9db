#include "Handles.h"

#include "KeyPath.h"

#include <mutex>
#include <unordered_map>

namespace {

struct HandleTable {
    std::mutex lock;
    std::unordered_map<ULONG_PTR, std::string> paths;
    ULONG_PTR next = 4; // a multiple of four, as handles are
};

// Never destroyed, as the store.
HandleTable& Table()
{
    static HandleTable* const kTable = new HandleTable;
    return *kTable;
}

} // namespace

HKEY OpenHandle(const std::string& path)
{
    if (LevelOf(path) == 0)
        return RootHandle(path);
    HandleTable& table = Table();
    const std::lock_guard<std::mutex> guard(table.lock);
    const ULONG_PTR number = table.next;
    table.next += 4;
    table.paths.emplace(number, path);
    return reinterpret_cast<HKEY>(number);
}

bool PathOfHandle(HKEY key, std::string& path)
{
    path = RootPath(key);
    if (!path.empty())
        return true;
    HandleTable& table = Table();
    const std::lock_guard<std::mutex> guard(table.lock);
    const auto found = table.paths.find(reinterpret_cast<ULONG_PTR>(key));
    if (found == table.paths.end())
        return false;
    path = found->second;
    return true;
}

bool CloseHandleOfKey(HKEY key)
{
    if (!RootPath(key).empty())
        return true;
    HandleTable& table = Table();
    const std::lock_guard<std::mutex> guard(table.lock);
    return table.paths.erase(reinterpret_cast<ULONG_PTR>(key)) != 0;
}
