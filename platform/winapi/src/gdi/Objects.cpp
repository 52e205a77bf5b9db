#include "Objects.h"

#include "../Error.h"

#include <mutex>
#include <unordered_map>

namespace {

// One of the two.
struct Object {
    std::shared_ptr<DeviceContext> context;
    std::shared_ptr<const Font> font;
};

class ObjectTable
{
public:
    HGDIOBJ Add(Object object)
    {
        const std::lock_guard lock(m_mutex);
        m_last += kStep;
        const auto handle = reinterpret_cast<HGDIOBJ>(m_last);
        m_objects.emplace(handle, std::move(object));
        return handle;
    }

    Object Find(HGDIOBJ handle)
    {
        const std::lock_guard lock(m_mutex);
        const auto found = m_objects.find(handle);
        return found == m_objects.end() ? Object{} : found->second;
    }

    void Remove(HGDIOBJ handle)
    {
        const std::lock_guard lock(m_mutex);
        m_objects.erase(handle);
    }

private:
    // Far from those of windows, so that one is never taken for the other.
    static constexpr ULONG_PTR kFirst = 0x21000000, kStep = 4;

    std::mutex m_mutex;
    ULONG_PTR m_last = kFirst;
    std::unordered_map<HGDIOBJ, Object> m_objects;
};

// Never destroyed: other objects' destructors may still release theirs.
ObjectTable& Table()
{
    static auto* const table = new ObjectTable;
    return *table;
}

} // namespace

HDC AddContext(bool isMemory)
{
    const HGDIOBJ font = GetStockObject(SYSTEM_FONT);
    const ContextState state{{}, font, FindFont(font)};
    auto context = std::make_shared<DeviceContext>(DeviceContext{isMemory, state, {}});
    return static_cast<HDC>(Table().Add({std::move(context), nullptr}));
}

HFONT AddFont(const LOGFONTA& description, bool isStock)
{
    return static_cast<HFONT>(Table().Add({nullptr, std::make_shared<Font>(Font{description, isStock})}));
}

std::shared_ptr<DeviceContext> FindContext(HDC dc)
{
    auto context = Table().Find(dc).context;
    if (!context)
        Fail(ERROR_INVALID_HANDLE);
    return context;
}

std::shared_ptr<const Font> FindFont(HGDIOBJ font)
{
    auto found = Table().Find(font).font;
    if (!found)
        Fail(ERROR_INVALID_HANDLE);
    return found;
}

bool RemoveContext(HDC dc, bool memoryToo)
{
    const auto context = FindContext(dc);
    if (!context)
        return false;
    if (context->isMemory && !memoryToo)
        return Fail(ERROR_INVALID_HANDLE);
    Table().Remove(dc);
    return true;
}

bool RemoveFont(HGDIOBJ font)
{
    const auto found = FindFont(font);
    if (found && !found->isStock)
        Table().Remove(font);
    return found != nullptr;
}
